// Constant columns of Ox_Dataset: one named value for the whole dataset,
// numbered behind the normal columns.
#include <gtest/gtest.h>

#include <string>

#include "Ox_Dataset.h"

namespace {

std::string Str(const Ox_Variant *v) {
  if (v == nullptr) return "<null pointer>";
  if (v->GetType() != Ox_Variant::kString) return "<type " + std::to_string(v->GetType()) + ">";
  return v->GetConstStr()->GetString();
}

// A view bound to `base`, as binding leaves it: logical type 32, the bound
// dataset, and the bound dataset's constants as the list in use.
void BindView(Ox_Dataset &view, Ox_Dataset &base) {
  view.logicalType = 32;
  view.bindDataset = &base;
  view.pConsts = &base.constCols;
}

// --- Reading ------------------------------------------------------------------------

TEST(ConstColumns, NumberedBehindTheNormalColumns) {
  Ox_Dataset ds(1252u, 1);
  ds.AddColumn("n0", 1, 10, 1);
  ds.AddColumn("n1", 2, 0, 1);
  EXPECT_EQ(0, ds.AddConstColumn("k0", Ox_Variant(10L)));
  EXPECT_EQ(1, ds.AddConstColumn("k1", Ox_Variant("t")));
  EXPECT_EQ(2, ds.GetNormalCount());
  EXPECT_EQ(2, ds.GetConstCount());
  EXPECT_EQ(4, ds.GetColCount());
  // Constant k has the number normal count + k.
  EXPECT_EQ(2, ds.GetColIndex("K0"));
  EXPECT_EQ(3, ds.GetColIndex("k1"));
  EXPECT_STREQ("k1", ds.GetColID(3).GetString());
  EXPECT_EQ(&_OxNullString, &ds.GetColID(4));
  // An identifier of a constant is refused as a normal column.
  EXPECT_EQ(0, ds.AddColumn("K1", 1, 10, 1));
  EXPECT_EQ(2, ds.GetNormalCount());
}

TEST(ConstColumns, GetConstColIDInAndOutOfRange) {
  Ox_Dataset ds(1252u, 1);
  ds.AddConstColumn("First", Ox_Variant(1L));
  ds.AddConstColumn("second", Ox_Variant(2L));
  EXPECT_STREQ("First", ds.GetConstColID(0).GetString());
  EXPECT_STREQ("second", ds.GetConstColID(1).GetString());
  EXPECT_EQ(&_OxNullString, &ds.GetConstColID(2));
  EXPECT_EQ(&_OxNullString, &ds.GetConstColID(-1));
}

TEST(ConstColumns, GetConstColumnByIdentifierAndNumber) {
  Ox_Dataset ds(1252u, 1);
  ds.AddConstColumn("rate", Ox_Variant(1.5));
  const Ox_Variant *byName = ds.GetConstColumn("RATE");
  ASSERT_NE(nullptr, byName);
  EXPECT_DOUBLE_EQ(1.5, byName->ToDouble());
  EXPECT_EQ(byName, ds.GetConstColumn(0));
  EXPECT_EQ(nullptr, ds.GetConstColumn("none"));
  EXPECT_EQ(nullptr, ds.GetConstColumn(static_cast<const char *>(nullptr)));
}

TEST(ConstColumns, GetConstColumnOutOfRangeIsNull) {
  Ox_Dataset ds(1252u, 1);
  EXPECT_EQ(nullptr, ds.GetConstColumn(0));
  ds.AddConstColumn("k", Ox_Variant(1L));
  EXPECT_EQ(nullptr, ds.GetConstColumn(1));
  EXPECT_EQ(nullptr, ds.GetConstColumn(-1));
  EXPECT_EQ(nullptr, ds.GetConstColumn(1000000));
}

TEST(ConstColumns, ReadsOnAViewComeFromTheBoundDataset) {
  Ox_Dataset base(1252u, 1);
  base.AddConstColumn("k", Ox_Variant(7L));
  Ox_Dataset view(1252u, 1);
  BindView(view, base);
  ASSERT_NE(nullptr, view.GetConstColumn("k"));
  EXPECT_EQ(7, view.GetConstColumn("k")->ToInteger());
  EXPECT_EQ(7, view.GetConstColumn(0)->ToInteger());
  EXPECT_STREQ("k", view.GetConstColID(0).GetString());

  // A view with no bound dataset has no constants.
  Ox_Dataset loose(1252u, 1);
  loose.logicalType = 32;
  EXPECT_EQ(nullptr, loose.GetConstColumn(0));
  EXPECT_EQ(nullptr, loose.GetConstColumn("k"));
  EXPECT_EQ(&_OxNullString, &loose.GetConstColID(0));
}

// --- AddConstColumn and AddConstStr -------------------------------------------

TEST(ConstColumns, AddConstColumnFourOverloads) {
  Ox_Dataset ds(1252u, 1);
  const Ox_Variant one(1L);
  EXPECT_EQ(0, ds.AddConstColumn(Ox_AString("a"), one));
  EXPECT_EQ(1, ds.AddConstColumn(Ox_AString("b"), &one));
  EXPECT_EQ(2, ds.AddConstColumn("c", Ox_Variant("x")));
  EXPECT_EQ(3, ds.AddConstColumn("d", &one));
  EXPECT_EQ(4, ds.GetConstCount());
  EXPECT_EQ("x", Str(ds.GetConstColumn("c")));
  EXPECT_EQ(1, ds.GetConstColumn("d")->ToInteger());
  // A null value pointer is the empty (null) variant.
  EXPECT_EQ(4, ds.AddConstColumn("e", static_cast<const Ox_Variant *>(nullptr)));
  EXPECT_EQ(Ox_Variant::kNull, ds.GetConstColumn("e")->GetType());
  EXPECT_EQ(5, ds.AddConstColumn(Ox_AString("f"), static_cast<const Ox_Variant *>(nullptr)));
}

TEST(ConstColumns, AddConstColumnRefusals) {
  Ox_Dataset ds(1252u, 1);
  EXPECT_EQ(-1, ds.AddConstColumn(Ox_AString(), Ox_Variant(1L)));
  EXPECT_EQ(-1, ds.AddConstColumn("", Ox_Variant(1L)));
  EXPECT_EQ(-1, ds.AddConstColumn(static_cast<const char *>(nullptr), Ox_Variant(1L)));
  EXPECT_EQ(-1, ds.AddConstColumn(static_cast<const char *>(nullptr),
                                  static_cast<const Ox_Variant *>(nullptr)));
  EXPECT_EQ(0, ds.GetConstCount());
}

TEST(ConstColumns, AddConstColumnWithExistingIdentifierReplaces) {
  Ox_Dataset ds(1252u, 1);
  EXPECT_EQ(0, ds.AddConstColumn("Total", Ox_Variant(1L)));
  EXPECT_EQ(1, ds.AddConstColumn("other", Ox_Variant(2L)));
  // Insert-or-replace: same position, first spelling, new value.
  EXPECT_EQ(0, ds.AddConstColumn("TOTAL", Ox_Variant(5L)));
  EXPECT_EQ(2, ds.GetConstCount());
  EXPECT_STREQ("Total", ds.GetConstColID(0).GetString());
  EXPECT_EQ(5, ds.GetConstColumn(0)->ToInteger());
}

TEST(ConstColumns, AddConstColumnOnAViewGoesToTheListInUse) {
  Ox_Dataset base(1252u, 1);
  Ox_Dataset view(1252u, 1);
  BindView(view, base);
  EXPECT_EQ(0, view.AddConstColumn("k", Ox_Variant(3L)));
  EXPECT_EQ(1, view.AddConstStr("s", "txt", 3));
  EXPECT_EQ(2, base.constCols.Count());
  EXPECT_EQ(0, view.constCols.Count());
  EXPECT_EQ(3, base.GetConstColumn("k")->ToInteger());
  EXPECT_EQ("txt", Str(base.GetConstColumn("s")));
}

TEST(ConstColumns, AddConstStrFourOverloads) {
  Ox_Dataset ds(1252u, 1);
  EXPECT_EQ(0, ds.AddConstStr(Ox_AString("a"), Ox_AString("12")));
  EXPECT_EQ(Ox_Variant::kString, ds.GetConstColumn(0)->GetType());
  EXPECT_EQ("12", Str(ds.GetConstColumn(0)));
  EXPECT_EQ(1, ds.AddConstStr("b", Ox_AString("bee")));
  EXPECT_EQ("bee", Str(ds.GetConstColumn("b")));
  // The length is not used: the whole text is taken.
  EXPECT_EQ(2, ds.AddConstStr(Ox_AString("c"), "0123456789", 3));
  EXPECT_EQ("0123456789", Str(ds.GetConstColumn("c")));
  EXPECT_EQ(3, ds.AddConstStr("d", "abcdef", 2));
  EXPECT_EQ("abcdef", Str(ds.GetConstColumn("d")));
  // Replacement and refusals as with AddConstColumn.
  EXPECT_EQ(0, ds.AddConstStr("A", Ox_AString("new")));
  EXPECT_EQ("new", Str(ds.GetConstColumn(0)));
  EXPECT_EQ(-1, ds.AddConstStr(static_cast<const char *>(nullptr), "x", 1));
  EXPECT_EQ(-1, ds.AddConstStr("", Ox_AString("x")));
  EXPECT_EQ(4, ds.GetConstCount());
}

// --- SetConstColumn -----------------------------------------------------------

TEST(ConstColumns, SetConstColumnByNumberFiveValueForms) {
  Ox_Dataset ds(1252u, 1);
  ds.AddConstColumn("k", Ox_Variant("start"));
  const Ox_Variant value(42L);
  EXPECT_EQ(1, ds.SetConstColumn(0, &value));
  EXPECT_EQ(42, ds.GetConstColumn(0)->ToInteger());
  EXPECT_EQ(1, ds.SetConstColumn(0, 7L));
  EXPECT_EQ(Ox_Variant::kInteger, ds.GetConstColumn(0)->GetType());
  EXPECT_EQ(7, ds.GetConstColumn(0)->ToInteger());
  EXPECT_EQ(1, ds.SetConstColumn(0, 2.25));
  EXPECT_EQ(Ox_Variant::kDecimal, ds.GetConstColumn(0)->GetType());
  EXPECT_DOUBLE_EQ(2.25, ds.GetConstColumn(0)->ToDouble());
  EXPECT_EQ(1, ds.SetConstColumn(0, Ox_AString("text")));
  EXPECT_EQ("text", Str(ds.GetConstColumn(0)));
  // The (text, length) form keeps to the length.
  EXPECT_EQ(1, ds.SetConstColumn(0, "abcdef", 3));
  EXPECT_EQ("abc", Str(ds.GetConstColumn(0)));
  // A null value pointer makes the constant null.
  EXPECT_EQ(1, ds.SetConstColumn(0, static_cast<const Ox_Variant *>(nullptr)));
  EXPECT_EQ(Ox_Variant::kNull, ds.GetConstColumn(0)->GetType());
  EXPECT_EQ(1, ds.GetConstCount());
}

TEST(ConstColumns, SetConstColumnByIdentifierFiveValueForms) {
  Ox_Dataset ds(1252u, 1);
  ds.AddConstColumn("Key", Ox_Variant("start"));
  const Ox_Variant value(42L);
  EXPECT_EQ(1, ds.SetConstColumn("KEY", &value));
  EXPECT_EQ(42, ds.GetConstColumn("key")->ToInteger());
  EXPECT_EQ(1, ds.SetConstColumn("key", 8L));
  EXPECT_EQ(Ox_Variant::kInteger, ds.GetConstColumn(0)->GetType());
  EXPECT_EQ(8, ds.GetConstColumn(0)->ToInteger());
  EXPECT_EQ(1, ds.SetConstColumn("Key", 0.5));
  EXPECT_DOUBLE_EQ(0.5, ds.GetConstColumn(0)->ToDouble());
  EXPECT_EQ(1, ds.SetConstColumn("Key", Ox_AString("s")));
  EXPECT_EQ("s", Str(ds.GetConstColumn(0)));
  EXPECT_EQ(1, ds.SetConstColumn("Key", "xyz", 2));
  EXPECT_EQ("xy", Str(ds.GetConstColumn(0)));
  EXPECT_EQ(1, ds.SetConstColumn("Key", static_cast<const Ox_Variant *>(nullptr)));
  EXPECT_EQ(Ox_Variant::kNull, ds.GetConstColumn(0)->GetType());
  // The spelling of the identifier is untouched.
  EXPECT_STREQ("Key", ds.GetConstColID(0).GetString());
}

TEST(ConstColumns, SetConstColumnPlainIntegers) {
  Ox_Dataset ds(1252u, 1);
  ds.AddConstColumn("k", Ox_Variant(1L));
  EXPECT_EQ(1, ds.SetConstColumn(0, 5));
  EXPECT_EQ(5, ds.GetConstColumn(0)->ToInteger());
  EXPECT_EQ(1, ds.SetConstColumn("k", 6));
  EXPECT_EQ(6, ds.GetConstColumn(0)->ToInteger());
}

TEST(ConstColumns, SetConstColumnUnknownIdentifierOrNumberGivesZero) {
  Ox_Dataset ds(1252u, 1);
  ds.AddConstColumn("k", Ox_Variant(1L));
  const Ox_Variant value(2L);
  EXPECT_EQ(0, ds.SetConstColumn("none", &value));
  EXPECT_EQ(0, ds.SetConstColumn("none", 2L));
  EXPECT_EQ(0, ds.SetConstColumn("none", 2.0));
  EXPECT_EQ(0, ds.SetConstColumn("none", Ox_AString("x")));
  EXPECT_EQ(0, ds.SetConstColumn("none", "x", 1));
  EXPECT_EQ(0, ds.SetConstColumn(static_cast<const char *>(nullptr), &value));
  EXPECT_EQ(0, ds.SetConstColumn(1, &value));
  EXPECT_EQ(0, ds.SetConstColumn(-1, &value));
  EXPECT_EQ(0, ds.SetConstColumn(1, 2L));
  EXPECT_EQ(0, ds.SetConstColumn(-1, 2.0));
  EXPECT_EQ(0, ds.SetConstColumn(5, Ox_AString("x")));
  EXPECT_EQ(0, ds.SetConstColumn(5, "x", 1));
  // Nothing was added or changed.
  EXPECT_EQ(1, ds.GetConstCount());
  EXPECT_EQ(1, ds.GetConstColumn(0)->ToInteger());
}

TEST(ConstColumns, SetConstColumnOnAViewGivesZeroEvenIfTheBoundSetHasIt) {
  Ox_Dataset base(1252u, 1);
  base.AddConstColumn("k", Ox_Variant(1L));
  Ox_Dataset view(1252u, 1);
  BindView(view, base);
  ASSERT_NE(nullptr, view.GetConstColumn("k"));  // the view sees it
  const Ox_Variant value(9L);
  EXPECT_EQ(0, view.SetConstColumn("k", &value));
  EXPECT_EQ(0, view.SetConstColumn("k", 9L));
  EXPECT_EQ(0, view.SetConstColumn("k", 9.0));
  EXPECT_EQ(0, view.SetConstColumn("k", Ox_AString("9")));
  EXPECT_EQ(0, view.SetConstColumn("k", "9", 1));
  EXPECT_EQ(0, view.SetConstColumn(0, &value));
  EXPECT_EQ(0, view.SetConstColumn(0, 9L));
  EXPECT_EQ(0, view.SetConstColumn(0, 9.0));
  EXPECT_EQ(0, view.SetConstColumn(0, Ox_AString("9")));
  EXPECT_EQ(0, view.SetConstColumn(0, "9", 1));
  EXPECT_EQ(1, base.GetConstColumn("k")->ToInteger());
}

TEST(ConstColumns, SetConstColumnOnAPivotViewGivesZero) {
  Ox_Dataset base(1252u, 1);
  base.AddConstColumn("k", Ox_Variant(1L));
  Ox_Dataset pivot(1252u, 1);
  pivot.logicalType = 33;
  pivot.bindDataset = &base;
  pivot.pConsts = &base.constCols;
  EXPECT_EQ(0, pivot.SetConstColumn(0, 2L));
  EXPECT_EQ(1, base.GetConstColumn(0)->ToInteger());
}

TEST(ConstColumns, SetConstColumnWritesThroughAReference) {
  // A constant entered as a reference writes the caller's variant.
  Ox_Dataset ds(1252u, 1);
  Ox_Variant target(1L);
  ASSERT_EQ(0, ds.constCols.AddRefVariable(Ox_AString("r"), &target));
  EXPECT_EQ(1, ds.SetConstColumn("r", 4L));
  EXPECT_EQ(4, target.ToInteger());
}

// --- ClearAll -----------------------------------------------------------------

TEST(ConstColumns, ClearAllDropsTheConstants) {
  Ox_Dataset ds(1252u, 1);
  ds.AddColumn("n", 1, 10, 1);
  ds.AddConstColumn("k", Ox_Variant(1L));
  ds.ClearAll();
  EXPECT_EQ(0, ds.GetConstCount());
  EXPECT_EQ(0, ds.GetColCount());
  EXPECT_EQ(nullptr, ds.GetConstColumn("k"));
  EXPECT_EQ(-1, ds.GetColIndex("k"));
}

}  // namespace
