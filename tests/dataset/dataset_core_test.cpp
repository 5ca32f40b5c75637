// Ox_Dataset as a whole: members and defaults, constructors, predicates,
// ClearAll, the code page, the reserved members, the statics and handler,
// Ox_DatasetList, and the row and variable classes the columns stand on.
#include <gtest/gtest.h>

#include <cstring>

#include "Ox_Dataset.h"

namespace {

TEST(DatasetCore, DefaultsOfEveryMember) {
  OxSetLocale(0, 949);
  Ox_Dataset ds;
  EXPECT_EQ(0, ds.id.GetLength());
  EXPECT_EQ(949u, ds.codePage);
  EXPECT_EQ(0, ds.constCols.Count());
  EXPECT_EQ(0, ds.cols.Count());
  EXPECT_EQ(0, ds.recs.Count());
  EXPECT_EQ(0, ds.orgBuff.Count());
  EXPECT_EQ(0, ds.logicalType);
  EXPECT_EQ(0, ds.pivotFlag);
  EXPECT_EQ(nullptr, ds.bindDataset);
  EXPECT_EQ(&ds.constCols, ds.pConsts);
  EXPECT_EQ(&ds.cols, ds.pCols);
  EXPECT_EQ(&ds.recs, ds.pRecs);
  EXPECT_EQ(&ds.orgBuff, ds.pOrgBuff);
  EXPECT_EQ(0, ds.colDepthList.Count());
  EXPECT_EQ(0, ds.rowDepthList.Count());
  EXPECT_EQ(1, ds.depthValid);
  EXPECT_EQ(0, ds.colValueList.Count());
  EXPECT_EQ(0, ds.rowValueList.Count());
  EXPECT_EQ(1, ds.valueValid);
  EXPECT_EQ(0, ds.pivotTable.Count());
  EXPECT_EQ(1, ds.tableValid);
  EXPECT_EQ(0, ds.pivotPairList.Count());
  EXPECT_EQ(0, ds.filterActive);
  EXPECT_EQ(0, ds.filterIndex.Count());
  EXPECT_EQ(0, ds.reverseSubSum);
  EXPECT_EQ(0, ds.changeCount);
  EXPECT_EQ(0, ds.recIndexValid);
  EXPECT_EQ(0, ds.recIndex.Count());
  EXPECT_EQ(0, ds.groupFlag);
  EXPECT_EQ(0, ds.updateFlag);
  EXPECT_EQ(0, ds.singleGroupLevel);
  EXPECT_EQ(0, ds.groupKeyList.Count());
  EXPECT_EQ(0, ds.groupStr.GetLength());
  EXPECT_EQ(0, ds.pivotColType.Count());
  EXPECT_EQ(0, ds.pivotKeyList.Count());
  EXPECT_EQ(0, ds.pivotKeyStr.GetLength());
  EXPECT_EQ(0, ds.filterStr.GetLength());
  EXPECT_EQ(0, ds.recalcEnabled);
  EXPECT_EQ(1, ds.autoRecalc);
  EXPECT_EQ(1, ds.indexOrdered);
  EXPECT_EQ(0, ds.editable);
  EXPECT_EQ(0, ds.xmlDataset);
  EXPECT_EQ(nullptr, ds.domNodeList);
  EXPECT_EQ(0, ds.linkIndex.Count());
  EXPECT_EQ(nullptr, ds.domSelection);
  EXPECT_EQ(0, ds.nameSpaceList.Count());
  // A new dataset is physical.
  EXPECT_TRUE(ds.IsPhysical());
  EXPECT_FALSE(ds.IsLogical());
}

TEST(DatasetCore, CodePageRuleOfTheConstructors) {
  OxSetLocale(0, 932);
  EXPECT_EQ(932u, Ox_Dataset().GetCurrentCodePage());
  EXPECT_EQ(932u, Ox_Dataset(0u, 1).GetCurrentCodePage());
  EXPECT_EQ(65001u, Ox_Dataset(1200u, 1).GetCurrentCodePage());
  EXPECT_EQ(949u, Ox_Dataset(949u, 1).GetCurrentCodePage());
  EXPECT_EQ(1252u, Ox_Dataset(1252u, 0).GetCurrentCodePage());
  Ox_Dataset named("Orders", 1200);
  EXPECT_STREQ("Orders", named.id.GetString());
  EXPECT_EQ(65001u, named.GetCurrentCodePage());
  Ox_Dataset namedByString(Ox_AString("Lines"), 0);
  EXPECT_STREQ("Lines", namedByString.id.GetString());
  EXPECT_EQ(932u, namedByString.GetCurrentCodePage());
  Ox_Dataset other(Ox_AString("x"), 949);
  EXPECT_EQ(949u, other.GetCurrentCodePage());
  OxSetLocale(0, 65001);
}

TEST(DatasetCore, ColFlagGoesToTheColumnList) {
  Ox_Dataset loose(65001u, 0);
  Ox_ColInfo a(Ox_AString("a"));
  loose.cols.Add(&a);
  loose.cols.Add(&a);
  EXPECT_EQ(2, loose.cols.Count());
  Ox_Dataset strict(65001u, 1);
  strict.cols.Add(&a);
  strict.cols.Add(&a);
  EXPECT_EQ(1, strict.cols.Count());
  Ox_Dataset byName("n", 65001);
  byName.cols.Add(&a);
  byName.cols.Add(&a);
  EXPECT_EQ(1, byName.cols.Count());
}

TEST(DatasetCore, Predicates) {
  struct Row {
    int type;
    int groupFlag;
    int pivotFlag;
    int logical, physical, group, pivot;
  };
  const Row rows[] = {
      {0, 0, 0, 0, 1, 0, 0},   {31, 0, 0, 0, 1, 0, 0},
      {32, 0, 0, 1, 0, 0, 0},  {33, 0, 0, 1, 0, 0, 0},
      {33, 0, 1, 1, 0, 0, 1},  {35, 0, 0, 1, 0, 0, 0},
      {35, 1, 0, 1, 1, 1, 0},  {32, 1, 1, 1, 0, 0, 0},
  };
  for (const Row &row : rows) {
    Ox_Dataset ds(65001u, 1);
    ds.logicalType = row.type;
    ds.groupFlag = row.groupFlag;
    ds.pivotFlag = row.pivotFlag;
    EXPECT_EQ(row.logical, ds.IsLogical() != 0) << row.type;
    EXPECT_EQ(row.physical, ds.IsPhysical() != 0) << row.type;
    EXPECT_EQ(row.group, ds.IsGroup() != 0) << row.type;
    EXPECT_EQ(row.pivot, ds.IsPivot() != 0) << row.type;
  }
}

// Fills every member that ClearAll touches or keeps.
void Populate(Ox_Dataset &ds) {
  ds.SetId("keep");
  ds.AddColumn("a", 1, 0, 1);
  ds.constCols.AddVariable("k", Ox_Variant(1L));
  Ox_Record row(1);
  ds.recs.Add(&row);
  ds.orgBuff.Add(&row);
  ds.recIndex.Add(0);
  ds.changeCount = 3;
  ds.recIndexValid = 1;
  ds.groupKeyList.Add(0);
  ds.pivotColType.Add(1);
  ds.pivotKeyList.Add(0);
  ds.groupFlag = 1;
  ds.pivotFlag = 1;
  ds.filterIndex.Add(0);
  ds.filterActive = 1;
  ds.indexOrdered = 0;
  ds.updateFlag = 1;
  ds.groupStr = "a";
  ds.pivotKeyStr = "b";
  ds.filterStr = "c";
}

TEST(DatasetCore, ClearAllOnPhysicalDataset) {
  Ox_Dataset ds(949u, 1);
  Populate(ds);
  ds.ClearAll();
  EXPECT_EQ(0, ds.recs.Count());
  EXPECT_EQ(0, ds.cols.Count());
  EXPECT_EQ(0, ds.constCols.Count());
  EXPECT_EQ(0, ds.orgBuff.Count());
  EXPECT_EQ(0, ds.recIndex.Count());
  EXPECT_EQ(0, ds.changeCount);
  EXPECT_EQ(0, ds.recIndexValid);
  EXPECT_EQ(0, ds.groupKeyList.Count());
  EXPECT_EQ(0, ds.pivotColType.Count());
  EXPECT_EQ(0, ds.pivotKeyList.Count());
  EXPECT_EQ(0, ds.groupFlag);
  EXPECT_EQ(0, ds.pivotFlag);
  EXPECT_EQ(0, ds.filterIndex.Count());
  EXPECT_EQ(0, ds.filterActive);
  EXPECT_EQ(1, ds.indexOrdered);
  // Kept: identity, code page, tracking, kind and the texts.
  EXPECT_STREQ("keep", ds.id.GetString());
  EXPECT_EQ(949u, ds.codePage);
  EXPECT_EQ(1, ds.updateFlag);
  EXPECT_EQ(0, ds.logicalType);
  EXPECT_STREQ("a", ds.groupStr.GetString());
  EXPECT_STREQ("b", ds.pivotKeyStr.GetString());
  EXPECT_STREQ("c", ds.filterStr.GetString());
}

TEST(DatasetCore, ClearAllOnLogicalDatasetKeepsKeys) {
  Ox_Dataset base(949u, 1);
  Ox_Dataset ds(949u, 1);
  Populate(ds);
  ds.logicalType = 35;
  ds.bindDataset = &base;
  ds.ClearAll();
  EXPECT_EQ(0, ds.recs.Count());
  EXPECT_EQ(0, ds.recIndex.Count());
  EXPECT_EQ(1, ds.groupKeyList.Count());
  EXPECT_EQ(1, ds.pivotColType.Count());
  EXPECT_EQ(1, ds.pivotKeyList.Count());
  EXPECT_EQ(1, ds.groupFlag);
  EXPECT_EQ(1, ds.pivotFlag);
  EXPECT_EQ(0, ds.filterActive);
  EXPECT_EQ(35, ds.logicalType);
  EXPECT_EQ(&base, ds.bindDataset);
}

TEST(DatasetCore, SetCurrentCodePage) {
  Ox_Dataset ds(949u, 1);
  Populate(ds);
  ds.SetCurrentCodePage(0);  // keeps the data
  EXPECT_EQ(1, ds.recs.Count());
  EXPECT_EQ(949u, ds.GetCurrentCodePage());
  ds.SetCurrentCodePage(949);  // the present page: keeps the data
  EXPECT_EQ(1, ds.cols.Count());
  ds.SetCurrentCodePage(65001);  // another page empties the dataset
  EXPECT_EQ(0, ds.recs.Count());
  EXPECT_EQ(0, ds.cols.Count());
  EXPECT_EQ(65001u, ds.GetCurrentCodePage());
  EXPECT_STREQ("keep", ds.id.GetString());
}

TEST(DatasetCore, SetIdAndAutoRecalc) {
  Ox_Dataset ds(65001u, 1);
  ds.SetId(Ox_AString("one"));
  EXPECT_STREQ("one", ds.id.GetString());
  ds.SetId("twofold", 3);
  EXPECT_STREQ("two", ds.id.GetString());
  EXPECT_EQ(1, ds.GetAutoRecalcStat());
  ds.SetAutoRecalcStat(0);
  EXPECT_EQ(0, ds.GetAutoRecalcStat());
}

TEST(DatasetCore, ReservedMembersDoNothing) {
  Ox_Dataset ds(65001u, 1);
  ds.AddColumn("a", 1, 0, 1);
  EXPECT_EQ(1, ds.Change2CodePage(949));
  EXPECT_EQ(65001u, ds.GetCurrentCodePage());
  EXPECT_EQ(1, ds.RecalcFilter());
  EXPECT_EQ(1, ds.ModifyKeyStat(1, 2, Ox_AString("x"), 3, 4));
  EXPECT_EQ(0, ds.fnIntReserved0(1, 2, 3, 4, 5, 6));
  EXPECT_EQ(0, ds.fnIntReserved1(1, 2, 3, 4, 5, 6));
  EXPECT_EQ(0, ds.fnIntReserved2(1, 2, 3, 4, 5, 6));
  EXPECT_EQ(0, ds.fnIntReserved3(1, 2, 3, 4, 5, 6));
  int x = 0;
  EXPECT_EQ(nullptr, ds.fnPtrReserved0(&x));
  EXPECT_EQ(nullptr, ds.fnPtrReserved1(&x));
  EXPECT_EQ(nullptr, ds.fnPtrReserved2(&x));
  EXPECT_EQ(nullptr, ds.fnPtrReserved3(&x));
  EXPECT_EQ(1, ds.GetColCount());
}

TEST(DatasetCore, StaticsAndHandler) {
  EXPECT_STREQ("Ox_Dataset", Ox_Dataset::_OxDatasetHandler.GetName());
  EXPECT_EQ(static_cast<int>(sizeof(Ox_Dataset)),
            Ox_Dataset::_OxDatasetHandler.GetItemSize());
  const Ox_Dataset &null = Ox_Dataset::_OxNullDataset;
  EXPECT_EQ(0, null.GetColCount());
  EXPECT_EQ(0, null.recs.Count());
  Ox_Dataset ds("Orders", 65001);
  const char *key = "ORDERS";
  EXPECT_EQ(0, Ox_Dataset::_OxDatasetHandler._CompareItem(&ds, &key));
  const char *other = "Lines";
  EXPECT_NE(0, Ox_Dataset::_OxDatasetHandler._CompareItem(&ds, &other));
}

TEST(DatasetCore, InitAndFreeWithMemory) {
  alignas(Ox_Dataset) unsigned char raw[sizeof(Ox_Dataset)];
  std::memset(raw, 0xCD, sizeof raw);
  auto *ds = reinterpret_cast<Ox_Dataset *>(raw);
  Ox_Dataset::InitWithMemory(ds);
  EXPECT_EQ(&ds->cols, ds->pCols);
  EXPECT_EQ(1, ds->autoRecalc);
  ds->AddColumn("a", 1, 0, 1);
  Ox_Dataset::FreeWithMemory(ds);
  Ox_Dataset::InitWithMemory(nullptr);
  Ox_Dataset::FreeWithMemory(nullptr);
}

TEST(DatasetList, LookupsAndNullDataset) {
  Ox_DatasetList list;
  Ox_Dataset *orders = list.GetSafeItem("Orders", 1);
  ASSERT_NE(nullptr, orders);
  EXPECT_STREQ("Orders", orders->id.GetString());
  EXPECT_EQ(orders, list.GetSafeItem("ORDERS", 0));
  EXPECT_EQ(nullptr, list.GetSafeItem("Lines", 0));
  EXPECT_EQ(0, list.FindId("orders"));
  EXPECT_EQ(-1, list.FindId("lines"));
  EXPECT_EQ(orders, list.GetItem("oRdErS"));
  EXPECT_EQ(nullptr, list.GetItem("none"));
  EXPECT_EQ(orders, list.GetItem(0));
  EXPECT_EQ(nullptr, list.GetItem(1));
  EXPECT_EQ(&Ox_Dataset::_OxNullDataset, list.GetItemNN(1));
  EXPECT_EQ(&Ox_Dataset::_OxNullDataset, list[-1]);
  EXPECT_EQ(orders, list[0]);
  Ox_Dataset own("Own", 65001);
  EXPECT_EQ(1, list.AddLink(&own));
  EXPECT_EQ(&own, list.GetItem(1));
  EXPECT_EQ(-1, list.AddLink(nullptr));
  // The dataset in the pool keeps pointers into itself.
  EXPECT_EQ(&orders->cols, orders->pCols);
}

// --- Rows and named values the column concern stands on ------------------

TEST(RecordBasics, StatusWordAndCells) {
  Ox_Record row;
  EXPECT_EQ(1, row.status);
  EXPECT_EQ(-1, row.orgRef);
  EXPECT_EQ(0, row.Count());
  Ox_Record three(3);
  EXPECT_EQ(3, three.Count());
  EXPECT_EQ(0, three.GetItem(2)->GetType());
  row.SetType(4);
  row.SetFilter(1);
  row.SetSelect(5);
  EXPECT_EQ(4, row.GetType());
  EXPECT_EQ(0x100, row.GetFilter());
  EXPECT_EQ(0x1000, row.GetSelect());
  EXPECT_EQ(0x1104, row.status);
  row.SetFilter(0);
  EXPECT_EQ(0x1004, row.status);
  row.SetOrgIdx(static_cast<short>(40000));  // narrowed to 16 bits
  EXPECT_LT(row.GetOrgIdx(), 0);
  const Ox_Variant v("x");
  row.SetColumn(4, &v);
  EXPECT_EQ(5, row.Count());
  EXPECT_STREQ("x", row.GetItem(4)->ToString().GetString());
  row.SetColumn(4, nullptr);
  EXPECT_EQ(0, row.GetItem(4)->GetType());
  EXPECT_EQ(nullptr, row.GetSafeItem(-1));
}

TEST(RecordBasics, AssignTakesTypeNotFlags) {
  Ox_Record source(2);
  source.status = 0x1104;
  source.orgRef = 7;
  source.GetSafeItem(1)->Set(9L);
  Ox_Record target;
  target.Assign(&source);
  EXPECT_EQ(4, target.status);
  EXPECT_EQ(7, target.orgRef);
  EXPECT_EQ(9, target.GetItem(1)->ToInteger());
  target.Assign(nullptr);
  EXPECT_EQ(1, target.status);
  EXPECT_EQ(0, target.Count());
  Ox_Record copy(source);
  EXPECT_EQ(0x1104, copy.status);  // the copy takes the whole word
  target = source;
  EXPECT_EQ(0x1104, target.status);
  target.Clear();
  EXPECT_EQ(1, target.status);
  EXPECT_EQ(-1, target.orgRef);
}

TEST(RecordBasics, RecListAndInsertColumn) {
  Ox_RecList list;
  EXPECT_STREQ("Ox_Record", Ox_Record::_OxRecordHandler.GetName());
  Ox_Record row(2);
  EXPECT_EQ(0, list.Add(&row));
  EXPECT_EQ(1, list.Add(nullptr));
  EXPECT_EQ(0, list.GetItem(1)->Count());
  EXPECT_NE(nullptr, list.GetItemNN(5));
  EXPECT_EQ(0, list.GetItemNN(5)->Count());
  EXPECT_EQ(list.GetItem(0), list[0]);
  EXPECT_EQ(2, list.AddLink(&row));
  EXPECT_EQ(&row, list.GetItem(2));
  list.InsertColumn(2);  // rows of 2 cells get a third; the empty row not
  EXPECT_EQ(3, list.GetItem(0)->Count());
  EXPECT_EQ(0, list.GetItem(1)->Count());
  EXPECT_EQ(3, row.Count());
  Ox_RecList copy;
  EXPECT_EQ(3, copy.Assign(&list));
  EXPECT_EQ(-1, Ox_Record::_OxRecordHandler._CompareItem(&row, &copy));
  EXPECT_EQ(0, Ox_Record::_OxRecordHandler._CompareItem(&row, &row));
}

TEST(VariableBasics, InsertOrReplaceIgnoringCase) {
  Ox_VariableList list;
  EXPECT_EQ(0, list.AddVariable("Name", Ox_Variant(1L)));
  EXPECT_EQ(1, list.AddVariable(Ox_AString("other"), Ox_Variant("x")));
  EXPECT_EQ(0, list.AddVariable("NAME", Ox_Variant(2L)));
  EXPECT_EQ(2, list.Count());
  EXPECT_STREQ("Name", list.Id(0).GetString());  // first spelling kept
  EXPECT_EQ(2, list.GetItem(0)->var.ToInteger());
  EXPECT_EQ(-1, list.AddVariable("", Ox_Variant(1L)));
  EXPECT_EQ(-1, list.AddVariable(static_cast<const char *>(nullptr),
                                 Ox_Variant(1L)));
  EXPECT_EQ(1, list.FindId("OTHER"));
  EXPECT_EQ(-1, list.FindId("none"));
  EXPECT_EQ(&_OxNullString, &list.Id(5));
  EXPECT_STREQ("Ox_Variable", Ox_Variable::_OxVariableHandler.GetName());
}

}  // namespace
