// Hand-overs of the row store to the grouping concern and to rows kept in
// an XML node list. Neither concern exists yet: each hook changes nothing
// and gives what the operation gives on a dataset with no groups and an
// empty node list. The owning concern replaces the body with its call.
#include "dataset/dataset_internal.h"

int OxRowsRecalcGroup(Ox_Dataset &) { return 0; }
int OxRowsClearGroup(Ox_Dataset &) { return 0; }
int OxRowsLinkRowCount(const Ox_Dataset &) { return 0; }
int OxRowsLinkRowCountNF(const Ox_Dataset &) { return 0; }
int OxRowsLinkRowIdx(const Ox_Dataset &, int) { return -1; }
int OxRowsLinkRowType(const Ox_Dataset &, int) { return 0; }
int OxRowsLinkRowTypeNF(const Ox_Dataset &, int) { return 0; }
int OxRowsLinkInsertRow(Ox_Dataset &, int) { return -1; }
long OxRowsLinkDeleteRow(Ox_Dataset &, int) { return -1; }
int OxRowsLinkMoveRow(Ox_Dataset &, int, int) { return 0; }
int OxRowsLinkExChangeRow(Ox_Dataset &, int, int) { return 0; }
void OxRowsLinkSetSelect(Ox_Dataset &, int, int) {}
int OxRowsLinkGetSelect(const Ox_Dataset &, int) { return 0; }
int OxRowsLinkClearSelect(Ox_Dataset &) { return 0; }
