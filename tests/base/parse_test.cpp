// Ox_AStrList::Parse: one test per kind of caller, with the inputs each
// really sees, and the expected items worked out by hand.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Ox_List.h"

namespace {

using Items = std::vector<std::string>;

Items Split(const char *text, const char *delimiters, char escape, int trim,
            int quotes, int unquote, int keepEmpty, int *result = nullptr) {
  Ox_AStrList list(0);
  int count = list.Parse(text, delimiters, escape, trim, quotes, unquote,
                         keepEmpty, 0);
  if (result) *result = count;
  Items items;
  for (int i = 0; i < list.Count(); ++i) items.push_back(list.GetItemNN(i).GetString());
  EXPECT_EQ(count, list.Count());
  return items;
}

TEST(Parse, EmptyTextGivesNothing) {
  Ox_AStrList list(0);
  list.Add("left over");
  EXPECT_EQ(list.Parse("", ",", '\\', 1, 1, 1, 1, 0), 0);
  EXPECT_EQ(list.Count(), 0);
  list.Add("again");
  EXPECT_EQ(list.Parse(nullptr, ",", '\\', 1, 1, 1, 1, 0), 0);
  EXPECT_EQ(list.Count(), 0);
}

TEST(Parse, TheListIsEmptiedFirst) {
  Ox_AStrList list(0);
  EXPECT_EQ(list.Parse("a,b,c", ",", 0, 0, 1, 1, 1, 0), 3);
  EXPECT_EQ(list.Parse("d", ",", 0, 0, 1, 1, 1, 0), 1);
  EXPECT_STREQ(list.GetItemNN(0), "d");
}

// Attribute strings: blanks split, quotes protect blanks and stay.
TEST(Parse, AttributeStringsKeepQuotedBlanks) {
  EXPECT_EQ(Split("name=\"a b\" x", " \t\r\n", 0, 1, 1, 0, 1),
            (Items{"name=\"a b\"", "x"}));
  EXPECT_EQ(Split("x='a b'", " \t\r\n", 0, 1, 1, 0, 1), (Items{"x='a b'"}));
  // a="1" b = 2 c: five items; the blanks around "=" make items of their
  // own. Two blanks in a row give an empty item, which the caller skips.
  EXPECT_EQ(Split("a=\"1\" b = 2 c", " \t\r\n", 0, 1, 1, 0, 1),
            (Items{"a=\"1\"", "b", "=", "2", "c"}));
  EXPECT_EQ(Split("a  b", " \t\r\n", 0, 1, 1, 0, 1), (Items{"a", "", "b"}));
  EXPECT_EQ(Split("a\tb\r\nc", " \t\r\n", 0, 1, 1, 0, 1),
            (Items{"a", "b", "c"}));
}

// Log lines: CR is the escape and a delimiter, so backslashes and quotes
// stay as written; empty lines come out empty.
TEST(Parse, LogLinesComeOutAsWritten) {
  const char *text =
      "\"a\",\"b\\\"c\"\n"
      "\n"
      "\"C:\\dir\\\",\"5\"\n";
  EXPECT_EQ(Split(text, "\r\n", '\r', 0, 1, 0, 1),
            (Items{"\"a\",\"b\\\"c\"", "", "\"C:\\dir\\\",\"5\""}));
  // CR LF is one line end; an empty line between two stays one item.
  EXPECT_EQ(Split("a\r\nb", "\r\n", '\r', 0, 1, 0, 1), (Items{"a", "b"}));
  EXPECT_EQ(Split("a\r\n\r\nb\r\n", "\r\n", '\r', 0, 1, 0, 1),
            (Items{"a", "", "b"}));
  // An apostrophe inside a word opens no quoted span.
  EXPECT_EQ(Split("can't open\nnext", "\r\n", '\r', 0, 1, 0, 1),
            (Items{"can't open", "next"}));
}

// Log and result fields: quotes go, an escaped quote is a plain quote.
TEST(Parse, FieldsLoseTheirQuotes) {
  EXPECT_EQ(Split("\"a\",\"b\\\"c\"", ",", '\\', 1, 1, 1, 1),
            (Items{"a", "b\"c"}));
  // A doubled backslash is one backslash: a path ending in a backslash.
  EXPECT_EQ(Split("\"C:\\\\dir\\\\\",\"7\"", ",", '\\', 1, 1, 1, 1),
            (Items{"C:\\dir\\", "7"}));
  // Blanks around fields are trimmed, not those inside the quotes.
  EXPECT_EQ(Split(" \"a\" , \" b \" ", ",", '\\', 1, 1, 1, 1),
            (Items{"a", " b "}));
  // The tail that Ox_Result::Save writes behind each argument: "arg""",
  // is the span "arg" and the empty span "", then a final comma that
  // opens no item.
  EXPECT_EQ(Split("\"\",\"0\",\"5\",\"one\"\"\",\"two words\"\"\",", ",", '\\',
                  1, 1, 1, 1),
            (Items{"", "0", "5", "one", "two words"}));
}

// Result lines: split first into lines, each line then into fields; the
// line split must leave the fields intact.
TEST(Parse, ResultLinesKeepTheirFields) {
  const char *text = "\"f\",\"1\",\"a\\\"b\",\"x,y\"\n\"g\",\"2\"";
  Items lines = Split(text, "\r\n", '\\', 0, 1, 1, 1);
  ASSERT_EQ(lines, (Items{"\"f\",\"1\",\"a\\\"b\",\"x,y\"", "\"g\",\"2\""}));
  EXPECT_EQ(Split(lines[0].c_str(), ",", '\\', 1, 1, 1, 1),
            (Items{"f", "1", "a\"b", "x,y"}));
  EXPECT_EQ(Split(lines[1].c_str(), ",", '\\', 1, 1, 1, 1),
            (Items{"g", "2"}));
}

// CSV head line: the items keep their quotes for UnQuoteStr.
TEST(Parse, CsvHeadLineKeepsQuotes) {
  EXPECT_EQ(Split("\"id:STRING(10)\",name:INT,\"a\\\"b\"", ",", '\\', 0, 1, 0,
                  1),
            (Items{"\"id:STRING(10)\"", "name:INT", "\"a\\\"b\""}));
}

// CSV head items and data fields: no quotes, blanks kept, empties kept.
TEST(Parse, CsvFieldsKeepBlanksAndEmpties) {
  EXPECT_EQ(Split("id:STRING(10):sum", ":", '\\', 0, 1, 1, 1),
            (Items{"id", "STRING(10)", "sum"}));
  EXPECT_EQ(Split("\"a b\", x ,,\"c\"", ",", '\\', 0, 1, 1, 1),
            (Items{"a b", " x ", "", "c"}));
  // A variable line: each field is "name=value", quoted as a whole.
  EXPECT_EQ(Split("\"n=1\",\"s=a\\\"b\",\"e=\"", ",", '\\', 0, 1, 1, 1),
            (Items{"n=1", "s=a\"b", "e="}));
  // An escaped delimiter outside quotes is a plain character.
  EXPECT_EQ(Split("a\\,b,c", ",", '\\', 0, 1, 1, 1), (Items{"a,b", "c"}));
}

// A value quoted by QuoteStr comes back whole through a split with
// unquote 1, and through a split with unquote 0 followed by UnQuoteStr.
TEST(Parse, QuotedValuesComeBack) {
  const char *values[] = {"plain", "a,b", "say \"hi\"", "C:\\dir\\", "",
                          "it's"};
  for (const char *value : values) {
    Ox_AString quoted = Ox_AString(value).QuoteStr('"');
    std::string line = std::string("x,") + quoted.GetString() + ",y";
    EXPECT_EQ(Split(line.c_str(), ",", '\\', 0, 1, 1, 1),
              (Items{"x", value, "y"}))
        << line;
    Items kept = Split(line.c_str(), ",", '\\', 0, 1, 0, 1);
    ASSERT_EQ(kept.size(), 3u) << line;
    EXPECT_STREQ(Ox_AString(kept[1].c_str()).UnQuoteStr(), value) << line;
  }
}

// Filter and LocFilter: column, "=", text.
TEST(Parse, FilterExpressions) {
  EXPECT_EQ(Split("a=b", "=", '\\', 1, 1, 1, 1), (Items{"a", "b"}));
  EXPECT_EQ(Split(" name = 'x=y' ", "=", '\\', 1, 1, 1, 1),
            (Items{"name", "x=y"}));
  EXPECT_EQ(Split("a\\=b=c", "=", '\\', 1, 1, 1, 1), (Items{"a=b", "c"}));
  EXPECT_EQ(Split("name=O'Brien", "=", '\\', 1, 1, 1, 1),
            (Items{"name", "O'Brien"}));
}

// Sort keys.
TEST(Parse, SortKeys) {
  EXPECT_EQ(Split("name, age desc ,\"x y\"", ",", '\\', 1, 1, 1, 1),
            (Items{"name", "age desc", "x y"}));
}

// Group and pivot keys: "," then ":", no escape.
TEST(Parse, GroupKeys) {
  Items keys = Split("a, b:sum", ",", 0, 1, 1, 1, 1);
  ASSERT_EQ(keys, (Items{"a", "b:sum"}));
  EXPECT_EQ(Split(keys[1].c_str(), ":", 0, 1, 1, 1, 1), (Items{"b", "sum"}));
  EXPECT_EQ(Split("x:y", ":", 0, 1, 1, 1, 1), (Items{"x", "y"}));
  // Without an escape character a backslash is plain text.
  EXPECT_EQ(Split("a\\b:c", ":", 0, 1, 1, 1, 1), (Items{"a\\b", "c"}));
}

// Name space lists: ";" then "=".
TEST(Parse, NameSpaceLists) {
  Items pairs = Split("xmlns:a='urn:a';xmlns:b=\"urn:b\"", ";", 0, 0, 1, 1, 1);
  ASSERT_EQ(pairs, (Items{"xmlns:a='urn:a'", "xmlns:b=\"urn:b\""}));
  EXPECT_EQ(Split(pairs[0].c_str(), "=", 0, 0, 1, 1, 1),
            (Items{"xmlns:a", "urn:a"}));
  EXPECT_EQ(Split(pairs[1].c_str(), "=", 0, 0, 1, 1, 1),
            (Items{"xmlns:b", "urn:b"}));
}

// Map values: "." splits a path of names.
TEST(Parse, MapValuePaths) {
  EXPECT_EQ(Split("root.item.name", ".", 0, 0, 1, 1, 1),
            (Items{"root", "item", "name"}));
  EXPECT_EQ(Split("a..b", ".", 0, 0, 1, 1, 1), (Items{"a", "", "b"}));
}

// MakeDir: a path split at backslashes.
TEST(Parse, DirectoryChains) {
  EXPECT_EQ(Split("C:\\a\\b c", "\\", 0, 0, 1, 1, 1),
            (Items{"C:", "a", "b c"}));
  EXPECT_EQ(Split("C:\\a\\\\b", "\\", 0, 0, 1, 1, 1),
            (Items{"C:", "a", "", "b"}));
}

// GetList: extensions split at ";", escape "/" so backslashes stay.
TEST(Parse, ExtensionLists) {
  EXPECT_EQ(Split("txt; doc;xml", ";", '/', 1, 1, 1, 1),
            (Items{"txt", "doc", "xml"}));
  EXPECT_EQ(Split("a\\b;c", ";", '/', 1, 1, 1, 1), (Items{"a\\b", "c"}));
}

// Directory properties: empty items dropped.
TEST(Parse, EmptyItemsDropped) {
  int count = 0;
  EXPECT_EQ(Split("a;;b ; ;", ";", 0, 1, 1, 0, 0, &count),
            (Items{"a", "b"}));
  EXPECT_EQ(count, 2);
  EXPECT_EQ(Split("key = value", "=", 0, 1, 1, 1, 0), (Items{"key", "value"}));
  EXPECT_EQ(Split("=", "=", 0, 1, 1, 1, 0), Items{});
}

TEST(Parse, DelimitersAtTheEnds) {
  // A leading delimiter gives an empty first item; a final one opens none.
  EXPECT_EQ(Split(",a,", ",", 0, 0, 1, 1, 1), (Items{"", "a"}));
  EXPECT_EQ(Split(",", ",", 0, 0, 1, 1, 1), (Items{""}));
  EXPECT_EQ(Split("a,,", ",", 0, 0, 1, 1, 1), (Items{"a", ""}));
  EXPECT_EQ(Split("\n", "\r\n", '\r', 0, 1, 0, 1), (Items{""}));
}

TEST(Parse, OddQuotingIsKeptAsWritten) {
  // A span left open runs to the end of the text and the item stays as
  // written.
  EXPECT_EQ(Split("\"a,b", ",", '\\', 0, 1, 1, 1), (Items{"\"a,b"}));
  // A span mixed with plain text keeps its quotes with unquote 1.
  EXPECT_EQ(Split("x=\"a,b\"y,z", ",", '\\', 0, 1, 1, 1),
            (Items{"x=\"a,b\"y", "z"}));
  // A quote behind a letter or digit opens no span.
  EXPECT_EQ(Split("x\"a,b\"y", ",", '\\', 0, 1, 1, 1),
            (Items{"x\"a", "b\"y"}));
  // quotes 0: quotes are plain characters and don't protect delimiters.
  EXPECT_EQ(Split("\"a,b\"", ",", 0, 0, 0, 1, 1), (Items{"\"a", "b\""}));
  // A lone escape at the end is dropped.
  EXPECT_EQ(Split("a\\", ",", '\\', 0, 1, 1, 1), (Items{"a"}));
  // Trimming stops at an escaped blank.
  EXPECT_EQ(Split("a\\  ,b", ",", '\\', 1, 1, 1, 1), (Items{"a ", "b"}));
}

// Random texts over the special characters: every flag combination gives
// items no longer than the text, and with no quotes, escape or trimming
// the items joined by the delimiter give the text back (less a final
// delimiter, which opens no item).
TEST(Parse, RandomTextsStayInBounds) {
  const char alphabet[] = "ab ,;\"\'\\\r\n=";
  unsigned seed = 12345;
  auto next = [&seed] {
    seed = seed * 1103515245u + 12345u;
    return (seed >> 16) & 0x7FFF;
  };
  for (int round = 0; round < 3000; ++round) {
    std::string text;
    int length = static_cast<int>(next() % 24);
    for (int i = 0; i < length; ++i) text += alphabet[next() % (sizeof alphabet - 1)];
    int flags = static_cast<int>(next());
    char escape = (flags & 1) ? '\\' : (flags & 2) ? '\r' : 0;
    Ox_AStrList list(0);
    int count = list.Parse(text.c_str(), (flags & 4) ? ",;" : "\r\n", escape,
                           (flags >> 3) & 1, (flags >> 4) & 1, (flags >> 5) & 1,
                           (flags >> 6) & 1, 0);
    ASSERT_EQ(count, list.Count());
    for (int i = 0; i < count; ++i)
      ASSERT_LE(list.GetItemNN(i).GetLength(), length);

    list.Parse(text.c_str(), ",", 0, 0, 0, 0, 1, 0);
    std::string joined;
    for (int i = 0; i < list.Count(); ++i) {
      if (i) joined += ',';
      joined += list.GetItemNN(i).GetString();
    }
    std::string expected = text;
    if (!expected.empty() && expected.back() == ',') expected.pop_back();
    ASSERT_EQ(joined, expected) << text;
  }
}

}  // namespace
