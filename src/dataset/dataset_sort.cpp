// Ox_Dataset, sort: the key string, the record comparison, the quicksort
// that moves records in recs, and the search of a sorted key list that the
// group and pivot code uses.
//
// The quicksort is a fixed algorithm (median of three, one partition loop,
// the lower part first) and not stable: the order in which rows equal on
// all keys come out depends on the input order and on every comparison and
// swap the algorithm makes, so callers can see it. It is written once, as
// a template over "rows" that can be compared and swapped, and run either
// on the records themselves or on a table of keys taken from them.
#include <cmath>
#include <cstdint>
#include <cstring>
#include <new>
#include <utility>
#include <vector>

#include "Ox_Dataset.h"
#include "dataset/dataset_internal.h"

namespace {

// The key table of Sort has room for this many keys.
const int kMaxSortKeys = 64;

// 32-bit products and negations wrap as two's complement, like the
// integer arithmetic of values: -1 times the smallest integer is itself.
int WrapMul(int a, int b) {
  const uint32_t product = static_cast<uint32_t>(a) * static_cast<uint32_t>(b);
  return static_cast<int>(static_cast<int32_t>(product));
}
int WrapNeg(int a) {
  return static_cast<int>(static_cast<int32_t>(0u - static_cast<uint32_t>(a)));
}

// A cell is null when it is missing or of type 0.
bool IsNullCell(const Ox_Variant *cell) {
  return cell == nullptr || cell->GetType() == Ox_Variant::kNull;
}

// What a null on one side gives: with `nullsLast` 0 a null is less than
// every value, else greater; the key's direction turns it round as well.
int NullFirstResult(int dir, int nullsLast) {  // `a` null, `b` not
  return nullsLast == 0 ? WrapNeg(dir) : dir;
}
int NullSecondResult(int dir, int nullsLast) {  // `a` not null, `b` null
  return nullsLast == 0 ? dir : WrapNeg(dir);
}

// ===========================================================================
// The quicksort

// Steps 1 to 9 on the range [lo, hi]. False when the range is finished
// (small ranges are put in order here); true after a partition, with `j`
// and `i` the ends of the two parts still to sort, (lo, j) and (i, hi).
template <class Rows>
bool SortStep(Rows &rows, int lo, int hi, int &j, int &i) {
  const long long d = static_cast<long long>(hi) - lo;
  // 1. Nothing to order.
  if (d < 1) return false;
  // 2. Two rows.
  if (d == 1) {
    if (rows.Compare(lo, hi) > 0) rows.Swap(lo, hi);
    return false;
  }
  // 3.-5. The median of the first, middle and last rows goes to the
  // middle, the smallest of them to `lo`, the greatest to `hi`.
  const int mid = static_cast<int>((static_cast<long long>(lo) + hi) / 2);
  if (rows.Compare(mid, lo) < 0) rows.Swap(mid, lo);
  if (rows.Compare(hi, mid) < 0) {
    rows.Swap(mid, hi);
    if (rows.Compare(mid, lo) < 0) rows.Swap(mid, lo);
  }
  // 6. Three rows are in order now.
  if (d == 2) return false;
  // 7. Four rows: the fourth, mid + 1, goes into its place.
  if (d == 3) {
    if (rows.Compare(mid + 1, mid) < 0) {
      rows.Swap(mid + 1, mid);
      if (rows.Compare(mid, lo) < 0) rows.Swap(mid, lo);
    } else if (rows.Compare(hi, mid + 1) < 0) {
      rows.Swap(mid + 1, hi);
    }
    return false;
  }
  // 8. Partition around the pivot, which stays at `mid` during the scan;
  // since a row compares equal to itself, both scans pass over it. Each
  // scan that starts steps at least once and keeps stepping until its end
  // or a row on the wrong side.
  i = lo + 1;
  j = hi - 1;
  bool afterSwap = false;
  for (;;) {
    const int i0 = i;
    const int j0 = j;
    if (rows.Compare(i, mid) <= 0) {
      do {
        ++i;
      } while (i < hi && rows.Compare(i, mid) <= 0);
    }
    if (rows.Compare(mid, j) <= 0) {
      do {
        --j;
      } while (j > lo && rows.Compare(mid, j) <= 0);
    }
    if (i >= j) break;
    if (afterSwap && i == i0 && j == j0) {
      // Neither scan moved after a swap. With an ordering this cannot
      // happen (the swapped rows are each on their right side now); values
      // that are no ordering (two types compare as 1 either way round) can
      // leave both rows on the wrong side for ever. Pass over both rather
      // than swap them back without end.
      ++i;
      --j;
      afterSwap = false;
      continue;
    }
    rows.Swap(i, j);
    afterSwap = true;
  }
  // 9. The pivot goes between the parts.
  if (i < mid) {
    rows.Swap(i, mid);
    ++i;
  } else if (j > mid) {
    rows.Swap(j, mid);
    --j;
  }
  return true;
}

// 10. The lower part (lo, j) is sorted first, and then the upper (i, hi).
// The parts go on an explicit stack rather than the machine stack, whose
// depth the data would decide: the upper part waits on the stack while the
// lower one, and everything it splits into, is done. That is the order of
// the two recursive calls, so the comparisons and swaps are the same, one
// for one, and in the same sequence.
template <class Rows>
void QuickSort(Rows &rows, int lo, int hi) {
  std::vector<std::pair<int, int>> upper;
  for (;;) {
    int j = 0;
    int i = 0;
    if (SortStep(rows, lo, hi, j, i)) {
      upper.emplace_back(i, hi);
      hi = j;
      continue;
    }
    if (upper.empty()) return;
    lo = upper.back().first;
    hi = upper.back().second;
    upper.pop_back();
  }
}

// The rows as they stand: _CompareRecord on stored rows, swaps in recs (or
// in the node list of a dataset linked to a document).
struct RecordRows {
  Ox_Dataset &ds;
  int *cols;
  int ncols;
  int *dirs;
  int nullsLast;
  bool linked;

  int Compare(int a, int b) {
    return ds._CompareRecord(cols, ncols, a, b, dirs, nullsLast);
  }
  void Swap(int a, int b) {
    if (linked) {
      OxSortLinkExchange(ds, a, b);
    } else {
      ds.recs.Exchange(a, b);
    }
  }
};

// ===========================================================================
// The key table
//
// On a physical dataset the cell that GetColumnNF reads for (row, col) is
// the cell of whatever record stands at that position of recs (or the
// constant, the same for every row), and nothing writes a cell during a
// sort. So the cells of each key can be read once, before the sort, into a
// table whose lines move with their records: comparing two lines gives
// what _CompareRecord gives on the two positions at that moment, as far
// as the sign goes, which is all the quicksort looks at. The records move
// once, at the end, by the permutation that the lines went through.
//
// A line holds one KeyCell per key. `ptr` is null for a null cell. Where
// every non-null cell of a key has one plain type, the value is held in
// `bits` and compared as Ox_Variant::Compare compares that type:
//   integer  the wrapped difference of the 32-bit values;
//   decimal  the difference, 0 below 1e-10 in size, else its sign;
//   string   strcmp of the texts, by unsigned bytes up to the first zero.
//            The bytes that every text of the key begins with (none of
//            them zero) decide nothing and are passed over: `ptr` points
//            behind them. `bits` holds the next 8 bytes big-endian, zero
//            after the end of the text, so two prefixes that differ differ
//            at the first byte where the texts differ, with the same sign.
//            Equal prefixes whose last byte is 0 are equal texts;
//            otherwise both texts run on and strcmp decides from there.
// Any other key compares the variants themselves.
//
// A table of one integer key, the commonest case, is narrowed to 8-byte
// lines (RankedIntRows, or IntKeyRows when the values spread too far)
// before the sort.

struct KeyCell {
  uint64_t bits;
  const void *ptr;  // the variant, or the text of a string key; null: null
};

enum KeyKind { kKeyVariant, kKeyInteger, kKeyDecimal, kKeyString };

int CompareKeyValues(int kind, const KeyCell &x, const KeyCell &y) {
  switch (kind) {
    case kKeyInteger:
      return static_cast<int>(static_cast<int32_t>(
          static_cast<uint32_t>(x.bits) - static_cast<uint32_t>(y.bits)));
    case kKeyDecimal: {
      double a;
      double b;
      std::memcpy(&a, &x.bits, sizeof a);
      std::memcpy(&b, &y.bits, sizeof b);
      const double d = a - b;
      if (std::fabs(d) < 1e-10) return 0;
      return d < 0 ? -1 : 1;
    }
    case kKeyString:
      if (x.bits != y.bits) return x.bits < y.bits ? -1 : 1;
      if ((x.bits & 0xFF) == 0) return 0;
      return std::strcmp(static_cast<const char *>(x.ptr) + 8,
                         static_cast<const char *>(y.ptr) + 8);
    default:
      return static_cast<const Ox_Variant *>(x.ptr)->Compare(
          *static_cast<const Ox_Variant *>(y.ptr));
  }
}

// The first 8 bytes of a text, big-endian, zero behind its end.
uint64_t TextPrefix(const char *text) {
  uint64_t bits = 0;
  int n = 0;
  for (; n < 8 && text[n] != 0; ++n)
    bits = (bits << 8) | static_cast<unsigned char>(text[n]);
  return n == 0 ? 0 : bits << (8 * (8 - n));
}

// Puts the records lo, lo + 1, ... of recs into the order that `origin`
// gives: position lo + s ends with the record that stood at
// lo + origin[s]. The lines went through a permutation of the records by
// swaps; moving each list entry straight to its final place gives the
// same list as replaying those swaps (nothing reads recs in between), and
// an entry keeps its owned or link bits as it moves.
void ApplyOrder(Ox_Dataset &ds, int lo, const std::vector<int> &origin) {
  // Only memory can fail here, `origin` being a permutation; then the
  // records stay where they stood, as for any other failure of memory.
  const int lines = static_cast<int>(origin.size());
  if (ds.recs.Reorder(lo, origin.data(), lines) != 0) throw std::bad_alloc();
}

// The lines of the key table, for rows lo..hi; line s stands for position
// lo + s. `origin[s]` is the position (less lo) its record came from.
class KeyRows {
 public:
  // Reads the cells of every key whose column is 0 or above. False when
  // no key is left (then every comparison is 0 and nothing moves).
  bool Load(const Ox_Dataset &ds, const int *cols, int ncols,
            const int *dirs, int nullsLast, int lo, int hi);
  // Compare and Swap take line numbers.
  int Compare(int a, int b) const;
  void Swap(int a, int b);
  // Puts the records of recs into the order the lines ended in.
  void Apply(Ox_Dataset &ds, int lo) { ApplyOrder(ds, lo, m_origin); }
  // Narrows a table of one integer key to 8-byte lines.
  bool IsSingleInteger() const {
    return m_keys == 1 && m_kind[0] == kKeyInteger;
  }
  const KeyCell &Cell(int line) const { return m_cells[line]; }
  int Direction() const { return m_dir[0]; }
  int NullsLast() const { return m_nullsLast; }
  int Lines() const { return static_cast<int>(m_origin.size()); }
  std::vector<int> &Origin() { return m_origin; }
  void ReleaseCells() { std::vector<KeyCell>().swap(m_cells); }

 private:
  void ChooseKind(int k);
  size_t CommonTextLength(int k) const;

  int m_keys = 0;
  int m_nullsLast = 0;
  int m_kind[kMaxSortKeys] = {};
  int m_dir[kMaxSortKeys] = {};
  std::vector<KeyCell> m_cells;  // m_keys cells a line
  std::vector<int> m_origin;
};

bool KeyRows::Load(const Ox_Dataset &ds, const int *cols, int ncols,
                   const int *dirs, int nullsLast, int lo, int hi) {
  int keyCols[kMaxSortKeys];
  for (int k = 0; k < ncols; ++k) {
    // A key that was not found is skipped by every comparison.
    if (cols[k] < 0) continue;
    keyCols[m_keys] = cols[k];
    m_dir[m_keys] = dirs[k];
    ++m_keys;
  }
  if (m_keys == 0) return false;
  m_nullsLast = nullsLast;
  const int lines = hi - lo + 1;
  m_cells.resize(static_cast<size_t>(lines) * m_keys);
  m_origin.resize(static_cast<size_t>(lines));
  // GetColumnNF on a physical dataset reads a normal column's cell from
  // the record at that position of recs, and gives a constant's value (or
  // nothing) for any other column whatever the row. So a normal column is
  // read from the record straight away, and any other once.
  const int normal = ds.GetNormalCount();
  const Ox_Variant *fixed[kMaxSortKeys];
  for (int k = 0; k < m_keys; ++k)
    fixed[k] = keyCols[k] < normal ? nullptr
                                   : ds.GetColumnNF(lo, keyCols[k], -1);
  for (int s = 0; s < lines; ++s) {
    m_origin[s] = s;
    // The records lie apart in memory: ask for one a little ahead.
    if (s + 16 < lines) __builtin_prefetch(ds.recs.GetItem(lo + s + 16));
    const Ox_Record *record = ds.recs.GetItem(lo + s);
    for (int k = 0; k < m_keys; ++k) {
      const Ox_Variant *cell =
          keyCols[k] < normal ? record->GetItem(keyCols[k]) : fixed[k];
      KeyCell &key = m_cells[static_cast<size_t>(s) * m_keys + k];
      key.bits = 0;
      key.ptr = IsNullCell(cell) ? nullptr : cell;
    }
  }
  for (int k = 0; k < m_keys; ++k) ChooseKind(k);
  return true;
}

void KeyRows::ChooseKind(int k) {
  const size_t lines = m_origin.size();
  // The one type of the key's non-null cells, or 0 when they differ.
  unsigned type = 0;
  bool first = true;
  for (size_t s = 0; s < lines; ++s) {
    const KeyCell &key = m_cells[s * m_keys + k];
    if (key.ptr == nullptr) continue;
    const unsigned t = static_cast<const Ox_Variant *>(key.ptr)->GetType();
    if (first) {
      type = t;
      first = false;
    } else if (t != type) {
      type = 0;
      break;
    }
  }
  int kind = kKeyVariant;
  if (type == Ox_Variant::kInteger) kind = kKeyInteger;
  if (type == Ox_Variant::kDecimal) kind = kKeyDecimal;
  if (type == Ox_Variant::kString) kind = kKeyString;
  m_kind[k] = kind;
  if (kind == kKeyVariant) return;
  const size_t skip = kind == kKeyString ? CommonTextLength(k) : 0;
  for (size_t s = 0; s < lines; ++s) {
    KeyCell &key = m_cells[s * m_keys + k];
    if (key.ptr == nullptr) continue;
    const Ox_Variant *cell = static_cast<const Ox_Variant *>(key.ptr);
    if (kind == kKeyInteger) {
      key.bits = static_cast<uint32_t>(cell->value.lVal);
    } else if (kind == kKeyDecimal) {
      std::memcpy(&key.bits, &cell->value.dVal, sizeof key.bits);
    } else {
      const char *text = cell->GetConstStr()->GetString() + skip;
      key.bits = TextPrefix(text);
      key.ptr = text;
    }
  }
}

size_t KeyRows::CommonTextLength(int k) const {
  // The longest beginning that all texts of the key share; it stops at
  // the end of the shortest text, so it holds no zero byte.
  const char *first = nullptr;
  size_t common = 0;
  for (size_t s = 0; s < m_origin.size(); ++s) {
    const KeyCell &key = m_cells[s * m_keys + k];
    if (key.ptr == nullptr) continue;
    const char *text =
        static_cast<const Ox_Variant *>(key.ptr)->GetConstStr()->GetString();
    if (first == nullptr) {
      first = text;
      common = std::strlen(text);
      continue;
    }
    size_t n = 0;
    while (n < common && text[n] == first[n]) ++n;
    common = n;
    if (common == 0) break;
  }
  return common;
}

int KeyRows::Compare(int a, int b) const {
  // The steps of _CompareRecord over the lines.
  if (a == b) return 0;
  const KeyCell *x = &m_cells[static_cast<size_t>(a) * m_keys];
  const KeyCell *y = &m_cells[static_cast<size_t>(b) * m_keys];
  for (int k = 0; k < m_keys; ++k) {
    const bool xNull = x[k].ptr == nullptr;
    const bool yNull = y[k].ptr == nullptr;
    if (!xNull && !yNull) {
      const int c = CompareKeyValues(m_kind[k], x[k], y[k]);
      if (c != 0) return WrapMul(m_dir[k], c);
    } else if (!xNull) {
      return NullSecondResult(m_dir[k], m_nullsLast);
    } else if (!yNull) {
      return NullFirstResult(m_dir[k], m_nullsLast);
    }
  }
  return 0;
}

void KeyRows::Swap(int a, int b) {
  KeyCell *x = &m_cells[static_cast<size_t>(a) * m_keys];
  KeyCell *y = &m_cells[static_cast<size_t>(b) * m_keys];
  for (int k = 0; k < m_keys; ++k) std::swap(x[k], y[k]);
  std::swap(m_origin[a], m_origin[b]);
}

// A table of one integer key in 8-byte lines: the value, and the line's
// first position with the top bit set for a null cell. It compares as
// KeyRows::Compare does for that key.
class IntKeyRows {
 public:
  explicit IntKeyRows(KeyRows &table)
      : m_dir(table.Direction()), m_nullsLast(table.NullsLast()) {
    m_lines.resize(static_cast<size_t>(table.Lines()));
    for (int s = 0; s < table.Lines(); ++s) {
      const KeyCell &cell = table.Cell(s);
      m_lines[s].value = static_cast<uint32_t>(cell.bits);
      const uint32_t null = cell.ptr == nullptr ? kNull : 0u;
      m_lines[s].tag = static_cast<uint32_t>(s) | null;
    }
    table.ReleaseCells();
  }

  int Compare(int a, int b) const {
    if (a == b) return 0;
    const Line &x = m_lines[a];
    const Line &y = m_lines[b];
    const bool xNull = (x.tag & kNull) != 0;
    const bool yNull = (y.tag & kNull) != 0;
    if (!xNull && !yNull) {
      const int c = static_cast<int>(static_cast<int32_t>(x.value - y.value));
      return c != 0 ? WrapMul(m_dir, c) : 0;
    }
    if (!xNull) return NullSecondResult(m_dir, m_nullsLast);
    if (!yNull) return NullFirstResult(m_dir, m_nullsLast);
    return 0;
  }
  void Swap(int a, int b) { std::swap(m_lines[a], m_lines[b]); }
  // The first positions, in the order the lines ended in.
  void Origins(std::vector<int> &origin) const {
    for (size_t s = 0; s < m_lines.size(); ++s)
      origin[s] = static_cast<int>(m_lines[s].tag & ~kNull);
  }

 private:
  static const uint32_t kNull = 0x80000000u;
  struct Line {
    uint32_t value;
    uint32_t tag;
  };
  int m_dir;
  int m_nullsLast;
  std::vector<Line> m_lines;
};

// A table of one integer key whose values all lie within 2^31 - 1 of
// each other, as single 64-bit lines: a rank in the high 33 bits and the
// line's first position in the low 31. Within such a range the wrapped
// difference of two values is their true difference, so the sign of
// dir * (a - b) is the sign of (dir * a) - (dir * b): the rank is dir * a
// moved above 0, and a null takes the rank below or above every value
// that _CompareRecord gives it. Two lines compare by their ranks alone,
// with the sign that the key comparison has; the quicksort looks at
// nothing else.
class RankedIntRows {
 public:
  // False (and nothing made) when the values spread too far.
  bool Make(KeyRows &table) {
    const int lines = table.Lines();
    long long low = 0;
    long long high = -1;
    for (int s = 0; s < lines; ++s) {
      const KeyCell &cell = table.Cell(s);
      if (cell.ptr == nullptr) continue;
      const long long v = static_cast<int32_t>(cell.bits);
      if (high < low) {
        low = high = v;
      } else {
        low = v < low ? v : low;
        high = v > high ? v : high;
      }
    }
    if (high - low > 0x7FFFFFFFLL) return false;
    const uint64_t nullRank =
        NullRank(table.Direction(), table.NullsLast());
    m_lines.resize(static_cast<size_t>(lines));
    for (int s = 0; s < lines; ++s) {
      const KeyCell &cell = table.Cell(s);
      uint64_t rank = nullRank;
      if (cell.ptr != nullptr)
        rank = ValueRank(table.Direction(), static_cast<int32_t>(cell.bits));
      m_lines[s] = (rank << kRankShift) | static_cast<uint64_t>(s);
    }
    table.ReleaseCells();
    return true;
  }

  // The same lines read straight from the records lo..hi, for a key on
  // the normal column `col`: the cell that GetColumnNF gives for a stored
  // row is the record's own cell `col`. Each cell is visited once, where
  // the key table reads it, decides its kind and narrows it in separate
  // passes; the lines come out the same. False (and nothing made) when a
  // non-null cell is not an integer, when every cell is null (then the key
  // table takes the key as of no single type), or when the values spread
  // too far; the key table then takes over.
  bool MakeFromRecords(const Ox_Dataset &ds, int col, int dir,
                       int nullsLast, int lo, int hi) {
    const int lines = hi - lo + 1;
    // 1. The cells. The records lie apart in memory: ask for one ahead.
    std::vector<const Ox_Variant *> cells(static_cast<size_t>(lines));
    for (int s = 0; s < lines; ++s) {
      if (s + 16 < lines) __builtin_prefetch(ds.recs.GetItem(lo + s + 16));
      const Ox_Record *record = ds.recs.GetItem(lo + s);
      if (record == nullptr) return false;
      cells[s] = record->GetItem(col);
    }
    // 2. The values, with their range; a null is marked by a value that
    // no 32-bit integer has.
    const uint64_t kNullValue = ~0ULL;
    std::vector<uint64_t> values(static_cast<size_t>(lines));
    long long low = 0;
    long long high = -1;
    for (int s = 0; s < lines; ++s) {
      if (s + 16 < lines) __builtin_prefetch(cells[s + 16]);
      const Ox_Variant *cell = cells[s];
      if (IsNullCell(cell)) {
        values[s] = kNullValue;
        continue;
      }
      if (cell->GetType() != Ox_Variant::kInteger) return false;
      const long long v = static_cast<int32_t>(cell->value.lVal);
      values[s] = static_cast<uint32_t>(v);
      if (high < low) {
        low = high = v;
      } else {
        low = v < low ? v : low;
        high = v > high ? v : high;
      }
    }
    if (high < low || high - low > 0x7FFFFFFFLL) return false;
    // 3. The ranks, as Make gives them.
    const uint64_t nullRank = NullRank(dir, nullsLast);
    for (int s = 0; s < lines; ++s) {
      uint64_t rank = nullRank;
      if (values[s] != kNullValue)
        rank = ValueRank(dir, static_cast<int32_t>(values[s]));
      values[s] = (rank << kRankShift) | static_cast<uint64_t>(s);
    }
    m_lines.swap(values);
    return true;
  }

  int Compare(int a, int b) const {
    const uint64_t x = m_lines[a] >> kRankShift;
    const uint64_t y = m_lines[b] >> kRankShift;
    return (x > y) - (x < y);
  }
  void Swap(int a, int b) { std::swap(m_lines[a], m_lines[b]); }
  void Origins(std::vector<int> &origin) const {
    for (size_t s = 0; s < m_lines.size(); ++s)
      origin[s] = static_cast<int>(m_lines[s] & ((1ULL << kRankShift) - 1));
  }

 private:
  // Ranks: 0 for a null that comes first, dir * v + 2^31 + 1 for a value
  // (1 to 2^32 + 1), 2^32 + 2 for a null that comes last.
  static uint64_t NullRank(int dir, int nullsLast) {
    const bool nullFirst = NullFirstResult(dir, nullsLast) < 0;
    return nullFirst ? 0 : (1ULL << 32) + 2;
  }
  static uint64_t ValueRank(int dir, int32_t v) {
    return static_cast<uint64_t>(static_cast<long long>(dir) * v +
                                 (1LL << 31) + 1);
  }

  static const int kRankShift = 31;
  std::vector<uint64_t> m_lines;
};

// The key table applies where the cells of a position are those of the
// record standing there (a physical dataset with rows of its own) and the
// directions are 1 or -1, so that the sign of a product is the sign of
// the comparison or its opposite.
bool KeyTableApplies(const Ox_Dataset &ds, const int *cols, int ncols,
                     const int *dirs) {
  if (!ds.IsPhysical() || OxIsLinked(ds) || ncols > kMaxSortKeys)
    return false;
  for (int k = 0; k < ncols; ++k) {
    if (cols[k] >= 0 && dirs[k] != 1 && dirs[k] != -1) return false;
  }
  return true;
}

}  // namespace

// ===========================================================================
// Sort

long Ox_Dataset::Sort(const char *keys, int ascending, int nullsLast,
                      int regroup) {
  // 1. Only a physical dataset (a group dataset counts as one) sorts.
  if (!IsPhysical()) return -1;
  // 2. The keys, split at commas, blanks trimmed, quotes removed.
  Ox_AStrList items;
  const int count = items.Parse(keys, ",", '\\', 1, 1, 1, 1, 0);
  if (count < 1) return -1;
  // 4. More keys than the table holds are not supported: refused.
  if (count > kMaxSortKeys) return -1;
  // 3. Each key: identifier, then after the first ":" a direction letter.
  const int byDefault = ascending == 1 ? 1 : -1;
  int cols[kMaxSortKeys];
  int dirs[kMaxSortKeys];
  int missing = 0;
  for (int k = 0; k < count; ++k) {
    const Ox_AString &item = items.GetItemNN(k);
    const int colon = item.Find(':');
    dirs[k] = byDefault;
    if (colon <= 0) {
      cols[k] = GetColIndex(item.GetString());
    } else {
      cols[k] = GetColIndex(item.Left(colon).GetString());
      const char letter = item.GetAt(colon + 1);
      if (letter == 'D' || letter == 'd') dirs[k] = -1;
      if (letter == 'A' || letter == 'a') dirs[k] = 1;
    }
    // 5. Keys not found stay in the table as -1.
    if (cols[k] < 0) ++missing;
  }
  if (missing == count) return -1;
  // 6. The records (or the nodes of a linked dataset) change place.
  const int rows =
      OxIsLinked(*this) ? OxRowsLinkRowCountNF(*this) : recs.Count();
  _qsort(cols, count, 0, rows - 1, dirs, nullsLast);
  // 7. The index list in force lists the records whose filter bit is
  // clear, in their new order; summary rows are gone from it.
  if (recIndexValid != 0) {
    Ox_IntList &list = filterActive != 0 ? filterIndex : recIndex;
    list.Clear();
    for (int i = 0; i < recs.Count(); ++i) {
      if ((recs.GetItem(i)->status & 0x100) == 0) list.Add(i);
    }
  }
  // 8. The row index ascends again.
  indexOrdered = 1;
  // 9. Summary rows anew, on request.
  if (regroup == 1 && groupStr.GetLength() > 0) OxSortRegroup(*this);
  // 10. The sort has run; an unknown key still makes the result -1.
  return missing > 0 ? -1 : 0;
}

long Ox_Dataset::_qsort(int *const cols, int ncols, int lo, int hi,
                        int *const dirs, int nullsLast) {
  // Without a key every comparison is 0, and then the algorithm swaps
  // nothing: nothing to do.
  if (cols == nullptr || dirs == nullptr || ncols < 1) return 0;
  if (static_cast<long long>(hi) - lo < 1) return 0;
  // A view reads its cells from the bound dataset's records but could
  // only swap its own: it has nothing to sort. Rows outside the list
  // move nothing either.
  const bool linked = OxIsLinked(*this);
  if (!linked && !IsPhysical()) return 0;
  const int count = linked ? OxRowsLinkRowCountNF(*this) : recs.Count();
  if (lo < 0 || hi >= count) return 0;
  // Memory for the tables and the stack of parts may run out: then the
  // records stay where they stand (the key table moves them only at the
  // end) or where the sort had put them.
  try {
    if (KeyTableApplies(*this, cols, ncols, dirs)) {
      // One key on a normal column: try the lines read straight from the
      // records first.
      int only = -1;
      int used = 0;
      for (int k = 0; k < ncols; ++k) {
        if (cols[k] >= 0) {
          only = k;
          ++used;
        }
      }
      RankedIntRows direct;
      if (used == 1 && cols[only] < GetNormalCount() &&
          direct.MakeFromRecords(*this, cols[only], dirs[only], nullsLast,
                                 lo, hi)) {
        QuickSort(direct, 0, hi - lo);
        std::vector<int> origin(static_cast<size_t>(hi - lo + 1));
        direct.Origins(origin);
        ApplyOrder(*this, lo, origin);
        return 0;
      }
      KeyRows table;
      if (!table.Load(*this, cols, ncols, dirs, nullsLast, lo, hi)) return 0;
      // The same algorithm on line numbers: mid is the same position
      // whether counted from 0 or from lo, since both ends shift alike.
      RankedIntRows ranked;
      if (table.IsSingleInteger() && ranked.Make(table)) {
        QuickSort(ranked, 0, hi - lo);
        ranked.Origins(table.Origin());
      } else if (table.IsSingleInteger()) {
        IntKeyRows narrow(table);
        QuickSort(narrow, 0, hi - lo);
        narrow.Origins(table.Origin());
      } else {
        QuickSort(table, 0, hi - lo);
      }
      table.Apply(*this, lo);
      return 0;
    }
    RecordRows rows = {*this, cols, ncols, dirs, nullsLast, linked};
    QuickSort(rows, lo, hi);
  } catch (const std::bad_alloc &) {
  }
  return 0;
}

int Ox_Dataset::_CompareRecord(int *const cols, int ncols, int a, int b,
                               int *const dirs, int nullsLast) {
  // 1. A row equals itself; no key, no order.
  if (a == b || ncols < 1 || cols == nullptr || dirs == nullptr) return 0;
  const bool linked = OxIsLinked(*this);
  for (int k = 0; k < ncols; ++k) {
    const int col = cols[k];
    if (col < 0) continue;
    // 2.-3. Both cells, by pointer, or by value from a node list.
    const Ox_Variant *x;
    const Ox_Variant *y;
    Ox_Variant xValue;
    Ox_Variant yValue;
    if (linked) {
      GetColumnNF(a, col, xValue, -1);
      GetColumnNF(b, col, yValue, -1);
      x = &xValue;
      y = &yValue;
    } else {
      x = GetColumnNF(a, col, -1);
      y = GetColumnNF(b, col, -1);
    }
    const bool xNull = IsNullCell(x);
    const bool yNull = IsNullCell(y);
    if (!xNull && !yNull) {
      // 4. Two values: Compare decides unless they are equal.
      const int c = x->Compare(*y);
      if (c != 0) return WrapMul(dirs[k], c);
    } else if (!xNull) {
      // 5. Only `b` null.
      return NullSecondResult(dirs[k], nullsLast);
    } else if (!yNull) {
      // 6. Only `a` null.
      return NullFirstResult(dirs[k], nullsLast);
    }
    // 7. Both null, or equal: the next key.
  }
  // 8. No key decided.
  return 0;
}

// ===========================================================================
// Search of a sorted key list

int Ox_Dataset::_Fibonacci_Search(Ox_IntList *list, int lo, int hi, int col,
                                  int dir, Ox_Variant *key) {
  const Ox_Variant &wanted = key != nullptr ? *key : _OxNullVariant;
  // dir times the comparison of the key with cell `col` of the stored row
  // that pair `m` names, read by the NN readers (a missing pair reads as
  // row 0, a missing row or cell as null).
  auto probe = [&](int m) {
    const long long at = 2LL * m;
    int row = 0;
    if (list != nullptr && at >= 0 && at < list->Count())
      row = list->Items(static_cast<int>(at));
    const Ox_Variant *cell = &_OxNullVariant;
    if (pRecs != nullptr) cell = pRecs->GetItemNN(row)->GetItemNN(col);
    return WrapMul(dir, wanted.Compare(*cell));
  };
  // 1. Split the range at 0.618 while more than two entries are left.
  while (static_cast<long long>(hi) - lo > 2) {
    const int m = lo + static_cast<int>(
                           (static_cast<long long>(hi - lo) * 618) / 1000);
    const int c = probe(m);
    if (c == 0) return m;
    if (c < 0) {
      hi = m;
    } else {
      lo = m + 1;
    }
  }
  // 2. The rest one by one; the key goes before the first greater entry.
  for (; lo < hi; ++lo) {
    const int c = probe(lo);
    if (c == 0) return lo;
    if (c < 0) return -lo;
  }
  // 3. Behind the range.
  return -lo;
}
