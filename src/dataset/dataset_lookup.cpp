// Ox_Dataset, lookups: the first row whose cell has a given text, or that
// matches a pattern, and the text of one column by the key in another.
// Each lookup scans; nothing is indexed.
//
// A cell is compared by its text (ToString). A row is tested only when
// the text sought is non-empty or the cell is not null, so an empty text
// finds the first cell holding an empty text and never a null cell.
#include "Ox_Dataset.h"
#include "dataset/dataset_internal.h"

namespace {

// Whether `cell` has exactly the text `text` (case counts).
bool TextMatches(const Ox_Variant &cell, const Ox_AString &text) {
  if (text.GetLength() == 0 && cell.GetType() == Ox_Variant::kNull)
    return false;
  return cell.ToString().Compare(text.GetString()) == 0;
}

// A pattern with "%" at its ends, taken apart: "abc" and "abc%" match a
// prefix, "%abc" and "%abc%" a part anywhere; case is ignored.
struct Pattern {
  Ox_AString text;  // the pattern without its "%" ends
  int length;       // its length, the count of the prefix comparison
  bool contains;    // a part anywhere, else a prefix

  explicit Pattern(const Ox_AString &pattern) : text(pattern), contains(false) {
    length = text.GetLength();
    if (length > 0) {
      // A trailing "%" goes first, then a leading one, which also makes
      // the match one of a part anywhere.
      if (text.GetAt(length - 1) == '%') {
        --length;
        text = text.Left(length);
      }
      if (pattern.GetAt(0) == '%') {
        contains = true;
        if (length > 0) {
          --length;
          text = text.Mid(1);
        }
      }
    }
  }

  bool Matches(const Ox_Variant &cell) const {
    // An empty pattern ("%" alone, or nothing) matches any non-null cell.
    if (length == 0) return cell.GetType() != Ox_Variant::kNull;
    const Ox_AString cellText = cell.ToString();
    if (contains) return cellText.Findi(text.GetString()) >= 0;
    return ox_strnicmpA(text.GetString(), cellText.GetString(), length) == 0;
  }
};

// Walks rows [first, last) of `ds` with the reader of visible rows (which
// passes over summary rows) or of stored rows, and gives the first row
// whose cell `match` accepts; -1 if none.
template <typename Match>
int FirstRow(const Ox_Dataset &ds, int col, int first, int last, bool stored,
             Match match) {
  Ox_Variant cell;
  for (int row = first; row < last; ++row) {
    cell.Clear();
    if (stored) {
      ds.GetColumnNF(row, col, cell, -1);
    } else {
      if (OxAggIsSummaryRow(ds, row)) continue;
      ds.GetColumn(row, col, cell, -1);
    }
    if (match(cell)) return row;
  }
  return -1;
}

// `last` below 0 or above `rows` becomes `rows`.
int LastRow(int last, int rows) {
  return (last < 0 || last > rows) ? rows : last;
}

}  // namespace

// ===========================================================================
// Rows by text

int Ox_Dataset::LookupDataRow(const Ox_AString &col, const Ox_AString &text,
                              int first, int last) const {
  const int rows = GetRowCount();
  // 1.-2. A first row below 0 searches every row.
  if (first < 0) {
    first = 0;
    last = rows;
  }
  last = LastRow(last, rows);
  // 3. An empty range or an unknown column finds nothing.
  if (first >= last) return -1;
  const int c = GetColIndex(col.GetString());
  if (c < 0) return -1;
  // 4. Plain rows, cells by value.
  return FirstRow(*this, c, first, last, false, [&](const Ox_Variant &cell) {
    return TextMatches(cell, text);
  });
}

int Ox_Dataset::LookupDataRowNF(const Ox_AString &col, const Ox_AString &text,
                                int first, int last) const {
  if (first < 0) first = 0;
  last = LastRow(last, GetRowCountNF());
  if (first >= last) return -1;
  const int c = GetColIndex(col.GetString());
  if (c < 0) return -1;
  return FirstRow(*this, c, first, last, true, [&](const Ox_Variant &cell) {
    return TextMatches(cell, text);
  });
}

// ===========================================================================
// Rows by pattern

int Ox_Dataset::LookupDataRowAs(const Ox_AString &col,
                                const Ox_AString &pattern, int first,
                                int last) const {
  // 1. The range.
  if (first < 0) first = 0;
  last = LastRow(last, GetRowCount());
  if (first >= last) return -1;
  // 2. The pattern, 3. the column.
  const Pattern wanted(pattern);
  const int c = GetColIndex(col.GetString());
  if (c < 0) return -1;
  // 4. Plain rows, cells by value.
  return FirstRow(*this, c, first, last, false,
                  [&](const Ox_Variant &cell) { return wanted.Matches(cell); });
}

int Ox_Dataset::LookupDataRowNFAs(const Ox_AString &col,
                                  const Ox_AString &pattern, int first,
                                  int last) const {
  if (first < 0) first = 0;
  last = LastRow(last, GetRowCountNF());
  if (first >= last) return -1;
  const Pattern wanted(pattern);
  const int c = GetColIndex(col.GetString());
  if (c < 0) return -1;
  return FirstRow(*this, c, first, last, true,
                  [&](const Ox_Variant &cell) { return wanted.Matches(cell); });
}

// ===========================================================================
// Text by key

const Ox_Variant *Ox_Dataset::LookupDataText(const Ox_AString &keycol,
                                             const Ox_AString &text,
                                             const Ox_AString &valcol) const {
  // A view looks in the dataset it is bound to.
  if (IsLogical() && !IsPhysical()) {
    return bindDataset != nullptr
               ? bindDataset->LookupDataText(keycol, text, valcol)
               : nullptr;
  }
  const int key = GetColIndex(keycol.GetString());
  const int value = GetColIndex(valcol.GetString());
  if (key < 0 || value < 0) return nullptr;
  // Stored rows in their order, filter and levels ignored; a missing row
  // or key cell is passed over.
  for (int row = 0; row < recs.Count(); ++row) {
    const Ox_Record *record = recs.GetItem(row);
    if (record == nullptr) continue;
    const Ox_Variant *cell = record->GetItem(key);
    if (cell == nullptr || !TextMatches(*cell, text)) continue;
    return record->GetItem(value);
  }
  return nullptr;
}

void Ox_Dataset::LookupDataText(const Ox_AString &keycol,
                                const Ox_AString &text,
                                const Ox_AString &valcol, Ox_Variant &out) {
  if (!OxIsLinked(*this)) {
    // A null result clears `out`.
    const Ox_Variant *found = LookupDataText(keycol, text, valcol);
    if (found != nullptr) {
      out = *found;
    } else {
      out.Clear();
    }
    return;
  }
  // Rows kept in a node list: both cells by the node reader; `out` stays
  // as it was when nothing matches.
  const int key = GetColIndex(keycol.GetString());
  const int value = GetColIndex(valcol.GetString());
  if (key < 0 || value < 0) {
    out.Clear();
    return;
  }
  const int rows = GetRowCountNF();
  Ox_Variant cell;
  for (int row = 0; row < rows; ++row) {
    cell.Clear();
    OxCellsLinkGetColumn(*this, row, key, cell);
    if (!TextMatches(cell, text)) continue;
    cell.Clear();
    OxCellsLinkGetColumn(*this, row, value, cell);
    out = cell;
    return;
  }
}
