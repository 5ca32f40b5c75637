// Private helpers of the first binary stream: big-endian fields appended to
// an Ox_Buffer and read back with a bounds check, and texts in the stream's
// code page.
#ifndef OX_BINSTREAM_INTERNAL_H
#define OX_BINSTREAM_INTERNAL_H

#include <cstdint>
#include <cstring>

#include "Ox_BaseLib.h"

class Ox_Dataset;
class Ox_DatasetList;
class Ox_VariableList;
class Ox_Variant;

// Block magic numbers of the first form, and of the second form where the
// first form's reader hands over to it.
const unsigned kOxMagicDatasetHead = 0xFF01;
const unsigned kOxMagicColList = 0xFF08;
const unsigned kOxMagicVarList = 0xFF10;
const unsigned kOxMagicDatasetHead2 = 0xFE01;
const unsigned kOxMagicVarList2 = 0xFE10;
// From this version on, the variable list carries its code page and each
// column its summary word.
const int kOxBinLayoutVersion = 3100;
// From this version on, every block is written in the second form.
const int kOxBinSecondFormVersion = 4000;

// ---------------------------------------------------------------------------
// Writing

// Grows `buffer` by `count` bytes and returns where they start, or null
// when memory runs out. Growth is amortised by the buffer itself.
inline unsigned char *OxBinGrow(Ox_Buffer &buffer, long count) {
  const long old = buffer.GetSize();
  if (buffer.AddSize(count) < 0) return nullptr;
  unsigned char *data = buffer.GetSafeBuffer(-1);
  return data != nullptr ? data + old : nullptr;
}

inline unsigned char *OxBinPut16(unsigned char *at, unsigned value) {
  at[0] = static_cast<unsigned char>(value >> 8);
  at[1] = static_cast<unsigned char>(value);
  return at + 2;
}

inline unsigned char *OxBinPut32(unsigned char *at, uint32_t value) {
  at[0] = static_cast<unsigned char>(value >> 24);
  at[1] = static_cast<unsigned char>(value >> 16);
  at[2] = static_cast<unsigned char>(value >> 8);
  at[3] = static_cast<unsigned char>(value);
  return at + 4;
}

// Appends a 16-bit or 32-bit field; the end position, or -1.
inline long OxBinWrite16(Ox_Buffer &buffer, unsigned value) {
  unsigned char *at = OxBinGrow(buffer, 2);
  if (at == nullptr) return -1;
  OxBinPut16(at, value);
  return buffer.GetSize();
}

inline long OxBinWrite32(Ox_Buffer &buffer, uint32_t value) {
  unsigned char *at = OxBinGrow(buffer, 4);
  if (at == nullptr) return -1;
  OxBinPut32(at, value);
  return buffer.GetSize();
}

// True when texts must be converted between memory (the locale's code
// page) and a stream written in `codePage`: 0 and the locale's page itself
// mean the texts are taken as they stand.
inline bool OxBinNeedsConversion(unsigned codePage) {
  return codePage != 0 && codePage != OxGetLocaleCP();
}

// The code page to hand to the writers and readers of many rows: 0 when
// texts are taken as they stand. Reading the locale once per block rather
// than once per text gives the same bytes.
inline unsigned OxBinRowCodePage(unsigned codePage) {
  return OxBinNeedsConversion(codePage) ? codePage : 0;
}

// Size of a variant's block when its texts are taken as they stand, and
// the writer of that block at `at` (which must have that room); the
// position behind it. A reference stands for its target.
long OxBinVariantSize(const Ox_Variant &value);
unsigned char *OxBinPutVariant(unsigned char *at, const Ox_Variant &value);

// Appends a text: a 16-bit length and the bytes, converted from the
// locale's code page to `codePage` where they differ. A text of 65,536
// bytes or more is written whole behind the low 16 bits of its length.
// The end position, or -1.
long OxBinWriteText(Ox_Buffer &buffer, const Ox_AString &text,
                    unsigned codePage);

// ---------------------------------------------------------------------------
// Reading

inline unsigned OxBinGet16(const unsigned char *at) {
  return (static_cast<unsigned>(at[0]) << 8) | at[1];
}

inline uint32_t OxBinGet32(const unsigned char *at) {
  return (static_cast<uint32_t>(at[0]) << 24) |
         (static_cast<uint32_t>(at[1]) << 16) |
         (static_cast<uint32_t>(at[2]) << 8) | at[3];
}

// True when `count` bytes are there from `position` on.
inline bool OxBinFits(long size, long position, long count) {
  return position >= 0 && count >= 0 && position <= size &&
         count <= size - position;
}

// Sets `out` to `length` bytes read at `at`, converted from `codePage` to
// the locale's where they differ. An empty text leaves `out` empty.
void OxBinReadText(Ox_AString &out, const unsigned char *at, int length,
                   unsigned codePage);

// The failure result of OxBinStreamLoad for a stream whose part count is 0
// (catalogue: the data count in the header is less than 1).
const int kOxErrBinStreamDataCount = static_cast<int>(0x83B10209u);

// ---------------------------------------------------------------------------
// Hand-overs to concerns built elsewhere (binstream_hooks.cpp)
//
// The second binary form, for version 4000 and its magics 0xFE01 and
// 0xFE10, and the parsing of a dataset's group text, belong to other
// concerns. Until they exist, each hook does nothing and reports failure
// (-1, or the data-count failure for a whole stream), and the group hook
// leaves the dataset as it is.

int OxBinStreamSaveVars2(const Ox_VariableList &vars, Ox_Buffer &buffer,
                         int version);                        // -1
int OxBinStreamSaveDataset2(Ox_Dataset &ds, Ox_Buffer &buffer, int saveType,
                            int version);                     // -1
int OxBinStreamLoadVars2(Ox_VariableList &vars, const Ox_Buffer &buffer,
                         int position, unsigned codePage);    // -1
int OxBinStreamLoadHead2(Ox_Dataset &ds, const Ox_Buffer &buffer,
                         int position);                       // -1
int OxBinStreamLoadData2(Ox_Dataset &ds, const Ox_Buffer &buffer,
                         int position);                       // -1
int OxBinStreamLoadWhole2(Ox_VariableList &vars, Ox_DatasetList &datasets,
                          const Ox_Buffer &buffer, unsigned codePage);
int OxBinStreamParseGroup(Ox_Dataset &ds);                    // 0

#endif
