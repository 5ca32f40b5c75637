// Ox_AStrList::Parse: splits a text into items at delimiter characters.
//
// The rules, in the order the scan applies them:
//
// 1. Any character of `delimiters` ends the current item. When both CR and
//    LF are delimiters, a CR directly followed by LF is one line end, so
//    that "a\r\nb" gives two lines, not an empty one between them. A
//    delimiter at the very end of the text opens no further item: "a,b,"
//    gives "a" and "b", and a text ending in a line end has no empty last
//    line.
// 2. With `quotes`, a double or single quote opens a quoted span when it
//    starts the item or follows a character that is not a letter or digit
//    (so `name="a b"` holds a span, while the apostrophe of O'Brien is
//    plain text). The span ends at the next unescaped quote of the same
//    kind, or at the end of the text; delimiters inside it do not split.
// 3. `escape` (0: none) protects the character behind it from being a
//    delimiter or a quote, inside spans as well. An escape character that
//    is also a delimiter is taken as a delimiter: callers pass one that
//    can't occur in their text (CR for lines) so that backslashes are
//    plain text.
// 4. `trim` removes white space at both ends of the item, outside quotes
//    and never an escaped character.
// 5. What goes into the list:
//    - unquote 0: the item exactly as written, quotes and escape
//      characters included (a caller unquotes it later with UnQuoteStr);
//    - unquote 1 and the item is nothing but quoted spans (`"a"`, or the
//      `"a"""` that Ox_Result::Save writes): the text inside the spans,
//      quotes removed and escape characters dropped;
//    - unquote 1 and no span at all: the text with escape characters
//      dropped, each protected character kept;
//    - unquote 1 and spans mixed with plain text, or a span left open:
//      the item exactly as written, so that a line split first keeps its
//      fields intact for the split that follows.
// 6. With `keepEmpty` 0 items that come out empty are dropped.
// `reserved` is not used.
#include <cctype>
#include <cstdlib>
#include <cstring>

#include "Ox_BaseFunc.h"
#include "Ox_List.h"

namespace {

struct ParseRules {
  const char *delimiters;
  char escape;  // 0 when none or when it is also a delimiter
  bool quotes;
};

bool IsDelimiter(const ParseRules &rules, char c) {
  return c != 0 && std::strchr(rules.delimiters, c) != nullptr;
}

bool IsQuote(char c) { return c == '"' || c == '\''; }

bool OpensSpan(const ParseRules &rules, const char *text, size_t i,
               size_t begin) {
  if (!rules.quotes || !IsQuote(text[i])) return false;
  return i == begin ||
         !std::isalnum(static_cast<unsigned char>(text[i - 1]));
}

// The end of the item that starts at `begin`: the position of its ending
// delimiter or of the NUL. `protectedEnd` is where trailing white space
// may no longer be trimmed (behind the last escaped character or quote).
size_t FindItemEnd(const ParseRules &rules, const char *text, size_t begin,
                   size_t *protectedEnd) {
  char open = 0;  // quote of the span the scan is in
  size_t i = begin;
  *protectedEnd = begin;
  while (text[i]) {
    char c = text[i];
    if (rules.escape && c == rules.escape) {
      if (!text[i + 1]) return i + 1;  // a lone escape at the end
      i += 2;
      *protectedEnd = i;
      continue;
    }
    if (open) {
      if (c == open) {
        open = 0;
        *protectedEnd = i + 1;
      }
      ++i;
      continue;
    }
    if (IsDelimiter(rules, c)) break;
    if (OpensSpan(rules, text, i, begin)) {
      open = c;
      *protectedEnd = i + 1;
    }
    ++i;
  }
  return i;
}

// How the trimmed item [begin, end) is made.
struct ItemShape {
  int spans = 0;          // quoted spans
  bool plain = false;     // characters outside spans
  bool open = false;      // the last span is not closed
};

ItemShape ShapeOf(const ParseRules &rules, const char *text, size_t begin,
                  size_t end) {
  ItemShape shape;
  char open = 0;
  for (size_t i = begin; i < end; ++i) {
    char c = text[i];
    bool escaped = rules.escape && c == rules.escape;
    if (open) {
      if (escaped) ++i;
      else if (c == open) open = 0;
    } else if (escaped) {
      shape.plain = true;
      ++i;
    } else if (OpensSpan(rules, text, i, begin)) {
      open = c;
      ++shape.spans;
    } else {
      shape.plain = true;
    }
  }
  shape.open = open != 0;
  return shape;
}

// Writes the item [begin, end) to `out` with quotes of spans removed (when
// `dropQuotes`) and escape characters dropped; returns the length.
size_t Resolve(const ParseRules &rules, const char *text, size_t begin,
               size_t end, bool dropQuotes, char *out) {
  size_t n = 0;
  char open = 0;
  for (size_t i = begin; i < end; ++i) {
    char c = text[i];
    if (rules.escape && c == rules.escape) {
      if (i + 1 < end) out[n++] = text[++i];
      continue;
    }
    if (open && c == open) {
      open = 0;
      if (dropQuotes) continue;
    } else if (!open && dropQuotes && OpensSpan(rules, text, i, begin)) {
      open = c;
      continue;
    }
    out[n++] = c;
  }
  return n;
}

}  // namespace

int Ox_AStrList::Parse(const char *text, const char *delimiters, char escape,
                       int trim, int quotes, int unquote, int keepEmpty,
                       int reserved) {
  (void)reserved;
  ReleaseList();
  if (!text || !*text) return 0;

  ParseRules rules;
  rules.delimiters = delimiters ? delimiters : "";
  rules.escape = escape && !std::strchr(rules.delimiters, escape) ? escape : 0;
  rules.quotes = quotes != 0;
  bool crlf = std::strchr(rules.delimiters, '\r') &&
              std::strchr(rules.delimiters, '\n');

  // One scratch area for resolved items: none is longer than the text.
  size_t length = std::strlen(text);
  char *scratch = static_cast<char *>(std::malloc(length + 1));
  if (!scratch) return 0;

  size_t pos = 0;
  for (;;) {
    // 1. Find the item's end, then trim it.
    size_t guard = 0;
    size_t rawEnd = FindItemEnd(rules, text, pos, &guard);
    size_t begin = pos;
    size_t end = rawEnd;
    if (trim) {
      begin += ox_findskipA(text + begin, static_cast<int>(end - begin));
      if (guard < begin) guard = begin;
      size_t tail = ox_findrskipA(text + begin, static_cast<int>(end - begin));
      end = end - tail < guard ? guard : end - tail;
    }

    // 2. Make the item as the rules above say.
    const char *item = text + begin;
    size_t itemLength = end - begin;
    if (unquote) {
      ItemShape shape = ShapeOf(rules, text, begin, end);
      bool onlySpans = shape.spans > 0 && !shape.plain && !shape.open;
      if (onlySpans || shape.spans == 0) {
        itemLength = Resolve(rules, text, begin, end, onlySpans, scratch);
        item = scratch;
      }
    }
    if (itemLength > 0 || keepEmpty) {
      Ox_AString value(item, static_cast<int>(itemLength));
      if (Add(value) < 0) break;
    }

    // 3. Step over the delimiter; a final delimiter opens no item.
    if (!text[rawEnd]) break;
    pos = rawEnd + 1;
    if (crlf && text[rawEnd] == '\r' && text[pos] == '\n') ++pos;
    if (!text[pos]) break;
  }
  std::free(scratch);
  return Count();
}
