// Ox_Dataset as a whole: construction, statics, ClearAll and the code page;
// the dataset handler and Ox_DatasetList. Records and their list are in
// ox_record.cpp; variables and their list in the interchange sources.
#include <new>

#include "Ox_Dataset.h"
#include "dataset/dataset_internal.h"

// Constant-initialised handlers: usable whatever the order of the library's
// static constructors.
Ox_DatasetHandler Ox_Dataset::_OxDatasetHandler;
// The null dataset takes a fixed code page, so that building it reads no
// locale while the library loads.
const Ox_Dataset Ox_Dataset::_OxNullDataset(65001u, 1);

// ===========================================================================
// Ox_Dataset: construction

namespace {
// 0 means the locale's code page; UTF-16 is kept as UTF-8.
unsigned int ResolveCodePage(unsigned int cp) {
  if (cp == 0) return OxGetLocaleCP();
  if (cp == 1200) return 65001;
  return cp;
}
}  // namespace

Ox_Dataset::Ox_Dataset() : cols(1) { InitMembers(0, nullptr, 0); }

Ox_Dataset::Ox_Dataset(unsigned int cp, int colFlag) : cols(colFlag) {
  InitMembers(cp, nullptr, 0);
}

Ox_Dataset::Ox_Dataset(const Ox_AString &text, unsigned int cp) : cols(1) {
  InitMembers(cp, text.GetString(), text.GetLength());
}

Ox_Dataset::Ox_Dataset(const char *text, unsigned int cp) : cols(1) {
  InitMembers(cp, text, -1);
}

// Every member's default; the list members are built by their own
// constructors (empty).
void Ox_Dataset::InitMembers(unsigned int cp, const char *idText,
                             int idLength) {
  if (idText != nullptr) id.Set(idText, idLength);
  codePage = ResolveCodePage(cp);
  logicalType = 0;
  pivotFlag = 0;
  bindDataset = nullptr;
  pConsts = &constCols;
  pCols = &cols;
  pRecs = &recs;
  pOrgBuff = &orgBuff;
  depthValid = 1;
  valueValid = 1;
  tableValid = 1;
  filterActive = 0;
  reverseSubSum = 0;
  changeCount = 0;
  recIndexValid = 0;
  groupFlag = 0;
  updateFlag = 0;
  singleGroupLevel = 0;
  recalcEnabled = 0;
  autoRecalc = 1;
  indexOrdered = 1;
  editable = 0;
  xmlDataset = 0;
  domNodeList = nullptr;
  domSelection = nullptr;
}

Ox_Dataset::~Ox_Dataset() {
  // The row lists first, then the indexes; the lists' own destructors do
  // the rest. The pivot trees (colDepthList, rowDepthList, pivotTable), the
  // node list and the XML selection stay empty until the pivot and XML
  // concerns fill them, and those concerns add their release here.
  recs.Clear();
  orgBuff.Clear();
}

void Ox_Dataset::InitWithMemory(Ox_Dataset *item) {
  if (item != nullptr) new (item) Ox_Dataset();
}

void Ox_Dataset::FreeWithMemory(Ox_Dataset *item) {
  if (item != nullptr) item->~Ox_Dataset();
}

void Ox_Dataset::SetId(const Ox_AString &text) { id = text; }

void Ox_Dataset::SetId(const char *text, int length) { id.Set(text, length); }

// ===========================================================================
// Whole-object operations

void Ox_Dataset::SetCurrentCodePage(unsigned int cp) {
  // Nothing is converted: another code page loses rows and columns.
  if (cp == 0 || cp == codePage) return;
  ClearAll();
  codePage = cp;
}

void Ox_Dataset::ClearAll() {
  // 1. The own lists of rows, columns and constants.
  recs.Clear();
  cols.Clear();
  constCols.Clear();
  orgBuff.Clear();
  // 2. The row index.
  recIndex.Clear();
  changeCount = 0;
  recIndexValid = 0;
  // 3. The keys of a dataset that is not a view.
  if (!IsLogical()) {
    groupKeyList.Clear();
    pivotColType.Clear();
    pivotKeyList.Clear();
    groupFlag = 0;
    pivotFlag = 0;
  }
  // 4. The second-level filter.
  filterIndex.Clear();
  filterActive = 0;
  indexOrdered = 1;
}

// ===========================================================================
// Dataset handler and list

void *Ox_DatasetHandler::_InitItem(void *item) {
  Ox_Dataset::InitWithMemory(static_cast<Ox_Dataset *>(item));
  return item;
}

void Ox_DatasetHandler::_FreeItem(void *item) {
  Ox_Dataset::FreeWithMemory(static_cast<Ox_Dataset *>(item));
}

void Ox_DatasetHandler::_AssignItem(void *target, void *source) {
  if (target == nullptr || source == nullptr) return;
  OxDatasetAssignHook(static_cast<Ox_Dataset *>(target),
                      static_cast<const Ox_Dataset *>(source));
}

int Ox_DatasetHandler::_CompareItem(void *item, void *key) {
  return OxCompareNameKey(item, key);
}

int OxDatasetAssignHook(Ox_Dataset *target, const Ox_Dataset *source) {
  if (target == source) return 0;
  target->ClearAll();
  target->id = source->id;
  target->codePage = source->codePage;
  target->constCols.Clear();
  for (int i = 0; i < source->constCols.Count(); ++i) {
    const Ox_Variable *item = source->constCols.GetItem(i);
    if (item != nullptr) target->constCols.AddVariable(item->id, item->var);
  }
  target->cols.Assign(&source->cols);
  target->recs.Assign(&source->recs);
  target->orgBuff.Assign(&source->orgBuff);
  target->changeCount = source->changeCount;
  return target->recs.Count();
}

Ox_DatasetList::Ox_DatasetList()
    : Ox_ObjList(&Ox_Dataset::_OxDatasetHandler, 1) {}
Ox_DatasetList::Ox_DatasetList(int unique)
    : Ox_ObjList(&Ox_Dataset::_OxDatasetHandler, unique) {}
Ox_DatasetList::~Ox_DatasetList() {}

int Ox_DatasetList::FindId(const char *id) const {
  const char *key = id;
  return FindItem(&key);
}

const Ox_Dataset *Ox_DatasetList::GetItem(int index) const {
  return static_cast<const Ox_Dataset *>(Ox_ObjList::GetItem(index));
}

const Ox_Dataset *Ox_DatasetList::GetItem(const char *id) const {
  const int index = FindId(id);
  return index >= 0 ? GetItem(index) : nullptr;
}

const Ox_Dataset *Ox_DatasetList::GetItemNN(int index) const {
  const Ox_Dataset *item = GetItem(index);
  return item != nullptr ? item : &Ox_Dataset::_OxNullDataset;
}

Ox_Dataset *Ox_DatasetList::GetSafeItem(int index, int grow) {
  return static_cast<Ox_Dataset *>(Ox_ObjList::GetSafeItem(index, grow));
}

Ox_Dataset *Ox_DatasetList::GetSafeItem(const char *id, int grow) {
  int index = FindId(id);
  if (index < 0) {
    if (grow == 0 || id == nullptr) return nullptr;
    index = Ox_ObjList::Add(nullptr);
    Ox_Dataset *made = GetSafeItem(index, 0);
    if (made == nullptr) return nullptr;
    made->SetId(id);
    return made;
  }
  return GetSafeItem(index, 0);
}

int Ox_DatasetList::AddLink(Ox_Dataset *dataset) {
  if (dataset == nullptr) return -1;
  return Ox_ObjList::AddLink(dataset);
}
