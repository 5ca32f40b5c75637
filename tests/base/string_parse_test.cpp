// QuoteStr and UnQuoteStr against the list parser that reads quoted fields
// back: a quoted text comes out of Parse with escape '\' and unquote 1 as
// it went in.
#include <gtest/gtest.h>

#include "Ox_List.h"
#include "Ox_String.h"

namespace {

TEST(QuoteStrParse, QuotedFieldsParseBack) {
  const char *fields[] = {"plain", "with,comma", "say \"hi\"", "it's",
                          "back\\slash", "", " spaced "};
  const int count = sizeof(fields) / sizeof(fields[0]);
  for (char quote : {'"', '\''}) {
    Ox_AString line;
    for (int i = 0; i < count; ++i) {
      if (i) line += ",";
      line += Ox_AString(fields[i]).QuoteStr(quote);
    }
    Ox_AStrList list;
    ASSERT_EQ(count, list.Parse(line.GetString(), ",", '\\', 0, 1, 1, 1, 0))
        << line.GetString();
    for (int i = 0; i < count; ++i)
      EXPECT_STREQ(fields[i], list.GetItemNN(i).GetString()) << quote << i;
  }
}

TEST(QuoteStrParse, ItemsKeptQuotedUnQuoteBack) {
  // The CSV head keeps the quotes on the items and takes them off with
  // UnQuoteStr.
  Ox_AString a = Ox_AString("x,\"y\"").QuoteStr('"');
  Ox_AString b = Ox_AString("z").QuoteStr('"');
  Ox_AString line = a + "," + b;
  Ox_AStrList list;
  ASSERT_EQ(2, list.Parse(line.GetString(), ",", '\\', 0, 1, 0, 1, 0));
  EXPECT_STREQ("x,\"y\"", list.GetItemNN(0).UnQuoteStr().GetString());
  EXPECT_STREQ("z", list.GetItemNN(1).UnQuoteStr().GetString());
}

}  // namespace
