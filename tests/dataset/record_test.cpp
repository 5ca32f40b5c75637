// Ox_Record, its handler and Ox_RecList.
#include <gtest/gtest.h>

#include "Ox_Dataset.h"

namespace {

Ox_Variant Int(long n) { return Ox_Variant(n); }

TEST(Record, DefaultsAndSizedConstruction) {
  const Ox_Record empty;
  EXPECT_EQ(0, empty.Count());
  EXPECT_EQ(1, empty.status);
  EXPECT_EQ(-1, empty.orgRef);
  const Ox_Record three(3);
  EXPECT_EQ(3, three.Count());
  EXPECT_EQ(1, three.status);
  EXPECT_EQ(-1, three.orgRef);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(0, three.GetItem(i)->GetType());
  const Ox_Record none(-4);
  EXPECT_EQ(0, none.Count());
}

TEST(Record, CopyAndOperatorAssignTakeTheWholeStatus) {
  Ox_Record source(2);
  const Ox_Variant seven = Int(7);
  source.SetColumn(1, &seven);
  source.status = 0x1104;  // update, filtered out, selected
  source.orgRef = 5;
  const Ox_Record copy(source);
  EXPECT_EQ(0x1104, copy.status);
  EXPECT_EQ(5, copy.orgRef);
  ASSERT_EQ(2, copy.Count());
  EXPECT_EQ(7, copy.GetItem(1)->ToInteger());
  Ox_Record target;
  target = source;
  EXPECT_EQ(0x1104, target.status);
  EXPECT_EQ(5, target.orgRef);
  EXPECT_EQ(2, target.Count());
}

TEST(Record, AssignTakesTheRowTypeButNotFilterAndSelection) {
  Ox_Record source(1);
  const Ox_Variant three = Int(3);
  source.SetColumn(0, &three);
  source.status = 0x1104;
  source.orgRef = 9;
  Ox_Record target(4);
  target.status = 0x0102;
  target.Assign(&source);
  EXPECT_EQ(4, target.status);  // 0x1104 & 0xFF
  EXPECT_EQ(9, target.orgRef);
  ASSERT_EQ(1, target.Count());
  EXPECT_EQ(3, target.GetItem(0)->ToInteger());
}

TEST(Record, AssignFromNullClearsAndFromSelfDoesNothing) {
  Ox_Record row(2);
  row.status = 0x1002;
  row.orgRef = 3;
  row.Assign(&row);
  EXPECT_EQ(0x1002, row.status);
  EXPECT_EQ(3, row.orgRef);
  EXPECT_EQ(2, row.Count());
  row.Assign(nullptr);
  EXPECT_EQ(1, row.status);
  EXPECT_EQ(-1, row.orgRef);
  EXPECT_EQ(0, row.Count());
}

TEST(Record, ClearDropsCellsAndResetsStatus) {
  Ox_Record row(5);
  row.status = 0x1108;
  row.orgRef = 2;
  row.Clear();
  EXPECT_EQ(0, row.Count());
  EXPECT_EQ(1, row.status);
  EXPECT_EQ(-1, row.orgRef);
}

TEST(Record, TypeSetterKeepsBits8To15) {
  Ox_Record row;
  row.status = 0x1101;
  row.SetType(4);
  EXPECT_EQ(0x1104, row.status);
  EXPECT_EQ(4, row.GetType());
}

TEST(Record, FilterSetterClearsItsNibble) {
  Ox_Record row;
  row.status = 0x1F01;  // bits 8 to 11 all set
  EXPECT_EQ(0x100, row.GetFilter());
  row.SetFilter(0);
  EXPECT_EQ(0x1001, row.status);
  EXPECT_EQ(0, row.GetFilter());
  row.SetFilter(5);
  EXPECT_EQ(0x1101, row.status);
}

TEST(Record, SelectSetterClearsItsNibble) {
  Ox_Record row;
  row.status = 0xF102;  // bits 12 to 15 all set
  EXPECT_EQ(0x1000, row.GetSelect());
  row.SetSelect(0);
  EXPECT_EQ(0x0102, row.status);
  row.SetSelect(2);
  EXPECT_EQ(0x1102, row.status);
}

TEST(Record, OrgIdxIsNarrowedTo16BitsSigned) {
  Ox_Record row;
  row.SetOrgIdx(12);
  EXPECT_EQ(12, row.GetOrgIdx());
  // A buffer row from 32768 up turns negative: 40000 - 65536.
  const int bufferRow = 40000;
  row.SetOrgIdx(static_cast<short>(bufferRow));
  EXPECT_EQ(-25536, row.GetOrgIdx());
  row.SetOrgIdx(static_cast<short>(32768));
  EXPECT_EQ(-32768, row.GetOrgIdx());
}

TEST(Record, SetColumnGrowsTheRow) {
  Ox_Record row(1);
  const Ox_Variant text("abc");
  row.SetColumn(3, &text);
  ASSERT_EQ(4, row.Count());
  EXPECT_EQ(8, row.GetItem(3)->GetType());
  EXPECT_EQ(0, row.GetItem(2)->GetType());
  // A null value makes the cell null and does not shrink the row.
  row.SetColumn(3, nullptr);
  EXPECT_EQ(4, row.Count());
  EXPECT_EQ(0, row.GetItem(3)->GetType());
  // A negative column is refused.
  row.SetColumn(-1, &text);
  EXPECT_EQ(4, row.Count());
}

TEST(Record, GetSafeItemGrowsTheRow) {
  Ox_Record row;
  Ox_Variant *cell = row.GetSafeItem(2);
  ASSERT_NE(nullptr, cell);
  EXPECT_EQ(3, row.Count());
  EXPECT_EQ(nullptr, row.GetSafeItem(-1));
}

TEST(Record, NullRecordIsEmpty) {
  EXPECT_EQ(0, Ox_Record::_OxNullRecord.Count());
  EXPECT_EQ(1, Ox_Record::_OxNullRecord.status);
  EXPECT_EQ(-1, Ox_Record::_OxNullRecord.orgRef);
}

TEST(RecordHandler, PoolAndOperations) {
  Ox_RecordHandler &handler = Ox_Record::_OxRecordHandler;
  EXPECT_STREQ("Ox_Record", handler.GetName());
  EXPECT_EQ(static_cast<int>(sizeof(Ox_Record)), handler.GetItemSize());
  Ox_Record a;
  Ox_Record b;
  EXPECT_EQ(0, handler._CompareItem(&a, &a));
  EXPECT_EQ(-1, handler._CompareItem(&a, &b));
  b.status = 0x1104;
  b.orgRef = 2;
  handler._AssignItem(&a, &b);
  EXPECT_EQ(4, a.status);
  EXPECT_EQ(2, a.orgRef);
}

TEST(RecList, ForwardsToTheList) {
  Ox_RecList list;
  Ox_Record row(2);
  row.status = 4;
  EXPECT_EQ(0, list.Add(&row));
  EXPECT_EQ(1, list.Add(nullptr));  // a default row
  EXPECT_EQ(2, list.Count());
  EXPECT_EQ(4, list.GetItem(0)->GetType());
  EXPECT_EQ(1, list.GetItem(1)->GetType());
  // A copy, not the object.
  EXPECT_NE(&row, list.GetItem(0));
  EXPECT_EQ(0, list.Insert(0, &row));
  EXPECT_EQ(3, list.Count());
  EXPECT_EQ(0, list.Set(2, &row));
  EXPECT_EQ(4, list.GetItem(2)->GetType());
  Ox_RecList other;
  EXPECT_EQ(3, other.Assign(&list));
  EXPECT_EQ(3, other.Assign(nullptr));  // null: the count as it stands
}

TEST(RecList, GetItemNNGivesAnEmptyRowOfItsOwn) {
  Ox_RecList list;
  const Ox_Record *none = list.GetItemNN(3);
  ASSERT_NE(nullptr, none);
  EXPECT_EQ(0, none->Count());
  EXPECT_EQ(1, none->status);
  EXPECT_EQ(none, list[-1]);
  EXPECT_EQ(nullptr, list.GetItem(0));
}

TEST(RecList, InsertColumnSkipsShortRows) {
  Ox_RecList list;
  Ox_Record three(3);
  const Ox_Variant marker(42L);
  three.SetColumn(2, &marker);
  Ox_Record one(1);
  list.Add(&three);
  list.Add(&one);
  list.InsertColumn(2);
  // The row with 3 cells gets a null cell at 2; the marker moves to 3.
  ASSERT_EQ(4, list.GetItem(0)->Count());
  EXPECT_EQ(0, list.GetItem(0)->GetItem(2)->GetType());
  EXPECT_EQ(42, list.GetItem(0)->GetItem(3)->ToInteger());
  // The row with 1 cell is shorter than 2: unchanged.
  EXPECT_EQ(1, list.GetItem(1)->Count());
  // A row with exactly `col` cells gets the cell at its end.
  list.InsertColumn(1);
  EXPECT_EQ(2, list.GetItem(1)->Count());
}

TEST(RecList, LinkedRecordSurvivesDeleteFromTheFirstList) {
  Ox_RecList recs;
  Ox_RecList orgBuff;
  recs.Add(nullptr);
  Ox_Record *row = recs.GetItem(0);
  const Ox_Variant text("kept");
  row->SetColumn(0, &text);
  ASSERT_EQ(0, orgBuff.AddLink(row));
  EXPECT_EQ(0, recs.Delete(0));
  EXPECT_EQ(0, recs.Count());
  // The same object, still alive with its cell.
  ASSERT_EQ(row, orgBuff.GetItem(0));
  EXPECT_EQ(0, orgBuff.GetItem(0)->GetItem(0)->ToString().Compare("kept"));
  orgBuff.Clear();
  EXPECT_EQ(0, orgBuff.Count());
}

}  // namespace
