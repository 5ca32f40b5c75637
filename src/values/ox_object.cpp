// Ox_Object and Ox_ObjectHolder: counting, the object tree, the registry
// of living containers, and the handle's counting rule.
#include "Ox_Object.h"

#include "Ox_List.h"
#include "Ox_ThreadMutex.h"

namespace {

// The registry of containers: the list and the one mutex that guards it.
// It is made on first use and never destroyed, so that containers that
// die while the process exits still find it.
struct ContainerRegistry {
  Ox_ThreadMutex mutex;
  Ox_PtrList containers;
};

ContainerRegistry &Registry() {
  static ContainerRegistry *registry = new ContainerRegistry;
  return *registry;
}

// Holds the registry's mutex for one list operation.
class RegistryLock {
 public:
  explicit RegistryLock(ContainerRegistry &registry) : m_registry(registry) {
    m_registry.mutex.Lock();
  }
  ~RegistryLock() { m_registry.mutex.Unlock(); }
  RegistryLock(const RegistryLock &) = delete;
  RegistryLock &operator=(const RegistryLock &) = delete;

 private:
  ContainerRegistry &m_registry;
};

}  // namespace

// ---- Ox_Object ---------------------------------------------------------

Ox_Object::Ox_Object(Ox_Object *parentObject)
    : refCount(1), parent(parentObject), isContainer(0) {}

Ox_Object::Ox_Object(const Ox_Object &other)
    : refCount(other.refCount),
      parent(other.parent),
      isContainer(other.isContainer) {}

Ox_Object &Ox_Object::operator=(const Ox_Object &other) {
  refCount = other.refCount;
  parent = other.parent;
  isContainer = other.isContainer;
  return *this;
}

Ox_Object::~Ox_Object() {
  if (isContainer) UnRegisterContainer(this);
  isContainer = 0;
  parent = nullptr;
}

int Ox_Object::GetObjType() const { return 0; }
void *Ox_Object::GetInnerObject() const { return nullptr; }
long Ox_Object::ReservedSlot7() { return 0; }
long Ox_Object::ReservedSlot8() { return 0; }
long Ox_Object::ReservedSlot9() { return 0; }
long Ox_Object::ReservedSlot10() { return 0; }
long Ox_Object::ReservedSlot11() { return 0; }
long Ox_Object::ReservedSlot13() { return 0; }
long Ox_Object::ReservedSlot19() { return 0; }

int Ox_Object::AddRef() {
  // A negative count marks an object that is not counted.
  if (refCount < 0) return refCount;
  return ++refCount;
}

int Ox_Object::Release() {
  if (refCount < 1) return refCount;
  if (--refCount == 0) Destroy();
  // The count is read again: the destroy slot may have changed it.
  return refCount;
}

void Ox_Object::SetParent(Ox_Object *parentObject) { parent = parentObject; }

Ox_Object *Ox_Object::GetParentContext() const { return parent; }

int Ox_Object::IsParent(Ox_Object *object) const {
  // The object counts as its own parent.
  for (const Ox_Object *p = this; p != nullptr; p = p->parent)
    if (p == object) return 1;
  return 0;
}

void Ox_Object::SetAsContainer() {
  isContainer = 1;
  RegisterContainer(this);
}

int Ox_Object::IsContainer() const { return isContainer; }

Ox_Object *Ox_Object::GetSelfContainer() const {
  for (const Ox_Object *p = this; p != nullptr; p = p->parent)
    if (p->isContainer) return const_cast<Ox_Object *>(p);
  return nullptr;
}

Ox_Object *Ox_Object::GetContainer() const {
  return parent ? parent->GetSelfContainer() : nullptr;
}

long Ox_Object::GetContextPath(Ox_AString &path) const {
  // The parent's path first, then a point if anything stands before, then
  // this object's identifier.
  if (parent) parent->GetContextPath(path);
  if (path.GetLength() > 0) path += ".";
  path += GetID();
  return 0;
}

int Ox_Object::RegisterContainer(Ox_Object *object) {
  ContainerRegistry &registry = Registry();
  RegistryLock lock(registry);
  if (registry.containers.IndexOf(object) >= 0) return 0;
  registry.containers.Add(object);
  return 1;
}

int Ox_Object::UnRegisterContainer(Ox_Object *object) {
  ContainerRegistry &registry = Registry();
  RegistryLock lock(registry);
  const int index = registry.containers.IndexOf(object);
  if (index < 0) return 0;
  registry.containers.Delete(index);
  return 1;
}

int Ox_Object::IsValid(Ox_Object *object) {
  ContainerRegistry &registry = Registry();
  RegistryLock lock(registry);
  return registry.containers.IndexOf(object) >= 0 ? 1 : 0;
}

// ---- Ox_ObjectHolder ---------------------------------------------------

Ox_ObjectHolder::Ox_ObjectHolder(const Ox_ObjectHolder &other)
    : context(nullptr), component(nullptr), object(nullptr) {
  Set(other);
}

Ox_ObjectHolder::~Ox_ObjectHolder() { Clear(); }

bool Ox_ObjectHolder::IsCounted() const {
  // An object that is its own component, or its own context with no
  // component, owns itself: the holder only looks at it.
  if (object == nullptr || object == component) return false;
  if (component == nullptr && (context == nullptr || context == object))
    return false;
  return true;
}

void Ox_ObjectHolder::Clear() {
  if (IsCounted()) object->Release();
  context = nullptr;
  component = nullptr;
  object = nullptr;
}

void Ox_ObjectHolder::Set(const Ox_ObjectHolder &other) {
  if (&other == this) return;
  Clear();
  context = other.context;
  component = other.component;
  object = other.object;
  if (IsCounted()) object->AddRef();
}

Ox_ObjectHolder &Ox_ObjectHolder::operator=(const Ox_ObjectHolder &other) {
  Set(other);
  return *this;
}

void Ox_ObjectHolder::Set(const Ox_ObjectHolder *other) {
  if (other == this) return;
  if (other == nullptr) {
    Clear();
    return;
  }
  Set(*other);
}

void Ox_ObjectHolder::Set(Ox_Object *contextObject, Ox_Object *componentObject,
                          Ox_Object *objectItself) {
  Clear();
  context = contextObject;
  component = componentObject;
  object = objectItself;
  // Reached through a component alone: the component is the object.
  if (object == nullptr && component != nullptr) object = component;
  if (IsCounted()) object->AddRef();
}

Ox_Object *Ox_ObjectHolder::GetContainer() const {
  return object ? object->GetContainer() : nullptr;
}

int Ox_ObjectHolder::GetObjType() const {
  return object ? object->GetObjType() : -1;
}

void *Ox_ObjectHolder::GetInnerObject() const {
  return object ? object->GetInnerObject() : nullptr;
}

Ox_AString Ox_ObjectHolder::GetID() const {
  return object ? object->GetID() : Ox_AString();
}

long Ox_ObjectHolder::GetProperty(const Ox_AString &name,
                                  const Ox_VariantList *args,
                                  Ox_Variant &value) const {
  return object ? object->GetProperty(name, args, value) : -1;
}

long Ox_ObjectHolder::SetProperty(const Ox_AString &name,
                                  const Ox_VariantList *args,
                                  const Ox_Variant &value) const {
  return object ? object->SetProperty(name, args, value) : -1;
}

long Ox_ObjectHolder::CallMethod(const Ox_AString &name,
                                 const Ox_VariantList *args,
                                 Ox_Variant &result) const {
  return object ? object->CallMethod(name, args, result) : -1;
}

long Ox_ObjectHolder::GetItem(int index, Ox_Variant &value) const {
  return object ? object->GetItem(index, value) : -1;
}

long Ox_ObjectHolder::GetItem(const Ox_AString &name, Ox_Variant &value) const {
  return object ? object->GetItem(name, value) : -1;
}

int Ox_ObjectHolder::GetItemCount() const {
  return object ? object->GetItemCount() : 0;
}

const char *Ox_ObjectHolder::GetDefaultProp() const {
  return object ? object->GetDefaultProp() : nullptr;
}

int Ox_ObjectHolder::Compare(const Ox_ObjectHolder *other) const {
  // A missing holder compares as an empty one.
  static const Ox_ObjectHolder kEmpty;
  if (other == nullptr) other = &kEmpty;
  // 1. Two objects: the same or not.
  if (object != nullptr && other->object != nullptr)
    return object == other->object ? 0 : 1;
  // 2. Only this side has an object: the other side's component (or
  // context) names it.
  if (object != nullptr) return object == other->GetComponent() ? 0 : 1;
  // 3. This side's component (or context) against the other's object,
  // component or context, the first that is set.
  const Ox_Object *otherKey = other->object     ? other->object
                              : other->component ? other->component
                                                 : other->context;
  return GetComponent() == otherKey ? 0 : 1;
}

int Ox_ObjectHolder::IsValid() const {
  // 1. No context: there is no container to lose.
  if (context == nullptr) return 1;
  // 2. Nothing reached through it.
  if (component == nullptr && object == nullptr) return 1;
  // 3. The container is gone.
  if (!Ox_Object::IsValid(context)) return 0;
  // 4. Nothing below the container to check.
  if (component == nullptr || component == context) return 1;
  // 5. The container judges its component.
  return context->IsValidComponent(component);
}
