// Private helpers shared by the source files of Ox_Dataset and its lists.
#ifndef OX_DATASET_INTERNAL_H
#define OX_DATASET_INTERNAL_H

#include "Ox_Dataset.h"

// The key convention of the named item handlers (columns and datasets):
// an item's first member is its name string, which is one
// pointer to characters, and a key is the address of a `const char *`.
// Both are read as a pointer to characters and compared ignoring case, so
// an item itself serves as the key of its own name.
inline int OxCompareNameKey(const void *item, const void *key) {
  if (item == nullptr || key == nullptr) return -1;
  const char *name = *static_cast<const char *const *>(item);
  const char *wanted = *static_cast<const char *const *>(key);
  return ox_stricmpA(name, wanted);
}

// Copies a dataset into another for Ox_DatasetHandler::_AssignItem. The
// copy concern provides AssignNF; until it exists this hook copies the
// identity, code page, constants, columns, rows and original rows, and
// returns the row count. It takes no index and no XML link.
int OxDatasetAssignHook(Ox_Dataset *target, const Ox_Dataset *source);

// ===========================================================================
// Row store: index entries and the resolution of visible rows

// An entry of recIndex or filterIndex: a value in the low 24 bits, a group
// level in the high 8. A level above 0 marks a summary row.
const int kOxIndexValueMask = 0xFFFFFF;
inline int OxIndexValue(int entry) { return entry & kOxIndexValueMask; }
inline int OxIndexLevel(int entry) { return (entry >> 24) & 0xFF; }

// A dataset whose rows live in an XML node list (link mode).
inline bool OxIsLinked(const Ox_Dataset &ds) {
  return ds.editable == 0 && ds.xmlDataset == 1;
}

// Where a visible row leads.
struct OxRowRef {
  enum Kind {
    kNone = -1,            // no such row
    kStored = 0,           // a plain row: `stored` is its stored row
    kSummaryInFilter = 1,  // a summary entry met in filterIndex
    kSummaryInIndex = 2    // a summary entry met in recIndex
  };
  int kind;
  int stored;     // stored row of a plain row, else -1
  int filterPos;  // position read in filterIndex, -1 when not read
  int indexPos;   // position read in recIndex (doubled on a view), or -1
  int entry;      // the entry that decided a summary row
};

// Resolves visible row `row` of `ds`: through filterIndex when
// `useFilter` is set and the filter is in force, then through recIndex
// when it is in force (two integers a row on a dataset that is not
// physical). A stored row must exist in the records the dataset reads: its
// own `recs` when physical, `*pRecs` otherwise.
OxRowRef OxResolveRow(const Ox_Dataset &ds, int row, bool useFilter);

// The records a dataset reads rows from.
const Ox_RecList &OxRowRecords(const Ox_Dataset &ds);

// The row-state half of a cell write (the writer UpdateColumn calls it
// with the value already converted to the column's cell type): stores
// `value` into cell `col` of stored row `row` of ds.recs and, with
// tracking on, moves the row through its states (normal, update, back to
// normal) keeping its original in orgBuff. 1 done, 0 failure (no record,
// no column description, a missing original).
int OxRowsWriteCell(Ox_Dataset &ds, int row, int col, const Ox_Variant &value);

// ===========================================================================
// Row store: hand-overs to concerns that are built elsewhere
//
// Each hook does what its name says once the concern that owns it exists
// (grouping, or rows kept in an XML node list). Until then it changes
// nothing and gives the value noted, which is the result of the same
// operation on a dataset with no groups and an empty node list.

int OxRowsRecalcGroup(Ox_Dataset &ds);  // RecalcGroup; 0
int OxRowsClearGroup(Ox_Dataset &ds);   // ClearGroup; 0
int OxRowsLinkRowCount(const Ox_Dataset &ds);              // 0
int OxRowsLinkRowCountNF(const Ox_Dataset &ds);            // 0
int OxRowsLinkRowIdx(const Ox_Dataset &ds, int stored);    // -1
int OxRowsLinkRowType(const Ox_Dataset &ds, int row);      // 0
int OxRowsLinkRowTypeNF(const Ox_Dataset &ds, int row);    // 0
int OxRowsLinkInsertRow(Ox_Dataset &ds, int row);          // -1
long OxRowsLinkDeleteRow(Ox_Dataset &ds, int row);         // -1
int OxRowsLinkMoveRow(Ox_Dataset &ds, int from, int to);   // 0
int OxRowsLinkExChangeRow(Ox_Dataset &ds, int a, int b);   // 0
void OxRowsLinkSetSelect(Ox_Dataset &ds, int row, int on);  // nothing
int OxRowsLinkGetSelect(const Ox_Dataset &ds, int row);    // 0
int OxRowsLinkClearSelect(Ox_Dataset &ds);                 // 0 nodes

// ===========================================================================
// Cell access: hand-overs to concerns that are built elsewhere
//
// Rows kept in an XML node list and the pivot have their own cell readers.
// Until those concerns exist, each hook gives what it notes: the result of
// the read on a node list or pivot with no rows.

// GetColumnByLink: `out` stays as it was.
void OxCellsLinkGetColumn(const Ox_Dataset &ds, int row, int col,
                          Ox_Variant &out);
// GetColumnNFByLink: `out` stays as it was.
void OxCellsLinkGetColumnNF(const Ox_Dataset &ds, int row, int col,
                            Ox_Variant &out);
// GetColumnNNByLink: _OxNullVariant.
const Ox_Variant *OxCellsLinkGetColumnNN(const Ox_Dataset &ds, int row,
                                         int col);
// GetPivotRowPos(row, column, noFilter): the table cell, -1 for none.
int OxCellsPivotRowPos(const Ox_Dataset &ds, int row, int column,
                       int noFilter);
// The cell of a pivot row by value, sub-sum rows and a negative pivotPos
// included: `out` stays as it was.
void OxCellsPivotGetColumn(const Ox_Dataset &ds, int row, int col,
                           Ox_Variant &out, int pivotPos);

// The range aggregates over visible rows [first, last) that the summary
// rows of a grouping are computed from (GetCount, GetSum, GetMax, GetMin,
// GetAvg, GetCnn), and the test whether a key is single over a range
// (IsSingleGroupKey). The aggregates call those members; the single-key
// test follows its member's rules for physical datasets and views that are
// no pivot until the group concern replaces its body with a call to it.
int OxCellsRangeCount(const Ox_Dataset &ds, int first, int last);
void OxCellsRangeSum(const Ox_Dataset &ds, int col, int first, int last,
                     Ox_Variant &out);
void OxCellsRangeMax(const Ox_Dataset &ds, int col, int first, int last,
                     Ox_Variant &out);
void OxCellsRangeMin(const Ox_Dataset &ds, int col, int first, int last,
                     Ox_Variant &out);
double OxCellsRangeAvg(const Ox_Dataset &ds, int col, int first, int last);
void OxCellsRangeCnn(const Ox_Dataset &ds, int col, int first, int last,
                     Ox_Variant &out);
int OxCellsIsSingleGroupKey(const Ox_Dataset &ds, int first, int last,
                            int level, int col);

// The stored row of the first detail row of summary row `ref` (its entry's
// value read through filterIndex when the entry came from there, then
// through recIndex); -1 when `ref` is no summary row.
int OxCellsSummaryStart(const Ox_Dataset &ds, const OxRowRef &ref);

// ===========================================================================
// Aggregates and lookup: hand-overs to the pivot
//
// The aggregates of a pivot go to the pivot's own aggregates along one row
// (GetPivotCol...) or along one column (GetPivotRow...). Until the pivot
// concern exists each hook gives 0, which is what those members give on a
// dataset that is no pivot. Arguments in their order: value column, row
// (or column), all-kinds flag, first, last, filter flag.
int OxAggPivotColCount(const Ox_Dataset &ds, int col, int row, int all,
                       int first, int last, int filterFlag);
double OxAggPivotColSum(const Ox_Dataset &ds, int col, int row, int all,
                        int first, int last, int filterFlag);
double OxAggPivotColMax(const Ox_Dataset &ds, int col, int row, int all,
                        int first, int last, int filterFlag);
double OxAggPivotColMin(const Ox_Dataset &ds, int col, int row, int all,
                        int first, int last, int filterFlag);
int OxAggPivotRowCount(const Ox_Dataset &ds, int col, int column, int all,
                       int first, int last, int filterFlag);
double OxAggPivotRowSum(const Ox_Dataset &ds, int col, int column, int all,
                        int first, int last, int filterFlag);
double OxAggPivotRowMax(const Ox_Dataset &ds, int col, int column, int all,
                        int first, int last, int filterFlag);
double OxAggPivotRowMin(const Ox_Dataset &ds, int col, int column, int all,
                        int first, int last, int filterFlag);

// Whether visible row `row` is a row of level above 0 (a summary row):
// its entry in filterIndex or recIndex, or in linkIndex on a dataset
// linked to a document.
bool OxAggIsSummaryRow(const Ox_Dataset &ds, int row);

// ===========================================================================
// Filter: hand-overs to concerns that are built elsewhere
//
// A dataset linked to a document keeps a filter bit on each node of its
// node list, and a group dataset finds its rows through the key tree of
// the pivot concern. Until those concerns exist each hook changes nothing
// and gives the value noted: the result on an empty node list, or on a
// group dataset whose tree and records hold no row.

// Sets (on non-zero) or clears the filter bit of node `node`; nothing.
void OxFilterLinkSetNodeFilter(Ox_Dataset &ds, int node, int on);
// Clears the filter bit of every node; nothing.
void OxFilterLinkClearNodeFilters(Ox_Dataset &ds);
// PivotIndex_FindByRec over the row tree (rowDepthList item 1) with
// groupKeyList for `record` of the bound dataset: the row found; -1.
int OxFilterGroupFindByRec(const Ox_Dataset &ds, const Ox_Record &record);
// The first own record, deleted ones skipped, whose key cells agree with
// `record` on every key of groupKeyList; -1.
int OxFilterGroupFindLinear(const Ox_Dataset &ds, const Ox_Record &record);

// ===========================================================================
// Sort: hand-overs to concerns that are built elsewhere
//
// Until grouping and rows kept in an XML node list exist, each hook
// changes nothing.

// ParseGroup, then RecalcGroup: the regroup step of Sort; nothing yet.
void OxSortRegroup(Ox_Dataset &ds);
// Ox_PtrList::Exchange of nodes `a` and `b` of the node list of a dataset
// linked to a document; nothing yet (the node list is empty).
void OxSortLinkExchange(Ox_Dataset &ds, int a, int b);

#endif
