// Hand-overs of the first binary stream to the second form and to the
// grouping concern. Neither exists yet: each hook changes nothing and
// reports failure, so that a second-form block is refused rather than
// misread, and a dataset with a group text keeps its rows as they are.
// The owning concern replaces the body with its call.
#include "Ox_Dataset.h"
#include "Ox_Variable.h"
#include "interchange/binstream_internal.h"

int OxBinStreamSaveVars2(const Ox_VariableList &, Ox_Buffer &, int) {
  return -1;
}
int OxBinStreamSaveDataset2(Ox_Dataset &, Ox_Buffer &, int, int) { return -1; }
int OxBinStreamLoadVars2(Ox_VariableList &, const Ox_Buffer &, int, unsigned) {
  return -1;
}
int OxBinStreamLoadHead2(Ox_Dataset &, const Ox_Buffer &, int) { return -1; }
int OxBinStreamLoadData2(Ox_Dataset &, const Ox_Buffer &, int) { return -1; }
int OxBinStreamLoadWhole2(Ox_VariableList &, Ox_DatasetList &,
                          const Ox_Buffer &, unsigned) {
  return kOxErrBinStreamDataCount;
}
int OxBinStreamParseGroup(Ox_Dataset &) { return 0; }
