// Ox_Object and Ox_ObjectHolder: the base of the scriptable objects that
// live in the host application, and the handle by which a variant holds one.
//
// The library defines the base and provides no concrete object; the host
// derives from Ox_Object and defines the pure slots. The order of the
// virtual slots is fixed (the host's tables rely on it), so the destructor
// is declared after the last slot.
//
// A process-wide registry remembers the living containers, so that a handle
// can be asked whether the container behind it still exists.
#ifndef OX_OBJECT_H
#define OX_OBJECT_H

#include "Ox_Export.h"
#include "Ox_String.h"

class Ox_Variant;
class Ox_VariantList;

class OX_API Ox_Object {
 public:
  // Count 1, not a container.
  explicit Ox_Object(Ox_Object *parent = nullptr);
  // Copy the three fields, the count too.
  Ox_Object(const Ox_Object &other);
  Ox_Object &operator=(const Ox_Object &other);

  // Slot 0: type number of the object.
  virtual int GetObjType() const;
  // Slot 1: the wrapped native object.
  virtual void *GetInnerObject() const;
  // Slot 2: destroys the object; Release calls it when the count reaches 0.
  virtual void Destroy() = 0;
  // Slot 3: identifier, used in context paths and by the holder.
  virtual Ox_AString GetID() const = 0;
  // Slots 4 to 6: properties and methods, 0 on success.
  virtual long GetProperty(const Ox_AString &name, const Ox_VariantList *args,
                           Ox_Variant &value) = 0;
  virtual long SetProperty(const Ox_AString &name, const Ox_VariantList *args,
                           const Ox_Variant &value) = 0;
  virtual long CallMethod(const Ox_AString &name, const Ox_VariantList *args,
                          Ox_Variant &result) = 0;
  // Slots 7 to 11: not used by the library.
  virtual long ReservedSlot7();
  virtual long ReservedSlot8();
  virtual long ReservedSlot9();
  virtual long ReservedSlot10();
  virtual long ReservedSlot11();
  // Slot 12: non-zero when `component` is still valid under this object.
  virtual int IsValidComponent(Ox_Object *component) = 0;
  // Slot 13: not used by the library.
  virtual long ReservedSlot13();
  // Slot 14: name of the default property, or null.
  virtual const char *GetDefaultProp() const = 0;
  // Slots 15 to 17: items.
  virtual int GetItemCount() const = 0;
  virtual long GetItem(int index, Ox_Variant &value) = 0;
  virtual long GetItem(const Ox_AString &name, Ox_Variant &value) = 0;
  // Slot 18: writes the object's own text; non-zero when it has.
  virtual int ToStringHook(Ox_AString &text) = 0;
  // Slot 19: not used by the library.
  virtual long ReservedSlot19();

  // Unregisters a container, then clears the flag and the parent.
  virtual ~Ox_Object();

  // A negative count marks an object that is not counted and comes back
  // unchanged; otherwise the new count.
  int AddRef();
  // A count below 1 comes back unchanged; at 0 the object destroys itself
  // (slot 2) and the count is read again for the result, so the destroy
  // slot leaves the object readable until Release has returned (it may
  // hand the memory back later, or change the count to keep the object).
  int Release();

  void SetParent(Ox_Object *parent);
  Ox_Object *GetParentContext() const;
  // 1 when `object` is this object or one above it.
  int IsParent(Ox_Object *object) const;

  // Marks this object as a container and registers it.
  void SetAsContainer();
  int IsContainer() const;
  // This object if it is a container, else the nearest container above.
  Ox_Object *GetSelfContainer() const;
  // The parent's GetSelfContainer; null without a parent.
  Ox_Object *GetContainer() const;
  // Appends the path from the root: identifiers joined by points. 0.
  long GetContextPath(Ox_AString &path) const;

  // The registry of living containers, under one process-wide mutex.
  static int RegisterContainer(Ox_Object *object);    // 1 added, 0 listed
  static int UnRegisterContainer(Ox_Object *object);  // 1 removed, 0 absent
  static int IsValid(Ox_Object *object);              // 1 when listed

 protected:
  int refCount;         // reference count, 1 at construction
  Ox_Object *parent;    // parent in the object tree; not owned
  int isContainer;      // non-zero once SetAsContainer has run
};

// A handle to a live object: three plain pointers. The holder keeps a
// reference on `object` only when it is "counted": not null, not the
// component, and not (component null and context null or the object).
// An object that is its own component or context owns itself, and the
// holder merely looks at it.
class OX_API Ox_ObjectHolder {
 public:
  Ox_Object *context;    // container or scope in which it was reached
  Ox_Object *component;  // component through which it was reached
  Ox_Object *object;     // the object itself

  Ox_ObjectHolder() : context(nullptr), component(nullptr), object(nullptr) {}
  Ox_ObjectHolder(const Ox_ObjectHolder &other);
  ~Ox_ObjectHolder();

  // Releases a counted object, then zeroes the three pointers.
  void Clear();
  // Clear, copy the three fields, add a reference if counted.
  void Set(const Ox_ObjectHolder &other);
  Ox_ObjectHolder &operator=(const Ox_ObjectHolder &other);
  // No-op on self; null leaves the holder empty.
  void Set(const Ox_ObjectHolder *other);
  // Clear and store; a null object with a component takes the component.
  void Set(Ox_Object *context, Ox_Object *component, Ox_Object *object);
  // Store one field alone, with no counting.
  void SetContext(Ox_Object *value) { context = value; }
  void SetComponent(Ox_Object *value) { component = value; }

  Ox_Object *GetObjectA() const { return object; }
  Ox_Object *GetContext() const { return context; }
  // `component`, or `context` when that is null.
  Ox_Object *GetComponent() const { return component ? component : context; }
  Ox_Object *GetContainer() const;

  int GetObjType() const;         // -1 without an object
  void *GetInnerObject() const;   // null without an object
  Ox_AString GetID() const;       // empty without an object
  long GetProperty(const Ox_AString &name, const Ox_VariantList *args,
                   Ox_Variant &value) const;
  long SetProperty(const Ox_AString &name, const Ox_VariantList *args,
                   const Ox_Variant &value) const;
  long CallMethod(const Ox_AString &name, const Ox_VariantList *args,
                  Ox_Variant &result) const;
  long GetItem(int index, Ox_Variant &value) const;
  long GetItem(const Ox_AString &name, Ox_Variant &value) const;
  int GetItemCount() const;            // 0 without an object
  const char *GetDefaultProp() const;  // null without an object

  // 0 when both handles lead to the same object, else 1.
  int Compare(const Ox_ObjectHolder *other) const;
  // 0 when the container behind the handle, or the component under it,
  // no longer exists; else 1.
  int IsValid() const;

  // True when Set counts a reference on `object` for these fields.
  bool IsCounted() const;
};

#endif
