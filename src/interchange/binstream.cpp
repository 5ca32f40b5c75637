// OxBinStreamSave and OxBinStreamLoad: the whole first-form stream, a part
// count followed by the variable list and one block per dataset.
#include "Ox_BinStream.h"
#include "interchange/binstream_internal.h"

int OxBinStreamSave(const Ox_VariableList &vars, Ox_DatasetList &datasets,
                    Ox_Buffer &buffer, unsigned int codePage, int version,
                    int saveType) {
  const bool secondForm = version >= kOxBinSecondFormVersion;
  // 1. An empty buffer and the part count: the datasets and the variables.
  buffer.Release();
  OxBinWrite16(buffer, static_cast<unsigned>(datasets.Count() + 1) & 0xFFFF);
  // 2. The variable list, through a work buffer.
  Ox_Buffer work;
  if (secondForm) {
    OxBinStreamSaveVars2(vars, work, version);
  } else {
    vars.Save(work, codePage, version);
  }
  buffer.Append(work.GetData(), work.GetSize());
  // 3. Each dataset in list order, through the emptied work buffer.
  for (int i = 0; i < datasets.Count(); ++i) {
    work.Release();
    Ox_Dataset *ds = datasets.GetSafeItem(i);
    if (ds == nullptr) continue;
    if (secondForm) {
      OxBinStreamSaveDataset2(*ds, work, saveType, version);
    } else {
      ds->Save(work, saveType, codePage, version);
    }
    buffer.Append(work.GetData(), work.GetSize());
  }
  return static_cast<int>(buffer.GetSize());
}

int OxBinStreamLoad(Ox_VariableList &vars, Ox_DatasetList &datasets,
                    const Ox_Buffer &buffer, unsigned int codePage) {
  // 1. Both lists start empty.
  vars.Clear();
  datasets.Clear();
  const long size = buffer.GetSize();
  const unsigned char *data = buffer.GetData();
  // 2. Part count, and the second form recognised by its variable magic.
  const unsigned parts = OxBinFits(size, 0, 2) ? OxBinGet16(data) : 0;
  if (OxBinFits(size, 2, 2) && OxBinGet16(data + 2) == kOxMagicVarList2)
    return OxBinStreamLoadWhole2(vars, datasets, buffer, codePage);
  // 3. The variable list, in either form.
  int position = vars.Load(buffer, 2, codePage);
  if (position < 0) position = OxBinStreamLoadVars2(vars, buffer, 2, codePage);
  if (position < 0) {
    vars.Clear();
    return position;
  }
  // 4. A stream must announce at least one part.
  if (parts == 0) return kOxErrBinStreamDataCount;
  // 5. Datasets until the buffer ends; the part count does not limit them.
  int index = 0;
  while (position < size) {
    Ox_Dataset *ds = datasets.GetSafeItem(index, 1);
    if (ds == nullptr) return -1;
    position = ds->Load(buffer, position);
    if (position < 0) return position;
    ++index;
  }
  // 6. The number of datasets.
  return datasets.Count();
}
