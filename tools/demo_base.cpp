// `oxtool demo`, base layer: shared strings, a code page round trip, a list
// of strings split from a text, and a pool.
#include <cstring>

#include "OxClassLib.h"
#include "oxtool_demos.h"

namespace {

int Check(FILE *out, bool ok, const char *what) {
  std::fprintf(out, "  [%s] %s\n", ok ? "ok" : "FAILED", what);
  return ok ? 0 : 1;
}

void PrintHex(FILE *out, const char *label, const char *bytes, int length) {
  std::fprintf(out, "  %-22s", label);
  for (int i = 0; i < length; ++i)
    std::fprintf(out, " %02X", static_cast<unsigned char>(bytes[i]));
  std::fprintf(out, "\n");
}

int DemoStrings(FILE *out) {
  std::fprintf(out, "Strings share their blocks and copy on write:\n");
  Ox_AString a("business table");
  Ox_AString b(a);
  std::fprintf(out, "  a = \"%s\", b = copy of a; same block: %s\n",
               a.GetString(), a.GetString() == b.GetString() ? "yes" : "no");
  int failures = Check(out, a.GetString() == b.GetString(), "a copy shares the block");
  b += " of rows";
  std::fprintf(out, "  after b += \" of rows\": a = \"%s\", b = \"%s\"\n",
               a.GetString(), b.GetString());
  failures += Check(out, a.Compare("business table") == 0, "writing b left a alone");
  return failures;
}

int DemoCodePages(FILE *out) {
  std::fprintf(out, "Code pages (the text is Korean \"ga\", one syllable):\n");
  const char utf8[] = "\xEA\xB0\x80";
  Ox_AString korean;
  korean.ConvertCodePageFrom(65001, utf8, -1, 949);
  PrintHex(out, "UTF-8:", utf8, 3);
  PrintHex(out, "code page 949:", korean.GetString(), korean.GetLength());
  Ox_AString back;
  back.ConvertCodePageFrom(949, korean.GetString(), korean.GetLength(), 65001);
  PrintHex(out, "back to UTF-8:", back.GetString(), back.GetLength());
  int failures = Check(out, korean.GetLength() == 2 &&
                                std::memcmp(korean.GetString(), "\xB0\xA1", 2) == 0,
                       "949 bytes are B0 A1");
  failures += Check(out, back.Compare(utf8) == 0, "the round trip gives the bytes back");
  std::fprintf(out, "  charset of 949: \"%s\", code page of \"Shift_JIS\": %u\n",
               ox_findcharset(949), ox_findcodepageA("Shift_JIS"));
  return failures;
}

int DemoList(FILE *out) {
  std::fprintf(out, "A list split from a text (quotes keep a span whole):\n");
  Ox_AStrList items(0);
  const char *text = "id, name:\"Kim, Minsu\", amount";
  int count = items.Parse(text, ",", '\\', 1, 1, 1, 1, 0);
  std::fprintf(out, "  parse of  %s\n", text);
  for (int i = 0; i < items.Count(); ++i)
    std::fprintf(out, "  item %d: \"%s\"\n", i, items.GetItemNN(i).GetString());
  return Check(out, count == 3, "three items");
}

int DemoPool(FILE *out) {
  std::fprintf(out, "A pool of fixed-size items with counted headers:\n");
  static Ox_ObjBufPool pool("demo", 48, 64);
  Ox_ObjBufData *first = pool.Alloc();
  Ox_ObjBufData *second = pool.Alloc();
  int failures = Check(out, first && second && first != second, "two distinct items");
  if (!first || !second) return failures + 1;
  std::memset(first->object(), 'x', 48);
  int shared = first->AddRef(&pool);
  std::fprintf(out, "  count after AddRef: %d\n", shared);
  failures += Check(out, shared == 2, "AddRef counts");
  failures += Check(out, pool.Owns(first->object()) != 0, "the pool knows its item");
  if (first->Release(&pool) < 1) pool.Free(first);
  if (first->Release(&pool) < 1) pool.Free(first);
  if (second->Release(&pool) < 1) pool.Free(second);
  return failures;
}

}  // namespace

int DemoBase(FILE *out) {
  std::fprintf(out, "== Base layer ==\n");
  int failures = DemoStrings(out);
  failures += DemoCodePages(out);
  failures += DemoList(out);
  failures += DemoPool(out);
  std::fprintf(out, "\n");
  return failures ? 1 : 0;
}
