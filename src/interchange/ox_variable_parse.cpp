// The text parser of name and value pairs: Ox_VariableList::SetStr(text)
// and its tokenizer SplitParamText.
//
// A parameter text is a run of tokens separated by blanks, tabs and line
// ends, such as
//     a=1 b = 2.5 c='x y' d
// Quotes keep separators inside a token; the lead byte of a double-byte
// character of the locale's code page always takes its follower with it, so
// that a trailing byte that happens to be a backslash or a quote means
// nothing.
#include <cstring>

#include "Ox_Variable.h"

namespace {

// The lead-byte ranges of the double-byte code pages. Any other code page
// has no lead bytes.
struct LeadByteRanges {
  unsigned codePage;
  int count;
  unsigned char low[2];
  unsigned char high[2];
};

const LeadByteRanges kDoubleByteTable[] = {
    {932, 2, {0x81, 0xE0}, {0x9F, 0xFC}},
    {936, 1, {0x81, 0x00}, {0xFE, 0x00}},
    {949, 1, {0x81, 0x00}, {0xFE, 0x00}},
    {950, 1, {0x81, 0x00}, {0xFE, 0x00}},
};

const LeadByteRanges *FindLeadByteRanges(unsigned codePage) {
  for (const LeadByteRanges &entry : kDoubleByteTable) {
    if (entry.codePage == codePage) return &entry;
  }
  return nullptr;
}

bool IsLeadByte(const LeadByteRanges *ranges, unsigned char c) {
  if (ranges == nullptr) return false;
  for (int r = 0; r < ranges->count; ++r) {
    if (c >= ranges->low[r] && c <= ranges->high[r]) return true;
  }
  return false;
}

bool IsSeparator(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// The byte that a backslash inside quotes stands for.
char TranslateEscape(char c) {
  switch (c) {
    case 'r': return '\r';
    case 'n': return '\n';
    case 't': return '\t';
    default: return c;
  }
}

enum QuoteState { kOutside, kInDouble, kInSingle };

}  // namespace

int Ox_VariableList::SplitParamText(const char *text, Ox_AStrList &tokens) {
  // 1. The locale's lead bytes; an empty text leaves the list alone.
  const LeadByteRanges *ranges = FindLeadByteRanges(OxGetLocaleCP());
  const int length = text != nullptr ? static_cast<int>(std::strlen(text)) : 0;
  if (length == 0) return 0;
  tokens.Clear();

  // 2. A working buffer as long as the text takes the bytes of one token;
  //    no token is longer than the text.
  Ox_AString work;
  char *buffer = work.GetSafeBuffer(length);
  if (buffer == nullptr) return 0;
  int used = 0;       // bytes in the buffer
  int taken = 0;      // bytes walked since the last separator
  QuoteState state = kOutside;

  int i = 0;
  while (i < length) {
    const char c = text[i];
    const unsigned char byte = static_cast<unsigned char>(c);
    ++taken;
    if (state != kOutside) {
      // 3. Inside quotes.
      if (c == '\\') {
        // The backslash stays, and the byte behind it is translated.
        buffer[used++] = c;
        if (i + 1 < length) buffer[used++] = TranslateEscape(text[i + 1]);
        i += 2;
        continue;
      }
      if ((state == kInDouble && c == '"') || (state == kInSingle && c == '\'')) {
        buffer[used++] = c;
        state = kOutside;
        ++i;
        continue;
      }
    } else {
      // 4. Outside quotes: a backslash is an ordinary byte.
      if (c == '"' || c == '\'') {
        buffer[used++] = c;
        state = c == '"' ? kInDouble : kInSingle;
        ++i;
        continue;
      }
      if (IsSeparator(c)) {
        // The token ends, empty or not; the run of separators is skipped.
        tokens.Add(Ox_AString(buffer, used));
        used = 0;
        taken = 0;
        while (i < length && IsSeparator(text[i])) ++i;
        continue;
      }
    }
    // A lead byte takes its follower along, untested (the end of the text
    // is the one limit); every other byte is copied as it is.
    buffer[used++] = c;
    if (IsLeadByte(ranges, byte) && i + 1 < length) {
      buffer[used++] = text[i + 1];
      ++i;
    }
    ++i;
  }

  // 5. The last token: a non-empty buffer, or an empty one after bytes.
  if (used > 0 || taken > 0) tokens.Add(Ox_AString(buffer, used));
  // 6. The token count.
  return tokens.Count();
}

namespace {

// Stores one name and value pair by the value's form: a quoted value is a
// string; an unquoted number is an integer, or a decimal when it holds a
// point; anything else is a string.
void StorePair(Ox_VariableList &list, const Ox_AString &name,
               const Ox_AString &value, bool quoted) {
  if (!quoted && value.IsNumber()) {
    if (value.Find('.') < 0) {
      list.AddVariable(name, Ox_Variant(static_cast<long>(value.ToInteger())));
    } else {
      list.AddVariable(name, Ox_Variant(value.ToDouble()));
    }
    return;
  }
  list.AddStr(name, value);
}

// A value that begins with a quote loses its enclosing quotes and is
// marked quoted.
void TakeValue(Ox_AString &value, bool &quoted, const Ox_AString &text) {
  value = text;
  quoted = false;
  const char first = value.GetAt(0);
  if (first == '\'' || first == '"') {
    value.TrimBrace(1);
    quoted = true;
  }
}

enum PairState { kExpectName, kExpectEquals, kExpectValue };

}  // namespace

int Ox_VariableList::SetStr(const char *text) {
  Clear();
  if (text == nullptr) return -1;
  Ox_AStrList tokens;
  SplitParamText(text, tokens);

  PairState state = kExpectName;
  Ox_AString name;
  Ox_AString value;
  bool quoted = false;
  for (int t = 0; t < tokens.Count(); ++t) {
    const Ox_AString &token = tokens.GetItemNN(t);
    const int size = token.GetLength();
    if (size == 0) continue;  // empty tokens change nothing
    if (state == kExpectName) {
      // 1. name, name= or name=value.
      const int equals = token.Find('=');
      if (equals < 0) {
        name = token;
        state = kExpectEquals;
      } else if (equals == size - 1) {
        name = token.Left(equals);
        state = kExpectValue;
      } else {
        name = token.Left(equals);
        TakeValue(value, quoted, token.Mid(equals + 1));
        StorePair(*this, name, value, quoted);
        name.Empty();
        value.Empty();
      }
    } else if (state == kExpectEquals) {
      // 2. Only a token that begins with "=" counts here.
      if (token.GetAt(0) != '=') continue;
      if (size == 1) {
        state = kExpectValue;
        continue;
      }
      TakeValue(value, quoted, token.Mid(1));
      StorePair(*this, name, value, quoted);
      name.Empty();
      value.Empty();
      state = kExpectName;
    } else {
      // 3. The token is the value.
      TakeValue(value, quoted, token);
      StorePair(*this, name, value, quoted);
      name.Empty();
      value.Empty();
      state = kExpectName;
    }
  }
  // A name without a value at the end is stored with an empty one.
  if (state != kExpectName) StorePair(*this, name, Ox_AString(), false);
  return Count();
}
