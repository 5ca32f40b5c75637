// Ox_Currency: construction, text conversion and arithmetic of the exact
// money value.
//
// The count of ten-thousandths is worked on as one 64-bit integer. All
// arithmetic runs on uint64_t, so that every wrap-around is defined and
// matches the two's complement of the two-word form.
#include "Ox_Currency.h"

#include <cstdio>

namespace {

// One whole unit, in ten-thousandths.
constexpr int64_t kUnit = 10000;
// The overflow marker: high 0x80000000, low 0.
constexpr uint64_t kMarker = uint64_t(1) << 63;

uint64_t GetCount(const Ox_Currency &c) {
  return (uint64_t(uint32_t(c.high)) << 32) | c.low;
}

void PutCount(Ox_Currency &c, uint64_t count) {
  c.low = uint32_t(count);
  c.high = int32_t(uint32_t(count >> 32));
}

Ox_Currency FromCount(uint64_t count) {
  Ox_Currency c;
  PutCount(c, count);
  return c;
}

bool IsNegative(uint64_t count) { return (count >> 63) != 0; }

// Magnitude of a signed count as unsigned; the marker gives 2^63.
uint64_t Magnitude(uint64_t count) {
  return IsNegative(count) ? uint64_t(0) - count : count;
}

// Magnitude of a long, safe for the most negative one.
uint64_t MagnitudeOf(long n) {
  return n < 0 ? uint64_t(0) - uint64_t(n) : uint64_t(n);
}

// Number of bits up to and including the highest set bit.
int BitLength(uint64_t v) {
  int bits = 0;
  while (v != 0) {
    ++bits;
    v >>= 1;
  }
  return bits;
}

}  // namespace

Ox_Currency::Ox_Currency(long whole, long fraction) {
  SetCurrency(whole, fraction);
}

Ox_Currency::Ox_Currency(double value) { SetCurrency(value); }

// The words are written only for a non-null text, so a null text leaves
// them as they were found.
Ox_Currency::Ox_Currency(const char *text) { SetCurrency(text); }

void Ox_Currency::SetCurrency(long whole, long fraction) {
  // 1. The magnitude of `whole` times 10000, with its sign restored.
  uint64_t count = MagnitudeOf(whole) * uint64_t(kUnit);
  if (whole < 0) count = uint64_t(0) - count;
  // 2. A fraction of 1 or more is added as ten-thousandths: it raises the
  // value, so with a negative whole it moves toward zero.
  if (fraction >= 1) count += uint64_t(fraction);
  PutCount(*this, count);
}

void Ox_Currency::SetCurrency(double value) {
  if (value >= 1e16 || value <= -1e16) {
    PutCount(*this, kMarker);
    return;
  }
  char text[64];
  snprintf(text, sizeof text, "%21.4f", value);
  SetCurrency(text);
}

void Ox_Currency::SetCurrency(const char *text) {
  if (text == nullptr) return;
  // 1. Value 0, step one whole unit, position -1 (no point yet).
  uint64_t value = 0;
  uint64_t step = kUnit;
  int position = -1;
  bool negative = false;
  for (const char *p = text; *p != '\0'; ++p) {
    const char c = *p;
    if (c == '.') {
      // a. A point opens (or reopens) the fraction; what was read stays.
      position = 0;
    } else {
      // b. A minus sign anywhere makes the value negative.
      if (c == '-') negative = true;
      if (position < 0) {
        // c. Before the point every character shifts the value one
        // decimal place, so separators count like zeros.
        value *= 10;
        if (c >= '1' && c <= '9') value += uint64_t(c - '0') * kUnit;
      } else {
        // d. Behind the point each character takes the next place.
        step /= 10;
        if (c >= '1' && c <= '9') value += step * uint64_t(c - '0');
      }
    }
    // Behind a point the position counts the characters read there, one
    // ahead: the point itself leaves it at 1.
    if (position >= 0) ++position;
    // e. Four places read: the next digit rounds half up, and reading ends.
    if (position > 4) {
      if (p[1] >= '5' && p[1] <= '9') value += step;
      break;
    }
  }
  // 3. The sign.
  if (negative) value = uint64_t(0) - value;
  PutCount(*this, value);
}

Ox_Currency &Ox_Currency::operator=(long whole) {
  SetCurrency(whole, 0);
  return *this;
}

Ox_Currency &Ox_Currency::operator=(double value) {
  SetCurrency(value);
  return *this;
}

Ox_Currency &Ox_Currency::operator=(const char *text) {
  SetCurrency(text);
  return *this;
}

bool Ox_Currency::operator==(const Ox_Currency &other) const {
  return low == other.low && high == other.high;
}

// Only the low words are compared; this is the operator's fixed behaviour.
bool Ox_Currency::operator!=(const Ox_Currency &other) const {
  return low != other.low;
}

bool Ox_Currency::operator<(const Ox_Currency &other) const {
  if (high != other.high) return high < other.high;
  return low < other.low;
}

bool Ox_Currency::operator>(const Ox_Currency &other) const {
  if (high != other.high) return high > other.high;
  return low > other.low;
}

bool Ox_Currency::operator<=(const Ox_Currency &other) const {
  return !(*this > other);
}

bool Ox_Currency::operator>=(const Ox_Currency &other) const {
  return !(*this < other);
}

Ox_Currency Ox_Currency::operator+(const Ox_Currency &other) const {
  const uint64_t a = GetCount(*this);
  const uint64_t b = GetCount(other);
  const uint64_t sum = a + b;
  // Overflow is possible only for operands of the same sign, and shows as
  // a result whose sign differs from the left operand's.
  if (IsNegative(a) == IsNegative(b) && IsNegative(sum) != IsNegative(a))
    return FromCount(kMarker);
  return FromCount(sum);
}

Ox_Currency Ox_Currency::operator-(const Ox_Currency &other) const {
  const uint64_t a = GetCount(*this);
  const uint64_t b = GetCount(other);
  const uint64_t difference = a - b;
  // Overflow is possible only for operands of different signs.
  if (IsNegative(a) != IsNegative(b) &&
      IsNegative(difference) != IsNegative(a))
    return FromCount(kMarker);
  return FromCount(difference);
}

Ox_Currency &Ox_Currency::operator+=(const Ox_Currency &other) {
  *this = *this + other;
  return *this;
}

Ox_Currency &Ox_Currency::operator-=(const Ox_Currency &other) {
  *this = *this - other;
  return *this;
}

Ox_Currency Ox_Currency::operator-() const {
  return FromCount(uint64_t(0) - GetCount(*this));
}

Ox_Currency Ox_Currency::operator*(long n) const {
  const uint64_t count = GetCount(*this);
  // 1. Zero gives zero; the marker times 1 stays the marker.
  if (count == 0 || n == 0) return Ox_Currency();
  if (count == kMarker && n == 1) return *this;
  // 2. Work on magnitudes; the sign comes back at the end.
  const uint64_t a = Magnitude(count);
  const uint64_t b = MagnitudeOf(n);
  // 3. The overflow test on bit lengths: it looks at the high word of the
  // magnitude only, so it is looser than a true test, and a product may
  // wrap below it.
  const uint32_t highWord = uint32_t(a >> 32);
  if (highWord != 0 && BitLength(highWord) + BitLength(b) - 1 > 63)
    return FromCount(kMarker);
  // 4. The product modulo 2^64.
  uint64_t product = a * b;
  if (IsNegative(count) != (n < 0)) product = uint64_t(0) - product;
  return FromCount(product);
}

Ox_Currency &Ox_Currency::operator*=(long n) {
  *this = *this * n;
  return *this;
}

Ox_Currency Ox_Currency::operator/(long n) const {
  // Division by zero is answered with the overflow marker.
  if (n == 0) return FromCount(kMarker);
  const uint64_t count = GetCount(*this);
  uint64_t quotient = Magnitude(count) / MagnitudeOf(n);
  if (IsNegative(count) != (n < 0)) quotient = uint64_t(0) - quotient;
  return FromCount(quotient);
}

Ox_Currency &Ox_Currency::operator/=(long n) {
  *this = *this / n;
  return *this;
}

int Ox_Currency::IsInt() const { return low % uint32_t(kUnit) == 0 ? 1 : 0; }

long Ox_Currency::ToInteger() const {
  // The low word of the truncated quotient, as a 32-bit integer; for a
  // negative value it is negated, so the result comes out positive.
  const Ox_Currency whole = *this / long(kUnit);
  uint32_t word = whole.low;
  if (high < 0) word = uint32_t(0) - word;
  return long(int32_t(word));
}

double Ox_Currency::ToDouble() const { return ToString().ToDouble(); }

Ox_AString Ox_Currency::ToString() const {
  // 1. The magnitude, computed as -(value + 1) + 1 to stay safe next to
  // the marker (in unsigned arithmetic this is plain negation).
  const uint64_t count = GetCount(*this);
  const bool negative = IsNegative(count);
  uint64_t magnitude = negative ? (uint64_t(0) - (count + 1)) + 1 : count;
  // 2. Digits from the right, at least one, the sign in front; the sign
  // counts as a character in the length L.
  char digits[32];
  int at = sizeof digits;
  do {
    digits[--at] = char('0' + magnitude % 10);
    magnitude /= 10;
  } while (magnitude != 0);
  if (negative) digits[--at] = '-';
  const char *number = digits + at;
  const int length = int(sizeof digits) - at;

  char text[64];
  int out = 0;
  // 3. Short numbers get a leading "0", and "0." when shorter still.
  if (length < 5) text[out++] = '0';
  if (length < 4) text[out++] = '.';
  // 4. Zeros up to four places.
  for (int i = length; i < 4; ++i) text[out++] = '0';
  // 5. The digits, a point before the fourth character from the right.
  for (int i = 0; i < length; ++i) {
    if (length - i == 4) text[out++] = '.';
    text[out++] = number[i];
  }
  // 6. Up to five trailing "0" or "." characters are cut.
  for (int cut = 0; cut < 5 && out > 0; ++cut) {
    const char last = text[out - 1];
    if (last != '0' && last != '.') break;
    --out;
  }
  return Ox_AString(text, out);
}
