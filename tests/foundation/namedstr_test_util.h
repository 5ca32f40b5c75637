// Helpers of the named-string tests.
#ifndef OX_TESTS_NAMEDSTR_TEST_UTIL_H
#define OX_TESTS_NAMEDSTR_TEST_UTIL_H

#include <string>

#include "Ox_NamedStr.h"

namespace oxtest {

// A list of the pairs as one text "id=str;id=str;", for compact checks.
inline std::string Dump(const Ox_NamedStrList &list) {
  std::string out;
  for (int i = 0; i < list.Count(); ++i) {
    out += list.Id(i).GetString();
    out += '=';
    out += list.Str(i).GetString();
    out += ';';
  }
  return out;
}

}  // namespace oxtest

#endif
