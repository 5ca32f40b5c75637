// Conversions between the byte code pages and 16-bit text, for the string
// classes. Both functions resolve the page through ox_activecodepage.
#ifndef OX_CODEPAGE_INTERNAL_H
#define OX_CODEPAGE_INTERNAL_H

#include <cstddef>

#include "Ox_String.h"

// Decodes `size` bytes of `bytes` from `codePage` into `out`. Returns the
// units written, or -1 when the bytes are not valid in that page (then
// `out` is empty). No bytes give 0.
int ox_cp_decode(unsigned codePage, const char *bytes, size_t size,
                 Ox_WString &out);

// Encodes `count` units of `units` into `codePage` in `out`. Returns the
// bytes written, or -1 when a unit has no form in that page or the units
// are not valid UTF-16 (then `out` is empty). No units give 0.
int ox_cp_encode(unsigned codePage, const char16_t *units, size_t count,
                 Ox_AString &out);

// Forgets what OxSetLocale has set, so that the locale comes from the
// environment again. For tests only.
void ox_cp_reset_locale();

#endif
