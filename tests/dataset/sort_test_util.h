// Shared set-up of the sort tests: datasets whose rows carry a key cell
// and a name, so that the order rows come out in can be read back.
#ifndef OX_TESTS_DATASET_SORT_TEST_UTIL_H
#define OX_TESTS_DATASET_SORT_TEST_UTIL_H

#include <string>
#include <vector>

#include "Ox_Dataset.h"

namespace sort_test {

// Columns "K" (INT), "ID" (STRING) and "S" (STRING); one row per key,
// row i named "r<i>" (as 'a' + i for the small order tests). A null
// variant in `keys` leaves K null.
inline void Build(Ox_Dataset &ds, const std::vector<Ox_Variant> &keys,
                  bool letters = false) {
  ds.AddColumn("K", 2, 0, 1);
  ds.AddColumn("ID", 1, 10, 1);
  ds.AddColumn("S", 1, 10, 1);
  for (size_t i = 0; i < keys.size(); ++i) {
    const int stored = ds.AppendRow(0);
    Ox_Record *row = ds.recs.GetItem(stored);
    row->SetColumn(0, &keys[i]);
    std::string name =
        letters ? std::string(1, static_cast<char>('a' + i))
                : "r" + std::to_string(i);
    const Ox_Variant id(name.c_str());
    row->SetColumn(1, &id);
  }
}

inline std::vector<Ox_Variant> Ints(const std::vector<long> &values) {
  std::vector<Ox_Variant> keys;
  for (long v : values) keys.emplace_back(v);
  return keys;
}

// The names of the stored rows, in order, joined by ",".
inline std::string StoredOrder(const Ox_Dataset &ds) {
  std::string out;
  for (int i = 0; i < ds.recs.Count(); ++i) {
    if (i > 0) out += ",";
    out += ds.recs.GetItem(i)->GetItemNN(1)->ToString().GetString();
  }
  return out;
}

// The names of the visible rows, in order ("-" for a summary row).
inline std::string VisibleOrder(const Ox_Dataset &ds) {
  std::string out;
  for (int i = 0; i < ds.GetRowCount(); ++i) {
    if (i > 0) out += ",";
    const Ox_Record &row = ds[i];
    out += &row == &Ox_Record::_OxNullRecord
               ? std::string("-")
               : std::string(row.GetItemNN(1)->ToString().GetString());
  }
  return out;
}

// K of the stored rows as text ("null" for a null cell), joined by ",".
inline std::string StoredKeys(const Ox_Dataset &ds, int col = 0) {
  std::string out;
  for (int i = 0; i < ds.recs.Count(); ++i) {
    if (i > 0) out += ",";
    const Ox_Variant *cell = ds.recs.GetItem(i)->GetItemNN(col);
    out += cell->GetType() == 0 ? std::string("null")
                                : std::string(cell->ToString().GetString());
  }
  return out;
}

}  // namespace sort_test

#endif
