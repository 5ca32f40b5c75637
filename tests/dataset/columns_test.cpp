// Ox_ColInfo, Ox_ColList, the column type and summary vocabulary, and the
// column operations of Ox_Dataset.
#include <gtest/gtest.h>

#include "Ox_Dataset.h"

namespace {

// --- Ox_ColInfo --------------------------------------------------------------

void ExpectDefaults(const Ox_ColInfo &c) {
  EXPECT_EQ(1, c.type);
  EXPECT_EQ(0, c.size);
  EXPECT_EQ(1, c.summ);
  EXPECT_EQ(-1, c.orgIdx);
  EXPECT_EQ(0, c.summText.GetLength());
  EXPECT_EQ(0, c.mapValue.GetLength());
  EXPECT_EQ(0, c.reserved);
  EXPECT_EQ(0, c.bindKind);
  EXPECT_EQ(64, c.groupSumm);
  EXPECT_EQ(0, c.bindcol.GetLength());
  EXPECT_EQ(-1, c.bindColIdx);
}

Ox_ColInfo Filled() {
  Ox_ColInfo c(Ox_AString("Name"));
  c.type = 2;
  c.size = 10;
  c.summ = 65;
  c.orgIdx = 3;
  c.summText = "t";
  c.mapValue = "m";
  c.reserved = 7;
  c.bindKind = 17;
  c.groupSumm = 32;
  c.bindcol = "b";
  c.bindColIdx = 4;
  return c;
}

TEST(ColInfo, Defaults) {
  Ox_ColInfo c;
  EXPECT_EQ(0, c.id.GetLength());
  ExpectDefaults(c);
  Ox_ColInfo named(Ox_AString("abc"));
  EXPECT_STREQ("abc", named.id.GetString());
  ExpectDefaults(named);
}

TEST(ColInfo, ClearRestoresDefaults) {
  Ox_ColInfo c = Filled();
  c.Clear();
  EXPECT_EQ(0, c.id.GetLength());
  ExpectDefaults(c);
}

TEST(ColInfo, SetCopiesEveryMember) {
  const Ox_ColInfo source = Filled();
  Ox_ColInfo c;
  c.Set(source);
  EXPECT_STREQ("Name", c.id.GetString());
  EXPECT_EQ(2, c.type);
  EXPECT_EQ(10, c.size);
  EXPECT_EQ(65, c.summ);
  EXPECT_EQ(3, c.orgIdx);
  EXPECT_STREQ("t", c.summText.GetString());
  EXPECT_STREQ("m", c.mapValue.GetString());
  EXPECT_EQ(7, c.reserved);
  EXPECT_EQ(17, c.bindKind);
  EXPECT_EQ(32, c.groupSumm);
  EXPECT_STREQ("b", c.bindcol.GetString());
  EXPECT_EQ(4, c.bindColIdx);
}

TEST(ColInfo, IdAndOrder) {
  Ox_ColInfo c;
  c.SetId(Ox_AString("x"));
  EXPECT_STREQ("x", c.id.GetString());
  c.SetId("abcdef", 3);
  EXPECT_STREQ("abc", c.id.GetString());
  c.SetOrgIdx(5);
  EXPECT_EQ(5, c.GetOrgIdx());
}

TEST(ColInfo, CompareAndReversedEquality) {
  Ox_ColInfo a(Ox_AString("Col"));
  Ox_ColInfo b(Ox_AString("COL"));
  EXPECT_EQ(0, a.Compare(b));
  EXPECT_EQ(0, a.Compare("col"));
  EXPECT_EQ(0, a == "cOl");  // 0 means equal
  EXPECT_EQ(0, a == b);
  EXPECT_NE(0, a == "other");
  b.type = 4;  // then the type difference: 1 - 4
  EXPECT_EQ(-3, a.Compare(b));
  b.type = 1;
  b.size = 2;  // then the size difference: 0 - 2
  EXPECT_EQ(-2, a.Compare(b));
  EXPECT_LT(Ox_ColInfo(Ox_AString("a")).Compare("b"), 0);
}

TEST(ColInfo, InitAndFreeWithMemory) {
  alignas(Ox_ColInfo) unsigned char raw[sizeof(Ox_ColInfo)];
  auto *c = reinterpret_cast<Ox_ColInfo *>(raw);
  Ox_ColInfo::InitWithMemory(c);
  ExpectDefaults(*c);
  c->SetId("x");
  Ox_ColInfo::FreeWithMemory(c);
  Ox_ColInfo::InitWithMemory(nullptr);
  Ox_ColInfo::FreeWithMemory(nullptr);
}

TEST(ColInfo, HandlerAndStatics) {
  EXPECT_STREQ("Ox_ColInfo", Ox_ColInfo::_OxColInfoHandler.GetName());
  EXPECT_EQ(static_cast<int>(sizeof(Ox_ColInfo)),
            Ox_ColInfo::_OxColInfoHandler.GetItemSize());
  EXPECT_EQ(0, Ox_ColInfo::_OxNullColInfo.id.GetLength());
  ExpectDefaults(Ox_ColInfo::_OxNullColInfo);
  // The key is the address of a text pointer; case is ignored.
  Ox_ColInfo item(Ox_AString("Abc"));
  const char *key = "aBC";
  EXPECT_EQ(0, Ox_ColInfo::_OxColInfoHandler._CompareItem(&item, &key));
  const char *other = "abd";
  EXPECT_NE(0, Ox_ColInfo::_OxColInfoHandler._CompareItem(&item, &other));
}

// --- Ox_ColList --------------------------------------------------------------

TEST(ColList, UniqueByDefault) {
  Ox_ColList list;
  Ox_ColInfo a(Ox_AString("a"));
  Ox_ColInfo b(Ox_AString("b"));
  int added = -1;
  EXPECT_EQ(0, list.Add(&a, added));
  EXPECT_EQ(1, added);
  EXPECT_EQ(1, list.Add(&b, added));
  Ox_ColInfo upper(Ox_AString("A"));
  EXPECT_EQ(0, list.Add(&upper, added));  // existing identifier
  EXPECT_EQ(0, added);
  EXPECT_EQ(2, list.Count());
  EXPECT_EQ(-1, list.Add(nullptr));
  EXPECT_EQ(-1, list.Add(nullptr, added));
  EXPECT_EQ(-1, list.AddColumn(nullptr));
  EXPECT_EQ(-1, list.AddLink(nullptr));
}

TEST(ColList, NotUniqueWithZero) {
  Ox_ColList list(0);
  Ox_ColInfo a(Ox_AString("a"));
  EXPECT_EQ(0, list.Add(&a));
  int added = 0;
  EXPECT_EQ(1, list.Add(&a, added));
  EXPECT_EQ(1, added);
  EXPECT_EQ(2, list.Count());
}

TEST(ColList, CopyAndLink) {
  Ox_ColList list;
  Ox_ColInfo a(Ox_AString("a"));
  const int copied = list.AddColumn(&a);
  EXPECT_NE(&a, list.GetItem(copied));
  Ox_ColInfo b(Ox_AString("b"));
  int added = 0;
  const int linked = list.AddLink(&b, added);
  EXPECT_EQ(1, added);
  EXPECT_EQ(&b, list.GetItem(linked));
  Ox_ColInfo c(Ox_AString("c"));
  EXPECT_EQ(0, list.Set(0, c));
  EXPECT_STREQ("c", list.GetItem(0)->id.GetString());
  Ox_ColInfo d(Ox_AString("d"));
  EXPECT_EQ(0, list.SetLink(0, &d));
  EXPECT_EQ(&d, list.GetItem(0));
  list.Clear();
}

TEST(ColList, LookupsByPositionOrderAndId) {
  Ox_ColList list;
  Ox_ColInfo a(Ox_AString("Alpha"));
  a.orgIdx = 1;
  Ox_ColInfo b(Ox_AString("Beta"));
  b.orgIdx = 0;
  list.Add(&a);
  list.Add(&b);
  EXPECT_EQ(nullptr, list.GetItem(2));
  EXPECT_EQ(nullptr, list.GetItem(-1));
  EXPECT_EQ(&Ox_ColInfo::_OxNullColInfo, list.GetItemNN(2));
  EXPECT_EQ(&Ox_ColInfo::_OxNullColInfo, list[-1]);
  EXPECT_EQ(list.GetItem(1), list[1]);
  EXPECT_EQ(nullptr, list.GetSafeItem(2));
  ASSERT_NE(nullptr, list.GetSafeItem(0));
  EXPECT_EQ(1, list.GetIndexByOrgIdx(0));
  EXPECT_EQ(0, list.GetIndexByOrgIdx(1));
  EXPECT_EQ(-1, list.GetIndexByOrgIdx(2));
  EXPECT_STREQ("Beta", list.GetItemByOrgIdx(0)->id.GetString());
  EXPECT_EQ(nullptr, list.GetItemByOrgIdx(5));
  EXPECT_EQ(1, list.FindId("BETA"));
  EXPECT_EQ(0, list.FindId("alpha"));
  EXPECT_EQ(-1, list.FindId("gamma"));
}

TEST(ColList, AssignAndAppend) {
  Ox_ColList a;
  Ox_ColInfo x(Ox_AString("x"));
  Ox_ColInfo y(Ox_AString("y"));
  a.Add(&x);
  a.Add(&y);
  Ox_ColList b(0);
  EXPECT_EQ(0, b.Assign(nullptr));
  EXPECT_EQ(2, b.Assign(&a));
  EXPECT_EQ(0, b.Append(nullptr));
  EXPECT_EQ(4, b.Append(&a));  // not unique: all four
  Ox_ColList c;
  c = a;
  EXPECT_EQ(2, c.Count());
  Ox_ColList copy(a);
  EXPECT_EQ(2, copy.Count());
  EXPECT_NE(a.GetItem(0), copy.GetItem(0));
}

TEST(ColList, TypeNumbersByPrefix) {
  EXPECT_EQ(10, Ox_ColList::GetTypeNo("URL"));
  EXPECT_EQ(10, Ox_ColList::GetTypeNo("url"));
  EXPECT_EQ(2, Ox_ColList::GetTypeNo("INT"));
  EXPECT_EQ(2, Ox_ColList::GetTypeNo("INTEGER"));
  EXPECT_EQ(8, Ox_ColList::GetTypeNo("DATE"));
  EXPECT_EQ(8, Ox_ColList::GetTypeNo("DATETIME"));
  EXPECT_EQ(12, Ox_ColList::GetTypeNo("char"));
  EXPECT_EQ(9, Ox_ColList::GetTypeNo("BLOB"));
  EXPECT_EQ(11, Ox_ColList::GetTypeNo("LONG"));
  EXPECT_EQ(1, Ox_ColList::GetTypeNo("STRING"));
  EXPECT_EQ(1, Ox_ColList::GetTypeNo("strinx"));  // only STRIN compared
  EXPECT_EQ(4, Ox_ColList::GetTypeNo("DECIMAL"));
  EXPECT_EQ(1, Ox_ColList::GetTypeNo("DEC"));
  EXPECT_EQ(5, Ox_ColList::GetTypeNo("Currency"));
  EXPECT_EQ(1, Ox_ColList::GetTypeNo(""));
  EXPECT_EQ(1, Ox_ColList::GetTypeNo("NUMBER"));
  EXPECT_EQ(1, Ox_ColList::GetTypeNo(nullptr));
}

TEST(ColList, TypeTexts) {
  EXPECT_STREQ("STRING", Ox_ColList::GetTypeStr(1));
  EXPECT_STREQ("INT", Ox_ColList::GetTypeStr(2));
  EXPECT_STREQ("DECIMAL", Ox_ColList::GetTypeStr(4));
  EXPECT_STREQ("CURRENCY", Ox_ColList::GetTypeStr(5));
  EXPECT_STREQ("DATE", Ox_ColList::GetTypeStr(8));
  EXPECT_STREQ("BLOB", Ox_ColList::GetTypeStr(9));
  EXPECT_STREQ("URL", Ox_ColList::GetTypeStr(10));
  EXPECT_STREQ("LONG", Ox_ColList::GetTypeStr(11));
  EXPECT_STREQ("CHAR", Ox_ColList::GetTypeStr(12));
  // 3, 6 and 7 are not column types; nor is anything else.
  EXPECT_STREQ("STRING", Ox_ColList::GetTypeStr(3));
  EXPECT_STREQ("STRING", Ox_ColList::GetTypeStr(6));
  EXPECT_STREQ("STRING", Ox_ColList::GetTypeStr(7));
  EXPECT_STREQ("STRING", Ox_ColList::GetTypeStr(0));
  EXPECT_STREQ("STRING", Ox_ColList::GetTypeStr(-1));
  EXPECT_STREQ("STRING", Ox_ColList::GetTypeStr(99));
}

TEST(ColList, SummaryKindWords) {
  struct Row {
    int kind;
    const char *xml;
    const char *csv;
  };
  const Row rows[] = {
      {16, "default", "default"}, {32, "count", "count"},
      {48, "countnn", "countnn"}, {64, "sum", "summ"},
      {80, "max", "max"},         {96, "min", "min"},
      {112, "avg", "avg"},        {144, "text:", "text"},
  };
  for (const Row &row : rows) {
    EXPECT_STREQ(row.xml, Ox_ColList::GetSummXmlWord(row.kind)) << row.kind;
    EXPECT_STREQ(row.csv, Ox_ColList::GetSummCsvWord(row.kind)) << row.kind;
    EXPECT_EQ(row.kind, Ox_ColList::GetSummKindByXmlWord(row.xml));
    EXPECT_EQ(row.kind, Ox_ColList::GetSummKindByCsvWord(row.csv));
  }
  // Kind 0 has no word; the XML and CSV words of the sum are not swapped.
  EXPECT_EQ(nullptr, Ox_ColList::GetSummXmlWord(0));
  EXPECT_EQ(nullptr, Ox_ColList::GetSummCsvWord(0));
  EXPECT_EQ(0, Ox_ColList::GetSummKindByXmlWord("summ"));
  EXPECT_EQ(0, Ox_ColList::GetSummKindByCsvWord("sum"));
  EXPECT_EQ(144, Ox_ColList::GetSummKindByXmlWord("text:Total"));
  EXPECT_EQ(0, Ox_ColList::GetSummKindByXmlWord(nullptr));
  // The kind is the high nibble of the summary word.
  EXPECT_EQ(OX_SUMM_COUNT, 33 & 0xF0);
  EXPECT_EQ(OX_SUMM_TEXT, 145 & 0xF0);
}

TEST(ColList, DefaultSummaryTextByLanguage) {
  const unsigned lcid = OxGetLCID();
  OxSetLocale(0x0412, 0);  // Korean
  EXPECT_STREQ("\xBC\xD2\xB0\xE8", Ox_ColList::GetDefaultSummText());
  OxSetLocale(0x0411, 0);  // Japanese
  EXPECT_STREQ("\xE1\xB3\xCD\xAA", Ox_ColList::GetDefaultSummText());
  OxSetLocale(0x0804, 0);  // Chinese
  EXPECT_STREQ("\xE1\xB3\xCD\xAA", Ox_ColList::GetDefaultSummText());
  OxSetLocale(0x0409, 0);  // English
  EXPECT_STREQ("subtotal", Ox_ColList::GetDefaultSummText());
  OxSetLocale(lcid, 0);
}

// --- Ox_Dataset: column operations ---------------------------------------

TEST(DatasetColumns, AddColumnReturnsPositions) {
  Ox_Dataset ds(65001u, 1);
  EXPECT_EQ(0, ds.AddColumn("a", 1, 10, 1));
  EXPECT_EQ(1, ds.AddColumn(Ox_AString("b"), 2, 0, 65));
  EXPECT_EQ(2, ds.GetColCount());
  const Ox_ColInfo *b = ds.GetColInfo(1);
  ASSERT_NE(nullptr, b);
  EXPECT_EQ(2, b->type);
  EXPECT_EQ(65, b->summ);  // stored as it comes
  EXPECT_EQ(1, b->orgIdx);  // the normal count before the add
  EXPECT_EQ(10, ds.GetColInfo(0)->size);
}

TEST(DatasetColumns, ExistingIdentifierIgnoringCaseGivesZero) {
  Ox_Dataset ds(65001u, 1);
  ds.AddColumn("a", 1, 0, 1);
  ds.AddColumn("Name", 1, 0, 1);
  EXPECT_EQ(0, ds.AddColumn("NAME", 2, 0, 1));
  EXPECT_EQ(2, ds.GetNormalCount());
  EXPECT_EQ(1, ds.GetColInfo(1)->type);  // unchanged
}

TEST(DatasetColumns, ExistingConstantGivesZero) {
  Ox_Dataset ds(65001u, 1);
  ds.AddColumn("a", 1, 0, 1);
  ds.constCols.AddVariable("Total", Ox_Variant(5L));
  EXPECT_EQ(0, ds.AddColumn("total", 1, 0, 1));
  EXPECT_EQ(1, ds.GetNormalCount());
  EXPECT_EQ(1, ds.GetConstCount());
  EXPECT_EQ(2, ds.GetColCount());
}

TEST(DatasetColumns, BindingOverload) {
  Ox_Dataset base(65001u, 1);
  base.AddColumn("src0", 1, 0, 1);
  base.AddColumn("src1", 1, 0, 1);
  // A physical dataset without binding: bindColIdx -1.
  Ox_Dataset plain(65001u, 1);
  EXPECT_EQ(0, plain.AddColumn("x", 2, 4, 33, Ox_AString("src1"), 96));
  const Ox_ColInfo *x = plain.GetColInfo(0);
  EXPECT_STREQ("src1", x->bindcol.GetString());
  EXPECT_EQ(96, x->groupSumm);
  EXPECT_EQ(-1, x->bindColIdx);
  EXPECT_EQ(33, x->summ);
  EXPECT_EQ(0, x->orgIdx);
  // A group dataset is physical and has a bound dataset: the index of
  // bindcol there.
  Ox_Dataset group(65001u, 1);
  group.logicalType = 35;
  group.groupFlag = 1;
  group.bindDataset = &base;
  EXPECT_EQ(0, group.AddColumn(Ox_AString("y"), 1, 0, 1, Ox_AString("SRC1"), 64));
  EXPECT_EQ(1, group.GetColInfo(0)->bindColIdx);
}

TEST(DatasetColumns, MapValueOverloadsUseOwnLists) {
  Ox_Dataset ds(65001u, 1);
  EXPECT_EQ(0, ds.AddColumn("a", 1, 5, "row.a", 16));
  EXPECT_EQ(1, ds.AddColumn(Ox_AString("b"), 2, 0, Ox_AString("row.b"), 1));
  EXPECT_STREQ("row.a", ds.GetColInfo(0)->mapValue.GetString());
  EXPECT_EQ(16, ds.GetColInfo(0)->summ);
  EXPECT_EQ(1, ds.GetColInfo(1)->orgIdx);
  EXPECT_EQ(0, ds.AddColumn("A", 1, 5, "x", 1));
  // A view with no bound dataset still adds to its own list.
  Ox_Dataset view(65001u, 1);
  view.logicalType = 32;
  EXPECT_EQ(0, view.AddColumn("v", 1, 0, "m", 1));
  EXPECT_EQ(1, view.cols.Count());
  EXPECT_EQ(-1, view.GetColCount());
}

TEST(DatasetColumns, ColInfoOverload) {
  Ox_Dataset ds(65001u, 1);
  EXPECT_EQ(-1, ds.AddColumn(static_cast<const Ox_ColInfo *>(nullptr)));
  ds.AddColumn("first", 1, 0, 1);
  Ox_ColInfo c(Ox_AString("second"));
  c.orgIdx = 9;
  c.type = 8;
  EXPECT_EQ(1, ds.AddColumn(&c));
  const Ox_ColInfo *stored = ds.GetColInfo(1);
  EXPECT_NE(&c, stored);  // a copy
  EXPECT_EQ(8, stored->type);
  EXPECT_EQ(1, stored->orgIdx);  // replaced by the normal count
  EXPECT_EQ(9, c.orgIdx);
  EXPECT_EQ(0, ds.AddColumn(&c));  // exists
}

TEST(DatasetColumns, AddColumnGivesRowsANullCell) {
  Ox_Dataset ds(65001u, 1);
  ds.AddColumn("a", 1, 0, 1);
  ds.AddColumn("b", 1, 0, 1);
  Ox_Record row(2);
  row.GetSafeItem(0)->Set("a0");
  row.GetSafeItem(1)->Set("b0");
  ds.recs.Add(&row);
  ds.recs.Add(&row);
  Ox_Record original(2);
  original.GetSafeItem(0)->Set("org");
  original.GetSafeItem(1)->Set(5L);
  ds.orgBuff.Add(&original);
  // A row with more cells than columns: the cell at 2 moves to 3.
  Ox_Record wide(3);
  wide.GetSafeItem(2)->Set("extra");
  ds.recs.Add(&wide);
  // A row shorter than the new position stays as it is.
  Ox_Record narrow(1);
  ds.recs.Add(&narrow);
  EXPECT_EQ(2, ds.AddColumn("c", 1, 0, 1));
  for (int r = 0; r < 2; ++r) {
    const Ox_Record *rec = ds.recs.GetItem(r);
    ASSERT_EQ(3, rec->Count());
    EXPECT_STREQ("a0", rec->GetItem(0)->ToString().GetString());
    EXPECT_STREQ("b0", rec->GetItem(1)->ToString().GetString());
    EXPECT_EQ(0, rec->GetItem(2)->GetType());
  }
  const Ox_Record *org = ds.orgBuff.GetItem(0);
  ASSERT_EQ(3, org->Count());
  EXPECT_EQ(5, org->GetItem(1)->ToInteger());
  EXPECT_EQ(0, org->GetItem(2)->GetType());
  const Ox_Record *w = ds.recs.GetItem(2);
  ASSERT_EQ(4, w->Count());
  EXPECT_EQ(0, w->GetItem(2)->GetType());
  EXPECT_STREQ("extra", w->GetItem(3)->ToString().GetString());
  EXPECT_EQ(1, ds.recs.GetItem(3)->Count());
}

TEST(DatasetColumns, DuplicateAddLeavesRowsAlone) {
  Ox_Dataset ds(65001u, 1);
  ds.AddColumn("a", 1, 0, 1);
  Ox_Record row(1);
  ds.recs.Add(&row);
  EXPECT_EQ(0, ds.AddColumn("A", 1, 0, 1));
  EXPECT_EQ(0, ds.AddColumn("a", 1, 0, "m", 1));
  EXPECT_EQ(1, ds.recs.GetItem(0)->Count());
}

TEST(DatasetColumns, IndexCountsAndIds) {
  Ox_Dataset ds(65001u, 1);
  ds.AddColumn("a", 1, 0, 1);
  ds.AddColumn("b", 1, 0, 1);
  ds.constCols.AddVariable("k0", Ox_Variant(1L));
  ds.constCols.AddVariable("k1", Ox_Variant(2L));
  EXPECT_EQ(2, ds.GetNormalCount());
  EXPECT_EQ(2, ds.GetConstCount());
  EXPECT_EQ(4, ds.GetColCount());
  EXPECT_EQ(1, ds.GetColIndex("B"));
  EXPECT_EQ(3, ds.GetColIndex("K1"));  // constant 1 is number 2 + 1
  EXPECT_EQ(-1, ds.GetColIndex("zz"));
  EXPECT_EQ(-1, ds.GetColIndex(nullptr));
  EXPECT_STREQ("a", ds.GetColID(0).GetString());
  EXPECT_STREQ("k0", ds.GetColID(2).GetString());
  EXPECT_EQ(&_OxNullString, &ds.GetColID(4));
  EXPECT_EQ(&_OxNullString, &ds.GetColID(-1));
  EXPECT_NE(nullptr, ds.GetColInfo(1));
  EXPECT_EQ(nullptr, ds.GetColInfo(2));  // constants have no description
  EXPECT_EQ(nullptr, ds.GetColInfo(-1));
  EXPECT_EQ(ds.GetColInfo(0), ds.GetSafeColInfo(0));
  EXPECT_EQ(nullptr, ds.GetSafeColInfo(3));
}

TEST(DatasetColumns, ColIdxByOrder) {
  Ox_Dataset ds(65001u, 1);
  ds.AddColumn("a", 1, 0, 1);
  ds.AddColumn("b", 1, 0, 1);
  ds.AddColumn("c", 1, 0, 1);
  ds.constCols.AddVariable("k", Ox_Variant(1L));
  // Declared order: b, c, a.
  ds.GetSafeColInfo(0)->SetOrgIdx(2);
  ds.GetSafeColInfo(1)->SetOrgIdx(0);
  ds.GetSafeColInfo(2)->SetOrgIdx(1);
  EXPECT_EQ(1, ds.GetColIdxByOrder(0));
  EXPECT_EQ(2, ds.GetColIdxByOrder(1));
  EXPECT_EQ(0, ds.GetColIdxByOrder(2));
  EXPECT_EQ(3, ds.GetColIdxByOrder(3));  // a constant is itself
  EXPECT_EQ(-1, ds.GetColIdxByOrder(4));
  EXPECT_EQ(-1, ds.GetColIdxByOrder(-1));
  ds.GetSafeColInfo(2)->SetOrgIdx(7);  // no column declared at 1 now
  EXPECT_EQ(-1, ds.GetColIdxByOrder(1));
}

TEST(DatasetColumns, AppendColList) {
  Ox_ColList list;
  Ox_ColInfo a(Ox_AString("a"));
  Ox_ColInfo b(Ox_AString("b"));
  list.Add(&a);
  list.Add(&b);
  Ox_Dataset ds(65001u, 1);
  ds.AddColumn("A", 1, 0, 1);
  ds.constCols.AddVariable("k", Ox_Variant(1L));
  EXPECT_EQ(3, ds.AppendColList(&list));  // a exists; b added; plus k
  EXPECT_EQ(1, ds.GetColInfo(1)->orgIdx);
  EXPECT_EQ(3, ds.AppendColList(nullptr));
  Ox_Dataset view(65001u, 1);
  view.logicalType = 32;
  EXPECT_EQ(-1, view.AppendColList(&list));
}

// --- Bind chain ------------------------------------------------------------

TEST(DatasetBindChain, LogicalWithoutBoundDataset) {
  Ox_Dataset view(65001u, 1);
  view.logicalType = 32;
  EXPECT_EQ(-1, view.GetColCount());
  EXPECT_EQ(-1, view.GetNormalCount());
  EXPECT_EQ(-1, view.GetConstCount());
  EXPECT_EQ(-1, view.GetColIndex("a"));
  EXPECT_EQ(-1, view.GetColIdxByOrder(0));
  EXPECT_EQ(&_OxNullString, &view.GetColID(0));
  EXPECT_EQ(nullptr, view.GetColInfo(0));
  EXPECT_EQ(nullptr, view.GetSafeColInfo(0));
  EXPECT_EQ(-1, view.AddColumn("a", 1, 0, 1));
  EXPECT_EQ(-1, view.AddColumn("a", 1, 0, 1, Ox_AString("b"), 64));
  Ox_ColInfo c(Ox_AString("c"));
  EXPECT_EQ(-1, view.AddColumn(&c));
}

TEST(DatasetBindChain, ViewsReachTheBoundColumns) {
  Ox_Dataset base(65001u, 1);
  base.AddColumn("a", 1, 0, 1);
  base.constCols.AddVariable("k", Ox_Variant(1L));
  Ox_Dataset view(65001u, 1);
  view.logicalType = 32;
  view.bindDataset = &base;
  Ox_Dataset outer(65001u, 1);
  outer.logicalType = 33;  // a pivot without its flag is not physical
  outer.bindDataset = &view;
  EXPECT_EQ(2, outer.GetColCount());
  EXPECT_EQ(1, outer.GetColIndex("K"));
  EXPECT_STREQ("a", outer.GetColID(0).GetString());
  // AddColumn goes down the chain; the binding arguments are dropped.
  EXPECT_EQ(1, outer.AddColumn("b", 2, 0, 1, Ox_AString("a"), 32));
  const Ox_ColInfo *b = base.GetColInfo(1);
  ASSERT_NE(nullptr, b);
  EXPECT_EQ(2, b->type);
  EXPECT_EQ(0, b->bindcol.GetLength());
  EXPECT_EQ(64, b->groupSumm);
  EXPECT_EQ(0, view.cols.Count());
  Ox_ColInfo c(Ox_AString("c"));
  EXPECT_EQ(2, view.AddColumn(&c));
  EXPECT_EQ(3, base.GetNormalCount());
}

TEST(DatasetBindChain, CircularChainOwnsNoColumns) {
  Ox_Dataset a(65001u, 1);
  Ox_Dataset b(65001u, 1);
  Ox_Dataset c(65001u, 1);
  a.logicalType = b.logicalType = c.logicalType = 32;
  a.bindDataset = &b;
  b.bindDataset = &c;
  c.bindDataset = &a;
  EXPECT_EQ(-1, a.GetColCount());
  EXPECT_EQ(-1, a.AppendColList(nullptr));
  EXPECT_EQ(-1, a.AddColumn("x", 1, 0, 1));
  Ox_ColInfo x(Ox_AString("x"));
  EXPECT_EQ(-1, b.AddColumn(&x));
  Ox_Dataset self(65001u, 1);
  self.logicalType = 32;
  self.bindDataset = &self;
  EXPECT_EQ(-1, self.GetColCount());
}

}  // namespace
