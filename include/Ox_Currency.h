// Ox_Currency: an exact money value, a signed 64-bit count of
// ten-thousandths kept in two 32-bit words.
//
// The value is (high * 2^32 + low) / 10000. `low` comes first in memory;
// the binary streams write the two words themselves. Overflow has one
// marker, high 0x80000000 and low 0 (the most negative count): an operation
// that overflows stores it and reports nothing else, and later operations
// treat it as an ordinary value.
//
// The class is a plain pair of words: copying is a bit copy, and it can be
// moved in memory freely, so a variant holds it in place.
#ifndef OX_CURRENCY_H
#define OX_CURRENCY_H

#include <cstdint>

#include "Ox_Export.h"
#include "Ox_String.h"

class OX_API Ox_Currency {
 public:
  uint32_t low;  // low word of the count
  int32_t high;  // high word of the count, holding the sign

  // Zero.
  Ox_Currency() : low(0), high(0) {}
  Ox_Currency(const Ox_Currency &other) = default;
  Ox_Currency &operator=(const Ox_Currency &other) = default;

  // `whole` units, then `fraction` ten-thousandths added when it is 1 or
  // more: a fraction raises the value, so (-1, 5000) is -0.5.
  Ox_Currency(long whole, long fraction);
  // Values of 1e16 or more in magnitude give the overflow marker.
  Ox_Currency(double value);
  // Decimal text; see SetCurrency(const char *). A null text leaves the
  // words as they were found in memory: a caller that can have null
  // constructs from zero first.
  Ox_Currency(const char *text);

  void SetCurrency(long whole, long fraction);
  void SetCurrency(double value);
  // Reads sign, digits and a point from the text, rounding half up at the
  // fifth digit behind the point. Null leaves the value; empty gives zero.
  void SetCurrency(const char *text);

  Ox_Currency &operator=(long whole);  // fraction 0
  Ox_Currency &operator=(double value);
  Ox_Currency &operator=(const char *text);

  // Both words equal.
  bool operator==(const Ox_Currency &other) const;
  // Compares the low words only; values that differ in the high word
  // alone are not "different" by this operator.
  bool operator!=(const Ox_Currency &other) const;
  bool operator<(const Ox_Currency &other) const;
  bool operator>(const Ox_Currency &other) const;
  bool operator<=(const Ox_Currency &other) const;
  bool operator>=(const Ox_Currency &other) const;

  // 64-bit sum and difference; overflow gives the marker.
  Ox_Currency operator+(const Ox_Currency &other) const;
  Ox_Currency operator-(const Ox_Currency &other) const;
  Ox_Currency &operator+=(const Ox_Currency &other);
  Ox_Currency &operator-=(const Ox_Currency &other);
  // Two's complement negation: the marker stays the marker.
  Ox_Currency operator-() const;

  // Product with a loose overflow test on the bit lengths.
  Ox_Currency operator*(long n) const;
  Ox_Currency &operator*=(long n);
  // Truncating quotient; n = 0 gives the overflow marker.
  Ox_Currency operator/(long n) const;
  Ox_Currency &operator/=(long n);

  // 1 when the low word is a multiple of 10000 (the high word is not read).
  int IsInt() const;
  // Whole units, truncated; a negative value gives a positive integer.
  long ToInteger() const;
  // The number that ToString writes.
  double ToDouble() const;
  // Decimal text with up to four decimals, trailing zeros cut.
  Ox_AString ToString() const;
  // The value in the currency format of the locale `lcid` (0: the
  // process's locale); the plain text when it cannot be formatted.
  Ox_AString GetFormatString(unsigned long lcid = 0) const;
};

#endif
