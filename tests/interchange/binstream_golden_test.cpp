// Golden byte sequences of the first binary stream, written by hand from
// the block layouts, and the blocks' own edge cases.
#include "binstream_test_util.h"

using namespace binstream_test;

namespace {

// 3100 is 0x0C1C, 3000 is 0x0BB8, 65001 is 0xFDE9.

TEST_F(BinStreamTest, EmptyListsBelow3100GiveSixByteBlock) {
  Ox_VariableList vars;
  Ox_DatasetList datasets;
  Ox_Buffer out;
  EXPECT_EQ(OxBinStreamSave(vars, datasets, out, 0, 3000, 0), 8);
  EXPECT_EQ(ToBytes(out), (Bytes{
      0x00, 0x01,              // part count: no dataset, plus the variables
      0xFF, 0x10, 0x0B, 0xB8,  // variable list magic, version 3000
      0x00, 0x00}));           // count 0; no code page below 3100
}

TEST_F(BinStreamTest, EmptyListsFrom3100GiveEightByteBlock) {
  Ox_VariableList vars;
  Ox_DatasetList datasets;
  Ox_Buffer out;
  // A code page of 0 is written as the locale's (65001).
  EXPECT_EQ(OxBinStreamSave(vars, datasets, out, 0, 3100, 1), 10);
  EXPECT_EQ(ToBytes(out), (Bytes{
      0x00, 0x01,              // part count
      0xFF, 0x10, 0x0C, 0x1C,  // magic, version 3100
      0xFD, 0xE9,              // code page 65001
      0x00, 0x00}));           // count 0
  // Read back: no datasets, and no failure.
  Ox_VariableList backVars;
  Ox_DatasetList backSets;
  EXPECT_EQ(OxBinStreamLoad(backVars, backSets, out, 0), 0);
}

// Save type 0 at 3100: variables, constants, a summary-text column, and
// every row written as a normal row.
TEST_F(BinStreamTest, GoldenSaveTypeZero) {
  Ox_VariableList vars;
  vars.AddVariable("a", Ox_Variant(5L));
  Ox_Dataset ds("D");
  ds.AddConstColumn("c", Ox_Variant("x"));
  ds.AddColumn("n", 2, 4, 0);
  ds.AddColumn("s", 1, 10, 0x90);
  ds.GetSafeColInfo(1)->summText = "T";
  Put(ds, 0, 0, Ox_Variant(3L));
  Put(ds, 0, 1, Ox_Variant("hi"));
  Put(ds, 1, 1, Ox_Variant(""));  // cell 0 of row 1 stays null
  ds.recs.GetItem(1)->SetType(2);  // written as 1 all the same
  Ox_DatasetList datasets;
  datasets.AddLink(&ds);
  Ox_Buffer out;
  const Bytes expected = Join({
      {0x00, 0x02},                                      // part count 2
      {0xFF, 0x10, 0x0C, 0x1C, 0xFD, 0xE9, 0x00, 0x01},  // vars head, count 1
      {0x00, 0x01, 'a'},                                 // name "a"
      {0x00, 0x03, 0x00, 0x00, 0x00, 0x05},              // INTEGER 5
      {0xFF, 0x01, 0x0C, 0x1C},                          // dataset magic, version
      {0x00, 0x00, 0xFD, 0xE9},                          // code page as given
      {0x00, 0x01, 'D'},                                 // id "D"
      {0xFF, 0x10, 0x0C, 0x1C, 0xFD, 0xE9, 0x00, 0x01},  // constants, count 1
      {0x00, 0x01, 'c', 0x00, 0x08, 0x00, 0x01, 'x'},    // c = STRING "x"
      {0xFF, 0x08, 0x0C, 0x1C, 0x00, 0x02},              // columns, count 2
      {0x00, 0x01, 'n', 0x00, 0x02, 0x00, 0x04, 0x00, 0x00},  // n INT 4 flags 0
      {0x00, 0x01, 's', 0x00, 0x01, 0x00, 0x0A, 0x00, 0x90,   // s STRING 10 0x90
       0x00, 0x01, 'T'},                                      // summary text
      {0x00, 0x00, 0x00, 0x02},                          // row count 2
      {0x00, 0x02, 0x00, 0x01, 0xFF, 0xFF},              // 2 cells, type 1, no partner
      {0x00, 0x03, 0x00, 0x00, 0x00, 0x03},              // INTEGER 3
      {0x00, 0x08, 0x00, 0x02, 'h', 'i'},                // STRING "hi"
      {0x00, 0x02, 0x00, 0x01, 0xFF, 0xFF},              // row 1 as type 1
      {0x00, 0x00},                                      // null
      {0x00, 0x08, 0x00, 0x00},                          // empty STRING
      {0x00, 0x00, 0x00, 0x00}});                        // terminator
  EXPECT_EQ(OxBinStreamSave(vars, datasets, out, 65001, 3100, 0),
            static_cast<int>(expected.size()));
  EXPECT_EQ(ToBytes(out), expected);

  // The golden bytes read back.
  Ox_VariableList backVars;
  Ox_DatasetList backSets;
  ASSERT_EQ(OxBinStreamLoad(backVars, backSets, ToBuffer(expected), 0), 1);
  EXPECT_EQ(backVars.Var("a").ToInteger(), 5);
  const Ox_Dataset *back = backSets.GetItem(0);
  ASSERT_NE(back, nullptr);
  EXPECT_STREQ(back->id.GetString(), "D");
  EXPECT_EQ(back->codePage, 65001u);
  EXPECT_STREQ(back->constCols.Var("c").ToString().GetString(), "x");
  ASSERT_EQ(back->cols.Count(), 2);
  EXPECT_EQ(back->cols.GetItem(1)->summ, 0x90);
  EXPECT_STREQ(back->cols.GetItem(1)->summText.GetString(), "T");
  EXPECT_EQ(back->cols.GetItem(1)->orgIdx, 1);
  ASSERT_EQ(back->recs.Count(), 2);
  EXPECT_EQ(back->recs.GetItem(1)->GetType(), 1);
  // An empty string in a cell comes back as null.
  EXPECT_EQ(back->recs.GetItem(1)->GetItem(1)->GetType(), 0);
}

// Save type 1 below 3100: the column list leaves 2 spare bytes per column
// at the buffer's end, before the rows.
Ox_Dataset *MakeTrackedDataset() {
  Ox_Dataset *ds = new Ox_Dataset("D");
  ds->AddColumn("n", 2, 4, 0);
  AddIntRow(ds->recs, 1, 1, -1);     // normal row
  AddIntRow(ds->recs, 2, 4, 0);      // updated row, original in orgBuff 0
  AddIntRow(ds->orgBuff, 9, 4, 1);   // the original, pointing back at row 1
  AddIntRow(ds->orgBuff, 7, 8, -1);  // a deleted row
  return ds;
}

const Bytes kTypeOneBelow3100 = Join({
    {0x00, 0x02},                                    // part count
    {0xFF, 0x10, 0x0B, 0xB8, 0x00, 0x00},            // empty variable list
    {0xFF, 0x01, 0x0B, 0xB8, 0x00, 0x00, 0x00, 0x00},  // head, code page 0
    {0x00, 0x01, 'D'},                               // id
    {0xFF, 0x10, 0x0B, 0xB8, 0x00, 0x00},            // no constants
    {0xFF, 0x08, 0x0B, 0xB8, 0x00, 0x01},            // one column
    {0x00, 0x01, 'n', 0x00, 0x02, 0x00, 0x04},       // n INT 4, no flags
    {0x00, 0x00},                                    // spare bytes of the column
    {0x00, 0x00, 0x00, 0x02},                        // 2 rows in recs
    {0x00, 0x01, 0x00, 0x01, 0xFF, 0xFF, 0x00, 0x03, 0x00, 0x00, 0x00, 0x01},
    {0x00, 0x01, 0x00, 0x04, 0x00, 0x00, 0x00, 0x03, 0x00, 0x00, 0x00, 0x02},
    // the partner follows its updated row, again as type 4
    {0x00, 0x01, 0x00, 0x04, 0x00, 0x01, 0x00, 0x03, 0x00, 0x00, 0x00, 0x09},
    {0x00, 0x00, 0x00, 0x01},                        // one deleted row
    {0x00, 0x01, 0x00, 0x08, 0xFF, 0xFF, 0x00, 0x03, 0x00, 0x00, 0x00, 0x07},
    {0x00, 0x00, 0x00, 0x00}});                      // terminator

TEST_F(BinStreamTest, GoldenSaveTypeOneBelow3100) {
  std::unique_ptr<Ox_Dataset> ds(MakeTrackedDataset());
  Ox_VariableList vars;
  Ox_DatasetList datasets;
  datasets.AddLink(ds.get());
  Ox_Buffer out;
  OxBinStreamSave(vars, datasets, out, 0, 3000, 1);
  EXPECT_EQ(ToBytes(out), kTypeOneBelow3100);
}

TEST_F(BinStreamTest, BelowThreeThousandOneHundredColumnsAreNotReadBack) {
  // The reader goes on straight behind the column and takes the spare
  // bytes and half the row count as a count of 0; the next "dataset" then
  // starts at 00 02, a wrong magic.
  Ox_VariableList vars;
  Ox_DatasetList datasets;
  EXPECT_EQ(OxBinStreamLoad(vars, datasets, ToBuffer(kTypeOneBelow3100), 0), -1);
}

TEST_F(BinStreamTest, GoldenSaveTypeTwo) {
  Ox_Dataset ds("D");
  ds.AddColumn("n", 2, 4, 0);
  ds.SetUpdate(1);
  AddIntRow(ds.recs, 3, 1, -1);    // unchanged: not written
  AddIntRow(ds.recs, 5, 2, -1);    // inserted
  AddIntRow(ds.recs, 6, 4, 0);     // updated, original in orgBuff 0
  AddIntRow(ds.orgBuff, 4, 4, 2);  // original of stored row 2
  Ox_VariableList vars;
  Ox_DatasetList datasets;
  datasets.AddLink(&ds);
  Ox_Buffer out;
  OxBinStreamSave(vars, datasets, out, 0, 3100, 2);
  EXPECT_EQ(ToBytes(out), Join({
      {0x00, 0x02},
      {0xFF, 0x10, 0x0C, 0x1C, 0xFD, 0xE9, 0x00, 0x00},  // no variables
      {0xFF, 0x01, 0x0C, 0x1C, 0x00, 0x00, 0x00, 0x00},  // head, code page 0
      {0x00, 0x01, 'D'},
      {0xFF, 0x10, 0x0C, 0x1C, 0xFD, 0xE9, 0x00, 0x00},  // no constants
      {0xFF, 0x08, 0x0C, 0x1C, 0x00, 0x01},
      {0x00, 0x01, 'n', 0x00, 0x02, 0x00, 0x04, 0x00, 0x00},
      {0x00, 0x00, 0x00, 0x02},                          // inserted + updated
      {0x00, 0x01, 0x00, 0x02, 0xFF, 0xFF, 0x00, 0x03, 0x00, 0x00, 0x00, 0x05},
      {0x00, 0x01, 0x00, 0x04, 0x00, 0x00, 0x00, 0x03, 0x00, 0x00, 0x00, 0x06},
      {0x00, 0x01, 0x00, 0x04, 0x00, 0x02, 0x00, 0x03, 0x00, 0x00, 0x00, 0x04},
      // no deleted rows and tracking on: no block
      {0x00, 0x00, 0x00, 0x00}}));
}

TEST_F(BinStreamTest, SaveTypeTwoWithoutChangesWritesNoRowBlock) {
  Ox_Dataset ds("D");
  AddIntRow(ds.recs, 3, 1, -1);
  Ox_Buffer out;
  const int end = ds.Save(out, 2, 65001, 3100);
  // Head: 8 + id 3 + constants 8 + columns 6 = 25, then the terminator.
  EXPECT_EQ(end, 29);
  EXPECT_EQ(ToBytes(out), Join({
      {0xFF, 0x01, 0x0C, 0x1C, 0x00, 0x00, 0xFD, 0xE9},
      {0x00, 0x01, 'D'},
      {0xFF, 0x10, 0x0C, 0x1C, 0xFD, 0xE9, 0x00, 0x00},
      {0xFF, 0x08, 0x0C, 0x1C, 0x00, 0x00},
      {0x00, 0x00, 0x00, 0x00}}));
}

TEST_F(BinStreamTest, NoRowsSaveTypeZeroIsHeadAndTerminator) {
  Ox_Dataset ds("E");
  ds.AddColumn("n", 2, 4, 0);
  Ox_Buffer out;
  const int end = ds.Save(out, 0, 0, 3100);
  const Bytes expected = Join({
      {0xFF, 0x01, 0x0C, 0x1C, 0x00, 0x00, 0x00, 0x00},
      {0x00, 0x01, 'E'},
      {0xFF, 0x10, 0x0C, 0x1C, 0xFD, 0xE9, 0x00, 0x00},
      {0xFF, 0x08, 0x0C, 0x1C, 0x00, 0x01},
      {0x00, 0x01, 'n', 0x00, 0x02, 0x00, 0x04, 0x00, 0x00},
      {0x00, 0x00, 0x00, 0x00}});
  EXPECT_EQ(ToBytes(out), expected);
  EXPECT_EQ(end, static_cast<int>(expected.size()));
  // LoadData reads the zero and stops at the end.
  Ox_Dataset back;
  EXPECT_EQ(back.Load(out, 0), static_cast<int>(expected.size()));
  EXPECT_EQ(back.recs.Count(), 0);
  EXPECT_EQ(back.cols.Count(), 1);
  EXPECT_EQ(back.codePage, 65001u);  // 0 in the head is the locale's
}

TEST_F(BinStreamTest, SaveTypeZeroWritesDeletedRowsAsNormalRows) {
  // The count leaves out the deleted row of recs, the walk writes it.
  Ox_Dataset ds("D");
  AddIntRow(ds.recs, 1, 8, -1);
  AddIntRow(ds.recs, 2, 1, -1);
  Ox_Buffer out;
  ds.Save(out, 0, 0, 3100);
  const Bytes bytes = ToBytes(out);
  // Head is 25 bytes; then count 1 and two records of type 1.
  ASSERT_EQ(bytes.size(), 25u + 4 + 12 + 12 + 4);
  EXPECT_EQ(Bytes(bytes.begin() + 25, bytes.begin() + 29),
            (Bytes{0x00, 0x00, 0x00, 0x01}));
  EXPECT_EQ(bytes[25 + 4 + 3], 0x01);       // first record type 1
  EXPECT_EQ(bytes[25 + 4 + 12 + 3], 0x01);  // second record type 1
}

TEST_F(BinStreamTest, CountWalkLeavesLastRowsUnexamined) {
  // Rows: 8, 1, 8. The walk sees index 0 (count 3 -> 2), index 1 (no
  // change), and stops at index 2 = count: the count stays 2.
  Ox_Dataset ds("D");
  AddIntRow(ds.recs, 1, 8, -1);
  AddIntRow(ds.recs, 2, 1, -1);
  AddIntRow(ds.recs, 3, 8, -1);
  Ox_Buffer out;
  ds.Save(out, 1, 0, 3100);
  const Bytes bytes = ToBytes(out);
  EXPECT_EQ(Bytes(bytes.begin() + 25, bytes.begin() + 29),
            (Bytes{0x00, 0x00, 0x00, 0x02}));
  // Only the one normal row follows, then the two rows of type 8 from recs
  // (no tracking, none in orgBuff).
  EXPECT_EQ(Bytes(bytes.begin() + 41, bytes.begin() + 45),
            (Bytes{0x00, 0x00, 0x00, 0x02}));
  EXPECT_EQ(bytes.size(), 25u + 4 + 12 + 4 + 24 + 4);
}

TEST_F(BinStreamTest, LogicalDatasetIsNotSaved) {
  Ox_Dataset base("B");
  Ox_Dataset view("V");
  view.logicalType = 32;
  view.bindDataset = &base;
  Ox_Buffer out;
  EXPECT_EQ(view.Save(out, 0, 0, 3100), -1);
  EXPECT_EQ(out.GetSize(), 0);
  EXPECT_EQ(view.SaveNext(out, 0, 0, 1), -1);
}

TEST_F(BinStreamTest, GroupDatasetGetsHeadAndTerminatorOnly) {
  Ox_Dataset group("G");
  group.logicalType = 35;
  group.groupFlag = 1;
  AddIntRow(group.recs, 1, 1, -1);
  Ox_Buffer out;
  EXPECT_EQ(group.Save(out, 1, 0, 3100), 29);
  EXPECT_EQ(out.GetSize(), 29);
}

TEST_F(BinStreamTest, ProtectedBlocksReportTheirPositions) {
  DatasetProbe ds;
  ds.SetId("P");
  Ox_Buffer out;
  EXPECT_EQ(ds.SaveHead(out, 0, 3100), 25);
  // Nothing to write: the position comes back unchanged.
  EXPECT_EQ(ds.SaveData(out, 0, 0, 25), 25);
  EXPECT_EQ(ds.SaveDeleteData(out, 0, 25), 25);
  AddIntRow(ds.recs, 4, 1, -1);
  EXPECT_EQ(ds.SaveData(out, 0, 0, 25), 25 + 4 + 12);
  // The head is read back; LoadData gives the count.
  DatasetProbe back;
  EXPECT_EQ(back.LoadHead(out, 0), 25);
  int count = 0;
  EXPECT_EQ(back.LoadData(out, 25, count), 41);
  EXPECT_EQ(count, 1);
  EXPECT_EQ(CellInt(back.recs.GetItem(0), 0), 4);
}

TEST_F(BinStreamTest, VariantBlocksByType) {
  struct Case {
    Ox_Variant value;
    Bytes bytes;
  };
  Ox_DateTime date;
  date.SetStoredValue(2.0);
  Ox_Currency money(1, 5000);          // 1.5 = 15000 / 10000
  Ox_Variant target(7L);
  Ox_Variant reference;
  reference.SetReference(&target);
  Ox_Variant dangling;
  dangling.SetReference(nullptr);
  Ox_Variant blob;
  const unsigned char raw[3] = {1, 2, 3};
  blob.SetBinary(raw, 3);
  Ox_VariantList list;
  list.Add(Ox_Variant(1L));
  const Case cases[] = {
      {Ox_Variant(), {0x00, 0x00}},
      {Ox_Variant(-2L), {0x00, 0x03, 0xFF, 0xFF, 0xFF, 0xFE}},
      // 1.5 = 0x3FF8000000000000
      {Ox_Variant(1.5), {0x00, 0x05, 0x3F, 0xF8, 0, 0, 0, 0, 0, 0}},
      // An infinity is the null decimal.
      {Ox_Variant(1.0 / 0.0), {0x00, 0x00}},
      // High word, then low word: 15000 = 0x3A98.
      {Ox_Variant(money), {0x00, 0x06, 0, 0, 0, 0, 0, 0, 0x3A, 0x98}},
      // 2.0 = 0x4000000000000000
      {Ox_Variant(date), {0x00, 0x07, 0x40, 0, 0, 0, 0, 0, 0, 0}},
      {Ox_Variant("ab"), {0x00, 0x08, 0x00, 0x02, 'a', 'b'}},
      {blob, {0x00, 0x0D, 0x00, 0x00, 0x00, 0x03, 1, 2, 3}},
      {reference, {0x00, 0x03, 0x00, 0x00, 0x00, 0x07}},
      {dangling, {0x00, 0x00}},
      {Ox_Variant(list), {0x20, 0x00}},  // an array: its type alone
  };
  for (const Case &c : cases) {
    Ox_Buffer out;
    EXPECT_EQ(c.value.Save(out, 0), static_cast<int>(c.bytes.size()));
    EXPECT_EQ(ToBytes(out), c.bytes) << "type " << c.value.GetType();
  }
}

TEST_F(BinStreamTest, NegativeCurrencyWordOrder) {
  // -1 is the count -10000: high 0xFFFFFFFF, low 0xFFFFD8F0.
  Ox_Variant value;
  value.SetCurrency(-1.0);
  Ox_Buffer out;
  value.Save(out, 0);
  EXPECT_EQ(ToBytes(out), (Bytes{0x00, 0x06, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF,
                                 0xFF, 0xD8, 0xF0}));
}

TEST_F(BinStreamTest, LongStringKeepsOnlyLowLengthBits) {
  // 65,537 bytes: the length field says 1, the bytes are all written.
  Ox_Variant value(Ox_AString(std::string(65537, 'z').c_str()));
  Ox_Buffer out;
  EXPECT_EQ(value.Save(out, 0), 2 + 2 + 65537);
  EXPECT_EQ(out.GetData()[2], 0x00);
  EXPECT_EQ(out.GetData()[3], 0x01);
}

TEST_F(BinStreamTest, RecordTypeArgument) {
  Ox_Record row;
  Ox_Variant cell(1L);
  row.SetColumn(0, &cell);
  row.SetType(4);
  row.orgRef = 3;
  Ox_Buffer own;
  row.Save(own, -1, 0);
  EXPECT_EQ(ToBytes(own), (Bytes{0x00, 0x01, 0x00, 0x04, 0x00, 0x03,
                                 0x00, 0x03, 0x00, 0x00, 0x00, 0x01}));
  Ox_Buffer given;
  row.Save(given, 0x102, 0);  // the low byte only
  EXPECT_EQ(given.GetData()[3], 0x02);
}

}  // namespace
