// Ox_DateTimeSpan: construction from parts, the half-second-corrected
// getters, arithmetic and comparisons.
#include <gtest/gtest.h>

#include <cmath>

#include "Ox_DateTime.h"

TEST(DateTimeSpan, PartsDivideAsRealNumbers) {
  // (1, 12, 0, 0) is 1.5 days, not 1 day and a truncated 12/24.
  EXPECT_DOUBLE_EQ(Ox_DateTimeSpan(1, 12, 0, 0).GetTotalDays(), 1.5);
  EXPECT_DOUBLE_EQ(Ox_DateTimeSpan(0, 0, 90, 0).GetTotalDays(), 90 / 1440.0);
  EXPECT_DOUBLE_EQ(Ox_DateTimeSpan(0, 0, 0, 43200).GetTotalDays(), 0.5);
  Ox_DateTimeSpan span;
  EXPECT_EQ(span.GetTotalDays(), 0.0);
  span.SetDateTimeSpan(-1, 6, 0, 0);
  EXPECT_DOUBLE_EQ(double(span), -0.75);
}

TEST(DateTimeSpan, HoursOfAlmostADayWrapToZero) {
  // 0.99999999 + half a second is past 1: 24 hours, wrapped to 0.
  EXPECT_EQ(Ox_DateTimeSpan(0.99999999).GetHours(), 0);
  EXPECT_EQ(Ox_DateTimeSpan(0.99999999).GetDays(), 0);
}

TEST(DateTimeSpan, PartsOfADay) {
  // 2 days 3:04:05.
  Ox_DateTimeSpan span(2, 3, 4, 5);
  EXPECT_EQ(span.GetDays(), 2);
  EXPECT_EQ(span.GetHours(), 3);
  EXPECT_EQ(span.GetMinutes(), 4);
  EXPECT_EQ(span.GetSeconds(), 5);
  // The correction is half a second in days, added to the fraction at
  // every scale: 59.9999 s gives seconds 0.99999833 + 0.0000058 of a
  // minute, 60 after truncation, wrapped to 0; the minutes are
  // (0.01666664 + 0.0000058) * 60 = 1.0003, so 1.
  Ox_DateTimeSpan nearly;
  nearly = 59.9999 / 86400.0;
  EXPECT_EQ(nearly.GetSeconds(), 0);
  EXPECT_EQ(nearly.GetMinutes(), 1);
  // At 59.6 s the tiny correction does not reach the next second.
  nearly = 59.6 / 86400.0;
  EXPECT_EQ(nearly.GetSeconds(), 59);
  EXPECT_EQ(nearly.GetMinutes(), 0);
}

TEST(DateTimeSpan, TotalsAddHalfASecondInDaysAndTruncate) {
  Ox_DateTimeSpan span(1.5);
  EXPECT_EQ(span.GetTotalHours(), 36.0);
  EXPECT_EQ(span.GetTotalMinutes(), 2160.0);
  EXPECT_EQ(span.GetTotalSeconds(), 129600.0);
  // 2.9999999 hours plus 5.787e-6 is still below 3: 2.
  Ox_DateTimeSpan hours(2.99999 / 24);
  EXPECT_EQ(hours.GetTotalHours(), 2.0);
  // A negative span truncates toward zero: -36 + 5.8e-6 gives -35.
  EXPECT_EQ(Ox_DateTimeSpan(-1.5).GetTotalHours(), -35.0);
  EXPECT_EQ(Ox_DateTimeSpan(-1.5).GetDays(), -1);
}

TEST(DateTimeSpan, ArithmeticAndComparison) {
  Ox_DateTimeSpan a(1.5), b(0.25);
  EXPECT_DOUBLE_EQ((a + b).GetTotalDays(), 1.75);
  EXPECT_DOUBLE_EQ((a - b).GetTotalDays(), 1.25);
  EXPECT_DOUBLE_EQ((-a).GetTotalDays(), -1.5);
  Ox_DateTimeSpan c = a;
  c += b;
  EXPECT_DOUBLE_EQ(c.GetTotalDays(), 1.75);
  c -= a;
  EXPECT_DOUBLE_EQ(c.GetTotalDays(), 0.25);
  EXPECT_TRUE(c == b);
  EXPECT_FALSE(c != b);
  EXPECT_TRUE(b < a);
  EXPECT_TRUE(a > b);
  EXPECT_TRUE(b <= c);
  EXPECT_TRUE(c >= b);
  EXPECT_TRUE(a == 1.5);
  EXPECT_TRUE(a != 2.0);
  EXPECT_DOUBLE_EQ((a + 1.0).GetTotalDays(), 2.5);
}

TEST(DateTimeSpan, HostileValuesDoNotFault) {
  Ox_DateTimeSpan huge(1e300);
  EXPECT_GT(huge.GetDays(), 0);
  Ox_DateTimeSpan nan(std::nan(""));
  EXPECT_EQ(nan.GetHours(), 0);
}
