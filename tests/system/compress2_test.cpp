// Ox_Compress2: head sizes, the zlib and gzip frames whole, and decoding a
// frame that arrives in pieces.
#include <gtest/gtest.h>
#include <zlib.h>

#include <string>

#include "Ox_Compress.h"
#include "system/compress_test_support.h"
#include "system/ox_compress_internal.h"

using oxtest::Buf;
using oxtest::Bytes;
using oxtest::Vec;

namespace {

// The zlib frame of "a" (FF AD, zlib stream) and the gzip frame of "a"
// (fixed head, raw deflate 4B 04 00, CRC 0xE8B7BE43 and length 1).
const Bytes kZlibA = {0xFF, 0xAD, 0x78, 0x9C, 0x4B, 0x04,
                      0x00, 0x00, 0x62, 0x00, 0x62};
const Bytes kGzipA = {0x1F, 0x8B, 0x08, 0x00, 0x00, 0x00, 0x00,
                      0x00, 0x00, 0x0B, 0x4B, 0x04, 0x00, 0x43,
                      0xBE, 0xB7, 0xE8, 0x01, 0x00, 0x00, 0x00};

// A gzip file of "a" with optional fields, as gzip writes them: FNAME
// "a.txt" (flag 8), and also FCOMMENT "hi" (flag 16).
const Bytes kGzipNamedA = {0x1F, 0x8B, 0x08, 0x08, 0, 0, 0, 0, 0, 0x03,
                           'a',  '.',  't',  'x',  't', 0, 0x4B, 0x04, 0x00,
                           0x43, 0xBE, 0xB7, 0xE8, 0x01, 0x00, 0x00, 0x00};
const Bytes kGzipNamedCommentA = {
    0x1F, 0x8B, 0x08, 0x18, 0,    0,    0,    0,    0,    0x03,
    'a',  '.',  't',  'x',  't',  0,    'h',  'i',  0,    0x4B,
    0x04, 0x00, 0x43, 0xBE, 0xB7, 0xE8, 0x01, 0x00, 0x00, 0x00};

// Feeds `frame` to DecodeData: a first piece of max(first, step) bytes,
// then pieces of `step`, stopping at the first result other than 1.
// Returns the output of all pieces; `*last` gets the last result and
// `*fed` the count of bytes fed.
Bytes DecodeInPieces(Ox_Compress2 &c, const Bytes &frame, size_t first,
                     size_t step, long *last, size_t *fed) {
  Bytes all;
  *last = -2;
  c.DecodeInit();
  size_t pos = 0;
  size_t n = first > step ? first : step;
  while (pos < frame.size()) {
    if (n > frame.size() - pos) n = frame.size() - pos;
    Ox_Buffer out;
    *last = c.DecodeData(frame.data() + pos, static_cast<int>(n), out);
    const Bytes got = Vec(out);
    all.insert(all.end(), got.begin(), got.end());
    pos += n;
    n = step;
    if (*last != 1) break;
  }
  *fed = pos;
  return all;
}

Bytes ZlibFrame(const Bytes &plain, int level = 6) {
  Ox_Compress2 c;
  Ox_Buffer out;
  EXPECT_EQ(c.Encode(Buf(plain), out, level), 0);
  return Vec(out);
}

Bytes GzipFrame(const Bytes &plain, int level = 6) {
  Ox_Compress2 c;
  Ox_Buffer out;
  EXPECT_EQ(c.EncodeGzip(Buf(plain), out, level), 0);
  return Vec(out);
}

// ---------------------------------------------------------------------------
// Heads

TEST(Compress2Head, HeadSizes) {
  const unsigned char gzip[] = {0x1F, 0x8B};
  const unsigned char zlib[] = {0xFF, 0xAD};
  const unsigned char lzss[] = {0xFF, 0xAC};
  const unsigned char text[] = {'a', 'b'};
  EXPECT_EQ(Ox_Compress2::GetCompHeadSize(gzip), 10);
  EXPECT_EQ(Ox_Compress2::GetCompHeadSize(zlib), 2);
  EXPECT_EQ(Ox_Compress2::GetCompHeadSize(lzss), 0);
  EXPECT_EQ(Ox_Compress2::GetCompHeadSize(text), 0);
  EXPECT_EQ(Ox_Compress2::GetCompHeadSize(nullptr), 0);
}

TEST(Compress2Head, WindowBitsFromTheFirstStreamByte) {
  EXPECT_EQ(OxZlibWindowBits(0x78), 15);
  EXPECT_EQ(OxZlibWindowBits(0x68), 14);
  EXPECT_EQ(OxZlibWindowBits(0x08), 8);
  EXPECT_EQ(OxZlibWindowBits(0x00), 7);  // (-8 >> 4) + 8, rounding down
}

TEST(Compress2Head, FirstByte0x68OpensAWindowOf14Bits) {
  // Data whose repeats lie 20000 bytes apart, compressed with a 15-bit
  // window, then labelled as a 14-bit stream (CMF 0x68, FLG made a
  // multiple of 31 again). Ox_Compress2 opens the stream with 14 bits and
  // meets a distance too far back; Ox_Compress opens every zlib stream
  // with 15 bits and decodes it.
  const Bytes block = oxtest::RandomBytes(20000, 3);
  Bytes plain = block;
  plain.insert(plain.end(), block.begin(), block.end());
  Bytes frame = ZlibFrame(plain);
  ASSERT_EQ(frame[2], 0x78);
  frame[2] = 0x68;
  frame[3] = static_cast<unsigned char>(frame[3] & 0xE0);
  frame[3] = static_cast<unsigned char>(frame[3] + (31 - (0x68 * 256 + frame[3]) % 31) % 31);
  ASSERT_EQ((frame[2] * 256 + frame[3]) % 31, 0);
  Ox_Compress2 c2;
  Ox_Buffer out;
  EXPECT_EQ(c2.Decode(Buf(frame), out), -1);
  Ox_Compress c1;
  EXPECT_EQ(c1.Decode(Buf(frame), out), 0);
  EXPECT_EQ(Vec(out), plain);
  // A stream really made with a 14-bit window decodes with 14 bits.
  z_stream s = {};
  ASSERT_EQ(deflateInit2(&s, 6, Z_DEFLATED, 14, 8, Z_DEFAULT_STRATEGY), Z_OK);
  Bytes small = oxtest::MixedBytes(50000);
  Bytes packed(deflateBound(&s, static_cast<uLong>(small.size())) + 2);
  packed[0] = 0xFF;
  packed[1] = 0xAD;
  s.next_in = small.data();
  s.avail_in = static_cast<uInt>(small.size());
  s.next_out = packed.data() + 2;
  s.avail_out = static_cast<uInt>(packed.size() - 2);
  ASSERT_EQ(deflate(&s, Z_FINISH), Z_STREAM_END);
  packed.resize(s.total_out + 2);
  deflateEnd(&s);
  ASSERT_EQ(packed[2], 0x68);
  EXPECT_EQ(c2.Decode(Buf(packed), out), 0);
  EXPECT_EQ(Vec(out), small);
}

// ---------------------------------------------------------------------------
// Encode, EncodeGzip

TEST(Compress2Encode, GoldenFramesAndTheSameZlibFormAsOxCompress) {
  Ox_Compress2 c;
  Ox_Buffer out;
  EXPECT_EQ(c.Encode(Buf(std::string("a")), out, 6), 0);
  EXPECT_EQ(Vec(out), kZlibA);
  EXPECT_EQ(c.EncodeGzip(Buf(std::string("a")), out, 6), 0);
  EXPECT_EQ(Vec(out), kGzipA);
  const Bytes plain = oxtest::MixedBytes(200000);
  Ox_Compress old;
  Ox_Buffer oldOut;
  ASSERT_EQ(old.Encode(Buf(plain), oldOut, 2, 6), 0);
  ASSERT_EQ(c.Encode(Buf(plain), out, 6), 0);
  EXPECT_EQ(Vec(out), Vec(oldOut));
  ASSERT_EQ(Ox_Compress::Deflate(Buf(plain), oldOut, 6), 0);
  ASSERT_EQ(c.EncodeGzip(Buf(plain), out, 6), 0);
  EXPECT_EQ(Vec(out), Vec(oldOut));
}

TEST(Compress2Encode, FramesPassOrAreCompressedAgain) {
  Ox_Compress2 c;
  Ox_Buffer out;
  EXPECT_EQ(c.Encode(Buf(kZlibA), out, 6), 0);
  EXPECT_EQ(Vec(out), kZlibA);
  EXPECT_EQ(c.Encode(Buf(kGzipA), out, 6), 0);
  EXPECT_EQ(Vec(out), kGzipA);
  EXPECT_EQ(c.EncodeGzip(Buf(kGzipA), out, 6), 0);
  EXPECT_EQ(Vec(out), kGzipA);
  // A zlib frame is compressed once more by EncodeGzip.
  EXPECT_EQ(c.EncodeGzip(Buf(kZlibA), out, 6), 0);
  ASSERT_GE(out.GetSize(), 10);
  EXPECT_EQ(out.GetData()[0], 0x1F);
  Ox_Buffer back;
  EXPECT_EQ(c.Decode(out, back), 0);
  EXPECT_EQ(Vec(back), kZlibA);
}

TEST(Compress2Encode, EmptyInputAndBadLevel) {
  Ox_Compress2 c;
  Ox_Buffer out;
  EXPECT_EQ(c.Encode(Ox_Buffer(), out, 6), 0);
  EXPECT_EQ(Vec(out), Bytes({0xFF, 0xAD, 0x78, 0x9C, 0x03, 0x00, 0x00, 0x00,
                             0x00, 0x01}));
  EXPECT_EQ(c.Encode(Buf(std::string("abc")), out, 11), -1);
  EXPECT_EQ(c.EncodeGzip(Buf(std::string("abc")), out, 11), -1);
}

// ---------------------------------------------------------------------------
// Decode, whole

TEST(Compress2Decode, PlainDataPassesThrough) {
  Ox_Compress2 c;
  Ox_Buffer out;
  EXPECT_EQ(c.Decode(Buf(std::string("hello")), out), 0);
  EXPECT_EQ(Vec(out), Vec(std::string("hello")));
  EXPECT_EQ(c.Decode(Ox_Buffer(), out), 0);
  EXPECT_EQ(out.GetSize(), 0);
}

TEST(Compress2Decode, GoldenFrames) {
  Ox_Compress2 c;
  Ox_Buffer out;
  EXPECT_EQ(c.Decode(Buf(kZlibA), out), 0);
  EXPECT_EQ(Vec(out), Vec(std::string("a")));
  EXPECT_EQ(c.Decode(Buf(kGzipA), out), 0);
  EXPECT_EQ(Vec(out), Vec(std::string("a")));
}

TEST(Compress2Decode, RoundTrips) {
  const Bytes inputs[] = {Bytes(), Bytes{0xFF}, oxtest::RandomBytes(1 << 20),
                          oxtest::RepetitiveBytes(1 << 20)};
  Ox_Compress2 c;
  for (const Bytes &in : inputs) {
    Ox_Buffer packed, back;
    ASSERT_EQ(c.Encode(Buf(in), packed, 6), 0);
    ASSERT_EQ(c.Decode(packed, back), 0);
    EXPECT_EQ(Vec(back), in) << "zlib, size " << in.size();
    ASSERT_EQ(c.EncodeGzip(Buf(in), packed, 6), 0);
    ASSERT_EQ(c.Decode(packed, back), 0);
    EXPECT_EQ(Vec(back), in) << "gzip, size " << in.size();
  }
}

TEST(Compress2Decode, GzipWithANameFailsHere) {
  // The name goes to inflate as deflate data: 'a' (0x61) starts a final
  // stored block whose lengths ".t"/"xt" do not match.
  Ox_Compress2 c;
  Ox_Buffer out;
  EXPECT_EQ(c.Decode(Buf(kGzipNamedA), out), -1);
  EXPECT_EQ(Ox_Compress::Inflate(Buf(kGzipNamedA), out), -1);
}

TEST(Compress2Decode, WrongTrailerInTheLastChunkFails) {
  Bytes bad = kGzipA;
  bad[14] ^= 0x10;
  Ox_Compress2 c;
  Ox_Buffer out;
  EXPECT_EQ(c.Decode(Buf(bad), out), -1);
  bad = kGzipA;
  bad[20] = 1;  // length 0x01000001
  EXPECT_EQ(c.Decode(Buf(bad), out), -1);
}

// A gzip frame whose raw deflate stream is one final stored block of
// `size` bytes of 'z', with a trailer of wrong values.
Bytes StoredGzipWithBadTrailer(unsigned size) {
  Bytes frame(kGzipA.begin(), kGzipA.begin() + 10);
  frame.push_back(0x01);  // BFINAL, stored
  frame.push_back(static_cast<unsigned char>(size));
  frame.push_back(static_cast<unsigned char>(size >> 8));
  frame.push_back(static_cast<unsigned char>(~size));
  frame.push_back(static_cast<unsigned char>(~size >> 8));
  frame.insert(frame.end(), size, 'z');
  frame.insert(frame.end(), 8, 0xEE);
  return frame;
}

TEST(Compress2Decode, TrailerOutsideTheLastChunkIsNotTested) {
  Ox_Compress2 c;
  Ox_Buffer out;
  // 5 + 8091 bytes of deflate data fill the first chunk of 8096 exactly:
  // the trailer lies in no chunk read, and its wrong values go unseen.
  EXPECT_EQ(c.Decode(Buf(StoredGzipWithBadTrailer(8091)), out), 0);
  EXPECT_EQ(Vec(out), Bytes(8091, 'z'));
  // With a short block the trailer shares the chunk and is tested.
  EXPECT_EQ(c.Decode(Buf(StoredGzipWithBadTrailer(100)), out), -1);
}

TEST(Compress2Decode, DamageAndTruncation) {
  const Bytes zlib = ZlibFrame(oxtest::MixedBytes(6000));
  const Bytes gzip = GzipFrame(oxtest::MixedBytes(6000));
  Ox_Compress2 c;
  Ox_Buffer out;
  for (size_t n = 2; n < zlib.size(); n++)
    ASSERT_EQ(c.Decode(Buf(Bytes(zlib.begin(), zlib.begin() + n)), out), -1) << n;
  for (size_t n = 2; n < gzip.size() - 8; n++)
    ASSERT_EQ(c.Decode(Buf(Bytes(gzip.begin(), gzip.begin() + n)), out), -1) << n;
  // Damage is seen where zlib itself sees it.
  for (size_t i = 2; i < zlib.size(); i++) {
    Bytes bad = zlib;
    bad[i] ^= 0xFF;
    uLongf size = 1 << 16;
    Bytes reference(size);
    const bool valid = uncompress(reference.data(), &size, bad.data() + 2,
                                  static_cast<uLong>(bad.size() - 2)) == Z_OK;
    reference.resize(size);
    ASSERT_EQ(c.Decode(Buf(bad), out), valid ? 0 : -1) << i;
    if (valid) {
      ASSERT_EQ(Vec(out), reference) << i;
    }
  }
}

// ---------------------------------------------------------------------------
// DecodeInit, DecodeData

TEST(Compress2Pieces, InitStartsOver) {
  Ox_Compress2 c;
  EXPECT_EQ(c.headSize, -1);
  EXPECT_EQ(c.DecodeInit(), 1);
  EXPECT_EQ(c.headSize, -1);
  EXPECT_EQ(c.crc, 0u);
  EXPECT_EQ(c.total, 0u);
}

TEST(Compress2Pieces, PlainPiecesPassUntilInit) {
  Ox_Compress2 c;
  c.DecodeInit();
  Ox_Buffer out;
  const std::string first = "plain", second = "\xFF\xAD more";
  EXPECT_EQ(c.DecodeData(reinterpret_cast<const unsigned char *>(first.data()), 5, out), 0);
  EXPECT_EQ(Vec(out), Vec(first));
  // Once the data is known as plain, even a frame head passes.
  EXPECT_EQ(c.DecodeData(reinterpret_cast<const unsigned char *>(second.data()), 7, out), 0);
  EXPECT_EQ(Vec(out), Vec(second));
  EXPECT_EQ(c.headSize, 0);
  c.DecodeInit();
  EXPECT_EQ(c.DecodeData(kZlibA.data(), static_cast<int>(kZlibA.size()), out), 0);
  EXPECT_EQ(Vec(out), Vec(std::string("a")));
}

TEST(Compress2Pieces, ZlibByteByByteAfterAThreeBytePiece) {
  const Bytes plain = oxtest::MixedBytes(30000);
  const Bytes frame = ZlibFrame(plain);
  Ox_Compress2 c;
  long last;
  size_t fed;
  EXPECT_EQ(DecodeInPieces(c, frame, 3, 1, &last, &fed), plain);
  EXPECT_EQ(last, 0);
  EXPECT_EQ(fed, frame.size());  // the Adler-32 ends the zlib stream
}

TEST(Compress2Pieces, FirstPieceMustHoldTheHead) {
  Ox_Compress2 c;
  Ox_Buffer out;
  const Bytes frame = ZlibFrame(Bytes(100, 'k'));
  c.DecodeInit();
  // One or two bytes of a zlib frame: the window cannot be read yet.
  EXPECT_EQ(c.DecodeData(frame.data(), 1, out), -1);
  EXPECT_EQ(c.headSize, -1);
  EXPECT_EQ(c.DecodeData(frame.data(), 2, out), -1);
  EXPECT_EQ(c.headSize, -1);
  // A gzip head cut short.
  EXPECT_EQ(c.DecodeData(kGzipA.data(), 9, out), -1);
  EXPECT_EQ(c.headSize, -1);
  // A name that runs past the first piece.
  EXPECT_EQ(c.DecodeData(kGzipNamedA.data(), 13, out), -1);
  EXPECT_EQ(c.headSize, -1);
  // The head alone: more input wanted.
  EXPECT_EQ(c.DecodeData(frame.data(), 3, out), 1);
  EXPECT_EQ(c.headSize, 2);
  EXPECT_EQ(out.GetSize(), 0);
  EXPECT_EQ(c.DecodeData(frame.data() + 3, static_cast<int>(frame.size() - 3), out), 0);
  EXPECT_EQ(Vec(out), Bytes(100, 'k'));
}

TEST(Compress2Pieces, GzipNameAndCommentAreSkipped) {
  Ox_Compress2 c;
  Ox_Buffer out;
  c.DecodeInit();
  EXPECT_EQ(c.DecodeData(kGzipNamedA.data(), static_cast<int>(kGzipNamedA.size()), out), 0);
  EXPECT_EQ(Vec(out), Vec(std::string("a")));
  c.DecodeInit();
  EXPECT_EQ(c.DecodeData(kGzipNamedCommentA.data(),
                         static_cast<int>(kGzipNamedCommentA.size()), out),
            0);
  EXPECT_EQ(Vec(out), Vec(std::string("a")));
  // The head and name in the first piece, the rest byte by byte.
  long last;
  size_t fed;
  EXPECT_EQ(DecodeInPieces(c, kGzipNamedCommentA, 19, 1, &last, &fed),
            Vec(std::string("a")));
  EXPECT_EQ(last, 0);
  // The deflate stream ends with its last byte; the trailer, in later
  // pieces, is never looked at.
  EXPECT_EQ(fed, kGzipNamedCommentA.size() - 8);
}

TEST(Compress2Pieces, GzipTrailerIsTested) {
  Ox_Compress2 c;
  Ox_Buffer out;
  Bytes bad = kGzipA;
  bad[16] ^= 0x01;
  c.DecodeInit();
  EXPECT_EQ(c.DecodeData(bad.data(), static_cast<int>(bad.size()), out), -1);
  // On a trailer mismatch the stream stays open: a repeated call meets the
  // ended stream again and fails again; the caller ends it.
  EXPECT_EQ(c.DecodeData(bad.data() + 13, 8, out), -1);
  EXPECT_EQ(inflateEnd(&c.stream), Z_OK);
  c.DecodeInit();
  EXPECT_EQ(c.DecodeData(kGzipA.data(), static_cast<int>(kGzipA.size()), out), 0);
  EXPECT_EQ(c.crc, 0xE8B7BE43u);
  EXPECT_EQ(c.total, 1u);
}

TEST(Compress2Pieces, DamagedDataFails) {
  Bytes bad = ZlibFrame(oxtest::MixedBytes(5000));
  bad[3] ^= 0x01;  // header check
  Ox_Compress2 c;
  c.DecodeInit();
  Ox_Buffer out;
  EXPECT_EQ(c.DecodeData(bad.data(), static_cast<int>(bad.size()), out), -1);
  EXPECT_EQ(c.DecodeData(nullptr, 5, out), -1);
  EXPECT_EQ(c.DecodeData(bad.data(), -1, out), -1);
}

TEST(Compress2Pieces, WholeFrameAsOnePiece) {
  // Far more output than one chunk: the rounds go on while inflate fills
  // its output, so the stream reaches its end within the one call.
  const Bytes plain = oxtest::RepetitiveBytes(1 << 20);
  Ox_Compress2 c;
  for (const Bytes &frame : {ZlibFrame(plain, 9), GzipFrame(plain, 9)}) {
    c.DecodeInit();
    Ox_Buffer out;
    EXPECT_EQ(c.DecodeData(frame.data(), static_cast<int>(frame.size()), out), 0);
    EXPECT_EQ(Vec(out), plain);
  }
}

// Every piece size from 1 to 64 gives the same bytes, for both frames and
// for mixed and highly repetitive data.
TEST(Compress2Pieces, EveryPieceSizeGivesTheSameBytes) {
  const Bytes mixed = oxtest::MixedBytes(40000);
  const Bytes same = Bytes(300000, 'r');
  for (const Bytes *plain : {&mixed, &same}) {
    const Bytes zlib = ZlibFrame(*plain);
    const Bytes gzip = GzipFrame(*plain);
    Ox_Compress2 c;
    for (size_t step = 1; step <= 64; step++) {
      long last;
      size_t fed;
      ASSERT_EQ(DecodeInPieces(c, zlib, 3, step, &last, &fed), *plain) << step;
      ASSERT_EQ(last, 0) << step;
      ASSERT_EQ(fed, zlib.size()) << step;
      // The gzip stream may end before its trailer is fed.
      ASSERT_EQ(DecodeInPieces(c, gzip, 10, step, &last, &fed), *plain) << step;
      ASSERT_EQ(last, 0) << step;
      ASSERT_GE(fed, gzip.size() - 8) << step;
    }
  }
}

TEST(Compress2Pieces, ReadsFilesOfZlibsGzipWriterAndOfGzip) {
  const Bytes plain = oxtest::MixedBytes(100000, 21);
  oxtest::TempFile file;
  gzFile gz = gzopen(file.Path().c_str(), "wb");
  ASSERT_NE(gz, nullptr);
  ASSERT_EQ(gzwrite(gz, plain.data(), static_cast<unsigned>(plain.size())),
            static_cast<int>(plain.size()));
  ASSERT_EQ(gzclose(gz), Z_OK);
  const Bytes frame = file.Read();
  Ox_Compress2 c;
  Ox_Buffer out;
  EXPECT_EQ(c.Decode(Buf(frame), out), 0);
  EXPECT_EQ(Vec(out), plain);
  long last;
  size_t fed;
  EXPECT_EQ(DecodeInPieces(c, frame, 10, 37, &last, &fed), plain);
  EXPECT_EQ(last, 0);
  if (!oxtest::HaveGzipTool()) GTEST_SKIP() << "no gzip on PATH";
  // gzip given a file name writes it into the head: DecodeData skips it,
  // Inflate refuses it.
  oxtest::TempFile source;
  ASSERT_TRUE(source.Write(plain));
  const std::string cmd = "gzip -c " + source.Path() + " > " + file.Path();
  ASSERT_EQ(std::system(cmd.c_str()), 0);
  const Bytes named = file.Read();
  ASSERT_GT(named.size(), 10u);
  ASSERT_EQ(named[3] & 8, 8);
  EXPECT_EQ(DecodeInPieces(c, named, 64, 64, &last, &fed), plain);
  EXPECT_EQ(last, 0);
  EXPECT_EQ(Ox_Compress::Inflate(Buf(named), out), -1);
}

TEST(Compress2Copy, CopiesTheMembers) {
  Ox_Compress2 c;
  c.DecodeInit();
  Ox_Buffer out;
  ASSERT_EQ(c.DecodeData(kGzipA.data(), static_cast<int>(kGzipA.size()), out), 0);
  const Ox_Compress2 copy(c);
  EXPECT_EQ(copy.headSize, 10);
  EXPECT_EQ(copy.crc, c.crc);
  EXPECT_EQ(copy.total, 1u);
}

}  // namespace
