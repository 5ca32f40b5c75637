// Helpers of the configuration tests.
#ifndef OX_TESTS_CONFIG_TEST_UTIL_H
#define OX_TESTS_CONFIG_TEST_UTIL_H

#include <string>

#include "Ox_Config.h"

namespace oxtest {

// The sections as "[name]key=value;key=value;" for compact checks.
inline std::string Dump(const Ox_ConfigSectionList &list) {
  std::string out;
  for (int i = 0; i < list.Count(); ++i) {
    const Ox_ConfigSection &section = list.GetItemNN(i);
    out += "[";
    out += section.id.GetString();
    out += "]";
    for (int j = 0; j < section.Count(); ++j) {
      out += section.Id(j).GetString();
      out += "=";
      out += section.Str(j).GetString();
      out += ";";
    }
  }
  return out;
}

}  // namespace oxtest

#endif
