// Built-in locale texts. The Korean and Japanese words are kept as bytes
// of each locale's own code page and of UTF-8, with the text itself in the
// comment beside them. In the locales' own code pages the won and yen
// signs have no code of their own and are written as the byte 0x5C, which
// those code pages display as the sign.
#include "values/ox_locale_tables.h"

#include "Ox_BaseFunc.h"

namespace {

const OxLocaleTexts kEnglish = {
    "M/d/yyyy",
    "dddd, MMMM d, yyyy",
    {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday",
     "Sunday"},
    {"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"},
    {"January", "February", "March", "April", "May", "June", "July",
     "August", "September", "October", "November", "December"},
    {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct",
     "Nov", "Dec"},
    "AM", "PM",
    "$",
};

// Korean, code page 949.
const OxLocaleTexts kKoreanNative = {
    "yyyy-MM-dd",  // yyyy-MM-dd
    "yyyy'\xb3\xe2' M'\xbf\xf9' d'\xc0\xcf' dddd",  // yyyy'년' M'월' d'일' dddd
    {"\xbf\xf9\xbf\xe4\xc0\xcf", "\xc8\xad\xbf\xe4\xc0\xcf", "\xbc\xf6\xbf\xe4\xc0\xcf", "\xb8\xf1\xbf\xe4\xc0\xcf", "\xb1\xdd\xbf\xe4\xc0\xcf", "\xc5\xe4\xbf\xe4\xc0\xcf", "\xc0\xcf\xbf\xe4\xc0\xcf"},  // 월요일 화요일 수요일 목요일 금요일 토요일 일요일
    {"\xbf\xf9", "\xc8\xad", "\xbc\xf6", "\xb8\xf1", "\xb1\xdd", "\xc5\xe4", "\xc0\xcf"},  // 월 화 수 목 금 토 일
    {"1\xbf\xf9", "2\xbf\xf9", "3\xbf\xf9", "4\xbf\xf9", "5\xbf\xf9", "6\xbf\xf9", "7\xbf\xf9", "8\xbf\xf9", "9\xbf\xf9", "10\xbf\xf9", "11\xbf\xf9", "12\xbf\xf9"},  // 1월 2월 3월 4월 5월 6월 7월 8월 9월 10월 11월 12월
    {"1\xbf\xf9", "2\xbf\xf9", "3\xbf\xf9", "4\xbf\xf9", "5\xbf\xf9", "6\xbf\xf9", "7\xbf\xf9", "8\xbf\xf9", "9\xbf\xf9", "10\xbf\xf9", "11\xbf\xf9", "12\xbf\xf9"},  // 1월 2월 3월 4월 5월 6월 7월 8월 9월 10월 11월 12월
    "\xbf\xc0\xc0\xfc", "\xbf\xc0\xc8\xc4",  // 오전 오후
    "\x5c",  // ₩
};

// Korean, UTF-8.
const OxLocaleTexts kKoreanUtf8 = {
    "yyyy-MM-dd",  // yyyy-MM-dd
    "yyyy'\xeb\x85\x84' M'\xec\x9b\x94' d'\xec\x9d\xbc' dddd",  // yyyy'년' M'월' d'일' dddd
    {"\xec\x9b\x94\xec\x9a\x94\xec\x9d\xbc", "\xed\x99\x94\xec\x9a\x94\xec\x9d\xbc", "\xec\x88\x98\xec\x9a\x94\xec\x9d\xbc", "\xeb\xaa\xa9\xec\x9a\x94\xec\x9d\xbc", "\xea\xb8\x88\xec\x9a\x94\xec\x9d\xbc", "\xed\x86\xa0\xec\x9a\x94\xec\x9d\xbc", "\xec\x9d\xbc\xec\x9a\x94\xec\x9d\xbc"},  // 월요일 화요일 수요일 목요일 금요일 토요일 일요일
    {"\xec\x9b\x94", "\xed\x99\x94", "\xec\x88\x98", "\xeb\xaa\xa9", "\xea\xb8\x88", "\xed\x86\xa0", "\xec\x9d\xbc"},  // 월 화 수 목 금 토 일
    {"1\xec\x9b\x94", "2\xec\x9b\x94", "3\xec\x9b\x94", "4\xec\x9b\x94", "5\xec\x9b\x94", "6\xec\x9b\x94", "7\xec\x9b\x94", "8\xec\x9b\x94", "9\xec\x9b\x94", "10\xec\x9b\x94", "11\xec\x9b\x94", "12\xec\x9b\x94"},  // 1월 2월 3월 4월 5월 6월 7월 8월 9월 10월 11월 12월
    {"1\xec\x9b\x94", "2\xec\x9b\x94", "3\xec\x9b\x94", "4\xec\x9b\x94", "5\xec\x9b\x94", "6\xec\x9b\x94", "7\xec\x9b\x94", "8\xec\x9b\x94", "9\xec\x9b\x94", "10\xec\x9b\x94", "11\xec\x9b\x94", "12\xec\x9b\x94"},  // 1월 2월 3월 4월 5월 6월 7월 8월 9월 10월 11월 12월
    "\xec\x98\xa4\xec\xa0\x84", "\xec\x98\xa4\xed\x9b\x84",  // 오전 오후
    "\xe2\x82\xa9",  // ₩
};

// Japanese, code page 932.
const OxLocaleTexts kJapaneseNative = {
    "yyyy/MM/dd",  // yyyy/MM/dd
    "yyyy'\x94N'M'\x8c\x8e'd'\x93\xfa'",  // yyyy'年'M'月'd'日'
    {"\x8c\x8e\x97j\x93\xfa", "\x89\xce\x97j\x93\xfa", "\x90\x85\x97j\x93\xfa", "\x96\xd8\x97j\x93\xfa", "\x8b\xe0\x97j\x93\xfa", "\x93y\x97j\x93\xfa", "\x93\xfa\x97j\x93\xfa"},  // 月曜日 火曜日 水曜日 木曜日 金曜日 土曜日 日曜日
    {"\x8c\x8e", "\x89\xce", "\x90\x85", "\x96\xd8", "\x8b\xe0", "\x93y", "\x93\xfa"},  // 月 火 水 木 金 土 日
    {"1\x8c\x8e", "2\x8c\x8e", "3\x8c\x8e", "4\x8c\x8e", "5\x8c\x8e", "6\x8c\x8e", "7\x8c\x8e", "8\x8c\x8e", "9\x8c\x8e", "10\x8c\x8e", "11\x8c\x8e", "12\x8c\x8e"},  // 1月 2月 3月 4月 5月 6月 7月 8月 9月 10月 11月 12月
    {"1\x8c\x8e", "2\x8c\x8e", "3\x8c\x8e", "4\x8c\x8e", "5\x8c\x8e", "6\x8c\x8e", "7\x8c\x8e", "8\x8c\x8e", "9\x8c\x8e", "10\x8c\x8e", "11\x8c\x8e", "12\x8c\x8e"},  // 1月 2月 3月 4月 5月 6月 7月 8月 9月 10月 11月 12月
    "\x8c\xdf\x91O", "\x8c\xdf\x8c\xe3",  // 午前 午後
    "\x5c",  // ¥
};

// Japanese, UTF-8.
const OxLocaleTexts kJapaneseUtf8 = {
    "yyyy/MM/dd",  // yyyy/MM/dd
    "yyyy'\xe5\xb9\xb4'M'\xe6\x9c\x88'd'\xe6\x97\xa5'",  // yyyy'年'M'月'd'日'
    {"\xe6\x9c\x88\xe6\x9b\x9c\xe6\x97\xa5", "\xe7\x81\xab\xe6\x9b\x9c\xe6\x97\xa5", "\xe6\xb0\xb4\xe6\x9b\x9c\xe6\x97\xa5", "\xe6\x9c\xa8\xe6\x9b\x9c\xe6\x97\xa5", "\xe9\x87\x91\xe6\x9b\x9c\xe6\x97\xa5", "\xe5\x9c\x9f\xe6\x9b\x9c\xe6\x97\xa5", "\xe6\x97\xa5\xe6\x9b\x9c\xe6\x97\xa5"},  // 月曜日 火曜日 水曜日 木曜日 金曜日 土曜日 日曜日
    {"\xe6\x9c\x88", "\xe7\x81\xab", "\xe6\xb0\xb4", "\xe6\x9c\xa8", "\xe9\x87\x91", "\xe5\x9c\x9f", "\xe6\x97\xa5"},  // 月 火 水 木 金 土 日
    {"1\xe6\x9c\x88", "2\xe6\x9c\x88", "3\xe6\x9c\x88", "4\xe6\x9c\x88", "5\xe6\x9c\x88", "6\xe6\x9c\x88", "7\xe6\x9c\x88", "8\xe6\x9c\x88", "9\xe6\x9c\x88", "10\xe6\x9c\x88", "11\xe6\x9c\x88", "12\xe6\x9c\x88"},  // 1月 2月 3月 4月 5月 6月 7月 8月 9月 10月 11月 12月
    {"1\xe6\x9c\x88", "2\xe6\x9c\x88", "3\xe6\x9c\x88", "4\xe6\x9c\x88", "5\xe6\x9c\x88", "6\xe6\x9c\x88", "7\xe6\x9c\x88", "8\xe6\x9c\x88", "9\xe6\x9c\x88", "10\xe6\x9c\x88", "11\xe6\x9c\x88", "12\xe6\x9c\x88"},  // 1月 2月 3月 4月 5月 6月 7月 8月 9月 10月 11月 12月
    "\xe5\x8d\x88\xe5\x89\x8d", "\xe5\x8d\x88\xe5\xbe\x8c",  // 午前 午後
    "\xc2\xa5",  // ¥
};

const OxLocaleInfo kLocales[] = {
    {0x0409, 1252, "English", 2, 0, &kEnglish, &kEnglish},
    {0x0412, 949, "Korean", 0, 1, &kKoreanNative, &kKoreanUtf8},
    {0x0411, 932, "Japanese", 0, 1, &kJapaneseNative, &kJapaneseUtf8},
};

}  // namespace

const OxLocaleInfo &OxFindLocale(unsigned long lcid) {
  if (lcid == 0) lcid = OxGetLCID();
  for (const OxLocaleInfo &locale : kLocales)
    if (locale.lcid == lcid) return locale;
  return kLocales[0];
}

const OxLocaleTexts &OxLocaleTextsOf(const OxLocaleInfo &locale) {
  return OxGetLocaleCP() == 65001 ? *locale.utf8 : *locale.native;
}
