// Ox_Variant holding objects: the holder's counting, ToString and the
// conversions through the default property.
#include <gtest/gtest.h>

#include "Ox_Object.h"
#include "Ox_Variant.h"

namespace {

// A host object with a configurable default property and string hook.
class TestObject : public Ox_Object {
 public:
  explicit TestObject(const char *id) : m_id(id) {}
  int Count() const { return refCount; }

  const char *defaultProp = nullptr;  // name of the default property
  Ox_Variant propertyValue;           // what GetProperty reads
  long propertyStatus = 0;            // what GetProperty returns
  const char *hookText = nullptr;     // text of the string hook, if any

  void Destroy() override {}
  Ox_AString GetID() const override { return m_id; }
  long GetProperty(const Ox_AString &, const Ox_VariantList *,
                   Ox_Variant &value) override {
    value.Set(propertyValue);
    return propertyStatus;
  }
  long SetProperty(const Ox_AString &, const Ox_VariantList *,
                   const Ox_Variant &) override {
    return -1;
  }
  long CallMethod(const Ox_AString &, const Ox_VariantList *,
                  Ox_Variant &) override {
    return -1;
  }
  int IsValidComponent(Ox_Object *) override { return 1; }
  const char *GetDefaultProp() const override { return defaultProp; }
  int GetItemCount() const override { return 0; }
  long GetItem(int, Ox_Variant &) override { return -1; }
  long GetItem(const Ox_AString &, Ox_Variant &) override { return -1; }
  int ToStringHook(Ox_AString &text) override {
    if (hookText == nullptr) return 0;
    text.Set(hookText);
    return 1;
  }

 private:
  Ox_AString m_id;
};

TEST(VariantObject, SetObjectCountsAndClearReleases) {
  TestObject context("ctx");
  TestObject object("obj");
  {
    Ox_Variant v;
    v.SetObject(&context, nullptr, &object);
    EXPECT_EQ(16384, v.GetType());
    EXPECT_STREQ("object", v.GetTypeString());
    EXPECT_EQ(&object, v.GetConstObject()->object);
    EXPECT_EQ(2, object.Count());  // counted: the context differs
    Ox_Variant copy(v);
    EXPECT_EQ(3, object.Count());
    copy.Clear();
    EXPECT_EQ(2, object.Count());
  }
  EXPECT_EQ(1, object.Count());
}

TEST(VariantObject, ReferenceToObjectIsACopy) {
  TestObject context("ctx");
  TestObject object("obj");
  Ox_Variant holder;
  holder.SetObject(&context, nullptr, &object);
  Ox_Variant ref;
  ref.SetReference(&holder);
  EXPECT_EQ(16384, ref.GetType());
  EXPECT_EQ(&object, ref.GetObjectA()->object);
  EXPECT_EQ(3, object.Count());
}

TEST(VariantObject, ToStringUsesHookThenPropertyThenLabel) {
  TestObject object("obj");
  Ox_Variant v;
  v.SetObject(nullptr, nullptr, &object);
  // No hook, no default property: a label with the identifier.
  EXPECT_STREQ("[object:obj]", v.ToString().GetString());
  // The default property's text.
  object.defaultProp = "Value";
  object.propertyValue.Set(42L);
  EXPECT_STREQ("42", v.ToString().GetString());
  // A failing property falls back to the label.
  object.propertyStatus = -1;
  EXPECT_STREQ("[object:obj]", v.ToString().GetString());
  // The hook's own text stands.
  object.hookText = "hooked";
  EXPECT_STREQ("hooked", v.ToString().GetString());
}

TEST(VariantObject, LabelWithoutIdentifier) {
  TestObject object("");
  Ox_Variant v;
  v.SetObject(nullptr, nullptr, &object);
  EXPECT_STREQ("[object:Unknown]", v.ToString().GetString());
  Ox_Variant empty;
  empty.Set(Ox_ObjectHolder());
  EXPECT_EQ(16384, empty.GetType());
  EXPECT_STREQ("", empty.ToString().GetString());
}

TEST(VariantObject, ConversionsReadDefaultProperty) {
  TestObject object("obj");
  object.defaultProp = "Value";
  object.propertyValue.Set(2.5);
  Ox_Variant v;
  v.SetObject(nullptr, nullptr, &object);
  EXPECT_EQ(2, v.ToInteger());
  EXPECT_EQ(2.5, v.ToDouble());
  EXPECT_EQ(25000u, v.ToCurrency().low);
  EXPECT_EQ(2.5, v.ToDateTime().ToDouble());
  // No default property, or a failing read: zero.
  object.propertyStatus = 1;
  EXPECT_EQ(0, v.ToInteger());
  object.propertyStatus = 0;
  object.defaultProp = nullptr;
  EXPECT_EQ(0.0, v.ToDouble());
}

TEST(VariantObject, EqualityByHolderCompare) {
  TestObject object("obj");
  TestObject other("other");
  Ox_Variant a;
  a.SetObject(nullptr, nullptr, &object);
  Ox_Variant b;
  b.SetObject(nullptr, nullptr, &object);
  Ox_Variant c;
  c.SetObject(nullptr, nullptr, &other);
  EXPECT_TRUE(a == b);
  EXPECT_FALSE(a == c);
}

TEST(VariantObject, ChangeTypeToTextUsesToString) {
  TestObject object("obj");
  Ox_Variant v;
  v.SetObject(nullptr, nullptr, &object);
  v.ChangeType(8);
  EXPECT_EQ(8, v.GetType());
  EXPECT_STREQ("[object:obj]", v.GetConstStr()->GetString());
}

}  // namespace
