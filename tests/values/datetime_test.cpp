// Ox_DateTime: the day-number encoding, the getters, SetDateTime's checks,
// the stored form of negative values, comparisons and span arithmetic.
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <string>

#include "Ox_BaseFunc.h"
#include "Ox_DateTime.h"

namespace {

// Days from 1970-01-01 of a proleptic Gregorian date, computed by eras of
// 400 years from 1 March: independent of the library's own formula.
long DaysFromCivil(long y, unsigned m, unsigned d) {
  y -= m <= 2;
  const long era = (y >= 0 ? y : y - 399) / 400;
  const unsigned yoe = unsigned(y - era * 400);
  const unsigned doy = (153 * (m > 2 ? m - 3 : m + 9) + 2) / 5 + d - 1;
  const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + long(doe) - 719468;
}

// Day 0 of the library is 1 January of year 0, 719528 days before 1970.
long LibraryDay(long y, unsigned m, unsigned d) {
  return DaysFromCivil(y, m, d) + 719528;
}

bool IsLeap(int y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; }

int MonthLength(int y, int m) {
  static const int kLength[12] = {31, 28, 31, 30, 31, 30,
                                  31, 31, 30, 31, 30, 31};
  return m == 2 && IsLeap(y) ? 29 : kLength[m - 1];
}

}  // namespace

TEST(DateTimeEncoding, IndependentComputationAgreesForEveryDay) {
  // Every day of the years 1 to 9999: the day number agrees with the
  // independent count, and the parts come back. Mismatches are counted
  // (plain comparisons keep the 3.65 million checks fast) and the first
  // one is reported.
  long checked = 0;
  long mismatches = 0;
  std::string first;
  for (int y = 1; y <= 9999; ++y) {
    int dayOfYear = 0;
    for (int m = 1; m <= 12; ++m) {
      const int length = MonthLength(y, m);
      for (int d = 1; d <= length; ++d) {
        ++dayOfYear;
        ++checked;
        Ox_DateTime date;
        const int set = date.SetDateTime(y, m, d, 0, 0, 0);
        const long expected = LibraryDay(y, unsigned(m), unsigned(d));
        struct tm parts;
        date.ConvertToTm(parts);
        // 1970-01-01 was a Thursday (weekday 4 counted from Sunday = 0).
        const long weekday = ((expected - 719528) % 7 + 7 + 4) % 7;
        const bool ok = set == 1 && date.ToDouble() == double(expected) &&
                        parts.tm_year + 1900 == y && parts.tm_mon + 1 == m &&
                        parts.tm_mday == d && parts.tm_yday + 1 == dayOfYear &&
                        parts.tm_wday == int(weekday);
        if (!ok && mismatches++ == 0)
          first = std::to_string(y) + "-" + std::to_string(m) + "-" +
                  std::to_string(d);
      }
    }
  }
  EXPECT_EQ(checked, 3652059);  // days of the years 1 to 9999
  EXPECT_EQ(mismatches, 0) << "first at " << first;
}

TEST(DateTimeEncoding, GettersGiveThePartsBack) {
  Ox_DateTime date(2024, 2, 29, 23, 59, 58);
  EXPECT_EQ(date.GetYear(), 2024);
  EXPECT_EQ(date.GetMonth(), 2);
  EXPECT_EQ(date.GetDay(), 29);
  EXPECT_EQ(date.GetHour(), 23);
  EXPECT_EQ(date.GetMinute(), 59);
  EXPECT_EQ(date.GetSecond(), 58);
  EXPECT_EQ(date.GetDayOfYear(), 31 + 29);
  EXPECT_EQ(date.GetDayOfWeek(), 5);  // a Thursday
}

TEST(DateTimeEncoding, TimeOfDayRoundsToTheNearestSecond) {
  // 10:20:30 plus 0.4 s reads 10:20:30; plus 0.6 s reads 10:20:31.
  const double day = double(LibraryDay(2005, 3, 4));
  const double base = (10 * 3600 + 20 * 60 + 30) / 86400.0;
  EXPECT_EQ(Ox_DateTime(day + base + 0.4 / 86400).GetSecond(), 30);
  EXPECT_EQ(Ox_DateTime(day + base + 0.6 / 86400).GetSecond(), 31);
  // A hair before midnight rounds up into the next day.
  Ox_DateTime late(day + 1 - 0.1 / 86400);
  EXPECT_EQ(late.GetDay(), 5);
  EXPECT_EQ(late.GetHour(), 0);
}

TEST(DateTimeEdge, LeapDayOf2000SucceedsAndOf1900Fails) {
  Ox_DateTime date;
  EXPECT_EQ(date.SetDateTime(2000, 2, 29, 0, 0, 0), 1);
  EXPECT_EQ(date.GetDay(), 29);
  EXPECT_EQ(date.SetDateTime(1900, 2, 29, 0, 0, 0), 0);
  // The failed call keeps the old value.
  EXPECT_EQ(date.GetYear(), 2000);
  EXPECT_EQ(date.GetMonth(), 2);
  EXPECT_EQ(date.GetDay(), 29);
}

TEST(DateTimeEdge, DayNumbersOfYear1And2000) {
  EXPECT_EQ(Ox_DateTime(1, 1, 1).ToDouble(), 366.0);
  Ox_DateTime y2k(2000, 1, 1);
  EXPECT_EQ(y2k.ToDouble(), 730485.0);
  EXPECT_EQ(y2k.GetDayOfWeek(), 7);  // a Saturday
}

TEST(DateTimeEdge, UpperBoundIsOutOfRange) {
  Ox_DateTime limit(3652425.0);
  EXPECT_EQ(limit.GetYear(), -1);
  EXPECT_EQ(limit.GetMonth(), -1);
  EXPECT_EQ(limit.GetDay(), -1);
  EXPECT_EQ(limit.GetHour(), -1);
  EXPECT_EQ(limit.GetMinute(), -1);
  EXPECT_EQ(limit.GetSecond(), -1);
  EXPECT_EQ(limit.GetDayOfWeek(), -1);
  EXPECT_EQ(limit.GetDayOfYear(), -1);
  // The last second of year 9999 is still in range.
  Ox_DateTime last(9999, 12, 31, 23, 59, 59);
  EXPECT_EQ(last.GetYear(), 9999);
  EXPECT_EQ(last.GetSecond(), 59);
  // Negative values are out of range too.
  EXPECT_EQ(Ox_DateTime(-1.5).GetYear(), -1);
}

TEST(DateTimeEdge, DayZeroHasWeekdayZero) {
  // (0 - 1) % 7 + 1 with a C remainder is 0.
  Ox_DateTime zero;
  EXPECT_EQ(zero.GetYear(), 0);
  EXPECT_EQ(zero.GetMonth(), 1);
  EXPECT_EQ(zero.GetDay(), 1);
  EXPECT_EQ(zero.GetDayOfWeek(), 0);
}

TEST(DateTimeSet, RejectsBadParts) {
  Ox_DateTime date(2010, 5, 6, 7, 8, 9);
  const double before = date.ToDouble();
  EXPECT_EQ(date.SetDateTime(10000, 1, 1, 0, 0, 0), 0);
  EXPECT_EQ(date.SetDateTime(-1, 1, 1, 0, 0, 0), 0);
  EXPECT_EQ(date.SetDateTime(2000, 0, 1, 0, 0, 0), 0);
  EXPECT_EQ(date.SetDateTime(2000, 13, 1, 0, 0, 0), 0);
  EXPECT_EQ(date.SetDateTime(2000, 4, 31, 0, 0, 0), 0);
  EXPECT_EQ(date.SetDateTime(2000, 4, 0, 0, 0, 0), 0);
  EXPECT_EQ(date.SetDateTime(2000, 4, 1, 24, 0, 0), 0);
  EXPECT_EQ(date.SetDateTime(2000, 4, 1, 0, 60, 0), 0);
  EXPECT_EQ(date.SetDateTime(2000, 4, 1, 0, 0, 60), 0);
  EXPECT_EQ(date.SetDateTime(2000, 4, 1, -1, 0, 0), 0);
  EXPECT_EQ(date.ToDouble(), before);
  // Year 0 is valid and leap.
  EXPECT_EQ(date.SetDateTime(0, 2, 29, 0, 0, 0), 1);
  EXPECT_EQ(date.ToDouble(), 59.0);
}

TEST(DateTimeSet, PartsAreReadAsUnsigned16Bits) {
  // 65536 + 2000 is 2000 once cut to 16 bits.
  Ox_DateTime date;
  EXPECT_EQ(date.SetDateTime(65536 + 2000, 1, 1, 0, 0, 0), 1);
  EXPECT_EQ(date.GetYear(), 2000);
}

TEST(DateTimeSet, TimeValueIsSecondsOverADay) {
  Ox_DateTime date(2000, 1, 1, 12, 0, 0);
  EXPECT_DOUBLE_EQ(date.ToDouble(), 730485.5);
  EXPECT_EQ(date.ToInteger(), 730485);
}

TEST(DateTimeSet, SetDateAndSetTime) {
  Ox_DateTime date(2000, 1, 1, 12, 0, 0);
  EXPECT_EQ(date.SetDate(2001, 2, 3), 1);
  EXPECT_EQ(date.GetHour(), 0);
  EXPECT_EQ(date.GetDay(), 3);
  // SetTime puts the time on 1 January of year 0.
  EXPECT_EQ(date.SetTime(6, 30, 15), 1);
  EXPECT_EQ(date.GetYear(), 0);
  EXPECT_EQ(date.GetMonth(), 1);
  EXPECT_EQ(date.GetDay(), 1);
  EXPECT_EQ(date.GetHour(), 6);
  EXPECT_EQ(date.GetMinute(), 30);
  EXPECT_EQ(date.GetSecond(), 15);
  EXPECT_EQ(date.SetTime(24, 0, 0), 0);
}

TEST(DateTimeSet, FixedPositionText) {
  Ox_DateTime date;
  EXPECT_EQ(date.SetDateTime("20050304102030"), 1);
  EXPECT_EQ(date.GetYear(), 2005);
  EXPECT_EQ(date.GetMonth(), 3);
  EXPECT_EQ(date.GetDay(), 4);
  EXPECT_EQ(date.GetHour(), 10);
  EXPECT_EQ(date.GetMinute(), 20);
  EXPECT_EQ(date.GetSecond(), 30);
  // Slices are read only when the text reaches their end: month and day
  // default to 1, the time to 0.
  EXPECT_EQ(date.SetDateTime("2005"), 1);
  EXPECT_EQ(date.ToDouble(), Ox_DateTime(2005, 1, 1).ToDouble());
  EXPECT_EQ(date.SetDateTime("20050"), 1);  // the month slice is not whole
  EXPECT_EQ(date.GetMonth(), 1);
  EXPECT_EQ(date.SetDateTime("200512"), 1);
  EXPECT_EQ(date.GetMonth(), 12);
  EXPECT_EQ(date.GetDay(), 1);
  EXPECT_EQ(date.SetDateTime("2005120710"), 1);
  EXPECT_EQ(date.GetHour(), 10);
  EXPECT_EQ(date.GetMinute(), 0);
  // A text shorter than 4 characters is year 0, 1 January.
  EXPECT_EQ(date.SetDateTime("12"), 1);
  EXPECT_EQ(date.ToDouble(), 0.0);
  EXPECT_EQ(date.SetDateTime(static_cast<const char *>(nullptr)), 1);
  EXPECT_EQ(date.ToDouble(), 0.0);
  // A bad part fails and keeps the value.
  date.SetDate(1999, 9, 9);
  EXPECT_EQ(date.SetDateTime("20051301"), 0);
  EXPECT_EQ(date.GetYear(), 1999);
}

TEST(DateTimeStored, NegativeValuesUseTheForwardFraction) {
  // -1.25: floor is -2, stored as -2 + (-2 - -1.25) = -2.75.
  Ox_DateTime date(-1.25);
  EXPECT_DOUBLE_EQ(date.GetStoredValue(), -2.75);
  EXPECT_DOUBLE_EQ(date.ToDouble(), -1.25);
  date = -0.5;  // floor -1, stored -1 + (-1 + 0.5) = -1.5
  EXPECT_DOUBLE_EQ(date.GetStoredValue(), -1.5);
  EXPECT_DOUBLE_EQ(date.ToDouble(), -0.5);
  EXPECT_EQ(date.ToInteger(), 0);  // -0.5 truncated
  Ox_DateTime whole(-3.0);
  EXPECT_DOUBLE_EQ(whole.GetStoredValue(), -3.0);
  EXPECT_EQ(whole.ToInteger(), -3);
  EXPECT_DOUBLE_EQ(Ox_DateTime(2.25).GetStoredValue(), 2.25);
}

TEST(DateTimeCompare, EqualityOnStoredAndOrderOnArithmetic) {
  // Stored -2.75 (arithmetic -1.25) and stored -1.5 (arithmetic -0.5): the
  // stored doubles alone would order them the same way here, so compare
  // -1.25 with -1.75 (stored -2.25): arithmetic -1.75 < -1.25, while the
  // stored -2.25 > -2.75.
  Ox_DateTime a(-1.25), b(-1.75);
  EXPECT_TRUE(b < a);
  EXPECT_TRUE(a > b);
  EXPECT_TRUE(b <= a);
  EXPECT_TRUE(a >= b);
  EXPECT_FALSE(a < b);
  EXPECT_TRUE(a != b);
  EXPECT_TRUE(a == Ox_DateTime(-1.25));
  EXPECT_FALSE(a == b);
  Ox_DateTime c(5.0), d(5.0);
  EXPECT_TRUE(c <= d);
  EXPECT_TRUE(c >= d);
}

TEST(DateTimeArithmetic, SpansShiftMoments) {
  Ox_DateTime date(2000, 2, 28);
  Ox_DateTime next = date + Ox_DateTimeSpan(1.0);
  EXPECT_EQ(next.GetDay(), 29);
  next += Ox_DateTimeSpan(1, 12, 0, 0);
  EXPECT_EQ(next.GetMonth(), 3);
  EXPECT_EQ(next.GetDay(), 1);
  EXPECT_EQ(next.GetHour(), 12);
  next -= Ox_DateTimeSpan(0.5);
  EXPECT_EQ(next.GetHour(), 0);
  Ox_DateTime back = next - Ox_DateTimeSpan(2.0);
  EXPECT_EQ(back.ToDouble(), date.ToDouble());
  Ox_DateTimeSpan span = next - date;
  EXPECT_DOUBLE_EQ(span.GetTotalDays(), 2.0);
  // Arithmetic into negative values goes through the stored form.
  Ox_DateTime negative = Ox_DateTime(0.25) - Ox_DateTimeSpan(1.5);
  EXPECT_DOUBLE_EQ(negative.ToDouble(), -1.25);
  EXPECT_DOUBLE_EQ(negative.GetStoredValue(), -2.75);
}

TEST(DateTimeConvert, ConvertToTmFillsStandardFields) {
  struct tm parts;
  Ox_DateTime(2005, 3, 4, 10, 20, 30).ConvertToTm(parts);
  EXPECT_EQ(parts.tm_year, 105);
  EXPECT_EQ(parts.tm_mon, 2);
  EXPECT_EQ(parts.tm_mday, 4);
  EXPECT_EQ(parts.tm_hour, 10);
  EXPECT_EQ(parts.tm_min, 20);
  EXPECT_EQ(parts.tm_sec, 30);
  EXPECT_EQ(parts.tm_wday, 5);   // a Friday
  EXPECT_EQ(parts.tm_yday, 62);  // 31 + 28 + 4 - 1
  // Out of range: zeros.
  parts.tm_year = 77;
  Ox_DateTime(-5.0).ConvertToTm(parts);
  EXPECT_EQ(parts.tm_year, 0);
  EXPECT_EQ(parts.tm_mday, 0);
}

TEST(DateTimeConvert, CTimeScaleIsReadAsLocalTime) {
  setenv("TZ", "UTC", 1);
  tzset();
  // 1 000 000 000 s after 1970 is 2001-09-09 01:46:40 UTC.
  Ox_DateTime date(int64_t(1000000000));
  EXPECT_EQ(date.GetYear(), 2001);
  EXPECT_EQ(date.GetMonth(), 9);
  EXPECT_EQ(date.GetDay(), 9);
  EXPECT_EQ(date.GetHour(), 1);
  EXPECT_EQ(date.GetMinute(), 46);
  EXPECT_EQ(date.GetSecond(), 40);
  setenv("TZ", "KST-9", 1);  // UTC+9 as a POSIX rule, no zone files needed
  tzset();
  date = int64_t(1000000000);
  EXPECT_EQ(date.GetHour(), 10);
  // A moment beyond year 9999 cannot be encoded: 0.0.
  date = int64_t(400000000000LL);
  EXPECT_EQ(date.ToDouble(), 0.0);
  setenv("TZ", "UTC", 1);
  tzset();
}

TEST(DateTimeConvert, TickCountIsNowInWholeSeconds) {
  setenv("TZ", "UTC", 1);
  tzset();
  const time_t before = time(nullptr);
  Ox_DateTime now = Ox_DateTime::GetTickCount();
  const time_t after = time(nullptr);
  // The whole seconds since 1970 of the value lie between the two reads.
  const double seconds = (now.ToDouble() - 719528.0) * 86400.0;
  EXPECT_GE(seconds + 0.5, double(before));
  EXPECT_LE(seconds - 0.5, double(after));
}
