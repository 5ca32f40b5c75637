// Ox_Path: taking paths apart, the setters, and GetCompiledPath.
#include <gtest/gtest.h>

#include <string>

#include "Ox_Path.h"

namespace {

// The five parts as "drive|path|fileName|fileExt|fullPath".
std::string Parts(const Ox_Path &p) {
  return std::string(p.drive) + "|" + p.path.GetString() + "|" +
         p.fileName.GetString() + "|" + p.fileExt.GetString() + "|" +
         p.fullPath.GetString();
}

std::string Compiled(const char *text) {
  return Ox_Path::GetCompiledPath(Ox_AString(text)).GetString();
}

// ---------------------------------------------------------------------------
// Set

TEST(PathSet, DriveFolderNameAndExtension) {
  Ox_Path p("c:\\a\\b.txt");
  EXPECT_EQ("c|\\a|b|txt|c:\\a\\b.txt", Parts(p));
}

TEST(PathSet, NoExtension) {
  EXPECT_EQ("c|\\a|b||c:\\a\\b", Parts(Ox_Path("c:\\a\\b")));
  // A trailing dot leaves no extension, and the full path loses the dot.
  EXPECT_EQ("c|\\a|b||c:\\a\\b", Parts(Ox_Path("c:\\a\\b.")));
}

TEST(PathSet, DotIsLookedForBehindTheLastBackslashOnly) {
  EXPECT_EQ("c|\\a.b|c||c:\\a.b\\c", Parts(Ox_Path("c:\\a.b\\c")));
  EXPECT_EQ("c||x.tar|gz|c:\\x.tar.gz", Parts(Ox_Path("c:\\x.tar.gz")));
}

TEST(PathSet, TextWithoutBackslashIsAFolder) {
  EXPECT_EQ("|abc.txt|||abc.txt", Parts(Ox_Path("abc.txt")));
  // A forward slash is no separator here.
  EXPECT_EQ("|/usr/lib/x.so|||/usr/lib/x.so", Parts(Ox_Path("/usr/lib/x.so")));
  EXPECT_EQ("|a/b|c|d|a/b\\c.d", Parts(Ox_Path("a/b\\c.d")));
}

TEST(PathSet, DriveWithoutBackslash) {
  // The full path puts a backslash behind the colon unless the folder
  // begins with one.
  EXPECT_EQ("c|abc|||c:\\abc", Parts(Ox_Path("c:abc")));
  EXPECT_EQ("c||b|txt|c:\\b.txt", Parts(Ox_Path("c:\\b.txt")));
  EXPECT_EQ("d||||d:\\", Parts(Ox_Path("d:")));
}

TEST(PathSet, OnlyTheFirstColonMakesTheDrive) {
  EXPECT_EQ("c|\\a:b|c||c:\\a:b\\c", Parts(Ox_Path("c:\\a:b\\c")));
}

TEST(PathSet, UncPath) {
  EXPECT_EQ("|\\\\server\\share|f|txt|\\\\server\\share\\f.txt",
            Parts(Ox_Path("\\\\server\\share\\f.txt")));
}

TEST(PathSet, NameThatIsOnlyAnExtension) {
  // ".profile" has its dot first: no name, the extension "profile", and
  // the full path joins the extension to the folder.
  EXPECT_EQ("c|\\a||profile|c:\\a.profile", Parts(Ox_Path("c:\\a\\.profile")));
}

TEST(PathSet, NullOrEmptyLeavesItCleared) {
  Ox_Path p("c:\\a\\b.txt");
  p.Set(nullptr);
  EXPECT_EQ("||||", Parts(p));
  p.Set("c:\\a\\b.txt");
  p.Set("");
  EXPECT_EQ("||||", Parts(p));
  Ox_Path empty;
  EXPECT_EQ("||||", Parts(empty));
  Ox_Path fromNull(nullptr);
  EXPECT_EQ("||||", Parts(fromNull));
}

TEST(PathSet, SetClearsTheOldParts) {
  Ox_Path p("c:\\a\\b.txt");
  p.Set("x");
  EXPECT_EQ("|x|||x", Parts(p));
}

TEST(PathSet, ClearCopyAndAssign) {
  Ox_Path p("c:\\a\\b.txt");
  Ox_Path copy(p);
  EXPECT_EQ(Parts(p), Parts(copy));
  Ox_Path assigned;
  assigned = p;
  EXPECT_EQ(Parts(p), Parts(assigned));
  p.Clear();
  EXPECT_EQ("||||", Parts(p));
  EXPECT_EQ("c|\\a|b|txt|c:\\a\\b.txt", Parts(copy));
}

// ---------------------------------------------------------------------------
// Setters

TEST(PathSetters, DriveAndExtension) {
  Ox_Path p("c:\\a\\b.txt");
  p.SetDrive("d");
  EXPECT_EQ("d|\\a|b|txt|d:\\a\\b.txt", Parts(p));
  p.SetFileExt("log");
  EXPECT_EQ("d|\\a|b|log|d:\\a\\b.log", Parts(p));
  p.SetDrive(nullptr);
  p.SetDrive("");
  p.SetFileExt(nullptr);
  p.SetFileExt("");
  EXPECT_EQ("d|\\a|b|log|d:\\a\\b.log", Parts(p));
}

TEST(PathSetters, SetPath) {
  Ox_Path p("c:\\a\\b.txt");
  p.SetPath("e:\\x\\y");
  EXPECT_EQ("e|\\x\\y|b|txt|e:\\x\\y\\b.txt", Parts(p));
  // Without a colon the drive empties.
  p.SetPath("\\z");
  EXPECT_EQ("|\\z|b|txt|\\z\\b.txt", Parts(p));
  // A trailing backslash is kept, and no second one is added.
  p.SetPath("f:\\w\\");
  EXPECT_EQ("f|\\w\\|b|txt|f:\\w\\b.txt", Parts(p));
  p.SetPath(nullptr);
  p.SetPath("");
  EXPECT_EQ("f|\\w\\|b|txt|f:\\w\\b.txt", Parts(p));
}

TEST(PathSetters, SetFileName) {
  Ox_Path p("c:\\a\\b.txt");
  p.SetFileName("n.e");
  EXPECT_EQ("c|\\a|n|e|c:\\a\\n.e", Parts(p));
  // Without a dot the extension stays.
  p.SetFileName("m");
  EXPECT_EQ("c|\\a|m|e|c:\\a\\m.e", Parts(p));
  // At the last dot; an empty extension behind it.
  p.SetFileName("x.y.");
  EXPECT_EQ("c|\\a|x.y||c:\\a\\x.y", Parts(p));
  p.SetFileName(nullptr);
  p.SetFileName("");
  EXPECT_EQ("c|\\a|x.y||c:\\a\\x.y", Parts(p));
}

TEST(PathSetters, NameAloneGetsALeadingBackslash) {
  // The name follows a backslash unless the full path ends with one
  // already; an empty full path does not.
  Ox_Path p;
  p.SetFileName("x.txt");
  EXPECT_EQ("||x|txt|\\x.txt", Parts(p));
}

TEST(PathSetters, GetPurePath) {
  EXPECT_STREQ("c:\\a", Ox_Path("c:\\a\\b.txt").GetPurePath());
  EXPECT_STREQ("c:\\", Ox_Path("c:\\b.txt").GetPurePath());
  EXPECT_STREQ("\\a", Ox_Path("\\a\\b.txt").GetPurePath());
  EXPECT_STREQ("", Ox_Path().GetPurePath());
}

// ---------------------------------------------------------------------------
// GetFileTitle

TEST(PathFileTitle, NameWithoutFolderAndExtension) {
  EXPECT_STREQ("b", Ox_Path::GetFileTitle("c:\\a\\b.txt"));
  EXPECT_STREQ("b", Ox_Path::GetFileTitle("/a/b.txt"));
  EXPECT_STREQ("b", Ox_Path::GetFileTitle("a/x\\b.cpp"));
  EXPECT_STREQ("b", Ox_Path::GetFileTitle("b"));
  EXPECT_STREQ("b.tar", Ox_Path::GetFileTitle("b.tar.gz"));
  EXPECT_STREQ(".profile", Ox_Path::GetFileTitle("/home/.profile"));
  EXPECT_STREQ("", Ox_Path::GetFileTitle("/a/b/"));
  EXPECT_STREQ("", Ox_Path::GetFileTitle(""));
  EXPECT_STREQ("", Ox_Path::GetFileTitle(nullptr));
}

// ---------------------------------------------------------------------------
// GetCompiledPath

TEST(CompiledPath, EdgeCases) {
  EXPECT_EQ("b", Compiled("a\\..\\b"));
  EXPECT_EQ("a\\b", Compiled("a\\.\\b"));
  EXPECT_EQ("..\\a", Compiled("..\\a"));
  EXPECT_EQ("a\\..\\..\\b", Compiled("a\\..\\..\\b"));
  EXPECT_EQ("a\\", Compiled("a\\b\\.."));
  EXPECT_EQ("a\\b", Compiled("a\\...\\b"));
  EXPECT_EQ("a\\...b", Compiled("a\\...b"));
  EXPECT_EQ("a/b\\c", Compiled("a/b\\c"));
  EXPECT_EQ("http:/a/b", Compiled("http://a/b"));
  EXPECT_EQ("", Compiled(""));
}

TEST(CompiledPath, StateTableRows) {
  // State 0: dots and names stay inside a segment; "." and ".." at the
  // very beginning are ordinary segments.
  EXPECT_EQ(".\\a", Compiled(".\\a"));
  EXPECT_EQ("a.b\\c", Compiled("a.b\\c"));
  // State 1: a doubled separator collapses, the first one staying.
  EXPECT_EQ("a\\b", Compiled("a\\\\b"));
  EXPECT_EQ("a/b", Compiled("a/\\//b"));
  // State 2: a name behind one dot is kept whole; a lone dot is dropped,
  // at the end as well.
  EXPECT_EQ("a\\.b\\c", Compiled("a\\.b\\c"));
  EXPECT_EQ("a\\b\\", Compiled("a\\b\\."));
  // State 3: a name behind two dots is kept whole.
  EXPECT_EQ("a\\..b\\c", Compiled("a\\..b\\c"));
  // State 4: more dots stay in state 4; a trailing run of three is dropped.
  EXPECT_EQ("a\\b", Compiled("a\\....\\b"));
  EXPECT_EQ("a\\b\\", Compiled("a\\b\\..."));
  EXPECT_EQ("a\\....b", Compiled("a\\....b"));
}

TEST(CompiledPath, MixedWalks) {
  // a/ kept; ./ dropped; b/ kept, then ../ drops it; c is the open end.
  EXPECT_EQ("a/c", Compiled("a/./b/../c"));
  EXPECT_EQ("\\a", Compiled("\\a"));
  EXPECT_EQ("a\\b\\", Compiled("a\\b\\"));
  // The second ".." drops the first, which began the text as an ordinary
  // segment.
  EXPECT_EQ("a", Compiled("..\\..\\a"));
  EXPECT_EQ("x:/y/z", Compiled("x://y/./z"));
}

TEST(CompiledPath, TrailingDotDotAboveTheStart) {
  // "a\" is dropped by the first "..", the trailing ".." takes the count
  // below 0 at the end, and no segment is left.
  EXPECT_EQ("", Compiled("a\\..\\.."));
  EXPECT_EQ("", Compiled("\\.."));
}

TEST(CompiledPath, ClimbingAboveTheStartGivesTheTextBack) {
  // The count goes below 0 in the middle of the walk; later separators do
  // not bring it back.
  EXPECT_EQ("a\\..\\..\\b\\c", Compiled("a\\..\\..\\b\\c"));
  EXPECT_EQ("\\..\\..\\x", Compiled("\\..\\..\\x"));
}

TEST(CompiledPath, LongPathsDoNotOverrun) {
  // 600 steps and 600 ".." steps: more than 511 of each.
  std::string steps, climbs;
  for (int i = 0; i < 600; ++i) {
    steps += "d\\";
    climbs += "..\\";
  }
  EXPECT_EQ(steps + "f", Compiled((steps + "f").c_str()));
  EXPECT_EQ("f", Compiled((steps + climbs + "f").c_str()));
  EXPECT_EQ(steps + "f", Compiled((steps + "x\\..\\f").c_str()));
  // 5000 separators in a row collapse into one.
  std::string many = "a" + std::string(5000, '/') + "b";
  EXPECT_EQ("a/b", Compiled(many.c_str()));
  // Many dropped single-dot steps.
  std::string dots = "a";
  for (int i = 0; i < 3000; ++i) dots += "\\.";
  EXPECT_EQ("a\\", Compiled(dots.c_str()));
}

}  // namespace
