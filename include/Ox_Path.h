// Ox_Path: a path taken apart into drive, folder, name and extension, each
// of which can be set alone while the whole is kept in step.
//
// Paths are taken apart in their backslash form: "c:\a\b.txt" has the drive
// "c", the folder "\a", the name "b" and the extension "txt". A forward
// slash is no separator for Set, and a text with no backslash at all is a
// folder ("abc.txt" included). GetFileTitle is the helper for code that
// wants the bare file name of any path, with either separator.
#ifndef OX_PATH_H
#define OX_PATH_H

#include "Ox_Export.h"
#include "Ox_String.h"

class OX_API Ox_Path {
 public:
  Ox_Path() {}
  Ox_Path(const char *path) { Set(path); }
  Ox_Path(const Ox_Path &other);
  Ox_Path &operator=(const Ox_Path &other);

  // Empties all five parts.
  void Clear();
  // Clears, then takes `path` apart; null or empty leaves it cleared.
  void Set(const char *path);
  // Each setter ignores null or empty text and rebuilds `fullPath`.
  void SetDrive(const char *drive);  // without the colon
  void SetFileExt(const char *ext);  // without the dot
  // "d:folder" sets drive and folder; a text without a colon sets the folder
  // and empties the drive. Name and extension stay.
  void SetPath(const char *path);
  // "name.ext" sets both; a text without a dot sets the name only.
  void SetFileName(const char *name);

  // Drive and folder only, in the form of `fullPath`.
  Ox_AString GetPurePath() const;

  // Removes "." and ".." steps from a path or URL text; separators are '\'
  // and '/'. A ".." above the start, or a step of three dots followed by a
  // name, gives the text back unchanged.
  static Ox_AString GetCompiledPath(Ox_AString path);

  // The file name without folder and extension: "c:\a\b.txt" and
  // "/a/b.txt" both give "b". Either slash separates folders here, and a
  // name that begins with its only dot (".profile") keeps it.
  static Ox_AString GetFileTitle(const char *path);

  Ox_AString drive;     // without the colon
  Ox_AString path;      // the folder, without the last backslash
  Ox_AString fileName;  // without the extension
  Ox_AString fileExt;   // without the dot
  Ox_AString fullPath;  // the four together

 protected:
  // Rebuilds `fullPath` from the four parts.
  void SetFullPath();
};

#endif
