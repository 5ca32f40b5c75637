// `oxtool demo`, dataset: typed columns, rows with change tracking, the
// row states and original values, then Reset.
#include "OxClassLib.h"
#include "oxtool_demos.h"
#include "oxtool_print.h"
#include "oxtool_sample.h"

namespace {

int Check(FILE *out, bool ok, const char *what) {
  std::fprintf(out, "  [%s] %s\n", ok ? "ok" : "FAILED", what);
  return ok ? 0 : 1;
}

}  // namespace

int DemoDataset(FILE *out) {
  std::fprintf(out, "== Dataset ==\n");
  Ox_Dataset orders("orders", 65001);
  FillOrders(orders);
  std::fprintf(out, "Three committed rows:\n");
  PrintDataset(out, orders);
  int failures = Check(out, orders.GetColCount() == 4 && orders.GetRowCount() == 3,
                       "3 normal columns and 1 constant, 3 rows");

  std::fprintf(out, "Tracking on; row 0 edited, row 1 deleted, a row appended:\n");
  EditOrders(orders);
  PrintDataset(out, orders);
  failures += Check(out, orders.GetRowType(0) == 4, "the edited row is an update");
  failures += Check(out, orders.GetRowType(orders.GetRowCount() - 1) == 2,
                    "the new row is an insert");
  failures += Check(out, orders.GetDelRowCount() == 1, "one deleted row is kept");

  std::fprintf(out, "After Reset (every change undone):\n");
  orders.Reset();
  PrintDataset(out, orders);
  failures += Check(out, orders.GetRowCount() == 3 && orders.GetOrgBuffCount() == 0,
                    "three normal rows again, no originals");
  std::fprintf(out, "\n");
  return failures;
}
