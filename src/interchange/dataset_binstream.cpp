// The dataset's binary stream concern, first form: the column list, the
// row record and the dataset blocks (head, rows, deleted rows, terminator),
// whole and row by row.
#include <climits>

#include "Ox_Dataset.h"
#include "dataset/dataset_internal.h"
#include "interchange/binstream_internal.h"

namespace {

int EndPosition(long size) {
  return size > INT_MAX ? -1 : static_cast<int>(size);
}

}  // namespace

// ===========================================================================
// Ox_ColList

int Ox_ColList::Save(Ox_Buffer &buffer, unsigned int codePage,
                     int version) const {
  // 1. Magic, version and count.
  unsigned char *at = OxBinGrow(buffer, 6);
  if (at == nullptr) return -1;
  at = OxBinPut16(at, kOxMagicColList);
  at = OxBinPut16(at, static_cast<unsigned>(version) & 0xFFFF);
  OxBinPut16(at, static_cast<unsigned>(Count()) & 0xFFFF);
  const bool withFlags = version >= kOxBinLayoutVersion;
  // 2. The columns in declaration order. Each reserves its id and 8 bytes
  //    (the id's length, type, size, flags); below 3100 the flags are not
  //    written, and their 2 bytes per column are left over at the end of
  //    the buffer, beyond the position reported.
  for (int i = 0; i < Count(); ++i) {
    const Ox_ColInfo *column = GetItemByOrgIdx(i);
    if (column == nullptr) column = GetItemNN(i);
    if (OxBinWriteText(buffer, column->id, codePage) < 0) return -1;
    at = OxBinGrow(buffer, withFlags ? 6 : 4);
    if (at == nullptr) return -1;
    at = OxBinPut16(at, static_cast<unsigned short>(column->type));
    at = OxBinPut16(at, static_cast<unsigned short>(column->size));
    if (!withFlags) continue;
    OxBinPut16(at, static_cast<unsigned short>(column->summ));
    if ((column->summ & OX_SUMM_KIND_MASK) == OX_SUMM_TEXT &&
        OxBinWriteText(buffer, column->summText, codePage) < 0)
      return -1;
  }
  const long reported = buffer.GetSize();
  if (!withFlags && Count() > 0 && OxBinGrow(buffer, 2L * Count()) == nullptr)
    return -1;
  return EndPosition(reported);
}

int Ox_ColList::Load(const Ox_Buffer &buffer, int position,
                     unsigned int codePage) {
  // 1. The list starts empty; a short fixed part is a normal end.
  Clear();
  const long size = buffer.GetSize();
  const unsigned char *data = buffer.GetData();
  if (!OxBinFits(size, position, 6)) return EndPosition(size);
  if (OxBinGet16(data + position) != kOxMagicColList) return -1;
  // 2. The block's own version decides on the flags field.
  const bool withFlags =
      OxBinGet16(data + position + 2) >= static_cast<unsigned>(kOxBinLayoutVersion);
  const int count = static_cast<int>(OxBinGet16(data + position + 4));
  position += 6;
  // 3. The columns; the place in the stream is the declaration order.
  Ox_ColInfo column;
  for (int i = 0; i < count; ++i) {
    if (!OxBinFits(size, position, 2)) return EndPosition(size);
    const int idLength = static_cast<int>(OxBinGet16(data + position));
    if (idLength == 0) {
      // A column without id is stepped over by 8 bytes from its length.
      position += 8;
      continue;
    }
    position += 2;
    if (!OxBinFits(size, position, idLength + (withFlags ? 6 : 4)))
      return EndPosition(size);
    column.Clear();
    OxBinReadText(column.id, data + position, idLength, codePage);
    position += idLength;
    column.type = static_cast<short>(OxBinGet16(data + position));
    column.size = static_cast<short>(OxBinGet16(data + position + 2));
    position += 4;
    if (withFlags) {
      column.summ = static_cast<short>(OxBinGet16(data + position));
      position += 2;
      if ((column.summ & OX_SUMM_KIND_MASK) == OX_SUMM_TEXT) {
        if (!OxBinFits(size, position, 2)) return EndPosition(size);
        const int textLength = static_cast<int>(OxBinGet16(data + position));
        position += 2;
        if (!OxBinFits(size, position, textLength)) return EndPosition(size);
        OxBinReadText(column.summText, data + position, textLength, codePage);
        position += textLength;
      }
    }
    column.orgIdx = static_cast<short>(i);
    Add(&column);
  }
  return EndPosition(position < size ? position : size);
}

// ===========================================================================
// Ox_Record

int Ox_Record::Save(Ox_Buffer &buffer, int type, unsigned int codePage) const {
  const int cells = Count();
  const bool convert = OxBinNeedsConversion(codePage);
  // Texts taken as they stand: the whole record is sized first and grows
  // the buffer once, giving the same bytes as a growth per field.
  long size = 6;
  for (int i = 0; !convert && i < cells; ++i)
    size += OxBinVariantSize(*static_cast<const Ox_Variant *>(RawItem(i)));
  unsigned char *at = OxBinGrow(buffer, size);
  if (at == nullptr) return -1;
  at = OxBinPut16(at, static_cast<unsigned>(cells) & 0xFFFF);
  // The given type's low byte, or the record's own with -1.
  at = OxBinPut16(at, static_cast<unsigned>(type == -1 ? GetType() : type) & 0xFF);
  // -1 (no partner) becomes 0xFFFF.
  at = OxBinPut16(at, static_cast<unsigned>(orgRef) & 0xFFFF);
  for (int i = 0; i < cells; ++i) {
    const Ox_Variant *cell = static_cast<const Ox_Variant *>(RawItem(i));
    if (!convert) {
      at = OxBinPutVariant(at, *cell);
    } else if (cell->Save(buffer, codePage) < 0) {
      return -1;
    }
  }
  return EndPosition(buffer.GetSize());
}

int Ox_Record::Load(const Ox_Buffer &buffer, int position,
                    unsigned int codePage) {
  const long size = buffer.GetSize();
  const unsigned char *data = buffer.GetData();
  // 1. The record's fixed part; a short one is a normal end.
  if (!OxBinFits(size, position, 6)) return EndPosition(size);
  const int cells = static_cast<int>(OxBinGet16(data + position));
  SetType(static_cast<int>(OxBinGet16(data + position + 2)) & 0xFF);
  const unsigned partner = OxBinGet16(data + position + 4);
  orgRef = partner == 0xFFFF ? -1 : static_cast<int>(partner);
  position += 6;
  // 2. The cells. Each takes at least its 2-byte type field, so no more
  //    cells are made than the remaining bytes can hold: a whole record
  //    gets all of its cells, a cut one those that were there to read.
  const long room = (size - position) / 2;
  const int made = cells < room ? cells : static_cast<int>(room);
  if (AllocItems(made) != made) return -1;
  for (int i = 0; i < cells; ++i) {
    if (i >= made || !OxBinFits(size, position, 2) || position + 2 >= size)
      return EndPosition(size);
    const short type = static_cast<short>(OxBinGet16(data + position));
    position += 2;
    Ox_Variant *cell = static_cast<Ox_Variant *>(RawItem(i));
    if (type == 0) continue;  // the cell stays null
    const int end = cell->Load(type, buffer, position, codePage);
    if (end < 0) {
      Clear();
      return end;
    }
    position = end;
  }
  return EndPosition(position);
}

// ===========================================================================
// Ox_Dataset: writing

int Ox_Dataset::SaveHead(Ox_Buffer &buffer, unsigned int cp, int version) {
  if (!IsPhysical()) return -1;
  // 1. Magic, version and the code page as given, 0 included.
  unsigned char *at = OxBinGrow(buffer, 8);
  if (at == nullptr) return -1;
  at = OxBinPut16(at, kOxMagicDatasetHead);
  at = OxBinPut16(at, static_cast<unsigned>(version) & 0xFFFF);
  OxBinPut32(at, cp);
  // 2. Identity, constant columns and columns.
  if (OxBinWriteText(buffer, id, cp) < 0) return -1;
  if (constCols.Save(buffer, cp, version) < 0) return -1;
  return cols.Save(buffer, cp, version);
}

// Rows of recs that are written with save types 0 and 1. The walk rises
// while the count falls, so the last rows are not examined once rows of
// type delete have been met; the count is kept as this walk gives it.
static int CountSavedRows(const Ox_RecList &recs) {
  int count = recs.Count();
  for (int i = 0; i < count; ++i) {
    if (recs.GetItem(i)->GetType() == OX_ROW_DELETE) --count;
  }
  return count;
}

int Ox_Dataset::SaveData(Ox_Buffer &buffer, int saveType, unsigned int cp,
                         int position) {
  if (IsLogical()) return -1;
  // 1. The count; none at all means nothing is written.
  const int count = saveType == 2 ? GetUpdateRowCount() : CountSavedRows(recs);
  if (count == 0) return position;
  if (OxBinWrite32(buffer, static_cast<uint32_t>(count)) < 0) return -1;
  cp = OxBinRowCodePage(cp);
  // 2. The rows. With save type 0 every row is a normal row, deleted ones
  //    included, so that the count may fall short of the records.
  for (int i = 0; i < recs.Count(); ++i) {
    const Ox_Record *row = recs.GetItem(i);
    const int type = row->GetType();
    if (saveType == 0) {
      if (row->Save(buffer, OX_ROW_NORMAL, cp) < 0) return -1;
      continue;
    }
    if (type == OX_ROW_DELETE) continue;
    if (saveType == 2 && type != OX_ROW_INSERT && type != OX_ROW_UPDATE) continue;
    if (row->Save(buffer, type, cp) < 0) return -1;
    // An updated row is followed by its original.
    if (type == OX_ROW_UPDATE && row->orgRef >= 0) {
      const Ox_Record *original = orgBuff.GetItem(row->orgRef);
      if (original != nullptr && original->Save(buffer, OX_ROW_UPDATE, cp) < 0)
        return -1;
    }
  }
  return EndPosition(buffer.GetSize());
}

int Ox_Dataset::SaveDeleteData(Ox_Buffer &buffer, unsigned int cp,
                               int position) {
  if (IsLogical()) return -1;
  cp = OxBinRowCodePage(cp);
  // 1. Deleted rows kept by change tracking.
  const int kept = GetDelRowCount();
  if (kept != 0) {
    if (OxBinWrite32(buffer, static_cast<uint32_t>(kept)) < 0) return -1;
    for (int i = 0; i < orgBuff.Count(); ++i) {
      const Ox_Record *row = orgBuff.GetItem(i);
      if (row->GetType() == OX_ROW_DELETE &&
          row->Save(buffer, OX_ROW_DELETE, cp) < 0)
        return -1;
    }
    return EndPosition(buffer.GetSize());
  }
  // 2. Without tracking, rows still marked deleted in recs.
  if (updateFlag != 0) return position;
  int marked = 0;
  for (int i = 0; i < recs.Count(); ++i) {
    if (recs.GetItem(i)->GetType() == OX_ROW_DELETE) ++marked;
  }
  if (marked == 0) return position;
  if (OxBinWrite32(buffer, static_cast<uint32_t>(marked)) < 0) return -1;
  for (int i = 0; i < recs.Count(); ++i) {
    const Ox_Record *row = recs.GetItem(i);
    if (row->GetType() == OX_ROW_DELETE && row->Save(buffer, OX_ROW_DELETE, cp) < 0)
      return -1;
  }
  return EndPosition(buffer.GetSize());
}

int Ox_Dataset::Save(Ox_Buffer &buffer, int saveType, unsigned int cp,
                     int version) {
  // 1. Only a dataset that holds its own rows and columns is written.
  if (!IsPhysical()) return -1;
  int position = SaveHead(buffer, cp, version);
  if (position < 0) return -1;
  // 2. Rows, then deleted rows; a logical group dataset has neither.
  if (!IsLogical()) {
    position = SaveData(buffer, saveType, cp, position);
    if (position < 0) return -1;
    if (saveType == 1 || saveType == 2) {
      position = SaveDeleteData(buffer, cp, position);
      if (position < 0) return -1;
    }
  }
  // 3. The terminator, stored at the position the last writer reported.
  //    Only below 3100 can that lie before the buffer's end, and the bytes
  //    there are the zeros left over by the column list, so appending four
  //    zeros gives the same bytes.
  if (OxBinWrite32(buffer, 0) < 0) return -1;
  return position + 4;
}

int Ox_Dataset::SaveNext(Ox_Buffer &buffer, unsigned int cp, int firstRow,
                         int rowCount) {
  if (IsLogical()) return -1;
  const int total = recs.Count();
  if (firstRow < 0) return -1;
  if (firstRow >= total || rowCount == 0) return EndPosition(buffer.GetSize());
  // The count field says end row minus first row, but the walk goes on to
  // the last row of the list.
  const int endRow = rowCount > 0 && rowCount <= total - firstRow
                         ? firstRow + rowCount
                         : total;
  if (OxBinWrite32(buffer, static_cast<uint32_t>(endRow - firstRow)) < 0)
    return -1;
  cp = OxBinRowCodePage(cp);
  for (int i = firstRow; i < total; ++i) {
    if (recs.GetItem(i)->Save(buffer, OX_ROW_NORMAL, cp) < 0) return -1;
  }
  return EndPosition(buffer.GetSize());
}

// ===========================================================================
// Ox_Dataset: reading

int Ox_Dataset::LoadHead(const Ox_Buffer &buffer, int position) {
  if (!IsPhysical()) return -1;
  const long size = buffer.GetSize();
  const unsigned char *data = buffer.GetData();
  // 1. Magic and version; the version is not used.
  if (!OxBinFits(size, position, 4)) return EndPosition(size);
  if (OxBinGet16(data + position) != kOxMagicDatasetHead) {
    ClearAll();
    return -1;
  }
  position += 4;
  // 2. The code page, 0 meaning the locale's.
  if (!OxBinFits(size, position, 4)) return EndPosition(size);
  const unsigned cp = OxBinGet32(data + position);
  codePage = cp != 0 ? cp : OxGetLocaleCP();
  position += 4;
  // 3. The identifier, in the dataset's code page.
  if (!OxBinFits(size, position, 2)) return EndPosition(size);
  const int idLength = static_cast<int>(OxBinGet16(data + position));
  position += 2;
  if (!OxBinFits(size, position, idLength)) return EndPosition(size);
  OxBinReadText(id, data + position, idLength, codePage);
  position += idLength;
  // 4. Constant columns and columns.
  position = constCols.Load(buffer, position, codePage);
  if (position >= 0) position = cols.Load(buffer, position, codePage);
  if (position < 0) ClearAll();
  return position;
}

int Ox_Dataset::LoadData(const Ox_Buffer &buffer, int position, int &count) {
  if (IsLogical()) return -1;
  const long size = buffer.GetSize();
  const unsigned char *data = buffer.GetData();
  // 1. The count. Fewer than its 4 bytes left is the end of the buffer.
  if (!OxBinFits(size, position, 4)) return EndPosition(size);
  count = static_cast<int32_t>(OxBinGet32(data + position));
  position += 4;
  if (count < 1) return position;
  // 2. The records. A false count ends at the buffer's end: every record
  //    takes at least 6 bytes or ends the buffer, so no room is reserved.
  const unsigned rowPage = OxBinRowCodePage(codePage);
  for (int i = 0; i < count; ++i) {
    if (position >= size) return EndPosition(size);
    const int at = recs.Add(static_cast<const Ox_Record *>(nullptr));
    Ox_Record *row = recs.GetItem(at);
    if (row == nullptr) return -1;
    position = row->Load(buffer, position, rowPage);
    if (position < 0) {
      ClearAll();
      return position;
    }
    const int type = row->GetType();
    if (type == OX_ROW_DELETE) {
      // A deleted row lives in orgBuff only; the link keeps it alive.
      orgBuff.AddLink(row);
      recs.Delete(at);
    } else if (type == OX_ROW_UPDATE && row->orgRef >= 0) {
      // The original follows; the two point at each other.
      const int kept = orgBuff.Add(static_cast<const Ox_Record *>(nullptr));
      Ox_Record *original = orgBuff.GetItem(kept);
      if (original == nullptr) return -1;
      position = original->Load(buffer, position, rowPage);
      if (position < 0) {
        ClearAll();
        return position;
      }
      row->orgRef = kept;
      original->orgRef = at;
    } else if (type == OX_ROW_INSERT) {
      ++changeCount;
    }
  }
  return position;
}

// The group rule that closes a load: grouping is worked out again for the
// rows read. `usePivot` lets a pivot key keep it from running.
static void ApplyGroupAfterLoad(Ox_Dataset &ds, bool usePivot) {
  if (usePivot && ds.pivotKeyStr.GetLength() != 0) return;
  if (ds.groupStr.GetLength() == 0) return;
  OxBinStreamParseGroup(ds);
  OxRowsRecalcGroup(ds);
}

int Ox_Dataset::LoadRowBlocks(const Ox_Buffer &buffer, int position) {
  // Row blocks and deleted-row blocks are read alike, until the
  // terminator's count of 0 or a failure.
  int count = 0;
  do {
    count = 0;
    position = LoadData(buffer, position, count);
  } while (count > 0 && position >= 0);
  return position;
}

int Ox_Dataset::Load(const Ox_Buffer &buffer, int position) {
  // 1. A fresh start on a dataset that holds its rows.
  if (!IsPhysical()) return -1;
  ClearAll();
  // 2. A head of the second form goes to its own reader.
  const long size = buffer.GetSize();
  if (OxBinFits(size, position, 2) &&
      OxBinGet16(buffer.GetData() + position) == kOxMagicDatasetHead2) {
    position = OxBinStreamLoadHead2(*this, buffer, position);
    if (position >= 1) position = OxBinStreamLoadData2(*this, buffer, position);
  } else {
    // 3. Head, then row blocks until the terminator.
    position = LoadHead(buffer, position);
    if (position < 0) return position;
    position = LoadRowBlocks(buffer, position);
  }
  // 4. Grouping, unless a pivot key is in force.
  ApplyGroupAfterLoad(*this, true);
  return position;
}

int Ox_Dataset::LoadNext(const Ox_Buffer &buffer, int position,
                         int &rowCount) {
  if (!IsPhysical()) return -1;
  position = LoadData(buffer, position, rowCount);
  // The sort and filter indexes no longer cover the rows: they are built
  // again on next use.
  recIndex.Clear();
  recIndexValid = 0;
  filterIndex.Clear();
  filterActive = 0;
  ApplyGroupAfterLoad(*this, true);
  return position;
}

int Ox_Dataset::LoadDataBin(const Ox_Buffer &buffer, int clear) {
  if (clear != 0) ClearAll();
  int position = 0;
  const long size = buffer.GetSize();
  if (OxBinFits(size, 0, 2) &&
      OxBinGet16(buffer.GetData()) == kOxMagicDatasetHead2) {
    position = OxBinStreamLoadHead2(*this, buffer, 0);
    if (position < 0) return position;
    position = OxBinStreamLoadData2(*this, buffer, position);
  } else {
    position = LoadHead(buffer, 0);
    if (position < 0) return position;
    position = LoadRowBlocks(buffer, position);
  }
  // Grouping whatever the pivot key says.
  ApplyGroupAfterLoad(*this, false);
  return position;
}
