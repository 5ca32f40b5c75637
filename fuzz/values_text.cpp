// Fuzz entry for the text readers of the values layer: amounts and dates
// from text, a text variant changed to each type, and the date formatter
// with an outside format on a fixed date. The first byte picks the target
// type of the change; the rest is the text.
#include <time.h>

#include <cstdint>
#include <cstdlib>
#include <string>

#include "Ox_Currency.h"
#include "Ox_DateTime.h"
#include "Ox_Variant.h"

namespace {

const unsigned short kTypes[] = {
    Ox_Variant::kNull,   Ox_Variant::kInteger, Ox_Variant::kDecimal,
    Ox_Variant::kCurrency, Ox_Variant::kDate,  Ox_Variant::kString,
    Ox_Variant::kBlob,   Ox_Variant::kArray,
};
constexpr unsigned kTypeCount = sizeof kTypes / sizeof kTypes[0];

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size == 0) return 0;
  const unsigned selector = data[0];
  const std::string bytes(reinterpret_cast<const char *>(data + 1), size - 1);
  const char *text = bytes.c_str();

  // An amount from text, and its text form read back.
  Ox_Currency amount(text);
  Ox_Currency again(amount.ToString().GetString());
  (void)again;

  // A date from text.
  Ox_DateTime date;
  (void)date.SetDateTime(text);
  (void)date.ToString(nullptr);

  // A text variant changed to the picked type, then read as text.
  Ox_Variant v;
  v.Set(text);
  v.ChangeType(kTypes[selector % kTypeCount]);
  (void)v.ToString();

  // The formatter on a fixed date (4 March 2005 10:20:30) with the input
  // as the format, and with position reports.
  struct tm tm;
  Ox_DateTime(2005, 3, 4, 10, 20, 30).ConvertToTm(tm);
  OX_DATETIME_FORMATINFO info;
  (void)Ox_DateTime::FormatString(&tm, text, (selector & 0x80) ? &info : nullptr);
  return 0;
}
