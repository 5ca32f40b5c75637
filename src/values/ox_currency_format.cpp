// Ox_Currency::GetFormatString: the value in the money format of a locale.
//
// The plain text of ToString is read as a decimal number and laid out by
// the locale's rules: the amount rounded half up to the locale's decimals,
// thousands grouped by three with ",", the currency symbol in front, and
// negative amounts in brackets or behind a minus sign.
#include "Ox_Currency.h"

#include <string>

#include "values/ox_locale_tables.h"

namespace {

// Room of the formatted text, its terminating NUL included.
constexpr size_t kFormatRoom = 64;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Splits a plain decimal number: an optional leading "-", digits, at most
// one point and digits, with one digit at least. False for anything else,
// which the locale format cannot take.
bool SplitNumber(const char *text, bool &negative, std::string &whole,
                 std::string &fraction) {
  negative = (*text == '-');
  if (negative) ++text;
  bool point = false;
  int digits = 0;
  for (; *text != '\0'; ++text) {
    if (*text == '.' && !point) {
      point = true;
    } else if (IsDigit(*text)) {
      (point ? fraction : whole) += *text;
      ++digits;
    } else {
      return false;
    }
  }
  return digits > 0;
}

// Rounds whole.fraction half up to `places` decimals, in place.
void RoundDecimal(std::string &whole, std::string &fraction, int places) {
  const bool roundUp =
      int(fraction.size()) > places && fraction[size_t(places)] >= '5';
  fraction.resize(size_t(places), '0');
  if (!roundUp) return;
  // Carry from the last kept decimal into the whole part.
  for (size_t i = fraction.size(); i > 0; --i) {
    if (fraction[i - 1] != '9') {
      ++fraction[i - 1];
      return;
    }
    fraction[i - 1] = '0';
  }
  for (size_t i = whole.size(); i > 0; --i) {
    if (whole[i - 1] != '9') {
      ++whole[i - 1];
      return;
    }
    whole[i - 1] = '0';
  }
  whole.insert(whole.begin(), '1');
}

// The whole part without leading zeros, grouped by three with ",".
std::string GroupThousands(const std::string &whole) {
  size_t start = 0;
  while (start + 1 < whole.size() && whole[start] == '0') ++start;
  const std::string digits = whole.empty() ? "0" : whole.substr(start);
  std::string grouped;
  for (size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) grouped += ',';
    grouped += digits[i];
  }
  return grouped;
}

}  // namespace

Ox_AString Ox_Currency::GetFormatString(unsigned long lcid) const {
  const Ox_AString plain = ToString();
  bool negative = false;
  std::string whole, fraction;
  if (!SplitNumber(plain.GetString(), negative, whole, fraction)) return plain;

  const OxLocaleInfo &locale = OxFindLocale(lcid);
  const OxLocaleTexts &texts = OxLocaleTextsOf(locale);
  RoundDecimal(whole, fraction, locale.currencyDigits);
  std::string amount = texts.currencySymbol + GroupThousands(whole);
  if (locale.currencyDigits > 0) amount += "." + fraction;

  std::string text;
  if (!negative)
    text = amount;
  else if (locale.negativeCurrency == 0)
    text = "(" + amount + ")";
  else
    text = "-" + amount;
  // A text that does not fit the room is a failure: the plain text stands.
  if (text.size() >= kFormatRoom) return plain;
  return Ox_AString(text.c_str(), int(text.size()));
}
