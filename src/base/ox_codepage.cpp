// Code pages: the process's locale, the charset names of XML headers, and
// conversions between byte text and 16-bit text through iconv.
#include <iconv.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>

#include "Ox_BaseFunc.h"
#include "Ox_String.h"
#include "base/ox_codepage_internal.h"

namespace {

// The pages this layer converts, with their iconv names and the charset
// names that XML headers carry. The first charset name of a page is the
// one ox_findcharset gives.
struct PageInfo {
  unsigned page;
  const char *iconvName;
};

const PageInfo kPages[] = {
    {1252, "CP1252"},     {949, "CP949"},         {932, "CP932"},
    {65001, "UTF-8"},     {1200, "UTF-16LE"},     {28591, "ISO-8859-1"},
    {20127, "ASCII"},
};
constexpr int kPageCount = sizeof(kPages) / sizeof(kPages[0]);

struct CharsetName {
  const char *name;
  unsigned page;
};

const CharsetName kCharsets[] = {
    {"utf-8", 65001},       {"euc-kr", 949},        {"ks_c_5601-1987", 949},
    {"windows-949", 949},   {"cp949", 949},         {"shift_jis", 932},
    {"windows-932", 932},   {"cp932", 932},         {"windows-1252", 1252},
    {"iso-8859-1", 28591},  {"us-ascii", 20127},    {"utf-16", 1200},
};

// Names handed out by ox_findcharset; the interface gives them as char *.
char kUtf8[] = "utf-8";
char kEucKr[] = "euc-kr";
char kShiftJis[] = "shift_jis";
char kWindows1252[] = "windows-1252";
char kIso88591[] = "iso-8859-1";
char kUsAscii[] = "us-ascii";
char kUtf16[] = "utf-16";
char kNoName[] = "";

int PageSlot(unsigned page) {
  for (int i = 0; i < kPageCount; ++i)
    if (kPages[i].page == page) return i;
  return -1;
}

// Values set by OxSetLocale; 0 means "take it from the environment".
std::atomic<unsigned> g_lcid{0};
std::atomic<unsigned> g_codePage{0};

// The locale name in force for character types: LC_ALL, then LC_CTYPE,
// then LANG, the first one set and not empty.
const char *EnvironmentLocale() {
  const char *names[] = {"LC_ALL", "LC_CTYPE", "LANG"};
  for (const char *name : names) {
    const char *value = getenv(name);
    if (value && *value) return value;
  }
  return "";
}

// Language code of a locale name such as "ko_KR.UTF-8": 'k' 'o'.
bool LanguageIs(const char *locale, const char *language) {
  size_t n = strlen(language);
  return ox_strnicmpA(locale, language, static_cast<int>(n)) == 0 &&
         (locale[n] == '\0' || locale[n] == '_' || locale[n] == '.' ||
          locale[n] == '@' || locale[n] == '-');
}

// A UTF-8 codeset gives 65001, whatever the language.
bool CodesetIsUtf8(const char *locale) {
  const char *dot = strchr(locale, '.');
  if (!dot) return false;
  ++dot;
  return ox_strnicmpA(dot, "utf-8", 5) == 0 || ox_strnicmpA(dot, "utf8", 4) == 0;
}

// The 16-bit side of every conversion: UTF-16 in the host's byte order.
#if __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
const char kUnits[] = "UTF-16BE";
#else
const char kUnits[] = "UTF-16LE";
#endif

const iconv_t kNoDescriptor = reinterpret_cast<iconv_t>(-1);

iconv_t OpenDescriptor(int slot, bool decode) {
  return decode ? iconv_open(kUnits, kPages[slot].iconvName)
                : iconv_open(kPages[slot].iconvName, kUnits);
}

// One descriptor of each kind is held open for the life of the process.
// The converter modules then stay loaded while threads open and close
// their own descriptors, instead of being unloaded when the last thread
// using one exits (the loader's unloading is also what thread checkers
// cannot follow).
iconv_t g_keepLoaded[2 * kPageCount];

void KeepConvertersLoaded() {
  static const bool loaded = [] {
    for (int i = 0; i < kPageCount; ++i) {
      g_keepLoaded[2 * i] = OpenDescriptor(i, true);
      g_keepLoaded[2 * i + 1] = OpenDescriptor(i, false);
    }
    return true;
  }();
  (void)loaded;
}

// Per-thread cache of iconv descriptors: an iconv_t keeps conversion
// state and may not be shared between threads, and opening one per call
// costs far more than the conversion of a short text.
class IconvCache {
 public:
  IconvCache() {
    for (int i = 0; i < kPageCount; ++i)
      m_decode[i] = m_encode[i] = kNoDescriptor;
  }
  ~IconvCache() {
    for (int i = 0; i < kPageCount; ++i) {
      if (m_decode[i] != kNoDescriptor) iconv_close(m_decode[i]);
      if (m_encode[i] != kNoDescriptor) iconv_close(m_encode[i]);
    }
  }
  IconvCache(const IconvCache &) = delete;
  IconvCache &operator=(const IconvCache &) = delete;

  // Descriptor from the page of `slot` to 16-bit text, or back, in its
  // initial state; kNoDescriptor when the system lacks the converter.
  iconv_t Get(int slot, bool decode) {
    iconv_t &cd = decode ? m_decode[slot] : m_encode[slot];
    if (cd == kNoDescriptor) {
      KeepConvertersLoaded();
      cd = OpenDescriptor(slot, decode);
    }
    if (cd != kNoDescriptor) iconv(cd, nullptr, nullptr, nullptr, nullptr);
    return cd;
  }

 private:
  iconv_t m_decode[kPageCount];
  iconv_t m_encode[kPageCount];
};

thread_local IconvCache t_iconv;

// Runs one whole conversion; returns the bytes written or -1.
long RunIconv(iconv_t cd, const char *in, size_t inSize, char *out,
              size_t outSize) {
  char *source = const_cast<char *>(in);
  char *target = out;
  size_t sourceLeft = inSize, targetLeft = outSize;
  if (iconv(cd, &source, &sourceLeft, &target, &targetLeft) == (size_t)-1)
    return -1;
  // Flush a shift state, should the page have one.
  if (iconv(cd, nullptr, nullptr, &target, &targetLeft) == (size_t)-1)
    return -1;
  return static_cast<long>(target - out);
}

// Every page here but UTF-16 writes the characters 0 to 127 as the one
// byte of the same value, so a pure ASCII text converts unit for unit
// without iconv; the result is the same as iconv's.
bool AsciiCompatible(unsigned page) { return page != 1200; }

}  // namespace

unsigned OxGetLocaleCP() {
  unsigned set = g_codePage.load(std::memory_order_relaxed);
  if (set) return set;
  const char *locale = EnvironmentLocale();
  if (CodesetIsUtf8(locale)) return 65001;
  if (LanguageIs(locale, "ko")) return 949;
  if (LanguageIs(locale, "ja")) return 932;
  return 1252;
}

unsigned OxGetLCID() {
  unsigned set = g_lcid.load(std::memory_order_relaxed);
  if (set) return set;
  const char *locale = EnvironmentLocale();
  if (LanguageIs(locale, "ko")) return 0x0412;
  if (LanguageIs(locale, "ja")) return 0x0411;
  return 0x0409;
}

void OxSetLocale(unsigned lcid, unsigned codePage) {
  if (lcid) g_lcid.store(lcid, std::memory_order_relaxed);
  if (codePage) g_codePage.store(codePage, std::memory_order_relaxed);
}

void ox_cp_reset_locale() {
  g_lcid.store(0, std::memory_order_relaxed);
  g_codePage.store(0, std::memory_order_relaxed);
}

unsigned ox_activecodepage(unsigned codePage) {
  if (codePage && PageSlot(codePage) >= 0) return codePage;
  return OxGetLocaleCP();
}

unsigned ox_findcodepageA(const char *charset) {
  if (!charset || !*charset) return 0;
  for (const CharsetName &entry : kCharsets)
    if (ox_stricmpA(entry.name, charset) == 0) return entry.page;
  return 0;
}

char *ox_findcharset(unsigned codePage) {
  switch (codePage) {
    case 65001: return kUtf8;
    case 949: return kEucKr;
    case 932: return kShiftJis;
    case 1252: return kWindows1252;
    case 28591: return kIso88591;
    case 20127: return kUsAscii;
    case 1200: return kUtf16;
    default: return kNoName;
  }
}

int ox_cp_decode(unsigned codePage, const char *bytes, size_t size,
                 Ox_WString &out) {
  out.Empty();
  if (!bytes || size == 0) return 0;
  if (size > static_cast<size_t>(INT_MAX / 2)) return -1;
  unsigned page = ox_activecodepage(codePage);
  int slot = PageSlot(page);
  if (slot < 0) return -1;  // a locale page set that has no converter
  // One byte never gives more than one unit in these pages.
  char16_t *units = out.GetSafeBuffer(static_cast<int>(size));
  if (!units) return -1;
  // Step 1: pure ASCII widens byte for byte.
  if (AsciiCompatible(page)) {
    size_t i = 0;
    while (i < size && static_cast<unsigned char>(bytes[i]) < 0x80) {
      units[i] = static_cast<char16_t>(bytes[i]);
      ++i;
    }
    if (i == size) {
      out.FreeExtra(static_cast<int>(size));
      return static_cast<int>(size);
    }
  }
  // Step 2: everything else goes through iconv.
  iconv_t cd = t_iconv.Get(slot, true);
  long written = cd == kNoDescriptor
                     ? -1
                     : RunIconv(cd, bytes, size, reinterpret_cast<char *>(units),
                                size * sizeof(char16_t));
  if (written < 0) {
    out.Empty();
    return -1;
  }
  int count = static_cast<int>(written / static_cast<long>(sizeof(char16_t)));
  out.FreeExtra(count);
  return count;
}

int ox_cp_encode(unsigned codePage, const char16_t *units, size_t count,
                 Ox_AString &out) {
  out.Empty();
  if (!units || count == 0) return 0;
  if (count > static_cast<size_t>(INT_MAX / 4)) return -1;
  unsigned page = ox_activecodepage(codePage);
  int slot = PageSlot(page);
  if (slot < 0) return -1;  // a locale page set that has no converter
  // One unit gives at most three bytes (UTF-8 of the basic plane; a
  // surrogate pair gives four bytes for two units).
  size_t room = count * 3;
  char *bytes = out.GetSafeBuffer(static_cast<int>(room));
  if (!bytes) return -1;
  // Step 1: pure ASCII narrows unit for unit.
  if (AsciiCompatible(page)) {
    size_t i = 0;
    while (i < count && units[i] < 0x80) {
      bytes[i] = static_cast<char>(units[i]);
      ++i;
    }
    if (i == count) {
      out.FreeExtra(static_cast<int>(count));
      return static_cast<int>(count);
    }
  }
  // Step 2: everything else goes through iconv.
  iconv_t cd = t_iconv.Get(slot, false);
  long written = cd == kNoDescriptor
                     ? -1
                     : RunIconv(cd, reinterpret_cast<const char *>(units),
                                count * sizeof(char16_t), bytes, room);
  if (written < 0) {
    out.Empty();
    return -1;
  }
  out.FreeExtra(static_cast<int>(written));
  return static_cast<int>(written);
}
