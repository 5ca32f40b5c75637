// Export macro of OxClassLib: the library is built with hidden default
// visibility, and only what carries OX_API is part of its interface.
#ifndef OX_EXPORT_H
#define OX_EXPORT_H

#if defined(_WIN32)
#  if defined(OXCLASSLIB_BUILD)
#    define OX_API __declspec(dllexport)
#  else
#    define OX_API __declspec(dllimport)
#  endif
#else
#  define OX_API __attribute__((visibility("default")))
#endif

#include <cstdint>

// A 64-bit signed integer, as the interface spells it.
typedef int64_t Ox_Int64;

#endif
