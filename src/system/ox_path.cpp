// Ox_Path: taking a path apart, setting its parts, and compiling "." and
// ".." steps out of a path text.
#include "Ox_Path.h"

#include <cstring>

#include "Ox_List.h"

namespace {

// Index of the last `c` in the text, or -1.
int LastIndexOf(const Ox_AString &text, char c) {
  const char *bytes = text.GetString();
  for (int i = text.GetLength() - 1; i >= 0; --i)
    if (bytes[i] == c) return i;
  return -1;
}

bool IsSeparator(char c) { return c == '\\' || c == '/'; }

}  // namespace

Ox_Path::Ox_Path(const Ox_Path &other)
    : drive(other.drive),
      path(other.path),
      fileName(other.fileName),
      fileExt(other.fileExt),
      fullPath(other.fullPath) {}

Ox_Path &Ox_Path::operator=(const Ox_Path &other) {
  drive = other.drive;
  path = other.path;
  fileName = other.fileName;
  fileExt = other.fileExt;
  fullPath = other.fullPath;
  return *this;
}

void Ox_Path::Clear() {
  drive.Empty();
  path.Empty();
  fileName.Empty();
  fileExt.Empty();
  fullPath.Empty();
}

void Ox_Path::Set(const char *text) {
  Clear();
  if (!text || !*text) return;
  Ox_AString whole(text);

  // The drive stands before the first colon.
  Ox_AString rest;
  int colon = whole.Find(':', 0);
  if (colon >= 0) {
    drive = whole.Left(colon);
    rest = whole.Mid(colon + 1);
  } else {
    rest = whole;
  }

  // The folder stands before the last backslash; with none, all of the rest
  // is the folder ("abc.txt" too).
  int slash = LastIndexOf(rest, '\\');
  if (slash < 0) {
    path = rest;
  } else {
    path = rest.Left(slash);
    Ox_AString name = rest.Mid(slash + 1);
    // The extension stands behind the last dot of the name, if anything
    // stands there.
    int dot = LastIndexOf(name, '.');
    if (dot < 0) {
      fileName = name;
    } else {
      fileName = name.Left(dot);
      if (dot + 1 < name.GetLength()) fileExt = name.Mid(dot + 1);
    }
  }
  SetFullPath();
}

void Ox_Path::SetDrive(const char *text) {
  if (!text || !*text) return;
  drive.Set(text);
  SetFullPath();
}

void Ox_Path::SetFileExt(const char *text) {
  if (!text || !*text) return;
  fileExt.Set(text);
  SetFullPath();
}

void Ox_Path::SetPath(const char *text) {
  if (!text || !*text) return;
  Ox_AString whole(text);
  int colon = whole.Find(':', 0);
  if (colon >= 0) {
    drive = whole.Left(colon);
    path = whole.Mid(colon + 1);
  } else {
    drive.Empty();
    path = whole;
  }
  SetFullPath();
}

void Ox_Path::SetFileName(const char *text) {
  if (!text || !*text) return;
  Ox_AString whole(text);
  int dot = LastIndexOf(whole, '.');
  if (dot < 0) {
    fileName = whole;  // the extension stays as it was
  } else {
    fileName = whole.Left(dot);
    fileExt = whole.Mid(dot + 1);
  }
  SetFullPath();
}

Ox_AString Ox_Path::GetPurePath() const {
  Ox_AString result;
  if (drive.GetLength() > 0) {
    result = drive;
    result += ':';
    if (path.GetAt(0) != '\\') result += '\\';
  }
  if (path.GetLength() > 0) result += path;
  return result;
}

void Ox_Path::SetFullPath() {
  // Drive and folder, then the name behind a backslash, then the extension.
  fullPath = GetPurePath();
  if (fileName.GetLength() > 0) {
    int length = fullPath.GetLength();
    if (length == 0 || fullPath.GetAt(length - 1) != '\\') fullPath += '\\';
    fullPath += fileName;
  }
  if (fileExt.GetLength() > 0) {
    fullPath += '.';
    fullPath += fileExt;
  }
}

Ox_AString Ox_Path::GetFileTitle(const char *text) {
  Ox_AString whole(text);
  const char *bytes = whole.GetString();
  int length = whole.GetLength();
  // The name starts behind the last separator of either kind.
  int start = length;
  while (start > 0 && !IsSeparator(bytes[start - 1])) --start;
  // And ends before its last dot, unless that dot is its first character.
  int end = length;
  for (int i = length - 1; i > start; --i) {
    if (bytes[i] == '.') {
      end = i;
      break;
    }
  }
  return whole.Mid(start, end - start);
}

// ---------------------------------------------------------------------------
// GetCompiledPath

namespace {

// Where the walk stands.
enum WalkState {
  kInSegment = 0,       // inside a segment
  kAfterSeparator = 1,  // just behind a separator
  kOneDot = 2,          // behind one dot that follows a separator
  kTwoDots = 3,         // behind two such dots
  kThreeDots = 4,       // behind three
};

// The kept segments of `path`, each from its start to its end offset
// inclusive (so with its separator), then, when `open` is set, the last
// segment from its start to the end of the text.
Ox_AString JoinSegments(const Ox_AString &path, const Ox_IntList &segStart,
                        const Ox_IntList &segEnd, int count, bool open) {
  const char *text = path.GetString();
  const int length = path.GetLength();
  Ox_AString result;
  char *out = result.GetSafeBuffer(length);
  if (!out) return path;
  int written = 0;
  for (int i = 0; i < count; ++i) {
    int from = segStart.Items(i);
    int bytes = segEnd.Items(i) - from + 1;
    memcpy(out + written, text + from, static_cast<size_t>(bytes));
    written += bytes;
  }
  if (open && count >= 0) {
    int from = segStart.Items(count);
    memcpy(out + written, text + from, static_cast<size_t>(length - from));
    written += length - from;
  }
  out[written] = '\0';
  result.FreeExtra(written);
  return result;
}

}  // namespace

Ox_AString Ox_Path::GetCompiledPath(Ox_AString path) {
  const int length = path.GetLength();
  if (length == 0) return path;
  const char *text = path.GetString();

  // The start and end offset of each kept segment. A segment is only
  // counted at a separator, so there are never more segments than
  // separators plus one: the arrays are sized so, and no path, however
  // long, can overrun them.
  int separators = 0;
  for (int i = 0; i < length; ++i)
    if (IsSeparator(text[i])) ++separators;
  Ox_IntList segStart, segEnd;
  segStart.Reset(separators + 1);
  segEnd.Reset(separators + 1);
  if (segStart.Count() != separators + 1 || segEnd.Count() != separators + 1)
    return path;  // no memory: the text as it is

  int count = 0;
  int state = kInSegment;
  segStart.Set(0, 0);
  for (int offset = 0; offset < length; ++offset) {
    const char c = text[offset];
    if (IsSeparator(c)) {
      if (state == kInSegment) {
        // The segment ends with its separator and is kept.
        segEnd.Set(count, offset);
        ++count;
      } else if (state == kTwoDots) {
        // "..": the segment before is dropped. Climbing above the start
        // gives the text back unchanged.
        if (--count < 0) return path;
      }
      // Behind one or three dots the segment is dropped; a doubled
      // separator collapses into the first.
      state = kAfterSeparator;
    } else if (c == '.') {
      if (state == kAfterSeparator) {
        segStart.Set(count, offset);
        state = kOneDot;
      } else if (state == kOneDot) {
        state = kTwoDots;
      } else if (state == kTwoDots) {
        state = kThreeDots;
      }
    } else {
      if (state == kAfterSeparator) {
        segStart.Set(count, offset);
        state = kInSegment;
      } else if (state == kOneDot || state == kTwoDots) {
        state = kInSegment;  // a name that begins with dots
      } else if (state == kThreeDots) {
        return path;  // three dots followed by a name: refused
      }
    }
  }
  // A trailing ".." drops the segment before it.
  if (state == kTwoDots) --count;
  return JoinSegments(path, segStart, segEnd, count, state == kInSegment);
}
