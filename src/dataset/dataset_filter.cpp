// Ox_Dataset, the filter: two levels that hide rows from the visible
// numbering without touching the stored rows.
//
// The first level is recIndex, in force while recIndexValid is set; it is
// also the list that grouping writes its summary rows into. The second is
// filterIndex, in force while filterActive is set: a sub-list of the first
// (its entries are positions in recIndex), which hides rows of a view that
// is already filtered or grouped without disturbing it.
//
// A filter call takes rows out of view: the row named, or the rows that
// match, are the rows hidden. The only condition evaluated here is a
// column equal to a text; anything richer is decided by the caller, row by
// row, who then names the rows to hide or fills recIndex itself. On the
// first level a physical dataset also marks a hidden record with its
// filter bit (0x100), which Sort, AssignNF, Copy and CopyF read; the index
// and the bits need not agree, and the index decides what is visible.
#include <cstring>

#include "Ox_Dataset.h"
#include "dataset/dataset_internal.h"

namespace {

// A view over another dataset's records: two integers a row in recIndex.
bool IsView(const Ox_Dataset &ds) { return !ds.IsPhysical(); }

// A filter expression taken apart: the column and the text its cells must
// show.
struct FilterExpr {
  int col;
  Ox_AString text;
};

// Splits "column=text" at the "=" (a backslash protects one character,
// quotes protect a span, white space around the items goes, quotes come
// off) and checks it. False for a bad expression: no text, no "=", no
// items, or a first item that is not a normal column of the dataset.
bool ParseFilterExpr(const Ox_Dataset &ds, const char *expr, FilterExpr &out) {
  if (expr == nullptr || std::strchr(expr, '=') == nullptr) return false;
  Ox_AStrList items;
  if (items.Parse(expr, "=", '\\', 1, 1, 1, 1, 0) < 1) return false;
  const int col = ds.GetColIndex(items.GetItemNN(0).GetString());
  if (col < 0 || col >= ds.GetNormalCount()) return false;
  out.col = col;
  // "column=" leaves no second item: the text is then empty.
  out.text = items.GetItemNN(1);
  return true;
}

// The row matches when the text form of its cell equals the text exactly,
// case included. Every cell is turned into text, whatever its type: a null
// cell reads as the empty text.
bool Matches(const Ox_Record *record, const FilterExpr &expr) {
  if (record == nullptr) return false;
  const Ox_AString shown = record->GetItemNN(expr.col)->ToString();
  return expr.text.Compare(shown.GetString()) == 0;
}

// Filter(row) on a dataset linked to a document: the same walk on its node
// list and its node index (linkIndex).
void FilterLinkedRow(Ox_Dataset &ds, int row) {
  if (ds.recIndexValid == 0) {
    const int nodes = OxRowsLinkRowCountNF(ds);
    if (row < 0 || row >= nodes) return;
    OxFilterLinkSetNodeFilter(ds, row, 1);
    ds.linkIndex.Reset(nodes);
    ds.linkIndex.Delete(row);
    ds.recIndexValid = 1;
    ds.indexOrdered = 1;
    return;
  }
  if (row < 0 || row >= ds.linkIndex.Count()) return;
  const int entry = ds.linkIndex.Items(row);
  if (OxIndexLevel(entry) > 0) return;
  OxFilterLinkSetNodeFilter(ds, OxIndexValue(entry), 1);
  ds.linkIndex.Delete(row);
}

// Whether pair `row` of a list of pairs (a view's recIndex, a pivot's row
// value list) exists and is a summary row.
bool IsSummaryPair(const Ox_IntList &pairs, int row) {
  const long long at = 2LL * row;
  if (row < 0 || at + 1 >= pairs.Count()) return false;
  return OxIndexLevel(pairs.Items(static_cast<int>(at))) > 0;
}

// Whether pair `row` exists and is a plain row.
bool IsPlainPair(const Ox_IntList &pairs, int row) {
  const long long at = 2LL * row;
  if (row < 0 || at + 1 >= pairs.Count()) return false;
  return OxIndexLevel(pairs.Items(static_cast<int>(at))) == 0;
}

}  // namespace

// ===========================================================================
// First level

long Ox_Dataset::Filter(int row) {
  // 5. A linked dataset does the same on its nodes.
  if (OxIsLinked(*this)) {
    FilterLinkedRow(*this, row);
    return 0;
  }
  if (recIndexValid == 0) {
    // No index yet: `row` is a stored row. The index becomes the identity
    // (pairs on a view) without the hidden row.
    if (!IsView(*this)) {
      // 1. Physical: the record keeps the mark of its hiding.
      Ox_Record *record = recs.GetItem(row);
      if (record == nullptr) return 0;
      record->SetFilter(1);
      recIndex.Reset(recs.Count());
      recIndex.Delete(row);
    } else {
      // 2. A view marks nothing in the bound dataset's records.
      if (pRecs == nullptr || pRecs->GetItem(row) == nullptr) return 0;
      recIndex.Reset2(pRecs->Count(), 0);
      recIndex.Delete(2 * row, 2);
    }
    recIndexValid = 1;
    indexOrdered = 1;
    return 0;
  }
  // With the index in force `row` is a position in it, so that a row
  // already hidden is no longer counted: the call hides the row now at
  // that position. A summary row stays.
  if (!IsView(*this)) {
    // 3. Physical: the entry goes, and its record is marked.
    if (row < 0 || row >= recIndex.Count()) return 0;
    const int entry = recIndex.Items(row);
    if (OxIndexLevel(entry) > 0) return 0;
    Ox_Record *record = recs.GetItem(OxIndexValue(entry));
    if (record != nullptr) record->SetFilter(1);
    recIndex.Delete(row);
    return 0;
  }
  // 4. A view: the pair goes.
  if (!IsPlainPair(recIndex, row)) return 0;
  recIndex.Delete(2 * row, 2);
  return 0;
}

long Ox_Dataset::Filter(const char *expr) {
  // 1. A bad expression changes nothing: parsing comes first.
  FilterExpr parsed;
  if (!ParseFilterExpr(*this, expr, parsed)) return -1;
  // 2. The new filter replaces both levels.
  UnFilter();
  if (!IsView(*this)) {
    // 3. Physical: only the filter bits are set. recIndex is left empty
    // while in force, so no row is visible until the caller rebuilds the
    // index (ResetRecIndex, AppendRowIndex) or Sort rebuilds it from the
    // bits: the caller finishes the filter.
    for (int i = 0; i < recs.Count(); ++i) {
      Ox_Record *record = recs.GetItem(i);
      if (!Matches(record, parsed)) continue;
      record->SetFilter(1);
      recIndexValid = 1;
    }
    return 0;
  }
  // 4. A view: the pairs of the matching rows go. `i` counts the rows of
  // the bound dataset and is not corrected for the pairs already deleted,
  // so each deletion after the first falls one further place ahead of its
  // row; callers rely on this numbering as it stands.
  if (pRecs == nullptr) return 0;
  bool first = true;
  for (int i = 0; i < pRecs->Count(); ++i) {
    if (!Matches(pRecs->GetItem(i), parsed)) continue;
    if (first) {
      recIndex.Reset2(pRecs->Count(), 0);
      recIndexValid = 1;
      indexOrdered = 1;
      first = false;
    }
    if (2LL * i < recIndex.Count()) recIndex.Delete(2 * i, 2);
  }
  return 0;
}

long Ox_Dataset::UnFilter() {
  // 1. The first level, with the summary rows that grouping put in it.
  if (recIndexValid != 0) {
    recIndexValid = 0;
    indexOrdered = 1;
    if (!IsView(*this)) {
      for (int i = 0; i < recs.Count(); ++i) recs.GetItem(i)->SetFilter(0);
    }
    if (OxIsLinked(*this)) {
      OxFilterLinkClearNodeFilters(*this);
      linkIndex.Clear();
    } else {
      recIndex.Clear();
    }
  }
  // 2. The second level.
  if (filterActive != 0) {
    filterActive = 0;
    filterIndex.Clear();
  }
  return 0;
}

// ===========================================================================
// Second level

long Ox_Dataset::LocFilter(int row) {
  // 1. The second level needs a first one to hide rows of.
  if (recIndexValid == 0) return -1;
  if (!IsView(*this)) {
    // 2. Physical: a summary row stays; a plain row's record is marked.
    if (row >= 0 && row < recIndex.Count()) {
      const int entry = recIndex.Items(row);
      if (OxIndexLevel(entry) > 0) return 0;
      Ox_Record *record = recs.GetItem(OxIndexValue(entry));
      if (record != nullptr) record->SetFilter(1);
    }
    if (filterActive == 0) {
      filterActive = 1;
      filterIndex.Reset(recIndex.Count());
    }
  } else if (IsPivot()) {
    // 3. A pivot's first level is its row value list. The second level
    // starts as the identity over it, with the entries of the summary rows
    // marked as summary rows.
    if (IsSummaryPair(rowValueList, row)) return 0;
    if (filterActive == 0) {
      filterActive = 1;
      const int pairs = rowValueList.Count() / 2;
      filterIndex.Reset(pairs);
      for (int i = 0; i < pairs && i < filterIndex.Count(); ++i) {
        if (OxIndexLevel(rowValueList.Items(2 * i)) > 0)
          filterIndex.Set(i, 0x1000000);
      }
    }
  } else {
    // 4. Other views: the pairs of recIndex.
    if (IsSummaryPair(recIndex, row)) return 0;
    if (filterActive == 0) {
      filterActive = 1;
      filterIndex.Reset(recIndex.Count() / 2);
    }
  }
  // 5. `row` names a position of the first level, while the entries of
  // filterIndex move up after each call: the entry at that place goes.
  if (row >= 0 && row < filterIndex.Count()) filterIndex.Delete(row);
  return 0;
}

long Ox_Dataset::LocFilter(const char *expr) {
  // 1. A first level is needed; a bad expression changes nothing.
  if (recIndexValid == 0) return -1;
  FilterExpr parsed;
  if (!ParseFilterExpr(*this, expr, parsed)) return -1;
  // 2. The new second level replaces the old one.
  LocUnFilter();
  // 3. Walk the first level in order, summary rows skipped. A pair of a
  // pivot's row value list names its stored row in its second integer, a
  // pair of a view's recIndex in its first. No filter bit is set here.
  const bool view = IsView(*this);
  const bool pivot = view && IsPivot() != 0;
  const Ox_IntList &list = pivot ? rowValueList : recIndex;
  const Ox_RecList *records = view ? pRecs : &recs;
  if (records == nullptr) return 0;
  const int stride = view ? 2 : 1;
  const int count = list.Count() / stride;
  bool first = true;
  for (int p = 0; p < count; ++p) {
    const int entry = list.Items(p * stride);
    if (OxIndexLevel(entry) > 0) continue;
    const int stored = pivot ? list.Items(p * 2 + 1) : OxIndexValue(entry);
    if (!Matches(records->GetItem(stored), parsed)) continue;
    if (first) {
      filterActive = 1;
      filterIndex.Reset(count);
      first = false;
    }
    // The walk's position is not corrected for the entries already
    // deleted, as in Filter(expr) on a view.
    if (p < filterIndex.Count()) filterIndex.Delete(p);
  }
  return 0;
}

long Ox_Dataset::LocUnFilter() {
  // The filter bits of the first rows of recs, as many as recIndex has
  // entries, whichever rows the index names: LocFilter(row) sets bits on
  // the records it hides, and this is how they are cleared.
  if (!IsView(*this)) {
    for (int i = 0; i < recIndex.Count() && i < recs.Count(); ++i)
      recs.GetItem(i)->SetFilter(0);
  }
  filterIndex.Clear();
  filterActive = 0;
  return 0;
}

// ===========================================================================
// The caller's filter text

int Ox_Dataset::SetFilterStr(const Ox_AString &text) {
  // The text is the caller's: it is kept, never parsed. While it is not
  // empty, regrouping after row changes is switched off.
  filterStr = text;
  filterIndex.Clear();
  recIndex.Clear();
  filterActive = 0;
  recIndexValid = 0;
  // A physical dataset gets an empty first level in force: no row is
  // visible until the caller fills the index.
  if (!IsView(*this) && text.GetLength() > 0) recIndexValid = 1;
  return 1;
}
