// Ox_DateTime and Ox_DateTimeSpan: the day-number encoding, taking a value
// apart, the checks of SetDateTime, and the arithmetic of moments and spans.
#include "Ox_DateTime.h"

#include <climits>
#include <cmath>
#include <cstring>

#include "values/ox_datetime_internal.h"

namespace {

// Half a second in days: added before a value is taken apart, so that the
// time rounds to the nearest second.
constexpr double kHalfSecond = 5.787037037037037e-6;

// Days before each month in a common year, with 365 as the end mark.
constexpr int kDaysBefore[13] = {0,   31,  59,  90,  120, 151, 181,
                                 212, 243, 273, 304, 334, 365};

bool IsLeapYear(int year) {
  return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int DaysInMonth(int year, int month) {
  if (month == 2 && IsLeapYear(year)) return 29;
  return kDaysBefore[month] - kDaysBefore[month - 1];
}

// The stored form of an arithmetic value: a negative value keeps a negative
// whole part and a fraction that counts forward.
double ToStored(double value) {
  if (value >= 0) return value;
  const double whole = std::floor(value);
  return whole + (whole - value);
}

// The arithmetic value of a stored one.
double FromStored(double stored) {
  if (stored >= 0) return stored;
  const double whole = std::ceil(stored);
  return whole - (stored - whole);
}

}  // namespace

long OxDayNumber(int year, int month, int day) {
  long days = long(year) * 365 + year / 4 - year / 100 + year / 400 +
              kDaysBefore[month - 1] + day;
  // The leap day of a leap year is already counted by year / 4 and its
  // kin; dates before it give that day back.
  if (month <= 2 && IsLeapYear(year)) --days;
  return days;
}

bool OxTakeApart(double stored, OxDateParts &parts) {
  // 1. Only the years 0 to 9999 can be taken apart.
  if (!(stored >= 0 && stored < kOxDateLimit)) return false;
  // 2. Round to the nearest second: half a second added to a positive
  // value and subtracted from zero.
  const double value = stored > 0 ? stored + kHalfSecond : stored - kHalfSecond;
  // 3. The day number, and the seconds of the day.
  const long day = long(value);
  long seconds = long((value - double(day)) * 86400.0);
  if (seconds < 0) seconds = 0;
  if (seconds > 86399) seconds = 86399;
  // 4. The day of the week, 1 for Sunday, with a C remainder.
  parts.dayOfWeek = int((day - 1) % 7 + 1);
  // 5. The year, month and day: the inverse of OxDayNumber. The year is
  // estimated by the mean length of a Gregorian year (146097 days per 400
  // years) and then corrected by at most a step each way, which finds the
  // same year as walking the 400-, 100-, 4- and 1-year cycles.
  int year = int(double(day) * 400.0 / 146097.0);
  while (year > 0 && OxDayNumber(year, 1, 1) > day) --year;
  while (OxDayNumber(year + 1, 1, 1) <= day) ++year;
  const int dayOfYear = int(day - OxDayNumber(year, 1, 1)) + 1;
  int month = 12;
  while (month > 1 && OxDayNumber(year, month, 1) > day) --month;
  parts.year = year;
  parts.month = month;
  parts.day = int(day - OxDayNumber(year, month, 1)) + 1;
  parts.dayOfYear = dayOfYear;
  // 6. The time of day.
  parts.hour = int(seconds / 3600);
  parts.minute = int(seconds / 60 % 60);
  parts.second = int(seconds % 60);
  return true;
}

long OxDoubleToLong(double value) {
  if (std::isnan(value)) return 0;
  if (value >= 9.2233720368547758e18) return LONG_MAX;
  if (value <= -9.2233720368547758e18) return LONG_MIN;
  return long(value);
}

void OxPartsToTm(const OxDateParts &parts, struct tm &out) {
  memset(&out, 0, sizeof out);
  out.tm_year = parts.year - 1900;
  out.tm_mon = parts.month - 1;
  out.tm_mday = parts.day;
  out.tm_hour = parts.hour;
  out.tm_min = parts.minute;
  out.tm_sec = parts.second;
  out.tm_wday = parts.dayOfWeek - 1;
  out.tm_yday = parts.dayOfYear - 1;
}

// ---- Ox_DateTime -------------------------------------------------------

Ox_DateTime::Ox_DateTime(double days) : m_dt(ToStored(days)) {}

Ox_DateTime &Ox_DateTime::operator=(double days) {
  m_dt = ToStored(days);
  return *this;
}

Ox_DateTime::Ox_DateTime(int64_t seconds) : m_dt(0.0) { *this = seconds; }

Ox_DateTime &Ox_DateTime::operator=(const int64_t &seconds) {
  // Local time of the C time scale; what cannot be converted gives 0.0.
  m_dt = 0.0;
  const time_t time = time_t(seconds);
  struct tm local;
  if (localtime_r(&time, &local) == nullptr) return *this;
  SetDateTime(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
              local.tm_hour, local.tm_min, local.tm_sec);
  return *this;
}

Ox_DateTime::Ox_DateTime(int year, int month, int day, int hour, int minute,
                         int second)
    : m_dt(0.0) {
  SetDateTime(year, month, day, hour, minute, second);
}

int Ox_DateTime::SetDateTime(int year, int month, int day, int hour,
                             int minute, int second) {
  // The parts are read as unsigned 16-bit numbers, so negative ones fail.
  const unsigned y = static_cast<unsigned short>(year);
  const unsigned mo = static_cast<unsigned short>(month);
  const unsigned d = static_cast<unsigned short>(day);
  const unsigned h = static_cast<unsigned short>(hour);
  const unsigned mi = static_cast<unsigned short>(minute);
  const unsigned s = static_cast<unsigned short>(second);
  if (y > 9999 || mo < 1 || mo > 12) return 0;
  if (d < 1 || d > unsigned(DaysInMonth(int(y), int(mo)))) return 0;
  if (h >= 24 || mi >= 60 || s >= 60) return 0;
  const double time = double(h * 3600 + mi * 60 + s) / 86400.0;
  m_dt = double(OxDayNumber(int(y), int(mo), int(d))) + time;
  return 1;
}

int Ox_DateTime::SetDateTime(const char *text) {
  // Fixed positions yyyymmddHHMMSS; a slice counts only when the text
  // reaches its end.
  int part[6] = {0, 1, 1, 0, 0, 0};
  const int start[6] = {0, 4, 6, 8, 10, 12};
  const int width[6] = {4, 2, 2, 2, 2, 2};
  const int length = text ? int(strlen(text)) : 0;
  for (int i = 0; i < 6; ++i) {
    if (length < start[i] + width[i]) break;
    part[i] = Ox_AString(text + start[i], width[i]).ToInteger();
  }
  return SetDateTime(part[0], part[1], part[2], part[3], part[4], part[5]);
}

int Ox_DateTime::SetDate(int year, int month, int day) {
  return SetDateTime(year, month, day, 0, 0, 0);
}

int Ox_DateTime::SetTime(int hour, int minute, int second) {
  return SetDateTime(0, 1, 1, hour, minute, second);
}

int Ox_DateTime::GetYear() const {
  OxDateParts parts;
  return OxTakeApart(m_dt, parts) ? parts.year : -1;
}

int Ox_DateTime::GetMonth() const {
  OxDateParts parts;
  return OxTakeApart(m_dt, parts) ? parts.month : -1;
}

int Ox_DateTime::GetDay() const {
  OxDateParts parts;
  return OxTakeApart(m_dt, parts) ? parts.day : -1;
}

int Ox_DateTime::GetHour() const {
  OxDateParts parts;
  return OxTakeApart(m_dt, parts) ? parts.hour : -1;
}

int Ox_DateTime::GetMinute() const {
  OxDateParts parts;
  return OxTakeApart(m_dt, parts) ? parts.minute : -1;
}

int Ox_DateTime::GetSecond() const {
  OxDateParts parts;
  return OxTakeApart(m_dt, parts) ? parts.second : -1;
}

int Ox_DateTime::GetDayOfWeek() const {
  OxDateParts parts;
  return OxTakeApart(m_dt, parts) ? parts.dayOfWeek : -1;
}

int Ox_DateTime::GetDayOfYear() const {
  OxDateParts parts;
  return OxTakeApart(m_dt, parts) ? parts.dayOfYear : -1;
}

void Ox_DateTime::ConvertToTm(struct tm &out) const {
  OxDateParts parts;
  if (OxTakeApart(m_dt, parts))
    OxPartsToTm(parts, out);
  else
    memset(&out, 0, sizeof out);
}

double Ox_DateTime::ToDouble() const { return FromStored(m_dt); }

long Ox_DateTime::ToInteger() const { return OxDoubleToLong(ToDouble()); }

bool Ox_DateTime::operator<(const Ox_DateTime &o) const {
  return ToDouble() < o.ToDouble();
}

bool Ox_DateTime::operator>(const Ox_DateTime &o) const {
  return ToDouble() > o.ToDouble();
}

bool Ox_DateTime::operator<=(const Ox_DateTime &o) const {
  return ToDouble() <= o.ToDouble();
}

bool Ox_DateTime::operator>=(const Ox_DateTime &o) const {
  return ToDouble() >= o.ToDouble();
}

Ox_DateTime Ox_DateTime::operator+(const Ox_DateTimeSpan &span) const {
  return Ox_DateTime(ToDouble() + span.GetTotalDays());
}

Ox_DateTime Ox_DateTime::operator-(const Ox_DateTimeSpan &span) const {
  return Ox_DateTime(ToDouble() - span.GetTotalDays());
}

Ox_DateTime &Ox_DateTime::operator+=(const Ox_DateTimeSpan &span) {
  *this = *this + span;
  return *this;
}

Ox_DateTime &Ox_DateTime::operator-=(const Ox_DateTimeSpan &span) {
  *this = *this - span;
  return *this;
}

Ox_DateTimeSpan Ox_DateTime::operator-(const Ox_DateTime &other) const {
  return Ox_DateTimeSpan(ToDouble() - other.ToDouble());
}

Ox_DateTime Ox_DateTime::GetTickCount() {
  return Ox_DateTime(int64_t(time(nullptr)));
}

// ---- Ox_DateTimeSpan ---------------------------------------------------

namespace {

// Truncated toward zero, kept as a double.
double Truncate(double value) { return std::trunc(value); }

// A part of the day from the fraction of `scaled`: half a second added,
// times `units`, truncated, and a full `units` wrapped back to 0.
int PartOfFraction(double scaled, int units) {
  double fraction = scaled - Truncate(scaled);
  fraction += kHalfSecond;
  int part = int(OxDoubleToLong(fraction * units));
  if (part >= units) part -= units;
  return part;
}

}  // namespace

Ox_DateTimeSpan::Ox_DateTimeSpan(long days, int hours, int minutes,
                                 int seconds) {
  SetDateTimeSpan(days, hours, minutes, seconds);
}

void Ox_DateTimeSpan::SetDateTimeSpan(long days, int hours, int minutes,
                                      int seconds) {
  m_span = hours / 24.0 + double(days) + minutes / 1440.0 + seconds / 86400.0;
}

double Ox_DateTimeSpan::GetTotalHours() const {
  return Truncate(m_span * 24 + kHalfSecond);
}

double Ox_DateTimeSpan::GetTotalMinutes() const {
  return Truncate(m_span * 1440 + kHalfSecond);
}

double Ox_DateTimeSpan::GetTotalSeconds() const {
  return Truncate(m_span * 86400 + kHalfSecond);
}

long Ox_DateTimeSpan::GetDays() const { return OxDoubleToLong(m_span); }

int Ox_DateTimeSpan::GetHours() const { return PartOfFraction(m_span, 24); }

int Ox_DateTimeSpan::GetMinutes() const {
  return PartOfFraction(m_span * 24, 60);
}

int Ox_DateTimeSpan::GetSeconds() const {
  return PartOfFraction(m_span * 1440, 60);
}
