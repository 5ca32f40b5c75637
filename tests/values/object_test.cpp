// Ox_Object and Ox_ObjectHolder: counting, the object tree, the container
// registry, the holder's counting rule, Compare and IsValid.
#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "Ox_Object.h"
#include "Ox_Variant.h"

namespace {

// A host object that records what the library asks of it.
class TestObject : public Ox_Object {
 public:
  explicit TestObject(const char *id, Ox_Object *parentObject = nullptr)
      : Ox_Object(parentObject), m_id(id) {}

  void Destroy() override { ++destroyed; }
  Ox_AString GetID() const override { return m_id; }
  long GetProperty(const Ox_AString &name, const Ox_VariantList *,
                   Ox_Variant &value) override {
    if (name.Compare("value") != 0) return -2;
    value.Set(42L);
    return 0;
  }
  long SetProperty(const Ox_AString &, const Ox_VariantList *,
                   const Ox_Variant &) override {
    return 7;
  }
  long CallMethod(const Ox_AString &, const Ox_VariantList *,
                  Ox_Variant &) override {
    return 8;
  }
  int IsValidComponent(Ox_Object *component) override {
    ++componentChecks;
    return component == validComponent ? 1 : 0;
  }
  const char *GetDefaultProp() const override { return "value"; }
  int GetItemCount() const override { return 3; }
  long GetItem(int index, Ox_Variant &) override { return index; }
  long GetItem(const Ox_AString &, Ox_Variant &) override { return 11; }
  int ToStringHook(Ox_AString &) override { return 0; }

  int Count() const { return refCount; }
  void SetCount(int count) { refCount = count; }

  int destroyed = 0;
  int componentChecks = 0;
  Ox_Object *validComponent = nullptr;

 private:
  Ox_AString m_id;
};

// A host object whose type and inner object are its own.
class TypedObject : public TestObject {
 public:
  TypedObject() : TestObject("typed") {}
  int GetObjType() const override { return 77; }
  void *GetInnerObject() const override {
    return const_cast<TypedObject *>(this);
  }
};

}  // namespace

TEST(Object, ConstructionCountsOneAndIsNoContainer) {
  TestObject object("a");
  EXPECT_EQ(object.Count(), 1);
  EXPECT_EQ(object.IsContainer(), 0);
  EXPECT_EQ(object.GetParentContext(), nullptr);
  // The bodies of slots 0 and 1.
  EXPECT_EQ(object.GetObjType(), 0);
  EXPECT_EQ(object.GetInnerObject(), nullptr);
  EXPECT_EQ(object.ReservedSlot7(), 0);
  EXPECT_EQ(object.ReservedSlot19(), 0);
}

TEST(Object, AddRefOnANegativeCountReturnsItUnchanged) {
  TestObject object("a");
  object.SetCount(-3);
  EXPECT_EQ(object.AddRef(), -3);
  EXPECT_EQ(object.Count(), -3);
  EXPECT_EQ(object.Release(), -3);
  EXPECT_EQ(object.destroyed, 0);
}

TEST(Object, ReleaseAtOneRunsDestroyOnce) {
  TestObject object("a");
  EXPECT_EQ(object.AddRef(), 2);
  EXPECT_EQ(object.Release(), 1);
  EXPECT_EQ(object.destroyed, 0);
  EXPECT_EQ(object.Release(), 0);
  EXPECT_EQ(object.destroyed, 1);
  // Below 1 the count comes back unchanged and nothing runs again.
  EXPECT_EQ(object.Release(), 0);
  EXPECT_EQ(object.destroyed, 1);
}

TEST(Object, CopyCopiesTheThreeFields) {
  TestObject parentObject("p");
  TestObject object("a", &parentObject);
  object.AddRef();
  TestObject copy(object);
  EXPECT_EQ(copy.Count(), 2);
  EXPECT_EQ(copy.GetParentContext(), &parentObject);
  TestObject other("b");
  other = object;
  EXPECT_EQ(other.Count(), 2);
  EXPECT_EQ(other.GetParentContext(), &parentObject);
}

TEST(Object, ParentsAndContainers) {
  TestObject root("root");
  TestObject middle("middle", &root);
  TestObject leaf("leaf", &middle);
  EXPECT_EQ(leaf.IsParent(&leaf), 1);  // an object is its own parent
  EXPECT_EQ(leaf.IsParent(&middle), 1);
  EXPECT_EQ(leaf.IsParent(&root), 1);
  EXPECT_EQ(root.IsParent(&leaf), 0);
  EXPECT_EQ(leaf.GetSelfContainer(), nullptr);
  EXPECT_EQ(leaf.GetContainer(), nullptr);
  root.SetAsContainer();
  EXPECT_EQ(root.IsContainer(), 1);
  EXPECT_EQ(leaf.GetSelfContainer(), &root);
  EXPECT_EQ(leaf.GetContainer(), &root);
  middle.SetAsContainer();
  EXPECT_EQ(leaf.GetContainer(), &middle);
  EXPECT_EQ(middle.GetSelfContainer(), &middle);
  EXPECT_EQ(middle.GetContainer(), &root);
  EXPECT_EQ(root.GetContainer(), nullptr);
  leaf.SetParent(&root);
  EXPECT_EQ(leaf.GetContainer(), &root);
}

TEST(Object, ContextPathJoinsIdentifiers) {
  TestObject root("form");
  TestObject middle("panel", &root);
  TestObject leaf("button", &middle);
  Ox_AString path;
  EXPECT_EQ(leaf.GetContextPath(path), 0);
  EXPECT_STREQ(path.GetString(), "form.panel.button");
  // The path is appended to what the text holds.
  Ox_AString prefixed("app");
  root.GetContextPath(prefixed);
  EXPECT_STREQ(prefixed.GetString(), "app.form");
}

TEST(Object, RegistryOfContainers) {
  TestObject object("c");
  EXPECT_EQ(Ox_Object::IsValid(&object), 0);
  EXPECT_EQ(Ox_Object::RegisterContainer(&object), 1);
  EXPECT_EQ(Ox_Object::RegisterContainer(&object), 0);
  EXPECT_EQ(Ox_Object::IsValid(&object), 1);
  EXPECT_EQ(Ox_Object::UnRegisterContainer(&object), 1);
  EXPECT_EQ(Ox_Object::UnRegisterContainer(&object), 0);
  EXPECT_EQ(Ox_Object::IsValid(&object), 0);
  EXPECT_EQ(Ox_Object::IsValid(nullptr), 0);
}

TEST(Object, DestructorUnregistersAContainer) {
  TestObject *container = new TestObject("c");
  container->SetAsContainer();
  Ox_Object *address = container;
  EXPECT_EQ(Ox_Object::IsValid(address), 1);
  delete container;
  EXPECT_EQ(Ox_Object::IsValid(address), 0);
}

TEST(ObjectHolder, CountsAnObjectReachedThroughAComponent) {
  TestObject context("ctx"), component("comp"), object("obj");
  {
    Ox_ObjectHolder holder;
    holder.Set(&context, &component, &object);
    EXPECT_TRUE(holder.IsCounted());
    EXPECT_EQ(object.Count(), 2);
    Ox_ObjectHolder copy(holder);
    EXPECT_EQ(object.Count(), 3);
    Ox_ObjectHolder assigned;
    assigned = holder;
    EXPECT_EQ(object.Count(), 4);
    assigned.Clear();
    EXPECT_EQ(object.Count(), 3);
    EXPECT_EQ(assigned.GetObjectA(), nullptr);
    EXPECT_EQ(assigned.GetContext(), nullptr);
    EXPECT_EQ(assigned.GetComponent(), nullptr);
  }
  EXPECT_EQ(object.Count(), 1);
  EXPECT_EQ(object.destroyed, 0);
}

TEST(ObjectHolder, ObjectThatIsItsOwnComponentIsNotCounted) {
  TestObject context("ctx"), object("obj");
  Ox_ObjectHolder holder;
  holder.Set(&context, &object, &object);
  EXPECT_FALSE(holder.IsCounted());
  EXPECT_EQ(object.Count(), 1);
  holder.Clear();
  EXPECT_EQ(object.Count(), 1);
  EXPECT_EQ(object.destroyed, 0);
  // A null object with a component takes the component: not counted.
  holder.Set(&context, &object, nullptr);
  EXPECT_EQ(holder.GetObjectA(), &object);
  EXPECT_EQ(object.Count(), 1);
  holder.Clear();
  EXPECT_EQ(object.Count(), 1);
}

TEST(ObjectHolder, ObjectThatIsItsOwnContextIsNotCounted) {
  TestObject object("obj"), context("ctx");
  Ox_ObjectHolder holder;
  holder.Set(&object, nullptr, &object);
  EXPECT_EQ(object.Count(), 1);
  holder.Set(nullptr, nullptr, &object);
  EXPECT_EQ(object.Count(), 1);
  // Another context and no component: counted.
  holder.Set(&context, nullptr, &object);
  EXPECT_EQ(object.Count(), 2);
  holder.Clear();
  EXPECT_EQ(object.Count(), 1);
}

TEST(ObjectHolder, SetFromPointer) {
  TestObject context("ctx"), component("comp"), object("obj");
  Ox_ObjectHolder source;
  source.Set(&context, &component, &object);
  Ox_ObjectHolder target;
  target.Set(&source);
  EXPECT_EQ(target.GetObjectA(), &object);
  EXPECT_EQ(object.Count(), 3);
  target.Set(&target);  // no-op on self
  EXPECT_EQ(object.Count(), 3);
  target.Set(static_cast<const Ox_ObjectHolder *>(nullptr));
  EXPECT_EQ(target.GetObjectA(), nullptr);
  EXPECT_EQ(object.Count(), 2);
}

TEST(ObjectHolder, FieldSettersAndAccessors) {
  TestObject context("ctx"), component("comp");
  Ox_ObjectHolder holder;
  holder.SetContext(&context);
  EXPECT_EQ(holder.GetContext(), &context);
  EXPECT_EQ(holder.GetComponent(), &context);  // the context stands in
  holder.SetComponent(&component);
  EXPECT_EQ(holder.GetComponent(), &component);
  EXPECT_EQ(context.Count(), 1);
  EXPECT_EQ(component.Count(), 1);
  holder.SetContext(nullptr);
  holder.SetComponent(nullptr);
}

TEST(ObjectHolder, EmptyHolderAnswersFailure) {
  Ox_ObjectHolder holder;
  Ox_Variant value;
  EXPECT_EQ(holder.GetProperty("value", nullptr, value), -1);
  EXPECT_EQ(holder.SetProperty("value", nullptr, value), -1);
  EXPECT_EQ(holder.CallMethod("m", nullptr, value), -1);
  EXPECT_EQ(holder.GetItem(0, value), -1);
  EXPECT_EQ(holder.GetItem(Ox_AString("x"), value), -1);
  EXPECT_EQ(holder.GetItemCount(), 0);
  EXPECT_EQ(holder.GetDefaultProp(), nullptr);
  EXPECT_EQ(holder.GetObjType(), -1);
  EXPECT_EQ(holder.GetInnerObject(), nullptr);
  EXPECT_EQ(holder.GetID().GetLength(), 0);
  EXPECT_EQ(holder.GetContainer(), nullptr);
}

TEST(ObjectHolder, ForwardsToTheSlots) {
  TypedObject object;
  TestObject container("box");
  container.SetAsContainer();
  object.SetParent(&container);
  Ox_ObjectHolder holder;
  holder.Set(nullptr, &object, nullptr);
  Ox_Variant value;
  EXPECT_EQ(holder.GetProperty("value", nullptr, value), 0);
  EXPECT_EQ(value.ToInteger(), 42);
  EXPECT_EQ(holder.SetProperty("value", nullptr, value), 7);
  EXPECT_EQ(holder.CallMethod("m", nullptr, value), 8);
  EXPECT_EQ(holder.GetItem(5, value), 5);
  EXPECT_EQ(holder.GetItem(Ox_AString("x"), value), 11);
  EXPECT_EQ(holder.GetItemCount(), 3);
  EXPECT_STREQ(holder.GetDefaultProp(), "value");
  EXPECT_EQ(holder.GetObjType(), 77);
  EXPECT_EQ(holder.GetInnerObject(), &object);
  EXPECT_STREQ(holder.GetID().GetString(), "typed");
  EXPECT_EQ(holder.GetContainer(), &container);
}

TEST(ObjectHolder, Compare) {
  TestObject a("a"), b("b"), c("c");
  Ox_ObjectHolder left, right;
  // 1. Two objects.
  left.Set(nullptr, nullptr, &a);
  right.Set(nullptr, nullptr, &a);
  EXPECT_EQ(left.Compare(&right), 0);
  right.Set(nullptr, nullptr, &b);
  EXPECT_EQ(left.Compare(&right), 1);
  // 2. Only this side has an object: the other's component, else context.
  right.Clear();
  right.SetComponent(&a);
  EXPECT_EQ(left.Compare(&right), 0);
  right.SetComponent(nullptr);
  right.SetContext(&a);
  EXPECT_EQ(left.Compare(&right), 0);
  right.SetContext(&b);
  EXPECT_EQ(left.Compare(&right), 1);
  // 3. This side's component (else context) against the other's object,
  // component or context.
  left.Clear();
  left.SetComponent(&c);
  right.Clear();
  right.Set(nullptr, nullptr, &c);
  EXPECT_EQ(left.Compare(&right), 0);
  right.Clear();
  right.SetContext(&c);
  EXPECT_EQ(left.Compare(&right), 0);
  right.SetContext(&a);
  EXPECT_EQ(left.Compare(&right), 1);
  // Two empty holders are the same.
  left.Clear();
  right.Clear();
  EXPECT_EQ(left.Compare(&right), 0);
  EXPECT_EQ(left.Compare(nullptr), 0);
}

TEST(ObjectHolder, IsValidAfterTheContainerIsDestroyed) {
  TestObject component("comp");
  TestObject *container = new TestObject("box");
  container->SetAsContainer();
  Ox_ObjectHolder holder;
  holder.Set(container, &component, &component);
  container->validComponent = &component;
  EXPECT_EQ(holder.IsValid(), 1);
  EXPECT_EQ(container->componentChecks, 1);
  container->validComponent = nullptr;
  EXPECT_EQ(holder.IsValid(), 0);
  Ox_Object *address = container;
  delete container;
  // The container is gone: 0, while the raw pointers stay.
  EXPECT_EQ(holder.IsValid(), 0);
  EXPECT_EQ(holder.GetContext(), address);
  EXPECT_EQ(holder.GetComponent(), &component);
  holder.SetContext(nullptr);
}

TEST(ObjectHolder, IsValidShortcuts) {
  TestObject container("box"), object("obj");
  Ox_ObjectHolder holder;
  // 1. No context.
  holder.SetComponent(&object);
  EXPECT_EQ(holder.IsValid(), 1);
  holder.SetComponent(nullptr);
  // 2. A context with nothing reached through it, even unregistered.
  holder.SetContext(&container);
  EXPECT_EQ(holder.IsValid(), 1);
  // 3. An unregistered context with a component: gone.
  holder.SetComponent(&object);
  EXPECT_EQ(holder.IsValid(), 0);
  // 4. Registered, and the component is the context itself.
  container.SetAsContainer();
  holder.SetComponent(&container);
  EXPECT_EQ(holder.IsValid(), 1);
  EXPECT_EQ(container.componentChecks, 0);
  holder.SetComponent(nullptr);
  holder.SetContext(nullptr);
}

TEST(Object, RegistryIsSafeAcrossThreads) {
  // Each thread registers, checks and unregisters its own containers
  // while the others do the same.
  constexpr int kThreads = 4;
  constexpr int kRounds = 500;
  std::vector<int> failures(kThreads, 0);
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([t, &failures] {
      TestObject mine("mine");
      for (int i = 0; i < kRounds; ++i) {
        if (Ox_Object::RegisterContainer(&mine) != 1) ++failures[size_t(t)];
        if (Ox_Object::IsValid(&mine) != 1) ++failures[size_t(t)];
        if (Ox_Object::UnRegisterContainer(&mine) != 1) ++failures[size_t(t)];
      }
    });
  }
  for (std::thread &thread : threads) thread.join();
  for (int t = 0; t < kThreads; ++t) EXPECT_EQ(failures[size_t(t)], 0);
}
