// Ox_DateTime and Ox_DateTimeSpan: a moment and a length of time, each one
// double counting days.
//
// A moment's whole part is a day number on the proleptic Gregorian
// calendar, day 0 being 1 January of year 0; the fraction is the time of
// day (1/86400 a second). Values from 0 up to, not including, 3652425.0
// (the years 0 to 9999) can be taken apart. A negative value is stored with
// a negative whole part and a fraction that counts forward; ToDouble gives
// the arithmetic value back.
//
// Both classes are a single double: bit copies, freely movable in memory.
#ifndef OX_DATETIME_H
#define OX_DATETIME_H

#include <cstdint>
#include <ctime>

#include "Ox_Export.h"
#include "Ox_String.h"

// Where FormatString put each part of a date in its output, so that an
// editor can place its caret on a field. Positions are -1 when unset.
struct OX_DATETIME_FORMATINFO {
  int yearPos;    // position of the year
  int yearLen;    // 2 or 4
  int monthPos;   // position of the month
  int monthLen;   // length of the month text
  int monthKind;  // 0 digits, 1 full name, 2 abbreviated name
  int dayPos;     // position of the day
  int hourPos;    // position of the hour
  int hourKind;   // 1 for 24 hours, 2 for 12 hours
  int minutePos;  // position of the minute
  int secondPos;  // position of the second
  int ampmPos;    // position of the morning or afternoon word
  int ampmLen;    // its length
  int isPM;       // 1 when the hour is above 11
};

class OX_API Ox_DateTimeSpan {
 public:
  Ox_DateTimeSpan() : m_span(0.0) {}
  Ox_DateTimeSpan(const Ox_DateTimeSpan &other) = default;
  Ox_DateTimeSpan(double days) : m_span(days) {}
  // hours/24 + days + minutes/1440 + seconds/86400, in real numbers.
  Ox_DateTimeSpan(long days, int hours, int minutes, int seconds);
  Ox_DateTimeSpan &operator=(const Ox_DateTimeSpan &other) = default;
  Ox_DateTimeSpan &operator=(double days) {
    m_span = days;
    return *this;
  }
  void SetDateTimeSpan(long days, int hours, int minutes, int seconds);

  double GetTotalDays() const { return m_span; }
  operator double() const { return m_span; }
  // The value in hours, minutes or seconds, half a second added, truncated.
  double GetTotalHours() const;
  double GetTotalMinutes() const;
  double GetTotalSeconds() const;
  // Whole days, truncated toward zero.
  long GetDays() const;
  // The parts of the day, rounded to the nearest second.
  int GetHours() const;
  int GetMinutes() const;
  int GetSeconds() const;

  Ox_DateTimeSpan operator+(const Ox_DateTimeSpan &other) const {
    return Ox_DateTimeSpan(m_span + other.m_span);
  }
  Ox_DateTimeSpan operator-(const Ox_DateTimeSpan &other) const {
    return Ox_DateTimeSpan(m_span - other.m_span);
  }
  Ox_DateTimeSpan operator-() const { return Ox_DateTimeSpan(-m_span); }
  Ox_DateTimeSpan &operator+=(const Ox_DateTimeSpan &other) {
    m_span += other.m_span;
    return *this;
  }
  Ox_DateTimeSpan &operator-=(const Ox_DateTimeSpan &other) {
    m_span -= other.m_span;
    return *this;
  }

  bool operator==(const Ox_DateTimeSpan &o) const { return m_span == o.m_span; }
  bool operator!=(const Ox_DateTimeSpan &o) const { return m_span != o.m_span; }
  bool operator<(const Ox_DateTimeSpan &o) const { return m_span < o.m_span; }
  bool operator>(const Ox_DateTimeSpan &o) const { return m_span > o.m_span; }
  bool operator<=(const Ox_DateTimeSpan &o) const { return m_span <= o.m_span; }
  bool operator>=(const Ox_DateTimeSpan &o) const { return m_span >= o.m_span; }
  // Against plain numbers of days; these keep `span == 1.5` and
  // `span + 1.0` unambiguous next to the conversion to double.
  bool operator==(double o) const { return m_span == o; }
  bool operator!=(double o) const { return m_span != o; }
  bool operator<(double o) const { return m_span < o; }
  bool operator>(double o) const { return m_span > o; }
  bool operator<=(double o) const { return m_span <= o; }
  bool operator>=(double o) const { return m_span >= o; }
  Ox_DateTimeSpan operator+(double o) const { return Ox_DateTimeSpan(m_span + o); }
  Ox_DateTimeSpan operator-(double o) const { return Ox_DateTimeSpan(m_span - o); }

 private:
  double m_span;  // signed days
};

class OX_API Ox_DateTime {
 public:
  Ox_DateTime() : m_dt(0.0) {}
  Ox_DateTime(const Ox_DateTime &other) = default;
  Ox_DateTime &operator=(const Ox_DateTime &other) = default;
  // Days, kept in the stored form.
  Ox_DateTime(double days);
  Ox_DateTime &operator=(double days);
  // Seconds of the C time scale, read as local time; 0.0 when they cannot
  // be converted.
  Ox_DateTime(int64_t seconds);
  Ox_DateTime &operator=(const int64_t &seconds);
  Ox_DateTime(int year, int month, int day, int hour = 0, int minute = 0,
              int second = 0);

  // 1 on success; 0 on a bad part, and then the value does not change.
  int SetDateTime(int year, int month, int day, int hour, int minute,
                  int second);
  // Fixed-position text yyyymmddHHMMSS; a slice is read only when the text
  // reaches its end. Year and time default to 0, month and day to 1.
  int SetDateTime(const char *text);
  int SetDate(int year, int month, int day);
  int SetTime(int hour, int minute, int second);  // on 1 January of year 0

  // The parts, or -1 when the value is outside the range.
  int GetYear() const;
  int GetMonth() const;
  int GetDay() const;
  int GetHour() const;
  int GetMinute() const;
  int GetSecond() const;
  int GetDayOfWeek() const;  // 1 Sunday to 7 Saturday
  int GetDayOfYear() const;  // from 1

  // Standard struct tm fields; all zero when the value is out of range.
  void ConvertToTm(struct tm &out) const;

  // The arithmetic value; its whole days, truncated.
  double ToDouble() const;
  long ToInteger() const;

  // The stored double itself, for code that keeps dates bit for bit.
  double GetStoredValue() const { return m_dt; }
  void SetStoredValue(double stored) { m_dt = stored; }

  bool operator==(const Ox_DateTime &o) const { return m_dt == o.m_dt; }
  bool operator!=(const Ox_DateTime &o) const { return m_dt != o.m_dt; }
  bool operator<(const Ox_DateTime &o) const;
  bool operator>(const Ox_DateTime &o) const;
  bool operator<=(const Ox_DateTime &o) const;
  bool operator>=(const Ox_DateTime &o) const;

  Ox_DateTime operator+(const Ox_DateTimeSpan &span) const;
  Ox_DateTime operator-(const Ox_DateTimeSpan &span) const;
  Ox_DateTime &operator+=(const Ox_DateTimeSpan &span);
  Ox_DateTime &operator-=(const Ox_DateTimeSpan &span);
  Ox_DateTimeSpan operator-(const Ox_DateTime &other) const;

  // Text by the token language of FormatString; a null format picks
  // "yyyyMMdd", "HHmmss" or "yyyyMMddHHmmss".
  Ox_AString ToString(const char *format = nullptr) const;
  // Text by the C library's strftime under the user's language.
  Ox_AString Format(const char *format = nullptr) const;
  // The formatter: one-letter formats, %-letters, tokens, quotes and
  // escapes; `info`, when given, receives where each part landed.
  static Ox_AString FormatString(struct tm *tm, const char *format,
                                 OX_DATETIME_FORMATINFO *info = nullptr);
  // The current local time, in whole seconds.
  static Ox_DateTime GetTickCount();

 private:
  double m_dt;  // the stored form of the value
};

#endif
