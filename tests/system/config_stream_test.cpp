// The binary form of a configuration: golden bytes, round trips, and
// truncated or damaged input.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Ox_Config.h"
#include "config_test_util.h"

namespace {

typedef std::vector<unsigned char> Bytes;

// Appends a 4-byte big-endian integer.
void Int(Bytes &out, unsigned value) {
  out.push_back(static_cast<unsigned char>(value >> 24));
  out.push_back(static_cast<unsigned char>(value >> 16));
  out.push_back(static_cast<unsigned char>(value >> 8));
  out.push_back(static_cast<unsigned char>(value));
}

void Text(Bytes &out, const char *text) {
  for (const char *p = text; *p; ++p)
    out.push_back(static_cast<unsigned char>(*p));
}

// A length-prefixed text, as names and items are written.
void Counted(Bytes &out, const char *text) {
  Int(out, static_cast<unsigned>(std::string(text).size()));
  Text(out, text);
}

Ox_Buffer ToBuffer(const Bytes &bytes) {
  Ox_Buffer buffer;
  buffer.Set(bytes.data(), static_cast<long>(bytes.size()));
  return buffer;
}

Bytes FromBuffer(const Ox_Buffer &buffer) {
  const unsigned char *data = buffer.GetData();
  return data ? Bytes(data, data + buffer.GetSize()) : Bytes();
}

using oxtest::Dump;

// The form of [s] k=v a= followed by [tt] x=1=2, written out by hand.
Bytes Golden() {
  Bytes bytes;
  Int(bytes, 2);          // items of the first section
  Counted(bytes, "s");    // its name
  Counted(bytes, "k=v");  // the items
  Counted(bytes, "a=");
  Int(bytes, 1);
  Counted(bytes, "tt");
  Counted(bytes, "x=1=2");
  return bytes;
}

TEST(ConfigStream, SaveWritesTheGoldenBytes) {
  Ox_Config config;
  config.SetItem("s", "k", "v");
  config.SetItem("s", "a", "");
  config.SetItem("tt", "x", "1=2");
  Ox_Buffer buffer;
  EXPECT_EQ(2, config.SaveToStream(buffer));
  EXPECT_EQ(Golden(), FromBuffer(buffer));
}

TEST(ConfigStream, LoadReadsTheGoldenBytes) {
  Ox_Buffer buffer = ToBuffer(Golden());
  Ox_Config config;
  config.SetItem("stale", "a", "b");
  EXPECT_EQ(2, config.LoadFromStream(buffer));
  EXPECT_EQ("[s]k=v;a=;[tt]x=1=2;", Dump(config));
}

TEST(ConfigStream, RoundTrip) {
  Ox_Config config;
  config.SetItem("first", "key", "value with blanks");
  config.SetItem("first", "", "empty key");
  config.SetItem("first", "empty", "");
  config.SetItem("second", "eq", "a=b=c");
  config.SetItem("second", "n", 12);
  config.AddSection("third");  // a section with no items
  Ox_Buffer buffer;
  ASSERT_EQ(3, config.SaveToStream(buffer));
  Ox_Config back;
  EXPECT_EQ(3, back.LoadFromStream(buffer));
  EXPECT_EQ(Dump(config), Dump(back));
  // And again, to the same bytes.
  Ox_Buffer again;
  back.SaveToStream(again);
  EXPECT_EQ(FromBuffer(buffer), FromBuffer(again));
}

TEST(ConfigStream, EmptyConfiguration) {
  Ox_Config config;
  Ox_Buffer buffer;
  EXPECT_EQ(0, config.SaveToStream(buffer));
  EXPECT_EQ(0, buffer.GetSize());
  EXPECT_EQ(0, config.LoadFromStream(buffer));
}

TEST(ConfigStream, SaveReplacesWhatTheBufferHeld) {
  Ox_Config config;
  config.SetItem("s", "k", "v");
  config.SetItem("s", "a", "");
  config.SetItem("tt", "x", "1=2");
  Ox_Buffer buffer;
  buffer.AppendStr("old bytes that are longer than nothing at all.....");
  config.SaveToStream(buffer);
  EXPECT_EQ(Golden(), FromBuffer(buffer));
}

TEST(ConfigStream, NegativeItemLengthIsSkipped) {
  Bytes bytes;
  Int(bytes, 2);
  Counted(bytes, "s");
  Int(bytes, 0xFFFFFFFFu);  // -1: no bytes follow for it
  Counted(bytes, "k=v");
  Ox_Buffer buffer = ToBuffer(bytes);
  Ox_Config config;
  EXPECT_EQ(1, config.LoadFromStream(buffer));
  EXPECT_EQ("[s]k=v;", Dump(config));
}

TEST(ConfigStream, EmptyItemGivesAnItemWithEmptyKey) {
  // Length 0: no '=' in nothing, so the whole (empty) text is the key.
  Bytes bytes;
  Int(bytes, 1);
  Counted(bytes, "s");
  Int(bytes, 0);
  Ox_Buffer buffer = ToBuffer(bytes);
  Ox_Config config;
  EXPECT_EQ(1, config.LoadFromStream(buffer));
  EXPECT_EQ("[s]=;", Dump(config));
}

TEST(ConfigStream, ItemWithoutEqualsIsAKey) {
  Bytes bytes;
  Int(bytes, 1);
  Counted(bytes, "s");
  Counted(bytes, "lonely");
  Ox_Buffer buffer = ToBuffer(bytes);
  Ox_Config config;
  EXPECT_EQ(1, config.LoadFromStream(buffer));
  EXPECT_EQ("[s]lonely=;", Dump(config));
}

TEST(ConfigStream, ZeroNameLengthKeepsTheLastName) {
  // The second section has no name: the working name "s" stays, and as "s"
  // is there already AddSection answers 0 and the items join section 0.
  Bytes bytes;
  Int(bytes, 1);
  Counted(bytes, "s");
  Counted(bytes, "k=1");
  Int(bytes, 1);
  Int(bytes, 0);
  Counted(bytes, "m=2");
  Ox_Buffer buffer = ToBuffer(bytes);
  Ox_Config config;
  EXPECT_EQ(1, config.LoadFromStream(buffer));
  EXPECT_EQ("[s]k=1;m=2;", Dump(config));
}

TEST(ConfigStream, NoNameAtAllGivesAnEmptyName) {
  Bytes bytes;
  Int(bytes, 1);
  Int(bytes, 0x80000000u);  // negative: no name bytes
  Counted(bytes, "k=v");
  Ox_Buffer buffer = ToBuffer(bytes);
  Ox_Config config;
  EXPECT_EQ(1, config.LoadFromStream(buffer));
  EXPECT_EQ("[]k=v;", Dump(config));
}

TEST(ConfigStream, RepeatedSectionNameJoinsTheFirstSection) {
  Bytes bytes;
  Int(bytes, 0);
  Counted(bytes, "a");
  Int(bytes, 0);
  Counted(bytes, "b");
  Int(bytes, 1);
  Counted(bytes, "B");
  Counted(bytes, "k=v");
  Ox_Buffer buffer = ToBuffer(bytes);
  Ox_Config config;
  EXPECT_EQ(2, config.LoadFromStream(buffer));
  EXPECT_EQ("[a]k=v;[b]", Dump(config));
}

TEST(ConfigStream, FewerItemsThanCountedEndNormally) {
  // The count says 5 but the buffer ends after one whole item.
  Bytes bytes;
  Int(bytes, 5);
  Counted(bytes, "s");
  Counted(bytes, "k=v");
  Ox_Buffer buffer = ToBuffer(bytes);
  Ox_Config config;
  EXPECT_EQ(1, config.LoadFromStream(buffer));
  EXPECT_EQ("[s]k=v;", Dump(config));
}

TEST(ConfigStream, HugeItemCountWithLittleData) {
  Bytes bytes;
  Int(bytes, 0x7FFFFFFF);
  Counted(bytes, "s");
  Ox_Buffer buffer = ToBuffer(bytes);
  Ox_Config config;
  EXPECT_EQ(1, config.LoadFromStream(buffer));
  EXPECT_EQ("[s]", Dump(config));
}

TEST(ConfigStream, ShortTailsEndTheLoad) {
  // Fewer than 4 bytes where a count or a length should stand.
  Bytes bytes = Golden();
  bytes.push_back(0);
  bytes.push_back(0);
  Ox_Buffer buffer = ToBuffer(bytes);
  Ox_Config config;
  EXPECT_EQ(2, config.LoadFromStream(buffer));

  Bytes countOnly;
  Int(countOnly, 3);
  countOnly.push_back(0);
  Ox_Buffer shortBuffer = ToBuffer(countOnly);
  EXPECT_EQ(0, config.LoadFromStream(shortBuffer));
  EXPECT_EQ(0, config.Count());
}

TEST(ConfigStream, NameRunningPastTheEndFails) {
  Bytes bytes;
  Int(bytes, 0);
  Int(bytes, 10);
  Text(bytes, "abc");
  Ox_Buffer buffer = ToBuffer(bytes);
  Ox_Config config;
  config.AddSection("stale");
  EXPECT_EQ(-1, config.LoadFromStream(buffer));
  EXPECT_EQ(0, config.Count());
}

TEST(ConfigStream, ItemRunningPastTheEndFails) {
  Bytes bytes;
  Int(bytes, 1);
  Counted(bytes, "s");
  Int(bytes, 0x7FFFFFFF);  // far more than there is
  Text(bytes, "k=v");
  Ox_Buffer buffer = ToBuffer(bytes);
  Ox_Config config;
  EXPECT_EQ(-1, config.LoadFromStream(buffer));
  EXPECT_EQ(0, config.Count());
}

TEST(ConfigStream, EveryPrefixLoadsOrFailsCleanly) {
  // Cut the golden form after every byte. A cut inside a name or an item
  // fails; a cut on a field boundary ends the load normally with what was
  // complete.
  const Bytes whole = Golden();
  for (size_t cut = 0; cut <= whole.size(); ++cut) {
    Bytes part(whole.begin(), whole.begin() + static_cast<long>(cut));
    Ox_Buffer buffer = ToBuffer(part);
    Ox_Config config;
    int result = config.LoadFromStream(buffer);
    EXPECT_GE(result, -1) << "cut " << cut;
    EXPECT_LE(result, 2) << "cut " << cut;
    if (result < 0) {
      EXPECT_EQ(0, config.Count()) << "cut " << cut;
    }
  }
  // Spot checks, counted by hand: 8 bytes are the count and the name length
  // of "s" with its byte missing; 9 bytes end after the name; 15 bytes stop
  // inside "k=v".
  struct Case {
    size_t cut;
    int result;
    const char *dump;
  } cases[] = {
      {0, 0, ""},        {4, 0, ""},          {8, -1, ""},
      {9, 1, "[s]"},     {15, -1, ""},        {16, 1, "[s]k=v;"},
      {22, 1, "[s]k=v;a=;"},
      {26, 1, "[s]k=v;a=;"},  // the second section's count alone
  };
  for (const Case &c : cases) {
    Bytes part(whole.begin(), whole.begin() + static_cast<long>(c.cut));
    Ox_Buffer buffer = ToBuffer(part);
    Ox_Config config;
    EXPECT_EQ(c.result, config.LoadFromStream(buffer)) << "cut " << c.cut;
    EXPECT_EQ(c.dump, Dump(config)) << "cut " << c.cut;
  }
}

TEST(ConfigStream, FlippedBytesNeverCrash) {
  // Every byte of the golden form in turn set to 0xFF and to 0x00.
  const Bytes whole = Golden();
  for (size_t at = 0; at < whole.size(); ++at) {
    for (unsigned char value : {0x00, 0xFF, 0x7F}) {
      Bytes damaged = whole;
      damaged[at] = value;
      Ox_Buffer buffer = ToBuffer(damaged);
      Ox_Config config;
      // Each section takes at least 8 of the 41 bytes: at most 5 of them.
      int result = config.LoadFromStream(buffer);
      EXPECT_GE(result, -1);
      EXPECT_LE(result, 5);
    }
  }
}

TEST(ConfigStream, LaterSectionWithEmptyNameJoinsTheOneBefore) {
  // A section named "" is written with a name length of 0, which the loader
  // reads as "keep the last name": behind "a" its items join "a".
  Ox_Config config;
  config.AddSection("a");
  config.AddSection("");
  config.SetItem("", "k", "v");
  ASSERT_EQ("[a][]k=v;", Dump(config));
  Ox_Buffer buffer;
  EXPECT_EQ(2, config.SaveToStream(buffer));
  Ox_Config back;
  EXPECT_EQ(1, back.LoadFromStream(buffer));
  EXPECT_EQ("[a]k=v;", Dump(back));
}

TEST(ConfigStream, BytesAreTakenAsTheyStand) {
  // Names and items may hold any byte, NUL included; lengths say where they
  // end.
  Bytes bytes;
  Int(bytes, 1);
  Int(bytes, 3);
  bytes.push_back('x');
  bytes.push_back(0);
  bytes.push_back('y');
  Int(bytes, 5);
  bytes.push_back('k');
  bytes.push_back('=');
  bytes.push_back(0xFF);
  bytes.push_back(0);
  bytes.push_back('z');
  Ox_Buffer buffer = ToBuffer(bytes);
  Ox_Config config;
  ASSERT_EQ(1, config.LoadFromStream(buffer));
  EXPECT_EQ(3, config.GetItemNN(0).id.GetLength());
  EXPECT_EQ(3, config.GetItemNN(0, 0).GetLength());
  Ox_Buffer again;
  config.SaveToStream(again);
  EXPECT_EQ(bytes, FromBuffer(again));
}

}  // namespace
