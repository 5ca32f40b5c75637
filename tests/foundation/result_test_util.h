// Shared set-up of the result, log and view tests: a fixed locale and time
// zone, and the server mode restored after each test.
#ifndef RESULT_TEST_UTIL_H
#define RESULT_TEST_UTIL_H

#include <gtest/gtest.h>
#include <stdlib.h>
#include <time.h>

#include "Ox_BaseFunc.h"
#include "Ox_Result.h"

class ResultFixture : public ::testing::Test {
 protected:
  void SetUp() override {
    savedMode_ = IsServerMode();
    OxSetLocale(0x0409, 1252);
    setenv("TZ", "UTC", 1);
    tzset();
  }
  void TearDown() override { SetServerMode(savedMode_); }

  // 1970-01-02 01:01:01 UTC: one day, one hour, one minute, one second.
  static constexpr Ox_Int64 kTime = 86400 + 3600 + 60 + 1;

  // A message with every field set, as a server would keep it.
  static Ox_Message MakeMessage(int code, const char *arg) {
    Ox_Message m;
    m.time = kTime;
    m.millitm = 7;
    m.processId = 11;
    m.threadId = 22;
    m.file = "c:\\src\\mod.cpp";
    m.line = 42;
    m.code = code;
    if (arg) m.args.Add(arg);
    return m;
  }

 private:
  int savedMode_ = 0;
};

#endif
