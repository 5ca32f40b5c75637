// The smallest program on OxClassLib: include the umbrella header, link
// -lOxClassLib, and use the classes.
#include <cstdio>

#include "OxClassLib.h"

int main() {
  Ox_AString greeting("rows: ");
  greeting += 3;
  Ox_AStrList columns(0);
  columns.Parse("id,name,amount", ",", '\\', 1, 1, 1, 1, 0);
  std::printf("%s, columns: %d, crc32 of \"123456789\": %08X\n",
              greeting.GetString(), columns.Count(),
              ox_crc32(0, reinterpret_cast<const unsigned char *>("123456789"), 9));
  return 0;
}
