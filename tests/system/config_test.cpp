// Ox_Config and its sections: the text form and the access members.
#include <gtest/gtest.h>

#include <stdlib.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>
#include <vector>

#include "Ox_Config.h"
#include "config_test_util.h"

namespace {

// A folder of its own under the system's temporary folder, removed with its
// files at the end of each test.
class ConfigFileTest : public ::testing::Test {
 protected:
  void SetUp() override {
    char pattern[] = "/tmp/ox_config_test_XXXXXX";
    ASSERT_NE(nullptr, mkdtemp(pattern));
    dir_ = pattern;
  }
  void TearDown() override {
    for (const std::string &file : files_) unlink(file.c_str());
    rmdir(dir_.c_str());
  }
  std::string PathOf(const char *name) {
    std::string path = dir_ + "/" + name;
    files_.push_back(path);
    return path;
  }
  std::string Write(const char *name, const std::string &content) {
    std::string path = PathOf(name);
    FILE *file = fopen(path.c_str(), "wb");
    EXPECT_NE(nullptr, file);
    if (file) {
      fwrite(content.data(), 1, content.size(), file);
      fclose(file);
    }
    return path;
  }
  static std::string Read(const std::string &path) {
    std::string content;
    FILE *file = fopen(path.c_str(), "rb");
    if (!file) return "<missing>";
    char chunk[256];
    size_t got;
    while ((got = fread(chunk, 1, sizeof chunk, file)) > 0)
      content.append(chunk, got);
    fclose(file);
    return content;
  }

  std::string dir_;
  std::vector<std::string> files_;
};

using oxtest::Dump;

// ---------------------------------------------------------------------------
// Reading files

TEST_F(ConfigFileTest, SectionNameIsTrimmed) {
  Ox_Config config;
  EXPECT_EQ(1, config.Load(Write("a.cfg", "[ a ]\nk=v\n").c_str()));
  EXPECT_EQ("[a]k=v;", Dump(config));
}

TEST_F(ConfigFileTest, UnclosedBracketIsAnIgnoredLine) {
  // "[a" is no header; inside a section it is a line without '='.
  Ox_Config config;
  EXPECT_EQ(1, config.Load(Write("a.cfg", "[s]\n[a\nk=v\n").c_str()));
  EXPECT_EQ("[s]k=v;", Dump(config));
}

TEST_F(ConfigFileTest, ValueKeepsLaterEqualsSigns) {
  Ox_Config config;
  config.Load(Write("a.cfg", "[s]\na=b=c\n").c_str());
  EXPECT_STREQ("b=c", config.GetItemNN("s", "a"));
}

TEST_F(ConfigFileTest, HashInsideALineBelongsToTheValue) {
  Ox_Config config;
  config.Load(Write("a.cfg", "[s]\na = b # c\n").c_str());
  EXPECT_STREQ("b # c", config.GetItemNN("s", "a"));
}

TEST_F(ConfigFileTest, Comments) {
  // "//" and "#" lines are comments; ';' is no comment mark.
  Ox_Config config;
  config.Load(Write("a.cfg", "[s]\n// x = y\n# x = y\n; x = y\n").c_str());
  EXPECT_EQ("[s]; x=y;", Dump(config));
  EXPECT_EQ(nullptr, config.GetItem("s", "x"));
  EXPECT_STREQ("y", config.GetItemNN("s", "; x"));
  // Indented comments are comments too: lines are trimmed first.
  EXPECT_EQ(1, config.Load(Write("b.cfg", "[s]\n   # a=b\n\t// c=d\n").c_str()));
  EXPECT_EQ("[s]", Dump(config));
}

TEST_F(ConfigFileTest, EmptyKey) {
  Ox_Config config;
  config.Load(Write("a.cfg", "[s]\n=b\n").c_str());
  ASSERT_EQ(1, config.GetSection("s")->Count());
  EXPECT_STREQ("", config.GetSection("s")->Id(0));
  EXPECT_STREQ("b", config.GetSection("s")->Str(0));
}

TEST_F(ConfigFileTest, RepeatedHeaderGoesToTheFirstSection) {
  // [A] and [a] are one section. As the second header's AddSection answers
  // 0, its items go to the first section of the list, here "first".
  Ox_Config config;
  int result = config.Load(
      Write("a.cfg", "[first]\nf=0\n[A]\nk=1\n[a]\nm=2\n").c_str());
  EXPECT_EQ(2, result);
  EXPECT_EQ("[first]f=0;m=2;[A]k=1;", Dump(config));
  // When the repeated section is the first one, its items stay together.
  config.Load(Write("b.cfg", "[A]\nk=1\n[other]\n[a]\nm=2\n").c_str());
  EXPECT_EQ("[A]k=1;m=2;[other]", Dump(config));
}

TEST_F(ConfigFileTest, OnlyCommentsGiveNoSections) {
  Ox_Config config;
  config.AddSection("stale");
  EXPECT_EQ(0, config.Load(Write("a.cfg", "# one\n// two\n\n").c_str()));
  EXPECT_EQ(0, config.GetSectionCount());
}

TEST_F(ConfigFileTest, MissingFileGivesMinusOneWithTheError) {
  Ox_Config config;
  std::string path = PathOf("missing.cfg");
  EXPECT_EQ(-1, config.Load(path.c_str()));
  EXPECT_EQ(ENOENT, config.lastError);
  EXPECT_EQ(ENOENT, config.loadError);
  EXPECT_STREQ(path.c_str(), config.fileName);
}

TEST_F(ConfigFileTest, MissingPathGivesMinusOne) {
  Ox_ConfigSectionList list;
  list.AddSection("x");
  EXPECT_EQ(-1, list.Load(nullptr));
  EXPECT_EQ(0, list.Count());  // emptied first
  EXPECT_EQ(-1, list.Load(""));
}

TEST_F(ConfigFileTest, LinesBeforeTheFirstSectionAreIgnored) {
  Ox_Config config;
  EXPECT_EQ(1, config.Load(Write("a.cfg", "a=1\nb=2\n[s]\nc=3\n").c_str()));
  EXPECT_EQ("[s]c=3;", Dump(config));
}

TEST_F(ConfigFileTest, TrimmingAndLineEnds) {
  Ox_Config config;
  config.Load(
      Write("a.cfg", "\r\n  [ s ]  \r\n\t key \t=\t value with  blanks \r\n\n")
          .c_str());
  EXPECT_EQ("[s]key=value with  blanks;", Dump(config));
}

TEST_F(ConfigFileTest, EmptySectionName) {
  Ox_Config config;
  EXPECT_EQ(1, config.Load(Write("a.cfg", "[]\nk=v\n").c_str()));
  EXPECT_EQ("[]k=v;", Dump(config));
}

TEST_F(ConfigFileTest, LongLineIsReadAsSeveralLines) {
  // 1023 bytes are read at a time: "k=" and 1021 'v' make the first piece,
  // the remaining 'v's the second, which has no '=' and is ignored.
  std::string line = "k=" + std::string(1100, 'v');
  Ox_Config config;
  config.Load(Write("a.cfg", "[s]\n" + line + "\n").c_str());
  EXPECT_EQ(1021, config.GetItemNN("s", "k").GetLength());
  EXPECT_EQ(1, config.GetSection("s")->Count());

  // A key of 1023 bytes: the first piece has no '=' and the second, "=1",
  // is an item with an empty key.
  std::string keyed = std::string(1023, 'x') + "=1";
  config.Load(Write("b.cfg", "[s]\n" + keyed + "\n").c_str());
  EXPECT_EQ("[s]=1;", Dump(config));
}

TEST_F(ConfigFileTest, RepeatedKeyKeepsTheFirstValue) {
  // A section holds each key once, so the second line adds nothing.
  Ox_Config config;
  config.Load(Write("a.cfg", "[s]\nk=1\nK=2\n").c_str());
  EXPECT_STREQ("1", config.GetItemNN("s", "k"));
  EXPECT_EQ(1, config.GetSection("s")->Count());
}

TEST_F(ConfigFileTest, BackslashPathsReachTheFile) {
  std::string path = Write("a.cfg", "[s]\nk=v\n");
  std::string backslashed = path;
  for (char &c : backslashed)
    if (c == '/') c = '\\';
  Ox_Config config;
  EXPECT_EQ(1, config.Load(backslashed.c_str()));
  EXPECT_STREQ("v", config.GetItemNN("s", "k"));
}

// ---------------------------------------------------------------------------
// Writing files

TEST_F(ConfigFileTest, SaveKeepsKeysButNotValues) {
  Ox_Config config;
  config.SetItem("s", "k", "v");
  std::string path = PathOf("out.cfg");
  EXPECT_EQ(1, config.Save(path.c_str()));
  EXPECT_EQ("[s]\nk=\n\n", Read(path));
}

TEST_F(ConfigFileTest, SaveWritesAnEmptyValueAsNullText) {
  Ox_Config config;
  config.SetItem("s", "empty", "");
  config.SetItem("s", "full", "x");
  config.SetItem("t", "k", 1);
  std::string path = PathOf("out.cfg");
  EXPECT_EQ(2, config.Save(path.c_str()));
  EXPECT_EQ("[s]\nempty=(null)\nfull=\n\n[t]\nk=\n\n", Read(path));
}

TEST_F(ConfigFileTest, SaveFailures) {
  Ox_Config config;
  config.SetItem("s", "k", "v");
  EXPECT_EQ(-1, config.Ox_ConfigSectionList::Save(nullptr));
  EXPECT_EQ(-1, config.Save(""));
  EXPECT_EQ(-1, config.Save((dir_ + "/no/such/folder/x.cfg").c_str()));
}

TEST_F(ConfigFileTest, SaveWithNullPathUsesTheLoadedName) {
  std::string path = Write("a.cfg", "[s]\nk=v\n");
  Ox_Config config;
  ASSERT_EQ(1, config.Load(path.c_str()));
  config.SetItem("t", "x", "y");
  EXPECT_EQ(2, config.Save(nullptr));
  EXPECT_EQ("[s]\nk=\n\n[t]\nx=\n\n", Read(path));
  // Without a name there is nothing to save to.
  Ox_Config fresh;
  EXPECT_EQ(-1, fresh.Save(nullptr));
}

TEST_F(ConfigFileTest, SavedFileLoadsBackWithItsKeys) {
  Ox_Config config;
  config.SetItem("one", "a", "1");
  config.SetItem("two", "b", "");
  std::string path = PathOf("out.cfg");
  ASSERT_EQ(2, config.Save(path.c_str()));
  Ox_Config back;
  EXPECT_EQ(2, back.Load(path.c_str()));
  EXPECT_EQ("[one]a=;[two]b=(null);", Dump(back));
}

// ---------------------------------------------------------------------------
// Access members

TEST(Config, SetItemCreatesTheSection) {
  Ox_Config config;
  EXPECT_EQ(0, config.SetItem("s", "k", 'x'));  // the item's index
  ASSERT_NE(nullptr, config.GetSection("s"));
  EXPECT_STREQ("x", config.GetItemNN("s", "k"));
  EXPECT_EQ(1, config.SetItem("s", "n", 42));
  EXPECT_STREQ("42", config.GetItemNN("s", "n"));
  EXPECT_EQ(2, config.SetItem("s", "d", 2.5));
  EXPECT_STREQ("2.5", config.GetItemNN("s", "d"));
  EXPECT_EQ(3, config.SetItem("s", "t", Ox_AString("text")));
  EXPECT_STREQ("text", config.GetItemNN("s", "t"));
  // An existing key is replaced, and the result is 0.
  EXPECT_EQ(0, config.SetItem("S", "T", "other"));
  EXPECT_STREQ("other", config.GetItemNN("s", "t"));
  EXPECT_EQ(1, config.GetSectionCount());
}

TEST(Config, SetItemWithStringKeys) {
  Ox_Config config;
  Ox_AString key("k");
  EXPECT_EQ(0, config.SetItem("s", key, Ox_AString("v")));
  EXPECT_EQ(0, config.SetItem("s", key, "w"));
  EXPECT_STREQ("w", config.GetItemNN("s", "k"));
  EXPECT_EQ(0, config.SetItem("s", key, 'c'));
  EXPECT_STREQ("c", config.GetItemNN("s", "k"));
  EXPECT_EQ(0, config.SetItem("s", key, -7));
  EXPECT_STREQ("-7", config.GetItemNN("s", "k"));
  EXPECT_EQ(0, config.SetItem("s", key, 0.5));
  EXPECT_STREQ("0.5", config.GetItemNN("s", "k"));
  EXPECT_EQ(1, config.SetItem("s", "k2", Ox_AString("x")));
}

TEST(Config, GetItemNNNeverGivesNull) {
  Ox_Config config;
  config.SetItem("s", "k", "v");
  EXPECT_EQ(0, config.GetItemNN("missing", "k").GetLength());
  EXPECT_EQ(0, config.GetItemNN("s", "missing").GetLength());
  EXPECT_EQ(0, config.GetItemNN(nullptr, nullptr).GetLength());
  EXPECT_EQ(0, config.GetItemNN(5, 0).GetLength());
  EXPECT_EQ(0, config.GetItemNN(0, 5).GetLength());
  EXPECT_STREQ("v", config.GetItemNN(0, 0));
}

TEST(Config, GetItemAndGetSafeItem) {
  Ox_Config config;
  config.SetItem("s", "k", "v");
  ASSERT_NE(nullptr, config.GetItem("S", "K"));
  EXPECT_STREQ("v", *config.GetItem("s", "k"));
  EXPECT_EQ(nullptr, config.GetItem("s", "x"));
  EXPECT_EQ(nullptr, config.GetItem("x", "k"));
  EXPECT_STREQ("v", *config.GetItem(0, 0));
  EXPECT_EQ(nullptr, config.GetItem(0, 1));
  EXPECT_EQ(nullptr, config.GetItem(-1, 0));
  Ox_AString *value = config.GetSafeItem("s", "k");
  ASSERT_NE(nullptr, value);
  value->Set("changed");
  EXPECT_STREQ("changed", config.GetItemNN("s", "k"));
  EXPECT_EQ(nullptr, config.GetSafeItem("s", "x"));
  EXPECT_EQ(nullptr, config.GetSafeItem("x", "k"));
}

TEST(Config, Sections) {
  Ox_Config config;
  EXPECT_EQ(0, config.AddSection("a"));
  EXPECT_EQ(1, config.AddSection(Ox_AString("b")));
  EXPECT_EQ(2, config.AddSection("c"));
  // A name already present gives 0, not its index.
  EXPECT_EQ(0, config.AddSection("C"));
  EXPECT_EQ(3, config.GetSectionCount());
  EXPECT_EQ(2, config.FindId("C"));
  EXPECT_EQ(-1, config.FindId("d"));
  EXPECT_STREQ("b", config.GetSection(1)->id);
  EXPECT_EQ(config.GetSection(2), config.GetSection("c"));
  EXPECT_EQ(nullptr, config.GetSection("d"));
  EXPECT_EQ(nullptr, config.GetSection(3));
  EXPECT_EQ(config.GetSection(0), config.GetSafeSection("A"));
  EXPECT_EQ(nullptr, config.GetSafeSection("d"));
  EXPECT_EQ(config.GetItems(1), config.GetSafeItems(1));
  EXPECT_EQ(nullptr, config.GetItems(-1));
  EXPECT_EQ(nullptr, config.GetSafeItems(3));
  // A shared empty section for a bad index.
  EXPECT_EQ(0, config.GetItemNN(7).Count());
  EXPECT_EQ(0, config.GetItemNN(7).id.GetLength());
  EXPECT_EQ(0, config[-1].Count());
  EXPECT_STREQ("c", config[2].id);
}

TEST(Config, ChangeIds) {
  Ox_Config config;
  config.SetItem("s", "k", "v");
  EXPECT_EQ(0, config.ChangeSectionId("S", "t"));
  EXPECT_EQ(nullptr, config.GetSection("s"));
  EXPECT_STREQ("v", config.GetItemNN("t", "k"));
  EXPECT_EQ(0, config.ChangeItemId("t", "K", "n"));
  EXPECT_STREQ("v", config.GetItemNN("t", "n"));
  EXPECT_EQ(nullptr, config.GetItem("t", "k"));
  EXPECT_EQ(0, config.ChangeSectionId(Ox_AString("t"), Ox_AString("u")));
  EXPECT_EQ(0, config.ChangeItemId(Ox_AString("u"), Ox_AString("n"),
                                   Ox_AString("m")));
  EXPECT_STREQ("v", config.GetItemNN("u", "m"));
  // Missing section or key: 0, and nothing changes.
  EXPECT_EQ(0, config.ChangeSectionId("nope", "x"));
  EXPECT_EQ(0, config.ChangeItemId("nope", "m", "x"));
  EXPECT_EQ(0, config.ChangeItemId("u", "nope", "x"));
  EXPECT_EQ("[u]m=v;", Dump(config));
}

TEST(Config, Deleting) {
  Ox_Config config;
  config.SetItem("s", "a", "1");
  config.SetItem("s", "b", "2");
  config.SetItem("t", "c", "3");
  EXPECT_EQ(0, config.DelSection("missing"));
  EXPECT_EQ(0, config.DelItem("missing", "a"));
  EXPECT_EQ(0, config.DelItem("s", "missing"));
  EXPECT_EQ(0, config.DelItem("S", "A"));
  EXPECT_EQ("[s]b=2;[t]c=3;", Dump(config));
  EXPECT_EQ(0, config.DelSection("T"));
  EXPECT_EQ("[s]b=2;", Dump(config));
}

TEST(Config, ClearAssignAndCopy) {
  Ox_Config config;
  config.SetItem("s", "k", "v");
  config.userValue = 77;
  Ox_Config other;
  other.SetItem("old", "x", "y");
  EXPECT_EQ(1, other.Assign(config));
  EXPECT_EQ(77, other.userValue);
  EXPECT_EQ("[s]k=v;", Dump(other));
  // The copy is deep.
  other.SetItem("s", "k", "changed");
  EXPECT_STREQ("v", config.GetItemNN("s", "k"));

  Ox_Config copy(config);
  EXPECT_EQ(77, copy.userValue);
  EXPECT_EQ("[s]k=v;", Dump(copy));
  Ox_Config assigned;
  assigned = config;
  EXPECT_EQ(77, assigned.userValue);
  EXPECT_EQ(1, assigned.Assign(assigned));  // itself: unchanged
  EXPECT_EQ("[s]k=v;", Dump(assigned));

  config.Clear();
  EXPECT_EQ(0, config.GetSectionCount());
  EXPECT_EQ(0, config.userValue);
}

TEST(Config, SectionListAppendAndClear) {
  Ox_ConfigSectionList a, b;
  a.AddSection("x");
  b.AddSection("y");
  b.AddSection("z");
  EXPECT_EQ(3, a.Append(b));
  EXPECT_EQ("[x][y][z]", Dump(a));
  EXPECT_EQ(6, a.Append(a));
  a.Clear();
  EXPECT_EQ(0, a.Count());
}

TEST(ConfigSection, ItemsAndIds) {
  Ox_ConfigSection section;
  section.SetId("name");
  EXPECT_STREQ("name", section.GetId());
  section.SetId(Ox_AString("other"));
  EXPECT_STREQ("other", section.id);
  EXPECT_EQ(0, section.AddItem("k", "v"));
  EXPECT_EQ(1, section.AddItem("", "empty key"));
  EXPECT_EQ(2, section.SetItem("n", "1"));  // absent: AddItem's result
  EXPECT_EQ(0, section.SetItem("N", "2"));  // present: 0
  EXPECT_STREQ("2", section.Str("n"));
  Ox_ConfigSection copy;
  EXPECT_EQ(3, copy.Assign(section));
  EXPECT_STREQ("other", copy.id);
  EXPECT_STREQ("empty key", copy.Str(1));
  Ox_ConfigSection copied(section);
  EXPECT_STREQ("other", copied.id);
  EXPECT_EQ(3, copied.Count());
}

TEST(ConfigSection, HandlerPoolAndKey) {
  Ox_ConfigSectionHandler &handler = Ox_ConfigSection::_OxConfigSectionHandler;
  EXPECT_STREQ("Ox_ConfigSection", handler.GetName());
  EXPECT_EQ(static_cast<int>(sizeof(Ox_ConfigSection)), handler.GetItemSize());
  Ox_ConfigSection section;
  section.SetId("Main");
  const char *key = "MAIN";
  EXPECT_EQ(0, handler._CompareItem(&section, &key));
  const char *other = "main2";
  EXPECT_NE(0, handler._CompareItem(&section, &other));
  // Life cycle through the handler's pool.
  Ox_ObjBufData *data = handler.Alloc();
  ASSERT_NE(nullptr, data);
  void *made = handler._InitItem(data->object());
  handler._AssignItem(made, &section);
  EXPECT_STREQ("Main", static_cast<Ox_ConfigSection *>(made)->id);
  handler._FreeItem(made);
  handler.Free(data);
}

}  // namespace
