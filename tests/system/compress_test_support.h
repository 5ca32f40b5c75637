// Helpers of the compression tests: buffers from bytes and back, fixed
// test data, and files for the external gzip reader and writer.
#ifndef OX_TESTS_COMPRESS_TEST_SUPPORT_H
#define OX_TESTS_COMPRESS_TEST_SUPPORT_H

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "Ox_Buffer.h"

namespace oxtest {

using Bytes = std::vector<unsigned char>;

inline Ox_Buffer Buf(const Bytes &bytes) {
  Ox_Buffer b;
  b.Set(bytes.data(), static_cast<long>(bytes.size()));
  return b;
}

inline Ox_Buffer Buf(const std::string &text) {
  Ox_Buffer b;
  b.Set(reinterpret_cast<const unsigned char *>(text.data()),
        static_cast<long>(text.size()));
  return b;
}

inline Bytes Vec(const Ox_Buffer &b) {
  const unsigned char *p = b.GetData();
  return p ? Bytes(p, p + b.GetSize()) : Bytes();
}

inline Bytes Vec(const std::string &text) {
  return Bytes(text.begin(), text.end());
}

// Random bytes from a fixed seed.
inline Bytes RandomBytes(size_t size, unsigned seed = 12345) {
  std::mt19937 gen(seed);
  Bytes out(size);
  for (auto &c : out) c = static_cast<unsigned char>(gen() & 0xFF);
  return out;
}

// One short pattern repeated.
inline Bytes RepetitiveBytes(size_t size) {
  static const char kPattern[] = "ORDER-0001;ITEM;QTY=10;PRICE=12.50\n";
  Bytes out(size);
  for (size_t i = 0; i < size; i++) out[i] = kPattern[i % (sizeof kPattern - 1)];
  return out;
}

// Business-like records with random numbers and words: compressible, but
// not trivially.
inline Bytes MixedBytes(size_t size, unsigned seed = 777) {
  static const char *const kWords[] = {"customer", "invoice", "amount",
                                       "Seoul",    "Tokyo",   "total",
                                       "status",   "N",       "Y",
                                       "2026-11-20", "KRW",   "JPY"};
  std::mt19937 gen(seed);
  Bytes out;
  out.reserve(size + 64);
  while (out.size() < size) {
    const char *w = kWords[gen() % 12];
    out.insert(out.end(), w, w + std::char_traits<char>::length(w));
    out.push_back(';');
    const std::string n = std::to_string(gen() % 100000);
    out.insert(out.end(), n.begin(), n.end());
    out.push_back((gen() % 7) == 0 ? '\n' : ',');
    if (gen() % 5 == 0) out.push_back(static_cast<unsigned char>(gen()));
  }
  out.resize(size);
  return out;
}

// A temporary file removed when the object goes.
class TempFile {
 public:
  TempFile() {
    char name[] = "/tmp/ox_compress_testXXXXXX";
    const int fd = mkstemp(name);
    if (fd >= 0) close(fd);
    path_ = name;
  }
  ~TempFile() { std::remove(path_.c_str()); }
  const std::string &Path() const { return path_; }

  bool Write(const Bytes &bytes) const {
    FILE *f = std::fopen(path_.c_str(), "wb");
    if (!f) return false;
    const bool ok = std::fwrite(bytes.data(), 1, bytes.size(), f) == bytes.size();
    return std::fclose(f) == 0 && ok;
  }
  Bytes Read() const {
    Bytes out;
    FILE *f = std::fopen(path_.c_str(), "rb");
    if (!f) return out;
    unsigned char chunk[4096];
    size_t got;
    while ((got = std::fread(chunk, 1, sizeof chunk, f)) > 0)
      out.insert(out.end(), chunk, chunk + got);
    std::fclose(f);
    return out;
  }

 private:
  std::string path_;
};

inline bool HaveGzipTool() {
  return std::system("command -v gzip >/dev/null 2>&1") == 0;
}

}  // namespace oxtest

#endif
