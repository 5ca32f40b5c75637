// Free functions of the base layer: raw memory, text helpers, code pages,
// CRC-32 and the byte form of doubles.
#ifndef OX_BASEFUNC_H
#define OX_BASEFUNC_H

#include "Ox_Export.h"

OX_API void *_ox_malloc(int size);
OX_API void ox_free(void *memory);

// Comparison ignoring case (ASCII letters), 0 when equal; null reads as "".
OX_API int ox_stricmpA(const char *a, const char *b);
OX_API int ox_strnicmpA(const char *a, const char *b, int count);
OX_API char *ox_stristrA(const char *text, const char *find);
OX_API char *ox_strpbrkA(const char *text, const char *set);
OX_API char *ox_strrchrA(const char *text, int c);
OX_API void ox_strlwrA(char *text);
// Leading (ox_findskipA) or trailing (ox_findrskipA) white-space count of
// the first `length` characters of `text`.
OX_API int ox_findskipA(const char *text, int length);
OX_API int ox_findrskipA(const char *text, int length);
// Today's local date as yyyymmdd at the start of a buffer of at least 12
// characters; returns it, or null on failure.
OX_API char *ox_todayA(char *buffer);
OX_API int ox_getlasterror();

// Code pages. The process's code page and locale identifier come from the
// environment (LC_ALL, LC_CTYPE, LANG) unless OxSetLocale has set them.
OX_API unsigned OxGetLocaleCP();
OX_API unsigned OxGetLCID();
// Sets the process's locale identifier and code page; 0 leaves that value
// as it is. Call it before other threads use the library.
OX_API void OxSetLocale(unsigned lcid, unsigned codePage);
// The code page really in force for the one given: 0 or an unknown page
// resolves to OxGetLocaleCP().
OX_API unsigned ox_activecodepage(unsigned codePage);
// Code page of a charset name as XML headers carry it (case ignored);
// 0 when unknown.
OX_API unsigned ox_findcodepageA(const char *charset);
// Charset name of a code page; "" when the page has none.
OX_API char *ox_findcharset(unsigned codePage);

// CRC-32 of the gzip format, continuing from `crc` (0 for the first call).
OX_API unsigned ox_crc32(unsigned crc, const unsigned char *data, int size);

// The 8 bytes of a double as the binary streams carry them (IEEE 754,
// network byte order), and back.
OX_API void ox_dtobyte(double value, char *const bytes);
OX_API double ox_bytetod(char *const bytes);
// Non-zero for an infinity or a NaN.
OX_API int ox_isinf(double value);

#endif
