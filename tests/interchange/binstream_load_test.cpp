// Round trips of the first binary stream, texts across code pages, the row
// by row form, and cut, corrupted and hostile buffers.
#include <cmath>
#include <cstring>
#include <memory>
#include <string>

#include "binstream_test_util.h"

using namespace binstream_test;

namespace {

// A dataset with one column of each type and rows of each row type.
void FillAllTypes(Ox_Dataset &ds) {
  ds.AddColumn("s", 1, 10, 0);
  ds.AddColumn("i", 2, 4, 64);
  ds.AddColumn("d", 4, 8, 0);
  ds.AddColumn("c", 5, 8, 0);
  ds.AddColumn("t", 8, 8, 0);
  ds.AddColumn("b", 9, 0, 0);
  ds.AddColumn("u", 10, 50, 0);
  ds.AddColumn("l", 11, 0, 0);
  ds.AddColumn("h", 12, 1, 0);
  ds.AddConstColumn("k", Ox_Variant(42L));
  Ox_DateTime date;
  date.SetStoredValue(738000.25);
  const unsigned char raw[4] = {0, 0xFF, 0x10, 0x80};
  Ox_Variant blob;
  blob.SetBinary(raw, 4);
  for (int r = 0; r < 3; ++r) {
    Put(ds, r, 0, Ox_Variant("text"));
    Put(ds, r, 1, Ox_Variant(static_cast<long>(-100 * r)));
    Put(ds, r, 2, Ox_Variant(2.25 * r));
    Put(ds, r, 3, Ox_Variant(Ox_Currency(-3, 1)));
    Put(ds, r, 4, Ox_Variant(date));
    Put(ds, r, 5, blob);
    Put(ds, r, 6, Ox_Variant("http://x"));
    Put(ds, r, 7, Ox_Variant(""));
    Put(ds, r, 8, Ox_Variant("Y"));
  }
  ds.recs.GetItem(1)->SetType(2);  // inserted
  ds.recs.GetItem(2)->SetType(4);  // updated, original in orgBuff 0
  ds.recs.GetItem(2)->orgRef = 0;
  AddIntRow(ds.orgBuff, 77, 4, 2);
  AddIntRow(ds.orgBuff, 88, 8, -1);  // deleted
}

TEST_F(BinStreamTest, RoundTripEveryColumnAndRowType) {
  Ox_Dataset ds("ALL");
  FillAllTypes(ds);
  Ox_VariableList vars;
  Ox_DatasetList datasets;
  datasets.AddLink(&ds);
  Ox_Buffer out;
  const int size = OxBinStreamSave(vars, datasets, out, 0, 3100, 1);
  ASSERT_EQ(size, out.GetSize());

  Ox_VariableList backVars;
  Ox_DatasetList backSets;
  ASSERT_EQ(OxBinStreamLoad(backVars, backSets, out, 0), 1);
  const Ox_Dataset *back = backSets.GetItem(0);
  ASSERT_NE(back, nullptr);
  EXPECT_STREQ(back->id.GetString(), "ALL");
  ASSERT_EQ(back->cols.Count(), 9);
  const int types[9] = {1, 2, 4, 5, 8, 9, 10, 11, 12};
  for (int c = 0; c < 9; ++c) {
    EXPECT_EQ(back->cols.GetItem(c)->type, types[c]);
    EXPECT_EQ(back->cols.GetItem(c)->orgIdx, c);
  }
  EXPECT_EQ(back->cols.GetItem(1)->summ, 64);
  EXPECT_EQ(back->constCols.Var("k").ToInteger(), 42);
  // Rows: normal, insert, update; the partner in orgBuff; the deleted row
  // in orgBuff only.
  ASSERT_EQ(back->recs.Count(), 3);
  EXPECT_EQ(back->recs.GetItem(0)->GetType(), 1);
  EXPECT_EQ(back->recs.GetItem(1)->GetType(), 2);
  EXPECT_EQ(back->recs.GetItem(2)->GetType(), 4);
  ASSERT_EQ(back->orgBuff.Count(), 2);
  EXPECT_EQ(back->recs.GetItem(2)->orgRef, 0);
  EXPECT_EQ(back->orgBuff.GetItem(0)->orgRef, 2);
  EXPECT_EQ(CellInt(back->orgBuff.GetItem(0), 0), 77);
  EXPECT_EQ(back->orgBuff.GetItem(1)->GetType(), 8);
  EXPECT_EQ(CellInt(back->orgBuff.GetItem(1), 0), 88);
  // Cells of row 2.
  const Ox_Record *row = back->recs.GetItem(2);
  EXPECT_STREQ(row->GetItem(0)->GetConstStr()->GetString(), "text");
  EXPECT_EQ(row->GetItem(1)->ToInteger(), -200);
  EXPECT_EQ(row->GetItem(2)->GetType(), Ox_Variant::kDecimal);
  EXPECT_EQ(row->GetItem(2)->value.dVal, 4.5);
  ASSERT_EQ(row->GetItem(3)->GetType(), Ox_Variant::kCurrency);
  EXPECT_TRUE(*row->GetItem(3)->GetConstCurrency() == Ox_Currency(-3, 1));
  ASSERT_EQ(row->GetItem(4)->GetType(), Ox_Variant::kDate);
  EXPECT_EQ(row->GetItem(4)->GetConstDateTime()->GetStoredValue(), 738000.25);
  ASSERT_EQ(row->GetItem(5)->GetType(), Ox_Variant::kBlob);
  ASSERT_EQ(row->GetItem(5)->GetConstBinary()->GetSize(), 4);
  EXPECT_EQ(row->GetItem(5)->GetConstBinary()->GetData()[1], 0xFF);
  EXPECT_STREQ(row->GetItem(6)->GetConstStr()->GetString(), "http://x");
  EXPECT_EQ(row->GetItem(7)->GetType(), 0);  // empty text: null in a cell
  EXPECT_STREQ(row->GetItem(8)->GetConstStr()->GetString(), "Y");
  // Inserted rows are counted as changes.
  EXPECT_EQ(back->changeCount, 1);
}

TEST_F(BinStreamTest, UpdateRowComesBackMutuallyLinked) {
  Ox_Dataset ds("U");
  AddIntRow(ds.recs, 1, 1, -1);
  AddIntRow(ds.recs, 2, 1, -1);
  AddIntRow(ds.recs, 20, 4, 0);
  AddIntRow(ds.orgBuff, 10, 4, 2);
  Ox_Buffer out;
  ds.Save(out, 1, 0, 3100);
  Ox_Dataset back;
  EXPECT_EQ(back.Load(out, 0), out.GetSize());
  ASSERT_EQ(back.recs.Count(), 3);
  ASSERT_EQ(back.orgBuff.Count(), 1);
  const Ox_Record *updated = back.recs.GetItem(2);
  const Ox_Record *original = back.orgBuff.GetItem(updated->orgRef);
  ASSERT_NE(original, nullptr);
  EXPECT_EQ(back.recs.GetItem(original->orgRef), updated);
  EXPECT_EQ(CellInt(original, 0), 10);
}

TEST_F(BinStreamTest, DeletedRowsComeBackInOrgBuffOnly) {
  Ox_Dataset ds("X");
  AddIntRow(ds.recs, 1, 1, -1);
  AddIntRow(ds.orgBuff, 5, 8, -1);
  AddIntRow(ds.orgBuff, 6, 8, -1);
  Ox_Buffer out;
  ds.Save(out, 2, 0, 3100);  // save type 2: no row changed, 2 deleted
  Ox_Dataset back;
  EXPECT_EQ(back.Load(out, 0), out.GetSize());
  EXPECT_EQ(back.recs.Count(), 0);
  ASSERT_EQ(back.orgBuff.Count(), 2);
  EXPECT_EQ(back.GetDelRowCount(), 2);
  EXPECT_EQ(CellInt(back.orgBuff.GetItem(1), 0), 6);
}

TEST_F(BinStreamTest, VariablesOfEveryTypeRoundTrip) {
  Ox_VariableList vars;
  Ox_Currency money(12, 34);
  Ox_DateTime date;
  date.SetStoredValue(1.5);
  const unsigned char raw[2] = {9, 8};
  Ox_Variant blob;
  blob.SetBinary(raw, 2);
  Ox_Variant target(Ox_Variant("ref"));
  vars.AddVariable("nul", Ox_Variant());
  vars.AddVariable("int", Ox_Variant(-7L));
  vars.AddVariable("dec", Ox_Variant(0.125));
  vars.AddVariable("inf", Ox_Variant(std::nan("")));
  vars.AddVariable("cur", Ox_Variant(money));
  vars.AddVariable("dat", Ox_Variant(date));
  vars.AddVariable("str", Ox_Variant("abc"));
  vars.AddVariable("emp", Ox_Variant(""));
  vars.AddVariable("blb", blob);
  vars.AddRefVariable("ref", &target);
  Ox_Buffer out;
  const int end = vars.Save(out, 0, 3100);
  EXPECT_EQ(end, out.GetSize());
  Ox_VariableList back;
  EXPECT_EQ(back.Load(out, 0, 0), out.GetSize());
  ASSERT_EQ(back.Count(), 10);
  EXPECT_EQ(back.Var("nul").GetType(), 0);
  EXPECT_EQ(back.Var("int").ToInteger(), -7);
  EXPECT_EQ(back.Var("dec").value.dVal, 0.125);
  EXPECT_EQ(back.Var("inf").GetType(), 0);  // a decimal null stays null
  EXPECT_TRUE(*back.Var("cur").GetConstCurrency() == money);
  EXPECT_EQ(back.Var("dat").GetConstDateTime()->GetStoredValue(), 1.5);
  EXPECT_STREQ(back.Var("str").GetConstStr()->GetString(), "abc");
  // An empty text stays an empty string in a variable.
  EXPECT_EQ(back.Var("emp").GetType(), Ox_Variant::kString);
  EXPECT_EQ(back.Var("blb").GetConstBinary()->GetData()[0], 9);
  // A reference travels as its target's value.
  EXPECT_STREQ(back.Var("ref").GetConstStr()->GetString(), "ref");
}

TEST_F(BinStreamTest, VariantLoadFormsDiffer) {
  // An infinite decimal: null by the own-type reader, kept by the other.
  const Bytes inf = {0x00, 0x05, 0x7F, 0xF0, 0, 0, 0, 0, 0, 0};
  Ox_Variant own;
  EXPECT_EQ(own.Load(ToBuffer(inf), 0, 0), 10);
  EXPECT_EQ(own.GetType(), 0);
  Ox_Variant given;
  EXPECT_EQ(given.Load(static_cast<short>(5), ToBuffer(inf), 2, 0), 10);
  EXPECT_EQ(given.GetType(), Ox_Variant::kDecimal);
  // An empty string: empty STRING by the one, null by the other.
  const Bytes empty = {0x00, 0x08, 0x00, 0x00, 0x00};
  EXPECT_EQ(own.Load(ToBuffer(empty), 0, 0), 4);
  EXPECT_EQ(own.GetType(), Ox_Variant::kString);
  EXPECT_EQ(given.Load(static_cast<short>(8), ToBuffer(empty), 2, 0), 4);
  EXPECT_EQ(given.GetType(), 0);
  // Types without payload are kept, nothing read.
  const Bytes object = {0x40, 0x00, 0x01};
  EXPECT_EQ(own.Load(ToBuffer(object), 0, 0), 2);
  EXPECT_EQ(own.GetType(), Ox_Variant::kObject);
  EXPECT_EQ(given.Load(static_cast<short>(0x1234), ToBuffer(object), 2, 0), 2);
  EXPECT_EQ(given.GetType(), 0x1234);
  EXPECT_EQ(given.Load(static_cast<short>(0x2000), ToBuffer(object), 2, 0), 2);
  EXPECT_EQ(given.GetType(), Ox_Variant::kArray);
  EXPECT_EQ(given.GetConstArray()->Count(), 0);
}

TEST_F(BinStreamTest, VariantLoadBoundaries) {
  Ox_Variant v;
  // The type field does not fit.
  EXPECT_EQ(v.Load(ToBuffer({0x00}), 0, 0), -1);
  // A non-zero type with nothing behind it; a null type is fine.
  EXPECT_EQ(v.Load(ToBuffer({0x00, 0x03}), 0, 0), -1);
  EXPECT_EQ(v.Load(ToBuffer({0x00, 0x00}), 0, 0), 2);
  // The given-type form at the end.
  EXPECT_EQ(v.Load(static_cast<short>(3), ToBuffer({0x00, 0x03}), 2, 0), -1);
  // Cut integer, string, blob.
  EXPECT_EQ(v.Load(ToBuffer({0x00, 0x03, 0x00, 0x01}), 0, 0), -1);
  EXPECT_EQ(v.Load(ToBuffer({0x00, 0x08, 0x00, 0x05, 'a'}), 0, 0), -1);
  EXPECT_EQ(v.Load(static_cast<short>(8), ToBuffer({0x00, 0x05, 'a'}), 0, 0), -1);
  EXPECT_EQ(v.GetType(), 0);  // a string overrun leaves null
  EXPECT_EQ(v.Load(ToBuffer({0x00, 0x0D, 0x00, 0x00, 0x00, 0x09, 1}), 0, 0), -1);
  // A negative blob length, and a huge one.
  EXPECT_EQ(v.Load(ToBuffer({0x00, 0x0D, 0xFF, 0xFF, 0xFF, 0xFE, 1}), 0, 0), -1);
  EXPECT_EQ(v.Load(ToBuffer({0x00, 0x0D, 0x7F, 0xFF, 0xFF, 0xFF, 1}), 0, 0), -1);
  // Negative positions.
  EXPECT_EQ(v.Load(ToBuffer({0x00, 0x00}), -1, 0), -1);
  EXPECT_EQ(v.Load(static_cast<short>(3), ToBuffer({0x00, 0x00}), -4, 0), -1);
}

TEST_F(BinStreamTest, VariableListLoadRules) {
  Ox_VariableList list;
  // An empty buffer holds no list.
  EXPECT_EQ(list.Load(Ox_Buffer(), 0, 0), 0);
  // A short fixed part is a normal end.
  EXPECT_EQ(list.Load(ToBuffer({0xFF, 0x10, 0x0C}), 0, 0), 3);
  // A wrong magic.
  EXPECT_EQ(list.Load(ToBuffer({0xFF, 0x11, 0x0B, 0xB8, 0x00, 0x00}), 0, 0), -1);
  // An unnamed item is stepped over by 6 bytes from its length field.
  const Bytes unnamed = {0xFF, 0x10, 0x0B, 0xB8, 0x00, 0x02,
                         0x00, 0x00, 0xAA, 0xBB, 0xCC, 0xDD,  // skipped
                         0x00, 0x01, 'q', 0x00, 0x03, 0, 0, 0, 1};
  EXPECT_EQ(list.Load(ToBuffer(unnamed), 0, 0), static_cast<int>(unnamed.size()));
  ASSERT_EQ(list.Count(), 1);
  EXPECT_EQ(list.Var("q").ToInteger(), 1);
  // A cut value empties the list and fails.
  const Bytes cut = {0xFF, 0x10, 0x0B, 0xB8, 0x00, 0x02,
                     0x00, 0x01, 'a', 0x00, 0x00,
                     0x00, 0x01, 'b', 0x00, 0x03, 0x00};
  EXPECT_EQ(list.Load(ToBuffer(cut), 0, 0), -1);
  EXPECT_EQ(list.Count(), 0);
}

TEST_F(BinStreamTest, ColumnWithoutIdIsSteppedOverByEight) {
  const Bytes block = {0xFF, 0x08, 0x0C, 0x1C, 0x00, 0x02,
                       0x00, 0x00, 1, 2, 3, 4, 5, 6,  // skipped
                       0x00, 0x01, 'z', 0x00, 0x02, 0x00, 0x04, 0x00, 0x00};
  Ox_ColList cols;
  EXPECT_EQ(cols.Load(ToBuffer(block), 0, 0), static_cast<int>(block.size()));
  ASSERT_EQ(cols.Count(), 1);
  EXPECT_STREQ(cols.GetItem(0)->id.GetString(), "z");
  EXPECT_EQ(cols.GetItem(0)->orgIdx, 1);  // its place in the stream
  EXPECT_EQ(cols.Load(ToBuffer({0xFF, 0x09, 0, 0, 0, 0}), 0, 0), -1);
}

// Korean across 949 and 65001: 가 is B0 A1 in 949 and EA B0 80 in UTF-8.
TEST_F(BinStreamTest, KoreanSavedInUtf8LoadedIn949) {
  OxSetLocale(0, 949);
  Ox_VariableList vars;
  vars.AddVariable("k", Ox_Variant("\xB0\xA1"));
  Ox_Buffer out;
  vars.Save(out, 65001, 3100);
  EXPECT_EQ(ToBytes(out), (Bytes{0xFF, 0x10, 0x0C, 0x1C, 0xFD, 0xE9, 0x00, 0x01,
                                 0x00, 0x01, 'k', 0x00, 0x08, 0x00, 0x03,
                                 0xEA, 0xB0, 0x80}));
  Ox_VariableList back;
  EXPECT_EQ(back.Load(out, 0, 0), out.GetSize());
  EXPECT_STREQ(back.Var("k").GetConstStr()->GetString(), "\xB0\xA1");
}

TEST_F(BinStreamTest, KoreanDatasetSavedIn949LoadedInUtf8) {
  // Memory in UTF-8, stream in 949; the receiver runs in UTF-8 and
  // converts back by the head's code page.
  Ox_Dataset ds("\xEA\xB0\x80");
  Put(ds, 0, 0, Ox_Variant("\xEA\xB0\x80"));
  Ox_Buffer out;
  ds.Save(out, 0, 949, 3100);
  const Bytes bytes = ToBytes(out);
  // Head: magic, version, code page 949 = 0x3B5, then the id in 949.
  EXPECT_EQ(Bytes(bytes.begin(), bytes.begin() + 12),
            (Bytes{0xFF, 0x01, 0x0C, 0x1C, 0x00, 0x00, 0x03, 0xB5,
                   0x00, 0x02, 0xB0, 0xA1}));
  Ox_Dataset back;
  EXPECT_EQ(back.Load(out, 0), out.GetSize());
  EXPECT_STREQ(back.id.GetString(), "\xEA\xB0\x80");
  EXPECT_EQ(back.codePage, 949u);
  EXPECT_STREQ(back.recs.GetItem(0)->GetItem(0)->GetConstStr()->GetString(),
               "\xEA\xB0\x80");
}

// Japanese across 932 and 65001: あ is 82 A0 in 932 and E3 81 82 in UTF-8.
TEST_F(BinStreamTest, JapaneseSavedInUtf8LoadedInUtf8) {
  OxSetLocale(0, 932);
  Ox_VariableList vars;
  vars.AddVariable("j", Ox_Variant("\x82\xA0"));
  Ox_Buffer out;
  vars.Save(out, 65001, 3100);
  const Bytes bytes = ToBytes(out);
  EXPECT_EQ(Bytes(bytes.end() - 3, bytes.end()), (Bytes{0xE3, 0x81, 0x82}));
  // The receiver's locale is UTF-8: the text is taken as it stands.
  OxSetLocale(0, 65001);
  Ox_VariableList back;
  back.Load(out, 0, 0);
  EXPECT_STREQ(back.Var("j").GetConstStr()->GetString(), "\xE3\x81\x82");
  // A receiver in 932 converts it back.
  OxSetLocale(0, 932);
  back.Load(out, 0, 0);
  EXPECT_STREQ(back.Var("j").GetConstStr()->GetString(), "\x82\xA0");
}

TEST_F(BinStreamTest, BelowThreeThousandOneHundredTheArgumentCodePageStands) {
  // No code page in the block: the caller's 932 decides.
  const Bytes block = {0xFF, 0x10, 0x0B, 0xB8, 0x00, 0x01,
                       0x00, 0x01, 'j', 0x00, 0x08, 0x00, 0x02, 0x82, 0xA0};
  Ox_VariableList back;
  back.Load(ToBuffer(block), 0, 932);
  EXPECT_STREQ(back.Var("j").GetConstStr()->GetString(), "\xE3\x81\x82");
  back.Load(ToBuffer(block), 0, 0);  // 0: as it stands
  EXPECT_STREQ(back.Var("j").GetConstStr()->GetString(), "\x82\xA0");
}

TEST_F(BinStreamTest, SameCodePageCopiesTexts) {
  Ox_VariableList vars;
  vars.AddVariable("t", Ox_Variant("\xEA\xB0\x80"));
  Ox_Buffer a;
  Ox_Buffer b;
  vars.Save(a, 0, 3000);
  vars.Save(b, 65001, 3000);
  EXPECT_EQ(ToBytes(a), ToBytes(b));
}

TEST_F(BinStreamTest, SaveNextAndLoadNextRowByRow) {
  Ox_Dataset src("R");
  for (int i = 0; i < 5; ++i) AddIntRow(src.recs, i, i == 2 ? 2 : 1, -1);
  // Whole rest: count 5, five records written as type 1.
  Ox_Buffer all;
  EXPECT_EQ(src.SaveNext(all, 0, 0, 5), 4 + 5 * 12);
  EXPECT_EQ(all.GetData()[4 + 2 * 12 + 3], 0x01);  // the inserted row too
  Ox_Dataset dst("R");
  int count = 0;
  EXPECT_EQ(dst.LoadNext(all, 0, count), 64);
  EXPECT_EQ(count, 5);
  ASSERT_EQ(dst.recs.Count(), 5);
  EXPECT_EQ(CellInt(dst.recs.GetItem(4), 0), 4);
  // A chunk of 2 from row 2: the count says 2, the records run to the end.
  Ox_Buffer chunk;
  EXPECT_EQ(src.SaveNext(chunk, 0, 2, 2), 4 + 3 * 12);
  EXPECT_EQ(ToBytes(chunk)[3], 0x02);
  // The reader takes two rows and stops behind the second record.
  EXPECT_EQ(dst.LoadNext(chunk, 0, count), 4 + 2 * 12);
  EXPECT_EQ(count, 2);
  EXPECT_EQ(dst.recs.Count(), 7);
  EXPECT_EQ(CellInt(dst.recs.GetItem(6), 0), 3);
  // Past the end, or a count of 0: nothing.
  Ox_Buffer none;
  EXPECT_EQ(src.SaveNext(none, 0, 5, 1), 0);
  EXPECT_EQ(src.SaveNext(none, 0, 1, 0), 0);
  EXPECT_EQ(none.GetSize(), 0);
  // A count beyond the list: the rest.
  EXPECT_EQ(src.SaveNext(none, 0, 3, 10), 4 + 2 * 12);
  EXPECT_EQ(ToBytes(none)[3], 0x02);
}

TEST_F(BinStreamTest, LoadDataBinReadsHeadAndRowsFromZero) {
  Ox_Dataset src("B");
  AddIntRow(src.recs, 11, 1, -1);
  Ox_Buffer out;
  src.Save(out, 0, 0, 3100);
  Ox_Dataset dst;
  AddIntRow(dst.recs, 99, 1, -1);
  EXPECT_EQ(dst.LoadDataBin(out, 1), out.GetSize());
  ASSERT_EQ(dst.recs.Count(), 1);
  EXPECT_EQ(CellInt(dst.recs.GetItem(0), 0), 11);
  EXPECT_STREQ(dst.id.GetString(), "B");
}

TEST_F(BinStreamTest, WrongHeadMagicClearsThePartlyLoadedDataset) {
  // Without the clear flag the rows are kept until the head is refused.
  Ox_Dataset dst("KEEP");
  AddIntRow(dst.recs, 1, 1, -1);
  EXPECT_EQ(dst.LoadDataBin(ToBuffer({0xFF, 0x02, 0x0C, 0x1C}), 0), -1);
  EXPECT_EQ(dst.recs.Count(), 0);
  // A buffer too short for the magic is a normal end.
  Ox_Dataset other;
  EXPECT_EQ(other.LoadDataBin(ToBuffer({0xFF}), 1), 1);
}

TEST_F(BinStreamTest, PartCountZeroIsTheCatalogueFailure) {
  const Bytes stream = {0x00, 0x00, 0xFF, 0x10, 0x0B, 0xB8, 0x00, 0x00};
  Ox_VariableList vars;
  Ox_DatasetList datasets;
  EXPECT_EQ(OxBinStreamLoad(vars, datasets, ToBuffer(stream), 0),
            static_cast<int>(0x83B10209u));
}

TEST_F(BinStreamTest, PartCountDoesNotLimitDatasets) {
  // Two datasets behind a part count of 1 are both read.
  Ox_Dataset a("A");
  Ox_Dataset b("B");
  Ox_VariableList vars;
  Ox_DatasetList datasets;
  datasets.AddLink(&a);
  datasets.AddLink(&b);
  Ox_Buffer out;
  OxBinStreamSave(vars, datasets, out, 0, 3100, 0);
  out.GetSafeBuffer(-1)[1] = 0x01;
  Ox_DatasetList back;
  EXPECT_EQ(OxBinStreamLoad(vars, back, out, 0), 2);
  EXPECT_STREQ(back.GetItem(1)->id.GetString(), "B");
}

TEST_F(BinStreamTest, WrongMagicsFail) {
  Ox_VariableList vars;
  Ox_DatasetList datasets;
  vars.AddVariable("x", Ox_Variant(1L));
  // A wrong variable magic: -1 and an empty list.
  EXPECT_EQ(OxBinStreamLoad(vars, datasets,
                            ToBuffer({0x00, 0x01, 0xFF, 0x11, 0, 0, 0, 0}), 0),
            -1);
  EXPECT_EQ(vars.Count(), 0);
  // A wrong dataset magic.
  EXPECT_EQ(OxBinStreamLoad(vars, datasets,
                            ToBuffer({0x00, 0x02, 0xFF, 0x10, 0x0B, 0xB8, 0, 0,
                                      0xFF, 0x02, 0, 0}), 0),
            -1);
  // A second-form dataset head: its reader is not there, so it fails.
  Ox_Dataset ds;
  EXPECT_LT(ds.Load(ToBuffer({0xFE, 0x01, 0, 0}), 0), 0);
}

TEST_F(BinStreamTest, StreamCutInHeadLoadsUpToItsEnd) {
  Ox_Dataset ds("HEAD");
  ds.AddColumn("n", 2, 4, 0);
  Ox_VariableList vars;
  vars.AddVariable("v", Ox_Variant(3L));
  Ox_DatasetList datasets;
  datasets.AddLink(&ds);
  Ox_Buffer out;
  OxBinStreamSave(vars, datasets, out, 0, 3100, 0);
  // 2 + variables 8 + 4 + 6 = 20; the head starts at 20. Cut inside the id.
  Bytes bytes = ToBytes(out);
  bytes.resize(20 + 8 + 2 + 2);
  Ox_VariableList backVars;
  Ox_DatasetList back;
  EXPECT_EQ(OxBinStreamLoad(backVars, back, ToBuffer(bytes), 0), 1);
  EXPECT_EQ(backVars.Var("v").ToInteger(), 3);
  EXPECT_EQ(back.GetItem(0)->cols.Count(), 0);
  EXPECT_EQ(back.GetItem(0)->codePage, 65001u);
  // Cut behind the column list: the whole head is there.
  bytes = ToBytes(out);
  bytes.resize(bytes.size() - 4);
  EXPECT_EQ(OxBinStreamLoad(backVars, back, ToBuffer(bytes), 0), 1);
  EXPECT_STREQ(back.GetItem(0)->id.GetString(), "HEAD");
  EXPECT_EQ(back.GetItem(0)->cols.Count(), 1);
}

TEST_F(BinStreamTest, CutInsideACellClearsTheDataset) {
  Ox_Dataset ds("C");
  Put(ds, 0, 0, Ox_Variant("abcdef"));
  Ox_Buffer out;
  ds.Save(out, 0, 0, 3100);
  Bytes bytes = ToBytes(out);
  // Head 25, count 4, record head 6, type 2, length 2, then 6 text bytes.
  bytes.resize(25 + 4 + 6 + 2 + 2 + 3);
  Ox_Dataset back;
  EXPECT_EQ(back.Load(ToBuffer(bytes), 0), -1);
  EXPECT_EQ(back.recs.Count(), 0);
}

TEST_F(BinStreamTest, EveryPrefixAndFlippedByteIsSafe) {
  Ox_Dataset ds("ALL");
  FillAllTypes(ds);
  Ox_VariableList vars;
  vars.AddVariable("a", Ox_Variant("text"));
  vars.AddVariable("b", Ox_Variant(2.5));
  Ox_DatasetList datasets;
  datasets.AddLink(&ds);
  Ox_Buffer out;
  OxBinStreamSave(vars, datasets, out, 0, 3100, 1);
  const Bytes whole = ToBytes(out);
  Ox_VariableList backVars;
  Ox_DatasetList back;
  ASSERT_EQ(OxBinStreamLoad(backVars, back, out, 0), 1);
  // Short input is a normal end, a cut value a failure: any prefix gives
  // one dataset at most, or -1, or the part-count failure.
  for (size_t n = 0; n < whole.size(); ++n) {
    const Bytes prefix(whole.begin(), whole.begin() + n);
    const int result = OxBinStreamLoad(backVars, back, ToBuffer(prefix), 0);
    EXPECT_TRUE(result == -1 || result == 0 || result == 1 ||
                result == static_cast<int>(0x83B10209u))
        << "prefix " << n << " gave " << result;
  }
  // Flipped bytes never crash and never give more datasets than bytes.
  for (size_t i = 0; i < whole.size(); ++i) {
    for (unsigned char mask : {0x01, 0x80, 0xFF}) {
      Bytes bad = whole;
      bad[i] ^= mask;
      const int result = OxBinStreamLoad(backVars, back, ToBuffer(bad), 0);
      EXPECT_LE(result, static_cast<int>(bad.size()));
    }
  }
}

TEST_F(BinStreamTest, HugeCountsEndAtTheBuffer) {
  // A row count of 0x7FFFFFFF with one record behind it.
  Ox_Dataset ds("H");
  Ox_Buffer out;
  ds.Save(out, 0, 0, 3100);
  Bytes bytes = ToBytes(out);
  bytes.resize(25);
  const Bytes rows = {0x7F, 0xFF, 0xFF, 0xFF,
                      0x00, 0x01, 0x00, 0x01, 0xFF, 0xFF, 0x00, 0x03, 0, 0, 0, 9};
  bytes.insert(bytes.end(), rows.begin(), rows.end());
  Ox_Dataset back;
  EXPECT_EQ(back.Load(ToBuffer(bytes), 0), static_cast<int>(bytes.size()));
  EXPECT_EQ(back.recs.Count(), 1);
  // A negative row count is taken as the end of the rows.
  bytes.resize(25);
  const Bytes negative = {0xFF, 0xFF, 0xFF, 0xFF};
  bytes.insert(bytes.end(), negative.begin(), negative.end());
  EXPECT_EQ(back.Load(ToBuffer(bytes), 0), 29);
  EXPECT_EQ(back.recs.Count(), 0);
  // A record claiming 65,535 cells with two behind it.
  bytes.resize(25);
  const Bytes wide = {0x00, 0x00, 0x00, 0x01, 0xFF, 0xFF, 0x00, 0x01, 0xFF,
                      0xFF, 0x00, 0x03, 0, 0, 0, 1, 0x00, 0x00};
  bytes.insert(bytes.end(), wide.begin(), wide.end());
  EXPECT_EQ(back.Load(ToBuffer(bytes), 0), static_cast<int>(bytes.size()));
  // 8 bytes behind the record's head hold 4 cells at most: no more are
  // made for the cut record.
  ASSERT_EQ(back.recs.Count(), 1);
  EXPECT_EQ(back.recs.GetItem(0)->Count(), 4);
  EXPECT_EQ(CellInt(back.recs.GetItem(0), 0), 1);
  // Huge variable and column counts.
  Ox_VariableList list;
  EXPECT_EQ(list.Load(ToBuffer({0xFF, 0x10, 0x0B, 0xB8, 0xFF, 0xFF}), 0, 0), 6);
  Ox_ColList cols;
  EXPECT_EQ(cols.Load(ToBuffer({0xFF, 0x08, 0x0B, 0xB8, 0xFF, 0xFF, 0x00}), 0, 0), 7);
}

}  // namespace
