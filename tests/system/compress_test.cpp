// Ox_Compress: frame recognition, the LZSS, zlib and gzip forms byte for
// byte, round trips, and damaged or truncated frames.
#include <gtest/gtest.h>
#include <zlib.h>

#include <algorithm>
#include <string>

#include "Ox_Compress.h"
#include "system/compress_test_support.h"

using oxtest::Buf;
using oxtest::Bytes;
using oxtest::Vec;

namespace {

// Frames built by hand from the layout. CRCs are CRC-32 (gzip polynomial)
// of the bytes named, worked out apart from this library.

// 18 x 'A': a literal 'A' written at 4078, then a match at 4078 (0xFEE) of
// 17 bytes that copies the 'A' over itself: b0 = 0xEE, b1 = 0xF0 | (17-3).
// One group with flag bits 1 (literal) and 0 (match): 0x01.
const Bytes kLzss18A = {0xFF, 0xAC, 0x72, 0x58, 0x5E, 0xF7,
                        0x01, 0x41, 0xEE, 0xFE};
// 18 blanks: the whole look-ahead matches the blank ring at 4060 (0xFDC)
// for 18 bytes: b0 = 0xDC, b1 = 0xF0 | 15. One match, flag byte 0x00.
const Bytes kLzss18Blanks = {0xFF, 0xAC, 0xFF, 0xCE, 0xBC, 0x8C,
                             0x00, 0xDC, 0xFF};
// 18 different letters: no match anywhere, so 18 literals in groups of
// 8, 8 and 2 (flags 0xFF, 0xFF, 0x03).
const std::string kLetters = "abcdefghijklmnopqr";
const Bytes kLzssLetters = {0xFF, 0xAC, 0x71, 0x34, 0x70, 0xE1, 0xFF, 'a',
                            'b',  'c',  'd',  'e',  'f',  'g',  'h',  0xFF,
                            'i',  'j',  'k',  'l',  'm',  'n',  'o',  'p',
                            0x03, 'q',  'r'};

// zlib frames: FF AD and the zlib stream of "a" and of nothing at the
// default level (header 78 9C, fixed Huffman block, Adler-32 at the end).
const Bytes kZlibA = {0xFF, 0xAD, 0x78, 0x9C, 0x4B, 0x04,
                      0x00, 0x00, 0x62, 0x00, 0x62};
const Bytes kZlibEmpty = {0xFF, 0xAD, 0x78, 0x9C, 0x03, 0x00,
                          0x00, 0x00, 0x00, 0x01};

// gzip frames: the fixed head, the raw deflate of "a" (4B 04 00) or of
// nothing (03 00), the CRC-32 of "a" 0xE8B7BE43 and the length, both
// little-endian.
const Bytes kGzipA = {0x1F, 0x8B, 0x08, 0x00, 0x00, 0x00, 0x00,
                      0x00, 0x00, 0x0B, 0x4B, 0x04, 0x00, 0x43,
                      0xBE, 0xB7, 0xE8, 0x01, 0x00, 0x00, 0x00};
const Bytes kGzipEmpty = {0x1F, 0x8B, 0x08, 0x00, 0x00, 0x00, 0x00,
                          0x00, 0x00, 0x0B, 0x03, 0x00, 0x00, 0x00,
                          0x00, 0x00, 0x00, 0x00, 0x00, 0x00};

Bytes Concat(Bytes a, const Bytes &b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

// The LZSS frame around `stream`, with its CRC big-endian (FF AC) or
// little-endian (AC FF), computed by zlib's own crc32.
Bytes LzssFrame(const Bytes &stream, bool swapped = false) {
  const unsigned long crc = crc32(0L, stream.data(), static_cast<uInt>(stream.size()));
  Bytes out = {static_cast<unsigned char>(swapped ? 0xAC : 0xFF),
               static_cast<unsigned char>(swapped ? 0xFF : 0xAC)};
  for (int i = 0; i < 4; i++) {
    const int shift = swapped ? 8 * i : 24 - 8 * i;
    out.push_back(static_cast<unsigned char>(crc >> shift));
  }
  return Concat(out, stream);
}

// FF AD and zlib's compress2 output.
Bytes ZlibFrameByZlib(const Bytes &plain, int level) {
  uLongf size = compressBound(static_cast<uLong>(plain.size()));
  Bytes out(size + 2);
  out[0] = 0xFF;
  out[1] = 0xAD;
  EXPECT_EQ(compress2(out.data() + 2, &size, plain.data(),
                      static_cast<uLong>(plain.size()), level),
            Z_OK);
  out.resize(size + 2);
  return out;
}

// zlib's own decoding of the zlib stream behind the magic of `frame`;
// false when zlib refuses it.
bool ZlibReference(const Bytes &frame, Bytes *out) {
  uLongf size = 1 << 16;
  out->assign(size, 0);
  const int ret = uncompress(out->data(), &size, frame.data() + 2,
                             static_cast<uLong>(frame.size() - 2));
  out->resize(ret == Z_OK ? size : 0);
  return ret == Z_OK;
}

// What Inflate must give for a gzip frame of one chunk: the head rules,
// then zlib's raw inflate, with the trailer tested only when exactly 8
// bytes follow the deflate stream.
bool GzipReference(const Bytes &frame, Bytes *out) {
  out->clear();
  if (frame.size() < 10 || frame[0] != 0x1F || frame[1] != 0x8B || frame[3] != 0)
    return false;
  z_stream s = {};
  if (inflateInit2(&s, -MAX_WBITS) != Z_OK) return false;
  out->assign(1 << 16, 0);
  s.next_in = const_cast<Bytef *>(frame.data() + 10);
  s.avail_in = static_cast<uInt>(frame.size() - 10);
  s.next_out = out->data();
  s.avail_out = static_cast<uInt>(out->size());
  const int ret = inflate(&s, Z_NO_FLUSH);
  out->resize(s.total_out);
  const uInt rest = s.avail_in;
  const Bytef *trailer = s.next_in;
  inflateEnd(&s);
  if (ret != Z_STREAM_END) return false;
  if (rest != 8) return true;
  const uLong crc = crc32(0L, out->data(), static_cast<uInt>(out->size()));
  const Bytes expect = {static_cast<unsigned char>(crc), static_cast<unsigned char>(crc >> 8),
                        static_cast<unsigned char>(crc >> 16), static_cast<unsigned char>(crc >> 24),
                        static_cast<unsigned char>(out->size()),
                        static_cast<unsigned char>(out->size() >> 8),
                        static_cast<unsigned char>(out->size() >> 16),
                        static_cast<unsigned char>(out->size() >> 24)};
  return Bytes(trailer, trailer + 8) == expect;
}

// ---------------------------------------------------------------------------
// IsCompressBuffer

TEST(CompressIsCompressBuffer, EmptyAndShortBuffersAreNoFrame) {
  int method = 42;
  EXPECT_EQ(Ox_Compress::IsCompressBuffer(Ox_Buffer(), &method), 0);
  EXPECT_EQ(method, 42);
  EXPECT_EQ(Ox_Compress::IsCompressBuffer(Buf(Bytes{0xFF}), &method), 0);
  EXPECT_EQ(method, 42);
  EXPECT_EQ(Ox_Compress::IsCompressBuffer(Buf(std::string("plain text")), &method), 0);
  EXPECT_EQ(method, 42);
}

TEST(CompressIsCompressBuffer, ZlibMagicAloneIsAFrame) {
  int method = 0;
  EXPECT_NE(Ox_Compress::IsCompressBuffer(Buf(Bytes{0xFF, 0xAD}), &method), 0);
  EXPECT_EQ(method, 2);
  method = 0;
  EXPECT_NE(Ox_Compress::IsCompressBuffer(Buf(Bytes{0xFF, 0xAD, 1, 2, 3}), &method), 0);
  EXPECT_EQ(method, 2);
  EXPECT_NE(Ox_Compress::IsCompressBuffer(Buf(kZlibA), nullptr), 0);
  EXPECT_NE(Ox_Compress::IsCompressBuffer(Buf(kZlibA)), 0);
}

TEST(CompressIsCompressBuffer, LzssFrameNeedsItsCrc) {
  int method = 0;
  EXPECT_NE(Ox_Compress::IsCompressBuffer(Buf(kLzss18A), &method), 0);
  EXPECT_EQ(method, 1);
  // One bit off in the CRC: plain data, though `method` was already set.
  Bytes bad = kLzss18A;
  bad[5] ^= 1;
  method = 0;
  EXPECT_EQ(Ox_Compress::IsCompressBuffer(Buf(bad), &method), 0);
  EXPECT_EQ(method, 1);
  // Too short to hold a CRC.
  EXPECT_EQ(Ox_Compress::IsCompressBuffer(Buf(Bytes{0xFF, 0xAC, 0, 0, 0}), &method), 0);
  // The CRC of nothing is 0: a bare head with a zero CRC is a frame.
  EXPECT_NE(Ox_Compress::IsCompressBuffer(Buf(Bytes{0xFF, 0xAC, 0, 0, 0, 0}), &method), 0);
}

TEST(CompressIsCompressBuffer, SwappedLzssMagicReadsALittleEndianCrc) {
  const Bytes stream = {0x01, 0x41, 0xEE, 0xFE};
  int method = 0;
  EXPECT_NE(Ox_Compress::IsCompressBuffer(Buf(LzssFrame(stream, true)), &method), 0);
  EXPECT_EQ(method, 1);
  // AC FF with the CRC big-endian does not match.
  Bytes wrongOrder = LzssFrame(stream, false);
  wrongOrder[0] = 0xAC;
  wrongOrder[1] = 0xFF;
  EXPECT_EQ(Ox_Compress::IsCompressBuffer(Buf(wrongOrder), &method), 0);
}

// ---------------------------------------------------------------------------
// LZSS form

TEST(CompressLzss, SeventeenBytesStayWithoutFrame) {
  Ox_Compress c;
  const Bytes in = Vec(std::string("0123456789abcdefg"));  // 17 bytes
  Ox_Buffer out;
  EXPECT_EQ(c.Encode(Buf(in), out, 1, 0), 0);
  EXPECT_EQ(Vec(out), in);
}

TEST(CompressLzss, EighteenBytesMakeAFrame) {
  Ox_Compress c;
  Ox_Buffer out;
  EXPECT_EQ(c.Encode(Buf(Bytes(18, 'A')), out, 1, 0), 0);
  EXPECT_EQ(Vec(out), kLzss18A);
}

TEST(CompressLzss, GoldenFrames) {
  Ox_Compress c;
  Ox_Buffer out;
  EXPECT_EQ(c.Encode(Buf(Bytes(18, ' ')), out, 1, 0), 0);
  EXPECT_EQ(Vec(out), kLzss18Blanks);
  EXPECT_EQ(c.Encode(Buf(kLetters), out, 1, 9), 0);
  EXPECT_EQ(Vec(out), kLzssLetters);
}

TEST(CompressLzss, DecodesGoldenFrames) {
  Ox_Compress c;
  Ox_Buffer out;
  EXPECT_EQ(c.Decode(Buf(kLzss18A), out), 0);
  EXPECT_EQ(Vec(out), Bytes(18, 'A'));
  EXPECT_EQ(c.Decode(Buf(kLzss18Blanks), out), 0);
  EXPECT_EQ(Vec(out), Bytes(18, ' '));
  EXPECT_EQ(c.Decode(Buf(kLzssLetters), out), 0);
  EXPECT_EQ(Vec(out), Vec(kLetters));
}

TEST(CompressLzss, DecodesSwappedMagicAndRingReferences) {
  // Literal "xy", then a match at 4078 (0xFEE) of 5 bytes: b1 = 0xF0 | 2,
  // which copies "xyxyx"; then a match into the blank ring at 0 for 3
  // bytes: "   ". Flags: bit 0 and 1 literals, bits 2 and 3 matches: 0x03.
  const Bytes stream = {0x03, 'x', 'y', 0xEE, 0xF2, 0x00, 0x00};
  Ox_Compress c;
  Ox_Buffer out;
  EXPECT_EQ(c.Decode(Buf(LzssFrame(stream, true)), out), 0);
  EXPECT_EQ(Vec(out), Vec(std::string("xyxyxyx   ")));
  EXPECT_EQ(c.Decode(Buf(LzssFrame(stream, false)), out), 0);
  EXPECT_EQ(Vec(out), Vec(std::string("xyxyxyx   ")));
}

TEST(CompressLzss, WrongCrcPassesThroughUnchanged) {
  Bytes bad = kLzss18A;
  bad[2] ^= 0x80;
  Ox_Compress c;
  Ox_Buffer out;
  EXPECT_EQ(c.Decode(Buf(bad), out), 0);
  EXPECT_EQ(Vec(out), bad);
}

TEST(CompressLzss, TruncatedStreamGivesWhatWasDecoded) {
  // The CRC guards the frame; a stream cut short (with a CRC made for the
  // short stream) decodes as far as it goes, with the result 0. Here the
  // second item, a match, has lost its second byte.
  Ox_Compress c;
  Ox_Buffer out;
  EXPECT_EQ(c.Decode(Buf(LzssFrame({0x01, 0x41, 0xEE})), out), 0);
  EXPECT_EQ(Vec(out), Bytes(1, 'A'));
  // Only a flag byte.
  EXPECT_EQ(c.Decode(Buf(LzssFrame({0x01})), out), 0);
  EXPECT_EQ(out.GetSize(), 0);
}

TEST(CompressLzss, EveryPrefixOfAFramePassesAsPlainData) {
  Ox_Compress c;
  Ox_Buffer frame;
  ASSERT_EQ(c.Encode(Buf(oxtest::MixedBytes(3000)), frame, 1, 0), 0);
  const Bytes full = Vec(frame);
  for (size_t n = 0; n < full.size(); n++) {
    const Bytes prefix(full.begin(), full.begin() + n);
    Ox_Buffer out;
    ASSERT_EQ(c.Decode(Buf(prefix), out), 0) << n;
    ASSERT_EQ(Vec(out), prefix) << n;
  }
}

// ---------------------------------------------------------------------------
// zlib form

TEST(CompressZlib, GoldenFrames) {
  Ox_Compress c;
  Ox_Buffer out;
  EXPECT_EQ(c.Encode(Buf(std::string("a")), out, 2, 6), 0);
  EXPECT_EQ(Vec(out), kZlibA);
  EXPECT_EQ(c.Encode(Buf(std::string("a")), out, 2, -1), 0);
  EXPECT_EQ(Vec(out), kZlibA);
  // Empty input gives a frame around a zlib stream without data.
  EXPECT_EQ(c.Encode(Ox_Buffer(), out, 2, 6), 0);
  EXPECT_EQ(Vec(out), kZlibEmpty);
  EXPECT_EQ(c.Decode(Buf(kZlibA), out), 0);
  EXPECT_EQ(Vec(out), Vec(std::string("a")));
  EXPECT_EQ(c.Decode(Buf(kZlibEmpty), out), 0);
  EXPECT_EQ(out.GetSize(), 0);
}

TEST(CompressZlib, SameBytesAsZlibAtEveryLevel) {
  Ox_Compress c;
  const Bytes plain = oxtest::MixedBytes(100000);
  // (Level 0 is left out: its stored blocks follow the input chunks.)
  for (int level = 1; level <= 9; level++) {
    Ox_Buffer out;
    ASSERT_EQ(c.Encode(Buf(plain), out, 2, level), 0);
    EXPECT_EQ(Vec(out), ZlibFrameByZlib(plain, level)) << level;
  }
}

TEST(CompressZlib, BadLevelFails) {
  Ox_Compress c;
  Ox_Buffer out;
  EXPECT_EQ(c.Encode(Buf(std::string("abc")), out, 2, 42), -1);
  EXPECT_EQ(c.Encode(Buf(std::string("abc")), out, 2, -2), -1);
}

TEST(CompressZlib, ZlibMagicWithRandomContentFails) {
  Bytes bad = Concat({0xFF, 0xAD}, oxtest::RandomBytes(200, 99));
  Ox_Compress c;
  Ox_Buffer out;
  EXPECT_EQ(c.Decode(Buf(bad), out), -1);
  EXPECT_EQ(c.Decode(Buf(Bytes{0xFF, 0xAD}), out), -1);
}

TEST(CompressZlib, EveryPrefixAndFlippedByteFails) {
  Ox_Compress c;
  Ox_Buffer frame;
  ASSERT_EQ(c.Encode(Buf(oxtest::MixedBytes(6000)), frame, 2, 6), 0);
  const Bytes full = Vec(frame);
  Ox_Buffer out;
  for (size_t n = 2; n < full.size(); n++) {
    ASSERT_EQ(c.Decode(Buf(Bytes(full.begin(), full.begin() + n)), out), -1) << n;
  }
  // Past the magic, damage is seen by the header check, by inflate or by
  // the Adler-32 at the end, exactly where zlib itself sees it (a rare
  // flip leaves a valid stream with a matching checksum).
  int seen = 0;
  for (size_t i = 2; i < full.size(); i++) {
    Bytes bad = full;
    bad[i] ^= 0xFF;
    Bytes reference;
    const bool valid = ZlibReference(bad, &reference);
    ASSERT_EQ(c.Decode(Buf(bad), out), valid ? 0 : -1) << i;
    if (valid) {
      ASSERT_EQ(Vec(out), reference) << i;
    }
    seen += valid ? 0 : 1;
  }
  EXPECT_GT(seen, static_cast<int>(full.size()) * 9 / 10);
}

TEST(CompressZlib, CutDataLeavesWhatCouldBeDecoded) {
  const Bytes plain = oxtest::MixedBytes(200000);
  Ox_Compress c;
  Ox_Buffer packed, out;
  ASSERT_EQ(c.Encode(Buf(plain), packed, 2, 6), 0);
  Bytes cut = Vec(packed);
  cut.resize(cut.size() / 2);
  EXPECT_EQ(c.Decode(Buf(cut), out), -1);
  const Bytes got = Vec(out);
  EXPECT_GT(got.size(), plain.size() / 4);
  EXPECT_TRUE(std::equal(got.begin(), got.end(), plain.begin()));
  // Damage in the middle: -1, and what came before it stays.
  Bytes bad = Vec(packed);
  for (size_t i = bad.size() / 2; i < bad.size() / 2 + 64; i++) bad[i] = 0xFF;
  EXPECT_EQ(c.Decode(Buf(bad), out), -1);
  const Bytes before = Vec(out);
  EXPECT_TRUE(std::equal(before.begin(), before.end(), plain.begin()));
}

TEST(CompressZlib, DictionaryStreamFails) {
  // A zlib header with the preset-dictionary flag: 78 BB (0x78BB % 31 = 0)
  // then a dictionary id.
  const Bytes frame = {0xFF, 0xAD, 0x78, 0xBB, 0, 0, 0, 1, 0x03, 0x00};
  Ox_Compress c;
  Ox_Buffer out;
  EXPECT_EQ(c.Decode(Buf(frame), out), -1);
}

// ---------------------------------------------------------------------------
// Encode and Decode in general

TEST(CompressEncode, ValidFramesAreNeverCompressedTwice) {
  Ox_Compress c;
  const Bytes swapped = LzssFrame({0x01, 0x41, 0xEE, 0xFE}, true);
  for (const Bytes &frame : {kLzss18A, swapped, kZlibA}) {
    for (int method : {1, 2, 7}) {
      Ox_Buffer out;
      EXPECT_EQ(c.Encode(Buf(frame), out, method, 6), 0);
      EXPECT_EQ(Vec(out), frame);
    }
  }
}

TEST(CompressEncode, UnknownMethodFails) {
  Ox_Compress c;
  Ox_Buffer out;
  EXPECT_EQ(c.Encode(Buf(Bytes(100, 'x')), out, 0, 6), -1);
  EXPECT_EQ(c.Encode(Buf(Bytes(100, 'x')), out, 3, 6), -1);
}

TEST(CompressDecode, PlainDataPassesThrough) {
  Ox_Compress c;
  Ox_Buffer out;
  EXPECT_EQ(c.Decode(Buf(std::string("just text")), out), 0);
  EXPECT_EQ(Vec(out), Vec(std::string("just text")));
  EXPECT_EQ(c.Decode(Ox_Buffer(), out), 0);
  EXPECT_EQ(out.GetSize(), 0);
  // gzip is not among the frames that Decode knows.
  EXPECT_EQ(c.Decode(Buf(kGzipA), out), 0);
  EXPECT_EQ(Vec(out), kGzipA);
}

TEST(CompressDecode, OutputMayBeTheInput) {
  Ox_Compress c;
  Ox_Buffer buf = Buf(kZlibA);
  EXPECT_EQ(c.Decode(buf, buf), 0);
  EXPECT_EQ(Vec(buf), Vec(std::string("a")));
  buf = Buf(Bytes(40, 'q'));
  EXPECT_EQ(c.Encode(buf, buf, 1, 0), 0);
  Ox_Buffer back;
  EXPECT_EQ(c.Decode(buf, back), 0);
  EXPECT_EQ(Vec(back), Bytes(40, 'q'));
}

// Round trips of both Ox_Compress forms on empty, 1-byte, 1 MB random and
// 1 MB repetitive data.
class CompressRoundTrip : public ::testing::TestWithParam<int> {};

TEST_P(CompressRoundTrip, EveryFormGivesTheDataBack) {
  const int method = GetParam();
  const Bytes inputs[] = {Bytes(), Bytes{0x5A}, oxtest::RandomBytes(1 << 20),
                          oxtest::RepetitiveBytes(1 << 20)};
  Ox_Compress c;
  for (const Bytes &in : inputs) {
    Ox_Buffer packed, back;
    ASSERT_EQ(c.Encode(Buf(in), packed, method, 6), 0);
    ASSERT_EQ(c.Decode(packed, back), 0);
    EXPECT_EQ(Vec(back), in) << "size " << in.size();
  }
}

INSTANTIATE_TEST_SUITE_P(Methods, CompressRoundTrip, ::testing::Values(1, 2));

TEST(CompressRoundTrip, RepetitiveDataShrinks) {
  Ox_Compress c;
  Ox_Buffer lzss, zlib;
  const Bytes in = oxtest::RepetitiveBytes(1 << 20);
  ASSERT_EQ(c.Encode(Buf(in), lzss, 1, 6), 0);
  ASSERT_EQ(c.Encode(Buf(in), zlib, 2, 6), 0);
  // 18-byte matches cost 2 bytes and a flag bit: at least 8:1.
  EXPECT_LT(lzss.GetSize(), static_cast<long>(in.size() / 8));
  EXPECT_LT(zlib.GetSize(), static_cast<long>(in.size() / 100));
}

// ---------------------------------------------------------------------------
// gzip form (Deflate, Inflate)

TEST(CompressGzip, GoldenFrames) {
  Ox_Buffer out;
  EXPECT_EQ(Ox_Compress::Deflate(Buf(std::string("a")), out, 6), 0);
  EXPECT_EQ(Vec(out), kGzipA);
  EXPECT_EQ(Ox_Compress::Deflate(Ox_Buffer(), out, 6), 0);
  EXPECT_EQ(Vec(out), kGzipEmpty);
  EXPECT_EQ(Ox_Compress::Inflate(Buf(kGzipA), out), 0);
  EXPECT_EQ(Vec(out), Vec(std::string("a")));
  EXPECT_EQ(Ox_Compress::Inflate(Buf(kGzipEmpty), out), 0);
  EXPECT_EQ(out.GetSize(), 0);
}

TEST(CompressGzip, DeflateDoesNotTestItsInput) {
  Ox_Buffer twice;
  EXPECT_EQ(Ox_Compress::Deflate(Buf(kGzipA), twice, 6), 0);
  EXPECT_NE(Vec(twice), kGzipA);
  Ox_Buffer once;
  EXPECT_EQ(Ox_Compress::Inflate(twice, once), 0);
  EXPECT_EQ(Vec(once), kGzipA);
}

TEST(CompressGzip, InflateRefusesShortForeignAndFlaggedHeads) {
  Ox_Buffer out;
  EXPECT_EQ(Ox_Compress::Inflate(Ox_Buffer(), out), -1);
  EXPECT_EQ(Ox_Compress::Inflate(Buf(Bytes(kGzipA.begin(), kGzipA.begin() + 9)), out), -1);
  Bytes foreign = kGzipA;
  foreign[1] = 0x8C;
  EXPECT_EQ(Ox_Compress::Inflate(Buf(foreign), out), -1);
  // A file name behind the head (FNAME): refused.
  Bytes named = {0x1F, 0x8B, 0x08, 0x08, 0, 0, 0, 0, 0, 0x03, 'a', '.', 't',
                 'x', 't', 0};
  named.insert(named.end(), kGzipA.begin() + 10, kGzipA.end());
  EXPECT_EQ(Ox_Compress::Inflate(Buf(named), out), -1);
}

TEST(CompressGzip, InflateTestsATrailerThatEndsTheChunk) {
  Bytes bad = kGzipA;
  bad[13] ^= 1;  // CRC
  Ox_Buffer out;
  EXPECT_EQ(Ox_Compress::Inflate(Buf(bad), out), -1);
  bad = kGzipA;
  bad[17] = 2;  // length
  EXPECT_EQ(Ox_Compress::Inflate(Buf(bad), out), -1);
  // Bytes behind the trailer: 8 bytes no longer remain, so no test.
  bad = kGzipA;
  bad[13] ^= 1;
  bad.push_back(0);
  EXPECT_EQ(Ox_Compress::Inflate(Buf(bad), out), 0);
  EXPECT_EQ(Vec(out), Vec(std::string("a")));
}

// A gzip frame whose raw deflate stream is one final stored block of
// `size` bytes of 'z' (head 01, LEN and NLEN little-endian), followed by a
// trailer of wrong values and `extra` more bytes.
Bytes StoredGzipWithBadTrailer(unsigned size, size_t extra = 0) {
  Bytes frame(kGzipA.begin(), kGzipA.begin() + 10);
  frame.push_back(0x01);
  frame.push_back(static_cast<unsigned char>(size));
  frame.push_back(static_cast<unsigned char>(size >> 8));
  frame.push_back(static_cast<unsigned char>(~size));
  frame.push_back(static_cast<unsigned char>(~size >> 8));
  frame.insert(frame.end(), size, 'z');
  frame.insert(frame.end(), 8 + extra, 0xEE);
  return frame;
}

TEST(CompressGzip, TrailerIsTestedOnlyWhenItEndsAChunk) {
  // Chunks of 8096 bytes are read from offset 10. The deflate stream is
  // 5 + size bytes long.
  Ox_Buffer out;
  // 100: stream and trailer share the first chunk, which ends with the
  // trailer: tested, and wrong.
  EXPECT_EQ(Ox_Compress::Inflate(Buf(StoredGzipWithBadTrailer(100)), out), -1);
  // One byte more behind the trailer: 9 bytes remain, no test.
  EXPECT_EQ(Ox_Compress::Inflate(Buf(StoredGzipWithBadTrailer(100, 1)), out), 0);
  EXPECT_EQ(Vec(out), Bytes(100, 'z'));
  // 8091: the stream fills the first chunk exactly; the trailer is in the
  // second chunk, which is never read (the stream has ended).
  EXPECT_EQ(Ox_Compress::Inflate(Buf(StoredGzipWithBadTrailer(8091)), out), 0);
  EXPECT_EQ(Vec(out), Bytes(8091, 'z'));
  // 8088: the stream ends 3 bytes before the first chunk's end; those 3
  // bytes remain, so no test.
  EXPECT_EQ(Ox_Compress::Inflate(Buf(StoredGzipWithBadTrailer(8088)), out), 0);
  // 8095: the stream ends 4 bytes into the second chunk, which holds the
  // trailer to its end: tested.
  EXPECT_EQ(Ox_Compress::Inflate(Buf(StoredGzipWithBadTrailer(8095)), out), -1);
  // 20000: the stream ends in the third chunk, with the trailer at its
  // end: tested.
  EXPECT_EQ(Ox_Compress::Inflate(Buf(StoredGzipWithBadTrailer(20000)), out), -1);
}

TEST(CompressGzip, CutDataLeavesWhatCouldBeDecoded) {
  const Bytes plain = oxtest::MixedBytes(200000);
  Ox_Buffer packed, out;
  ASSERT_EQ(Ox_Compress::Deflate(Buf(plain), packed, 6), 0);
  Bytes cut = Vec(packed);
  cut.resize(cut.size() / 2);
  EXPECT_EQ(Ox_Compress::Inflate(Buf(cut), out), -1);
  const Bytes got = Vec(out);
  EXPECT_GT(got.size(), 0u);
  EXPECT_TRUE(std::equal(got.begin(), got.end(), plain.begin()));
}

TEST(CompressGzip, PrefixesAndDamage) {
  Ox_Buffer frame;
  ASSERT_EQ(Ox_Compress::Deflate(Buf(oxtest::MixedBytes(5000)), frame, 6), 0);
  const Bytes full = Vec(frame);
  Ox_Buffer out;
  // Cut inside the deflate data: -1. Cut inside the trailer: the stream
  // ends but fewer than 8 bytes remain, so the trailer is not tested.
  for (size_t n = 0; n < full.size(); n++) {
    const long expect = n < full.size() - 8 ? -1 : 0;
    ASSERT_EQ(Ox_Compress::Inflate(Buf(Bytes(full.begin(), full.begin() + n)), out),
              expect)
        << n;
  }
  // Flipped bytes: the method byte and bytes 4 to 9 are not read; the
  // magic and the flag byte are; in the data, a flip may also end the
  // stream early, which leaves the trailer untested.
  ASSERT_LT(full.size(), 8096u);  // one chunk
  for (size_t i = 0; i < full.size(); i++) {
    Bytes bad = full;
    bad[i] ^= 0xFF;
    Bytes reference;
    const bool valid = GzipReference(bad, &reference);
    if (i == 2 || (i >= 4 && i <= 9)) {
      ASSERT_TRUE(valid) << i;
    }
    if (i < 2 || i == 3 || i >= full.size() - 8) {
      ASSERT_FALSE(valid) << i;
    }
    ASSERT_EQ(Ox_Compress::Inflate(Buf(bad), out), valid ? 0 : -1) << i;
    if (valid) {
      ASSERT_EQ(Vec(out), reference) << i;
    }
  }
}

TEST(CompressGzip, RoundTrips) {
  const Bytes inputs[] = {Bytes(), Bytes{0x00}, oxtest::RandomBytes(1 << 20),
                          oxtest::RepetitiveBytes(1 << 20)};
  for (const Bytes &in : inputs) {
    Ox_Buffer packed, back;
    ASSERT_EQ(Ox_Compress::Deflate(Buf(in), packed, 6), 0);
    ASSERT_EQ(Ox_Compress::Inflate(packed, back), 0);
    EXPECT_EQ(Vec(back), in) << "size " << in.size();
  }
}

TEST(CompressGzip, ZlibGzipReaderAcceptsOurFrames) {
  const Bytes in = oxtest::MixedBytes(300000);
  Ox_Buffer packed;
  ASSERT_EQ(Ox_Compress::Deflate(Buf(in), packed, 9), 0);
  // zlib's own gzip decoding (window bits 16 + 15) checks head and trailer.
  z_stream s = {};
  ASSERT_EQ(inflateInit2(&s, 16 + MAX_WBITS), Z_OK);
  Bytes back(in.size() + 16);
  s.next_in = const_cast<Bytef *>(packed.GetData());
  s.avail_in = static_cast<uInt>(packed.GetSize());
  s.next_out = back.data();
  s.avail_out = static_cast<uInt>(back.size());
  EXPECT_EQ(inflate(&s, Z_FINISH), Z_STREAM_END);
  back.resize(s.total_out);
  inflateEnd(&s);
  EXPECT_EQ(back, in);
  // And through a file, by gzread.
  oxtest::TempFile file;
  ASSERT_TRUE(file.Write(Vec(packed)));
  gzFile gz = gzopen(file.Path().c_str(), "rb");
  ASSERT_NE(gz, nullptr);
  Bytes read(in.size() + 16);
  const int got = gzread(gz, read.data(), static_cast<unsigned>(read.size()));
  gzclose(gz);
  ASSERT_EQ(got, static_cast<int>(in.size()));
  read.resize(got);
  EXPECT_EQ(read, in);
}

TEST(CompressGzip, ReadsWhatZlibsGzipWriterMakes) {
  const Bytes in = oxtest::MixedBytes(200000, 5);
  oxtest::TempFile file;
  gzFile gz = gzopen(file.Path().c_str(), "wb6");
  ASSERT_NE(gz, nullptr);
  ASSERT_EQ(gzwrite(gz, in.data(), static_cast<unsigned>(in.size())),
            static_cast<int>(in.size()));
  ASSERT_EQ(gzclose(gz), Z_OK);
  Ox_Buffer out;
  EXPECT_EQ(Ox_Compress::Inflate(Buf(file.Read()), out), 0);
  EXPECT_EQ(Vec(out), in);
}

TEST(CompressGzip, SystemGzipReadsOurFramesAndWeReadItsOwn) {
  if (!oxtest::HaveGzipTool()) GTEST_SKIP() << "no gzip on PATH";
  const Bytes in = oxtest::MixedBytes(150000, 9);
  Ox_Buffer packed;
  ASSERT_EQ(Ox_Compress::Deflate(Buf(in), packed, 6), 0);
  oxtest::TempFile gzFile, plainFile;
  ASSERT_TRUE(gzFile.Write(Vec(packed)));
  std::string cmd = "gzip -dc < " + gzFile.Path() + " > " + plainFile.Path();
  ASSERT_EQ(std::system(cmd.c_str()), 0);
  EXPECT_EQ(plainFile.Read(), in);
  // gzip reading standard input writes no file name: Inflate takes it.
  ASSERT_TRUE(plainFile.Write(in));
  cmd = "gzip -c < " + plainFile.Path() + " > " + gzFile.Path();
  ASSERT_EQ(std::system(cmd.c_str()), 0);
  Ox_Buffer out;
  EXPECT_EQ(Ox_Compress::Inflate(Buf(gzFile.Read()), out), 0);
  EXPECT_EQ(Vec(out), in);
}

}  // namespace
