// The system's text for an error number.
#include <cstdio>
#include <cstring>

#include "Ox_Result.h"

namespace {

// strerror_r comes in two forms; both lead to the text.
[[maybe_unused]] inline const char *PickText(int result, const char *buffer) {
  return result == 0 ? buffer : nullptr;
}
[[maybe_unused]] inline const char *PickText(const char *result,
                                            const char * /*buffer*/) {
  return result;
}

// Copies the system's text of `error` to `buffer`; false when the number
// has none. The C library's "Unknown error N" for a number it does not
// know counts as no text.
bool SystemText(int error, char *buffer, size_t size) {
  buffer[0] = '\0';
  char local[256];
  local[0] = '\0';
  const char *text = PickText(strerror_r(error, local, sizeof local), local);
  if (!text || !*text) return false;
  if (strncmp(text, "Unknown error", 13) == 0) return false;
  snprintf(buffer, size, "%s", text);
  return true;
}

const char kUnknown[] = "Unknown error.";

}  // namespace

const char *OxSysErrorStr(int error, Ox_AString &text) {
  char system[256];
  const bool known = SystemText(error, system, sizeof system);
  text.Format("%d:%s", error, known ? system : kUnknown);
  return text.GetString();
}

Ox_AString OxSysErrorStr(int error) {
  char system[256];
  if (!SystemText(error, system, sizeof system)) return Ox_AString(kUnknown);
  return Ox_AString(system);
}

char *ox_syserrstr(int error, char *buffer, int size) {
  if (!buffer || size < 1) return nullptr;
  buffer[0] = '\0';
  char system[256];
  if (!SystemText(error, system, sizeof system)) return nullptr;
  // The first form, "<number>:<text>", cut to the buffer.
  snprintf(buffer, static_cast<size_t>(size), "%d:%s", error, system);
  return buffer;
}
