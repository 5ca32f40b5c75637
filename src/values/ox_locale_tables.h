// Built-in locale texts for dates and money: the short and long date
// patterns, day and month names, the morning and afternoon words and the
// currency format of the locales the library knows (0x0409 English, 0x0412
// Korean, 0x0411 Japanese), in the locales' standard settings without user
// changes. Any other locale identifier reads as 0x0409.
#ifndef OX_LOCALE_TABLES_H
#define OX_LOCALE_TABLES_H

// The words of one locale in one encoding.
struct OxLocaleTexts {
  const char *shortDate;              // short date pattern
  const char *longDate;               // long date pattern
  const char *dayNames[7];            // Monday to Sunday (day names 1 to 7)
  const char *abbrevDayNames[7];      // Monday to Sunday, abbreviated
  const char *monthNames[12];         // January to December
  const char *abbrevMonthNames[12];   // January to December, abbreviated
  const char *morningWord;            // after times below noon
  const char *afternoonWord;          // after times from noon
  const char *currencySymbol;
};

// One locale: its numbers, and its words in its own code page and in UTF-8.
struct OxLocaleInfo {
  unsigned lcid;
  unsigned codePage;            // the locale's own code page
  const char *englishLanguage;  // the language's English name
  int currencyDigits;           // decimals of a money amount
  // Negative money: 0 puts the amount in brackets, "($1.10)"; 1 writes a
  // minus sign before the symbol, "-$1.10".
  int negativeCurrency;
  const OxLocaleTexts *native;  // texts in codePage
  const OxLocaleTexts *utf8;    // texts in UTF-8
};

// The locale of `lcid`; 0 means the process's (OxGetLCID), and an unknown
// identifier gives English.
const OxLocaleInfo &OxFindLocale(unsigned long lcid);

// The texts of `locale` in the encoding that the process's text uses: UTF-8
// when the process's code page is 65001, else the locale's own code page.
const OxLocaleTexts &OxLocaleTextsOf(const OxLocaleInfo &locale);

#endif
