// Fuzz entry for the parser of name and value pairs. The first byte picks
// the locale's code page (single-byte or one of the double-byte pages, so
// that lead bytes are exercised); the rest is the text.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "Ox_Variable.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size == 0) return 0;
  static const unsigned kPages[] = {1252, 932, 936, 949, 950, 65001};
  OxSetLocale(0, kPages[data[0] % (sizeof(kPages) / sizeof(kPages[0]))]);
  // The parser takes a zero-terminated text: it ends at the first NUL.
  const std::string text(reinterpret_cast<const char *>(data) + 1, size - 1);

  Ox_AStrList tokens;
  const int count = Ox_VariableList::SplitParamText(text.c_str(), tokens);
  if (count != tokens.Count()) abort();
  // Tokens are made of the text's bytes (an escape gives one byte for
  // one), so together they are never longer than the text.
  long total = 0;
  for (int i = 0; i < tokens.Count(); ++i) total += tokens.GetItemNN(i).GetLength();
  if (total > static_cast<long>(text.size())) abort();

  Ox_VariableList list;
  const int pairs = list.SetStr(text.c_str());
  if (pairs != list.Count()) abort();
  // Every stored name is non-empty and found at its own place: names are
  // unique ignoring case.
  for (int i = 0; i < list.Count(); ++i) {
    if (list.Id(i).GetLength() == 0) abort();
    if (list.FindId(list.Id(i).GetString()) != i) abort();
    const unsigned short type = list.Var(i).GetType();
    if (type != Ox_Variant::kInteger && type != Ox_Variant::kDecimal &&
        type != Ox_Variant::kString)
      abort();
  }
  return 0;
}
