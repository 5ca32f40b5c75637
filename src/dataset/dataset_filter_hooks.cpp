// Hand-overs of the filter to rows kept in an XML node list and to the key
// tree of a group dataset. Neither concern exists yet: each hook changes
// nothing and gives what the operation gives on an empty node list, or on
// a group dataset whose tree and records hold no row. The owning concern
// replaces the body with its call.
#include "dataset/dataset_internal.h"

void OxFilterLinkSetNodeFilter(Ox_Dataset &, int, int) {}
void OxFilterLinkClearNodeFilters(Ox_Dataset &) {}
int OxFilterGroupFindByRec(const Ox_Dataset &, const Ox_Record &) { return -1; }
int OxFilterGroupFindLinear(const Ox_Dataset &, const Ox_Record &) {
  return -1;
}
