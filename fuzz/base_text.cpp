// Fuzz entry for the text readers of the base layer that take outside text
// (cells, fields, configuration values): decoders, number readers, code
// page conversion and the list splitter with the parameter sets its
// callers use. The first byte picks the splitter's parameter set and the
// code page pair; the rest is the text.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "Ox_BaseFunc.h"
#include "Ox_Buffer.h"
#include "Ox_List.h"
#include "Ox_String.h"

namespace {

// One parameter set of the splitter: delimiters, escape, trim, quotes,
// unquote, keepEmpty.
struct SplitParams {
  const char *delimiters;
  char escape;
  int trim, quotes, unquote, keepEmpty;
};

const SplitParams kSplits[] = {
    {" \t\r\n", 0, 1, 1, 0, 1},  // attribute and named-string lists
    {"\r\n", '\r', 0, 1, 0, 1},  // message lines
    {",", '\\', 1, 1, 1, 1},     // message and result fields
    {"\r\n", '\\', 0, 1, 1, 1},  // result lines
    {",", '\\', 0, 1, 0, 1},     // CSV head line
    {":", '\\', 0, 1, 1, 1},     // CSV head item
    {",", '\\', 0, 1, 1, 1},     // CSV data
    {"=", '\\', 1, 1, 1, 1},     // filters
    {",", 0, 1, 1, 1, 1},        // groups
    {";", 0, 0, 1, 1, 1},        // name spaces
    {".", 0, 0, 1, 1, 1},        // map paths
    {"\\", 0, 0, 1, 1, 1},       // directory pieces
    {";", '/', 1, 1, 1, 1},      // extension lists
    {";", 0, 1, 1, 0, 0},        // properties, empty items dropped
    {"=", 0, 1, 1, 1, 0},        // property pairs
};
constexpr unsigned kSplitCount = sizeof kSplits / sizeof kSplits[0];

const unsigned kCodePages[] = {949, 932, 65001, 1252};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size == 0) return 0;
  const unsigned selector = data[0];
  // The text ends at the first NUL, as every C-text reader sees it.
  const std::string bytes(reinterpret_cast<const char *>(data + 1), size - 1);
  const Ox_AString text(bytes.c_str());

  // Decoders. Four base64 digits give at most three bytes, and taking a
  // pair of quotes off never lengthens a text.
  (void)text.DecodeXml();
  (void)text.UnQuoteStr();
  const Ox_Buffer raw = text.DecodeBase64();
  if (raw.GetSize() > text.GetLength()) abort();
  Ox_AString braced(text);
  braced.TrimBrace(1);
  if (braced.GetLength() > text.GetLength()) abort();

  // Number readers.
  (void)text.IsNumber();
  (void)text.ToInteger();
  (void)text.ToDouble();

  // Code page conversion between a pair picked by the selector, over the
  // whole input (embedded NULs included).
  const unsigned from = kCodePages[selector & 3];
  const unsigned to = kCodePages[(selector >> 2) & 3];
  Ox_AString converted;
  converted.ConvertCodePageFrom(from, bytes.data(), int(bytes.size()), to);

  // The splitter: the count equals the items in the list, and a second
  // parse into the same list gives the same count.
  const SplitParams &p = kSplits[selector % kSplitCount];
  Ox_AStrList list;
  const int count = list.Parse(text.GetString(), p.delimiters, p.escape,
                               p.trim, p.quotes, p.unquote, p.keepEmpty, 0);
  if (count != list.Count()) abort();
  if (list.Parse(text.GetString(), p.delimiters, p.escape, p.trim, p.quotes,
                 p.unquote, p.keepEmpty, 0) != count)
    abort();
  return 0;
}
