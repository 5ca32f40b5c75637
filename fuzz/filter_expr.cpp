// Fuzz entry for the filter expressions of Ox_Dataset. The first byte
// picks the dataset (a physical one or a view over it) and whether the
// first or the second filter level is asked; the rest is the expression.
// A small table of every column type stands behind it.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "Ox_Currency.h"
#include "Ox_Dataset.h"
#include "Ox_DateTime.h"

namespace {

// Four rows of a string, an integer, a decimal, a currency and a date
// column, with a null cell in each row.
void FillTable(Ox_Dataset &ds) {
  ds.AddColumn("S", 1, 10, 1);
  ds.AddColumn("I", 2, 0, 1);
  ds.AddColumn("D", 4, 0, 1);
  ds.AddColumn("C", 5, 0, 1);
  ds.AddColumn("T", 8, 0, 1);
  ds.AddConstStr("K", "k", -1);
  const char *texts[] = {"a", "a=b", " b ", "'q'"};
  for (int i = 0; i < 4; ++i) {
    ds.AppendRow(0);
    ds.SetColumnNF(i, 0, texts[i], -1);
    ds.SetColumnNF(i, 1, static_cast<long>(i - 1));
    ds.SetColumnNF(i, 2, 0.5 * i);
    Ox_Variant money(Ox_Currency(static_cast<long>(i), 0L));
    ds.SetColumnNF(i, 3, &money);
    Ox_Variant date(Ox_DateTime(2024, 1, 1 + i));
    ds.SetColumnNF(i, 4, &date);
    ds.SetColumnNF(i, i, static_cast<const Ox_Variant *>(nullptr));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size == 0) return 0;
  const int mode = data[0];
  // The expression is a zero-terminated text: it ends at the first NUL.
  const std::string text(reinterpret_cast<const char *>(data) + 1, size - 1);

  Ox_Dataset bound(65001u, 1);
  FillTable(bound);
  Ox_Dataset view(65001u, 1);
  view.logicalType = 32;
  view.bindDataset = &bound;
  view.pConsts = bound.pConsts;
  view.pCols = bound.pCols;
  view.pRecs = bound.pRecs;
  view.pOrgBuff = bound.pOrgBuff;
  Ox_Dataset &ds = (mode & 1) != 0 ? view : bound;

  long result;
  if ((mode & 2) != 0) {
    // The second level needs a first one.
    ds.ResetRecIndex();
    ds.recIndexValid = 1;
    result = ds.LocFilter(text.c_str());
    // The first level is left as it was.
    if (ds.recIndex.Count() != ((mode & 1) != 0 ? 8 : 4)) abort();
  } else {
    result = ds.Filter(text.c_str());
    // A physical dataset only marks its rows: the index stays empty.
    if ((mode & 1) == 0 && ds.recIndex.Count() != 0) abort();
  }
  if (result != 0 && result != -1) abort();
  const int rows = ds.GetRowCount();
  if (rows < 0 || rows > 4) abort();
  // A bad expression changes nothing.
  if (result == -1 && ds.filterActive != 0) abort();
  // Both levels can always be removed again: a physical dataset shows all
  // its rows, a view (whose rows are its index pairs) none.
  ds.UnFilter();
  if (ds.GetRowCount() != ((mode & 1) != 0 ? 0 : 4)) abort();
  return 0;
}
