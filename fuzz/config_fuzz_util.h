// Helpers of the configuration fuzz entries.
#ifndef OX_FUZZ_CONFIG_FUZZ_UTIL_H
#define OX_FUZZ_CONFIG_FUZZ_UTIL_H

#include <string>

#include "Ox_Config.h"

// The binary form of a configuration as a string of bytes.
inline std::string OxFuzzConfigStream(const Ox_Config &config) {
  Ox_Buffer buffer;
  config.SaveToStream(buffer);
  const unsigned char *data = buffer.GetData();
  return data ? std::string(reinterpret_cast<const char *>(data),
                            static_cast<size_t>(buffer.GetSize()))
              : std::string();
}

#endif
