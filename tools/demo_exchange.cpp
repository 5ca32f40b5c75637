// `oxtool demo`, exchange: the edited orders and the call's parameters go
// into a binary stream with each save type and come back on the other
// side, with their row states.
#include "OxClassLib.h"
#include "oxtool_demos.h"
#include "oxtool_print.h"
#include "oxtool_sample.h"

namespace {

int Check(FILE *out, bool ok, const char *what) {
  std::fprintf(out, "  [%s] %s\n", ok ? "ok" : "FAILED", what);
  return ok ? 0 : 1;
}

const char *SaveTypeText(int saveType) {
  switch (saveType) {
    case 0: return "0, all rows as normal rows";
    case 1: return "1, all rows with their types, and the deleted rows";
    default: return "2, only inserted, updated and deleted rows";
  }
}

// Rows the receiver must see for each save type: 3 visible rows for 0 and
// 1; for 2, the update and the insert only. Deleted rows travel with 1, 2.
int ExchangeOnce(FILE *out, int saveType) {
  Ox_VariableList parameters;
  FillParameters(parameters);
  Ox_Dataset *orders = new Ox_Dataset("orders", 65001);
  FillOrders(*orders);
  EditOrders(*orders);
  Ox_DatasetList sent;
  sent.AddLink(orders);

  Ox_Buffer wire;
  const int size = OxBinStreamSave(parameters, sent, wire, 65001, 3100, saveType);
  std::fprintf(out, "Save type %s: %d bytes on the wire\n", SaveTypeText(saveType), size);

  Ox_VariableList received;
  Ox_DatasetList datasets;
  const int count = OxBinStreamLoad(received, datasets, wire, 65001);
  int failures = Check(out, size > 0 && count == 1, "saved, and loaded back one dataset");
  const Ox_Dataset *back = datasets.GetItem(0);
  if (count != 1 || !back) {
    delete orders;
    return failures + 1;
  }
  PrintVariables(out, received);
  PrintDataset(out, *back);
  failures += Check(out, received.Count() == 3, "three parameters arrived");
  const int expectedRows = saveType == 2 ? 2 : 3;
  const int expectedDeleted = saveType == 0 ? 0 : 1;
  failures += Check(out, back->GetRowCount() == expectedRows, "the rows of this save type arrived");
  failures += Check(out, back->GetDelRowCount() == expectedDeleted,
                    "the deleted rows of this save type arrived");
  if (saveType != 0)
    failures += Check(out, back->GetRowType(0) == 4, "the update is still an update");
  delete orders;
  return failures;
}

}  // namespace

int DemoExchange(FILE *out) {
  std::fprintf(out, "== One exchange through the binary stream ==\n");
  int failures = 0;
  for (int saveType = 0; saveType <= 2; ++saveType)
    failures += ExchangeOnce(out, saveType);
  std::fprintf(out, "\n");
  return failures;
}
