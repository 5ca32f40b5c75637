// Hand-overs of the sort to grouping and to rows kept in an XML node list.
// Neither concern exists yet: each hook changes nothing. The owning
// concern replaces the body with its call.
#include "dataset/dataset_internal.h"

// ParseGroup, then RecalcGroup, once grouping exists.
void OxSortRegroup(Ox_Dataset &) {}

// Ox_PtrList::Exchange(a, b) on the node list, once it exists.
void OxSortLinkExchange(Ox_Dataset &, int, int) {}
