// Ox_DateTime's text forms: ToString and FormatString with the system's
// own token language, and Format through the C library's strftime.
#include <clocale>
#include <cstdio>
#include <cstring>
#include <string>

#include "Ox_BaseFunc.h"
#include "Ox_DateTime.h"
#include "values/ox_datetime_internal.h"
#include "values/ox_locale_tables.h"

namespace {

bool IsAsciiLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// The working format of a one-letter format. The patterns are stored
// literally and then walked as formats: so the R format has no blank before
// GMT and its M prints the month number, and in the s format mm is the
// minute.
std::string OneLetterFormat(char letter, const OxLocaleTexts &texts) {
  switch (letter) {
    case 'd': return texts.shortDate;
    case 'D': return texts.longDate;
    case 'f': return std::string(texts.longDate) + " hh:mm aa";
    case 'F': return std::string(texts.longDate) + " hh:mm:ss aa";
    case 'g': return std::string(texts.shortDate) + " HH:mm";
    case 'G': return std::string(texts.shortDate) + " HH:mm:ss";
    case 'M': case 'm': return "MMMM dd";
    case 'R': case 'r': return "ddd, dd MMM yyyy HH:mm:ssGMT";
    case 's': case 'u': return "yyyy-mm-dd HH:mm:ss";
    case 't': return "HH:mm";
    case 'T': return "HH:mm:ss";
    case 'U': return "dddd, MMMM dd, yyyy hh:mm:ss aa";
    case 'Y': case 'y': return "MMMM, yyyy";
    default: return std::string();
  }
}

// Step 1 of FormatString: the format that the token walk reads. Sets
// `empty` when the result is empty at once (no format and no time).
std::string WorkingFormat(const struct tm *tm, const char *format,
                          const OxLocaleTexts &texts, bool &empty) {
  empty = false;
  // a. No format: g when the time of day is set, else d.
  if (format == nullptr || *format == '\0') {
    if (tm == nullptr) {
      empty = true;
      return std::string();
    }
    const bool hasTime = tm->tm_hour != 0 || tm->tm_min != 0 || tm->tm_sec != 0;
    return OneLetterFormat(hasTime ? 'g' : 'd', texts);
  }
  // b. One character: its one-letter format.
  if (format[1] == '\0') return OneLetterFormat(format[0], texts);
  // c. Percent and a letter stand for that letter's one-letter format.
  if (strchr(format, '%') != nullptr) {
    std::string working;
    for (const char *p = format; *p != '\0'; ++p) {
      if (*p == '%' && IsAsciiLetter(p[1])) {
        working += OneLetterFormat(p[1], texts);
        ++p;
      } else {
        working += *p;
      }
    }
    return working;
  }
  // d. Anything else is walked as it is.
  return format;
}

// The longest run of each token letter; 0 for a letter that is no token.
int TokenMaxRun(char c) {
  switch (c) {
    case 'd': case 'M': case 'y': return 4;
    case 'h': case 'H': case 'm': case 's': case 'a': case 't': return 2;
    default: return 0;
  }
}

// Step 3 of FormatString: writes the tokens of the working format.
class TokenWriter {
 public:
  TokenWriter(const struct tm *tm, OX_DATETIME_FORMATINFO *info,
              const OxLocaleTexts &texts)
      : m_tm(tm), m_info(info), m_texts(texts) {
    m_out.reserve(128);  // the room the formats are written for
  }

  void Walk(const std::string &format);
  const std::string &Text() const { return m_out; }

 private:
  void Token(char letter, int run);
  void Day(int run);
  void Hour12();
  void Hour24();
  void Month(int run);
  void AmPm();
  void Year(int run);
  void TwoDigits(bool usable, int value);
  // A name, or as many underscores as `sample` has characters.
  void Name(bool usable, const char *name, const char *sample);
  int Position() const { return int(m_out.size()); }

  const struct tm *m_tm;
  OX_DATETIME_FORMATINFO *m_info;
  const OxLocaleTexts &m_texts;
  std::string m_out;
};

void TokenWriter::Walk(const std::string &format) {
  const size_t n = format.size();
  size_t i = 0;
  while (i < n) {
    const char c = format[i];
    // A backslash copies the next character.
    if (c == '\\') {
      if (i + 1 < n) m_out += format[i + 1];
      i += 2;
      continue;
    }
    // Quoted text is copied; the other kind of quote is plain inside.
    if (c == '\'' || c == '"') {
      const size_t close = format.find(c, i + 1);
      const size_t end = close == std::string::npos ? n : close;
      m_out.append(format, i + 1, end - i - 1);
      i = end + 1;
      continue;
    }
    // A token letter right after the same letter is a plain letter: what
    // a fifth d or a third h leaves over.
    const int maxRun = TokenMaxRun(c);
    if (maxRun == 0 || (i > 0 && format[i - 1] == c)) {
      m_out += c;
      ++i;
      continue;
    }
    int run = 1;
    while (run < maxRun && i + size_t(run) < n && format[i + size_t(run)] == c)
      ++run;
    Token(c, run);
    i += size_t(run);
  }
}

void TokenWriter::Token(char letter, int run) {
  switch (letter) {
    case 'd': Day(run); break;
    case 'h': Hour12(); break;
    case 'H': Hour24(); break;
    case 'm':
      if (m_info) m_info->minutePos = Position();
      TwoDigits(m_tm != nullptr, m_tm ? m_tm->tm_min : 0);
      break;
    case 'M': Month(run); break;
    case 's':
      if (m_info) m_info->secondPos = Position();
      TwoDigits(m_tm != nullptr, m_tm ? m_tm->tm_sec : 0);
      break;
    case 'a': case 't': AmPm(); break;
    case 'y': Year(run); break;
    default: m_out += letter; break;
  }
}

void TokenWriter::Day(int run) {
  if (run <= 2) {
    if (m_info) m_info->dayPos = Position();
    TwoDigits(m_tm != nullptr && m_tm->tm_mday >= 1, m_tm ? m_tm->tm_mday : 0);
    return;
  }
  // Day names run Monday to Sunday; tm_wday counts from Sunday.
  const char *const *names = run == 3 ? m_texts.abbrevDayNames : m_texts.dayNames;
  const bool usable = m_tm != nullptr && m_tm->tm_wday >= 0 && m_tm->tm_wday <= 6;
  const int weekday = usable ? m_tm->tm_wday : 0;
  Name(usable, names[weekday == 0 ? 6 : weekday - 1], names[6]);
}

void TokenWriter::Hour12() {
  if (m_info && m_info->hourPos == -1) {
    m_info->hourPos = Position();
    m_info->hourKind = 2;
  }
  int hour = m_tm ? m_tm->tm_hour : 0;
  if (hour > 11) {
    hour -= 12;
    if (m_info) m_info->isPM = 1;
  }
  TwoDigits(m_tm != nullptr, hour);
}

void TokenWriter::Hour24() {
  if (m_info) {
    m_info->hourPos = Position();
    m_info->hourKind = 1;
  }
  TwoDigits(m_tm != nullptr, m_tm ? m_tm->tm_hour : 0);
}

void TokenWriter::Month(int run) {
  const int position = Position();
  if (run <= 2) {
    if (m_info) {
      m_info->monthPos = position;
      m_info->monthLen = 2;
      m_info->monthKind = 0;
    }
    TwoDigits(m_tm != nullptr && m_tm->tm_mon >= 0, m_tm ? m_tm->tm_mon + 1 : 0);
    return;
  }
  const char *const *names =
      run == 3 ? m_texts.abbrevMonthNames : m_texts.monthNames;
  const bool usable = m_tm != nullptr && m_tm->tm_mon >= 0 && m_tm->tm_mon <= 11;
  Name(usable, names[usable ? m_tm->tm_mon : 0], names[0]);
  if (m_info && m_info->monthPos == -1) {
    m_info->monthPos = position;
    m_info->monthLen = Position() - position;
    m_info->monthKind = run == 3 ? 2 : 1;
  }
}

void TokenWriter::AmPm() {
  const int position = Position();
  const bool pm = m_tm != nullptr && m_tm->tm_hour >= 12;
  Name(m_tm != nullptr, pm ? m_texts.afternoonWord : m_texts.morningWord,
       m_texts.morningWord);
  if (m_info) {
    m_info->ampmPos = position;
    m_info->ampmLen = Position() - position;
    m_info->isPM = pm ? 1 : 0;
  }
}

void TokenWriter::Year(int run) {
  if (m_info) {
    m_info->yearPos = Position();
    m_info->yearLen = run <= 2 ? 2 : 4;
  }
  const int year = m_tm ? m_tm->tm_year + 1900 : 0;
  if (run <= 2) {
    TwoDigits(m_tm != nullptr && year >= 0, year % 100);
    return;
  }
  if (m_tm == nullptr) {
    m_out += "____";
    return;
  }
  char digits[16];
  snprintf(digits, sizeof digits, "%04d", year);
  m_out += digits;
}

void TokenWriter::TwoDigits(bool usable, int value) {
  if (!usable) {
    m_out += "__";
    return;
  }
  char digits[16];
  snprintf(digits, sizeof digits, "%02d", value);
  m_out += digits;
}

void TokenWriter::Name(bool usable, const char *name, const char *sample) {
  if (usable)
    m_out += name;
  else
    m_out.append(strlen(sample), '_');
}

void ResetInfo(OX_DATETIME_FORMATINFO &info) {
  info.yearPos = -1;
  info.yearLen = 0;
  info.monthPos = -1;
  info.monthLen = 0;
  info.monthKind = -1;
  info.dayPos = -1;
  info.hourPos = -1;
  info.hourKind = -1;
  info.minutePos = -1;
  info.secondPos = -1;
  info.ampmPos = -1;
  info.ampmLen = 0;
  info.isPM = 0;
}

// The parts of a stored value as a struct tm; all zero out of range.
void TakeApartToTm(double stored, struct tm &out) {
  OxDateParts parts;
  if (OxTakeApart(stored, parts))
    OxPartsToTm(parts, out);
  else
    memset(&out, 0, sizeof out);
}

// Which of the three default forms a moment takes: 0 the date alone, 1 the
// time alone (on 1 January 1900), 2 both.
int DefaultFormKind(const struct tm &tm) {
  if (tm.tm_hour == 0 && tm.tm_min == 0 && tm.tm_sec == 0) return 0;
  if (tm.tm_year == 0 && tm.tm_mon == 0 && tm.tm_mday == 1) return 1;
  return 2;
}

// The C library's locale of the user's language for LC_TIME, tried by the
// language's English name first and then by the POSIX names of the
// language. The name is looked up once and kept.
void SetUserTimeLocale() {
  static const std::string language = OxFindLocale(0).englishLanguage;
  if (setlocale(LC_TIME, language.c_str()) != nullptr) return;
  const bool utf8 = OxGetLocaleCP() == 65001;
  const char *const *candidates = nullptr;
  static const char *const kEnglish[] = {"en_US.UTF-8", "en_US", "C", nullptr};
  static const char *const kKorean[] = {"ko_KR.UTF-8", "ko_KR.eucKR", "ko_KR",
                                        nullptr};
  static const char *const kKoreanUtf8[] = {"ko_KR.UTF-8", nullptr};
  static const char *const kJapanese[] = {"ja_JP.UTF-8", "ja_JP.eucJP", "ja_JP",
                                          nullptr};
  static const char *const kJapaneseUtf8[] = {"ja_JP.UTF-8", nullptr};
  if (language == "Korean")
    candidates = utf8 ? kKoreanUtf8 : kKorean;
  else if (language == "Japanese")
    candidates = utf8 ? kJapaneseUtf8 : kJapanese;
  else
    candidates = kEnglish;
  for (; *candidates != nullptr; ++candidates)
    if (setlocale(LC_TIME, *candidates) != nullptr) return;
}

}  // namespace

Ox_AString Ox_DateTime::FormatString(struct tm *tm, const char *format,
                                     OX_DATETIME_FORMATINFO *info) {
  const OxLocaleTexts &texts = OxLocaleTextsOf(OxFindLocale(0));
  // 1. The working format.
  bool empty = false;
  const std::string working = WorkingFormat(tm, format, texts, empty);
  if (empty) return Ox_AString();
  // 2. The positions start unset.
  if (info) ResetInfo(*info);
  // 3. The token walk.
  TokenWriter writer(tm, info, texts);
  writer.Walk(working);
  const std::string &text = writer.Text();
  return Ox_AString(text.c_str(), int(text.size()));
}

Ox_AString Ox_DateTime::ToString(const char *format) const {
  struct tm tm;
  TakeApartToTm(m_dt, tm);
  if (format == nullptr) {
    static const char *const kForms[3] = {"yyyyMMdd", "HHmmss",
                                          "yyyyMMddHHmmss"};
    format = kForms[DefaultFormKind(tm)];
  }
  return FormatString(&tm, format, nullptr);
}

Ox_AString Ox_DateTime::Format(const char *format) const {
  struct tm tm;
  TakeApartToTm(m_dt, tm);
  if (format == nullptr) {
    static const char *const kForms[3] = {"%Y%m%d", "%H:%M:%S",
                                          "%Y%m%d %H:%M:%S"};
    format = kForms[DefaultFormKind(tm)];
  }
  SetUserTimeLocale();
  char text[128];
  const size_t length = strftime(text, sizeof text, format, &tm);
  return Ox_AString(text, int(length));
}
