// The expressions of Filter and LocFilter: "column=text", split at "=" with
// backslash escapes, quotes and trimming, matched against the text form of
// each cell. One column of every type; bad and hostile texts.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Ox_Currency.h"
#include "Ox_Dataset.h"
#include "Ox_DateTime.h"
#include "rows_test_util.h"

namespace {

using rows_test::Put;

// The stored rows that carry the filter bit.
std::vector<int> HiddenRows(const Ox_Dataset &ds) {
  std::vector<int> out;
  for (int i = 0; i < ds.recs.Count(); ++i) {
    if (ds.recs.GetItem(i)->GetFilter() != 0) out.push_back(i);
  }
  return out;
}

// One column of each type and three rows; row 2 is null throughout.
//   col type      row 0         row 1
//   S   STRING    "Abc"         "abc"
//   I   INT       12            -7
//   D   DECIMAL   1.5           2.0     (texts "1.5", "2")
//   C   CURRENCY  1.5           10      (texts "1.5", "10")
//   T   DATE      2024-03-05    2024-03-05 13:04:05
//                 ("20240305")  ("20240305130405")
//   B   BLOB      3 bytes       null    (text "[binary]")
//   U   URL       "a=b"         "x"
//   L   LONG      " pad "       "pad"
//   H   CHAR      "'q'"         "q"
class FilterExprTypes : public ::testing::Test {
 protected:
  void SetUp() override {
    ds.AddColumn("S", 1, 10, 1);
    ds.AddColumn("I", 2, 0, 1);
    ds.AddColumn("D", 4, 0, 1);
    ds.AddColumn("C", 5, 0, 1);
    ds.AddColumn("T", 8, 0, 1);
    ds.AddColumn("B", 9, 0, 1);
    ds.AddColumn("U", 10, 0, 1);
    ds.AddColumn("L", 11, 0, 1);
    ds.AddColumn("H", 12, 0, 1);
    for (int i = 0; i < 3; ++i) ds.AppendRow(0);
    Put(ds, 0, 0, Ox_Variant("Abc"));
    Put(ds, 1, 0, Ox_Variant("abc"));
    Put(ds, 0, 1, Ox_Variant(12L));
    Put(ds, 1, 1, Ox_Variant(-7L));
    Put(ds, 0, 2, Ox_Variant(1.5));
    Put(ds, 1, 2, Ox_Variant(2.0));
    Put(ds, 0, 3, Ox_Variant(Ox_Currency(1L, 5000L)));
    Put(ds, 1, 3, Ox_Variant(Ox_Currency(10L, 0L)));
    Put(ds, 0, 4, Ox_Variant(Ox_DateTime(2024, 3, 5)));
    Put(ds, 1, 4, Ox_Variant(Ox_DateTime(2024, 3, 5, 13, 4, 5)));
    Ox_Buffer bytes;
    const unsigned char raw[3] = {1, 2, 3};
    bytes.Append(raw, 3);
    Ox_Variant blob;
    blob.SetBinary(bytes);
    Put(ds, 0, 5, blob);
    Put(ds, 0, 6, Ox_Variant("a=b"));
    Put(ds, 1, 6, Ox_Variant("x"));
    Put(ds, 0, 7, Ox_Variant(" pad "));
    Put(ds, 1, 7, Ox_Variant("pad"));
    Put(ds, 0, 8, Ox_Variant("'q'"));
    Put(ds, 1, 8, Ox_Variant("q"));
  }

  // The stored rows that Filter(expr) hides; {-1} for a bad expression.
  std::vector<int> Hides(const char *expr) {
    if (ds.Filter(expr) != 0) return {-1};
    return HiddenRows(ds);
  }

  Ox_Dataset ds{65001u, 1};
};

TEST_F(FilterExprTypes, StringIsExactAndCaseSensitive) {
  EXPECT_EQ((std::vector<int>{0}), Hides("S=Abc"));
  EXPECT_EQ((std::vector<int>{1}), Hides("S=abc"));
  EXPECT_EQ((std::vector<int>{}), Hides("S=ab"));
  EXPECT_EQ((std::vector<int>{}), Hides("S=ABC"));
  // The identifier ignores case.
  EXPECT_EQ((std::vector<int>{0}), Hides("s=Abc"));
}

TEST_F(FilterExprTypes, IntegerByItsDecimalText) {
  EXPECT_EQ((std::vector<int>{0}), Hides("I=12"));
  EXPECT_EQ((std::vector<int>{1}), Hides("I=-7"));
  // The text form decides, not the number: "012" is not "12".
  EXPECT_EQ((std::vector<int>{}), Hides("I=012"));
  EXPECT_EQ((std::vector<int>{}), Hides("I=12.0"));
}

TEST_F(FilterExprTypes, DecimalByItsShortestText) {
  EXPECT_EQ((std::vector<int>{0}), Hides("D=1.5"));
  EXPECT_EQ((std::vector<int>{1}), Hides("D=2"));
  EXPECT_EQ((std::vector<int>{}), Hides("D=2.0"));
}

TEST_F(FilterExprTypes, CurrencyByItsText) {
  // 15000 in ten-thousandths prints as 1.5; 100000 as 10.
  EXPECT_EQ((std::vector<int>{0}), Hides("C=1.5"));
  EXPECT_EQ((std::vector<int>{1}), Hides("C=10"));
  EXPECT_EQ((std::vector<int>{}), Hides("C=1.5000"));
}

TEST_F(FilterExprTypes, DateByItsDefaultText) {
  // No time of day: yyyyMMdd; with one: yyyyMMddHHmmss.
  EXPECT_EQ((std::vector<int>{0}), Hides("T=20240305"));
  EXPECT_EQ((std::vector<int>{1}), Hides("T=20240305130405"));
  EXPECT_EQ((std::vector<int>{}), Hides("T=2024-03-05"));
}

TEST_F(FilterExprTypes, BlobReadsAsBinaryAndNullAsEmpty) {
  EXPECT_EQ((std::vector<int>{0}), Hides("B=[binary]"));
  // "B=" holds the "=" and no text: the empty text matches the null
  // cells of rows 1 and 2.
  EXPECT_EQ((std::vector<int>{1, 2}), Hides("B="));
}

TEST_F(FilterExprTypes, NullCellsMatchTheEmptyText) {
  EXPECT_EQ((std::vector<int>{2}), Hides("I="));
  EXPECT_EQ((std::vector<int>{2}), Hides("T=''"));
  EXPECT_EQ((std::vector<int>{2}), Hides("S=\"\""));
}

TEST_F(FilterExprTypes, EscapedEqualsSignStaysOneToken) {
  EXPECT_EQ((std::vector<int>{0}), Hides("U=a\\=b"));
}

TEST_F(FilterExprTypes, QuotedValueWithEqualsSign) {
  EXPECT_EQ((std::vector<int>{0}), Hides("U=\"a=b\""));
  EXPECT_EQ((std::vector<int>{0}), Hides("U='a=b'"));
}

TEST_F(FilterExprTypes, UnescapedSecondEqualsSignSplitsAgain) {
  // "U=a=b" gives the items U, a and b: the text is "a".
  EXPECT_EQ((std::vector<int>{}), Hides("U=a=b"));
  Put(ds, 1, 6, Ox_Variant("a"));
  EXPECT_EQ((std::vector<int>{1}), Hides("U=a=b"));
}

TEST_F(FilterExprTypes, ItemsAreTrimmedAndQuotesKeepBlanks) {
  EXPECT_EQ((std::vector<int>{1}), Hides("  L  =  pad  "));
  EXPECT_EQ((std::vector<int>{0}), Hides("L=\" pad \""));
  EXPECT_EQ((std::vector<int>{1}), Hides("I = -7"));
}

TEST_F(FilterExprTypes, QuotesComeOffUnlessEscaped) {
  // 'q' unquoted is q (row 1); the escaped quotes stay (row 0).
  EXPECT_EQ((std::vector<int>{1}), Hides("H='q'"));
  EXPECT_EQ((std::vector<int>{0}), Hides("H=\\'q\\'"));
}

TEST_F(FilterExprTypes, LocFilterUsesTheSameRules) {
  ds.ResetRecIndex();
  ds.recIndexValid = 1;
  // "1.5" matches rows 0 of D: position 0 of the identity goes.
  EXPECT_EQ(0, ds.LocFilter("D = 1.5"));
  EXPECT_EQ(2, ds.GetRowCount());
  EXPECT_EQ(1, ds.filterIndex.Items(0));
  EXPECT_EQ(0, ds.LocFilter("U=\"a=b\""));
  EXPECT_EQ(2, ds.GetRowCount());
  EXPECT_EQ(-1, ds.LocFilter("Q=1"));
}

// ---------------------------------------------------------------------------
// Bad expressions

TEST_F(FilterExprTypes, BadExpressionsGiveMinusOne) {
  const char *bad[] = {
      nullptr,     "",       "=",       "=abc",  "S",  "Abc", "Z=1", "S\\=Abc",
      "\"S=Abc\"", "  =  x", "K=konst", "S:D=1", "\\", "'",   "\"",
  };
  ds.AddConstStr("K", "konst", -1);
  for (const char *expr : bad) {
    EXPECT_EQ(-1, ds.Filter(expr)) << (expr ? expr : "(null)");
  }
}

TEST_F(FilterExprTypes, ConstantColumnIsRefused) {
  ds.AddConstStr("K", "konst", -1);
  ds.Filter(1);
  EXPECT_EQ(-1, ds.Filter("K=konst"));
  // The filter in force stays.
  EXPECT_EQ(2, ds.GetRowCount());
  EXPECT_EQ((std::vector<int>{1}), HiddenRows(ds));
}

TEST_F(FilterExprTypes, HostileTextsNeverCrash) {
  ds.ResetRecIndex();
  ds.recIndexValid = 1;
  std::vector<std::string> texts = {
      std::string(5000, '='),
      std::string(5000, '\\'),
      std::string(5000, '"'),
      "S=" + std::string(100000, 'x'),
      "S=\"unclosed",
      "S='unclosed",
      "S=\\",
      "\xff\xfe=\x80\x81",
      "S=\t\r\n",
      "S====\\\\\\=''\"\"",
  };
  std::string many;
  for (int i = 0; i < 2000; ++i) many += "S=a";
  texts.push_back(many);
  for (const std::string &text : texts) {
    const long plain = ds.Filter(text.c_str());
    EXPECT_TRUE(plain == 0 || plain == -1);
    ds.recIndexValid = 1;
    const long loc = ds.LocFilter(text.c_str());
    EXPECT_TRUE(loc == 0 || loc == -1);
    EXPECT_LE(ds.GetRowCount(), 3);
  }
}

}  // namespace
