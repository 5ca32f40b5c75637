// Internals shared by the date files: the parts of a moment and the
// encoding of the day number.
#ifndef OX_DATETIME_INTERNAL_H
#define OX_DATETIME_INTERNAL_H

#include <ctime>

// The first value that cannot be taken apart: 1 January of year 10000.
constexpr double kOxDateLimit = 3652425.0;

// A moment taken apart.
struct OxDateParts {
  int year;
  int month;      // 1 to 12
  int day;        // 1 to 31
  int hour;
  int minute;
  int second;
  int dayOfWeek;  // 1 Sunday to 7 Saturday (0 for day 0 itself)
  int dayOfYear;  // from 1
};

// Day number of a date on the proleptic Gregorian calendar, day 0 being
// 1 January of year 0. The parts are taken as valid.
long OxDayNumber(int year, int month, int day);

// Takes a stored value apart, rounded to the nearest second; false when it
// is outside 0 to kOxDateLimit.
bool OxTakeApart(double stored, OxDateParts &parts);

// The standard struct tm fields of a moment's parts.
void OxPartsToTm(const OxDateParts &parts, struct tm &out);

// A double truncated toward zero as a long; values a long cannot hold
// saturate, and a NaN gives 0.
long OxDoubleToLong(double value);

#endif
