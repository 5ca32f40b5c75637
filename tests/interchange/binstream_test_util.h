// Shared helpers of the binary stream tests: buffers from hand-written
// bytes, and small datasets built cell by cell.
#ifndef OX_TESTS_INTERCHANGE_BINSTREAM_TEST_UTIL_H
#define OX_TESTS_INTERCHANGE_BINSTREAM_TEST_UTIL_H

#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

#include "Ox_BinStream.h"

namespace binstream_test {

using Bytes = std::vector<unsigned char>;

inline Bytes ToBytes(const Ox_Buffer &buffer) {
  return Bytes(buffer.GetData(), buffer.GetData() + buffer.GetSize());
}

inline Ox_Buffer ToBuffer(const Bytes &bytes) {
  Ox_Buffer buffer;
  if (!bytes.empty()) buffer.Set(bytes.data(), static_cast<long>(bytes.size()));
  return buffer;
}

// Concatenates pieces of a golden stream written field by field.
inline Bytes Join(std::initializer_list<Bytes> pieces) {
  Bytes all;
  for (const Bytes &piece : pieces) all.insert(all.end(), piece.begin(), piece.end());
  return all;
}

// Writes a cell straight into a stored row, outside any tracking.
inline void Put(Ox_Dataset &ds, int stored, int col, const Ox_Variant &v) {
  while (ds.recs.Count() <= stored) ds.recs.Add(static_cast<const Ox_Record *>(nullptr));
  ds.recs.GetItem(stored)->SetColumn(col, &v);
}

// A record of one integer cell, with a row type and an orgRef.
inline Ox_Record *AddIntRow(Ox_RecList &list, long value, int type, int orgRef) {
  const int at = list.Add(static_cast<const Ox_Record *>(nullptr));
  Ox_Record *row = list.GetItem(at);
  Ox_Variant cell(value);
  row->SetColumn(0, &cell);
  row->SetType(type);
  row->orgRef = orgRef;
  return row;
}

inline long CellInt(const Ox_Record *row, int col) {
  if (row == nullptr) return -99999;
  const Ox_Variant *cell = row->GetItem(col);
  if (cell == nullptr || cell->GetType() != Ox_Variant::kInteger) return -99999;
  return cell->ToInteger();
}

// The protected block members, reachable from the tests.
class DatasetProbe : public Ox_Dataset {
 public:
  using Ox_Dataset::LoadData;
  using Ox_Dataset::LoadHead;
  using Ox_Dataset::SaveData;
  using Ox_Dataset::SaveDeleteData;
  using Ox_Dataset::SaveHead;
};

// Every test runs with a known locale code page.
class BinStreamTest : public ::testing::Test {
 protected:
  void SetUp() override { OxSetLocale(0, 65001); }
  void TearDown() override { OxSetLocale(0, 65001); }
};

}  // namespace binstream_test

#endif
