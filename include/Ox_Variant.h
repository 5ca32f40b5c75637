// Ox_Variant: the tagged value of the library, and its two list forms.
//
// A variant is a plain record of a 16-bit type number and a value area.
// Every dataset cell, every named variable and every object property is one.
//
//   0 null       no value; the whole record is zero (a new variant)
//   3 INTEGER    32-bit signed integer, wrapping as two's complement
//   5 DECIMAL    double
//   6 CURRENCY   Ox_Currency, held in place
//   7 DATE       Ox_DateTime, held in place
//   8 STRING     Ox_AString (one pointer; an empty text may be a null one)
//  13 BLOB       Ox_Buffer (one pointer)
//  8192 ARRAY    Ox_VariantList, held in place
//  16384 object  Ox_ObjectHolder, held in place
//  32768         a reference: the value area holds an Ox_Variant * that
//                nobody here owns or frees
//
// Null and empty differ: an empty string is type 8. A variant owns what its
// value holds (strings and buffers share their blocks, so a copy of a long
// text copies no characters). Every setter but SetReference writes through a
// reference chain to the variant at its end.
//
// A variant is trivially relocatable: nothing points into it, so lists may
// move it in memory with memmove.
#ifndef OX_VARIANT_H
#define OX_VARIANT_H

#include <cstdint>

#include "Ox_BaseLib.h"
#include "Ox_Currency.h"
#include "Ox_DateTime.h"

class Ox_Variant;
class Ox_Object;
class Ox_ObjectHolder;

// The item handler of variant lists, and the pool "Ox_Variant" (256 items
// a block) from which their items come.
class OX_API Ox_VariantHandler : public Ox_ListObjHandler {
 public:
  constexpr Ox_VariantHandler();
  void *_InitItem(void *item) override;        // InitWithMemory
  void _FreeItem(void *item) override;         // FreeWithMemory
  void _AssignItem(void *target, void *source) override;  // Set
  int _CompareItem(void *item, void *key) override;       // -1: never found
};

// The shared variant handler and pool.
extern OX_API Ox_VariantHandler _OxVariantHandler;

// An ordered list of variants held by pointer, not unique.
class OX_API Ox_VariantList : public Ox_ObjList {
 public:
  Ox_VariantList();
  Ox_VariantList(const Ox_VariantList &other);
  ~Ox_VariantList();

  // A copy; a null pointer adds a null variant. Returns the index.
  int Add(const Ox_Variant &value);
  int Add(const Ox_Variant *value);
  // The pointer itself, not owned.
  int AddLink(const Ox_Variant *value);
  // A reference argument stays a reference to the same target.
  int AddRefVar(const Ox_Variant &value);
  int Insert(int index, const Ox_Variant &value);
  int Insert(int index, const Ox_Variant *value);
  int InsertLink(int index, const Ox_Variant *value);
  // 0 when done; `grow` extends the list with null items up to `index`.
  long Set(int index, const Ox_Variant &value, int grow = 0);
  long Set(int index, const Ox_Variant *value, int grow = 0);
  long SetLink(int index, const Ox_Variant *value, int grow = 0);

  Ox_Variant *GetItem(int index) const;             // null out of range
  const Ox_Variant *GetItemNN(int index) const;     // _OxNullVariant then
  const Ox_Variant *operator[](int index) const { return GetItemNN(index); }
  Ox_Variant *GetSafeItem(int index, int grow = 0);

  // Deep copies; a null source is ignored; both return the new count.
  int Assign(const Ox_VariantList *other);
  int Append(const Ox_VariantList *other);
  Ox_VariantList &operator=(const Ox_VariantList &other);
  Ox_VariantList &operator=(const Ox_VariantList *other);
  Ox_VariantList &operator+=(const Ox_VariantList &other);
  Ox_VariantList &operator+=(const Ox_VariantList *other);

  // Drops every item.
  void Clear() { ReleaseList(); }

  static void InitWithMemory(Ox_VariantList *list);
  static void FreeWithMemory(Ox_VariantList *list);
};

// Variants held by value side by side in one block: the cells of a row.
class OX_API Ox_VariantBufList : public Ox_ObjBufList {
 public:
  Ox_VariantBufList();
  Ox_VariantBufList(const Ox_VariantBufList &other);
  ~Ox_VariantBufList();

  int Add(const Ox_Variant &value);
  int Add(const Ox_Variant *value);   // null: a null variant
  int Insert(int index, const Ox_Variant &value);
  int Insert(int index, const Ox_Variant *value);
  long Set(int index, const Ox_Variant &value, int grow = 0);
  long Set(int index, const Ox_Variant *value, int grow = 0);

  Ox_Variant *GetItem(int index) const;
  const Ox_Variant *GetItemNN(int index) const;
  const Ox_Variant *operator[](int index) const { return GetItemNN(index); }
  Ox_Variant *GetSafeItem(int index, int grow = 0);

  int Assign(const Ox_VariantBufList *other);
  int Append(const Ox_VariantBufList *other);
  Ox_VariantBufList &operator=(const Ox_VariantBufList &other);
  Ox_VariantBufList &operator=(const Ox_VariantBufList *other);
  Ox_VariantBufList &operator+=(const Ox_VariantBufList &other);
  Ox_VariantBufList &operator+=(const Ox_VariantBufList *other);

  void Clear() { ReleaseList(); }
};

class OX_API Ox_Variant {
 public:
  // Type numbers.
  enum : unsigned short {
    kNull = 0,
    kInteger = 3,
    kDecimal = 5,
    kCurrency = 6,
    kDate = 7,
    kString = 8,
    kBlob = 13,
    kArray = 8192,
    kObject = 16384,
    kReference = 32768
  };

  // Construction: Init, then the matching Set.
  Ox_Variant() { Init(); }
  Ox_Variant(const Ox_Variant &other);
  Ox_Variant(const Ox_AString &text);
  Ox_Variant(const char *text, int length = -1);
  Ox_Variant(long number);
  Ox_Variant(int number) : Ox_Variant(static_cast<long>(number)) {}
  Ox_Variant(double number);
  Ox_Variant(const Ox_VariantList &list);
  Ox_Variant(const Ox_ObjectHolder &holder);
  Ox_Variant(const Ox_Currency &number);
  Ox_Variant(const Ox_DateTime &date);
  ~Ox_Variant() { Clear(); }

  // Zeroes the record without releasing anything.
  void Init();
  // Releases what the value holds (a reference is dropped, not followed)
  // and zeroes the record.
  void Clear();
  static void InitWithMemory(Ox_Variant *item);
  static void FreeWithMemory(Ox_Variant *item);

  // Setters; all but SetReference write through a reference chain.
  void Set(const Ox_Variant &source);
  void Set(const Ox_AString &text);
  void Set(const char *text, int length = -1);
  void SetStr(const char *text, int length = -1);
  void Set(long number);
  void Set(int number) { Set(static_cast<long>(number)); }
  void Set(double number);
  void SetInteger(const char *text);
  void SetDouble(const char *text);
  void Set(const Ox_Currency &number);
  void SetCurrency(long whole, long fraction);
  void SetCurrency(double number);
  void SetCurrency(const char *text);
  void Set(const Ox_DateTime &date);
  void SetDate(const Ox_DateTime &date);
  void SetDate(double days);
  void SetDate(Ox_Int64 seconds);
  void SetDate(int year, int month, int day, int hour = 0, int minute = 0,
               int second = 0);
  // Fixed-position text yyyymmddHHMMSS; month and day default to 0.
  void SetDate(const Ox_AString &text);
  void SetBinary(const Ox_Buffer &data);
  void SetBinary(const unsigned char *data, int size);
  void Set(const Ox_VariantList &list);
  void Set(const Ox_ObjectHolder &holder);
  void SetObject(Ox_Object *context, Ox_Object *component, Ox_Object *object);
  // Makes this variant a reference to `target` (chains collapse; an object
  // holder is copied by value instead). Does not write through.
  void SetReference(const Ox_Variant *target);

  Ox_Variant &operator=(const Ox_Variant &source);
  // A null pointer leaves a plain variant alone and clears the target of
  // a reference.
  Ox_Variant &operator=(const Ox_Variant *source);
  Ox_Variant &operator=(const Ox_AString &text);
  Ox_Variant &operator=(const char *text);
  Ox_Variant &operator=(long number);
  Ox_Variant &operator=(int number) {
    return *this = static_cast<long>(number);
  }
  Ox_Variant &operator=(double number);
  Ox_Variant &operator=(const Ox_Currency &number);
  Ox_Variant &operator=(const Ox_DateTime &date);
  Ox_Variant &operator=(const Ox_VariantList &list);
  Ox_Variant &operator=(const Ox_Buffer &data);

  // Accessors: the value area as the asked-for type, with no test of the
  // type; the caller tests GetType() first.
  unsigned short GetType() const { return type; }
  Ox_AString *GetStr() { return reinterpret_cast<Ox_AString *>(&value); }
  const Ox_AString *GetConstStr() const {
    return reinterpret_cast<const Ox_AString *>(&value);
  }
  Ox_Buffer *GetBinary() { return reinterpret_cast<Ox_Buffer *>(&value); }
  const Ox_Buffer *GetConstBinary() const {
    return reinterpret_cast<const Ox_Buffer *>(&value);
  }
  Ox_Currency *GetCurrency() { return reinterpret_cast<Ox_Currency *>(&value); }
  const Ox_Currency *GetConstCurrency() const {
    return reinterpret_cast<const Ox_Currency *>(&value);
  }
  Ox_DateTime *GetDateTime() { return reinterpret_cast<Ox_DateTime *>(&value); }
  const Ox_DateTime *GetConstDateTime() const {
    return reinterpret_cast<const Ox_DateTime *>(&value);
  }
  Ox_VariantList *GetArray() {
    return reinterpret_cast<Ox_VariantList *>(&value);
  }
  const Ox_VariantList *GetConstArray() const {
    return reinterpret_cast<const Ox_VariantList *>(&value);
  }
  Ox_ObjectHolder *GetObjectA() {
    return reinterpret_cast<Ox_ObjectHolder *>(&value);
  }
  const Ox_ObjectHolder *GetConstObject() const {
    return reinterpret_cast<const Ox_ObjectHolder *>(&value);
  }
  Ox_Variant *GetReference() { return value.ref; }
  const Ox_Variant *GetConstReference() const { return value.ref; }

  // Name of the type: "null", "INTEGER", ..., "UNKNOWN".
  const char *GetTypeString() const;
  // Type number of a name, by case-insensitive prefixes; 0 if none.
  static unsigned short GetTypeNo(const char *name);

  // Conversions; none changes the variant.
  Ox_AString &ToString(Ox_AString &out) const;
  Ox_AString ToString() const;
  Ox_AString &ToAString(Ox_AString &out) const { return ToString(out); }
  Ox_AString ToAString() const { return ToString(); }
  // As ToString, but a decimal is written in exponent form.
  Ox_AString &ToNumberExp(Ox_AString &out) const;
  Ox_AString ToNumberExp() const;
  long ToInteger() const;
  double ToDouble() const;
  Ox_Currency ToCurrency() const;
  Ox_DateTime ToDateTime() const;

  // Converts to `newType` from `source` (null: this variant).
  void ChangeType(unsigned short newType, Ox_Variant *source = nullptr);

  // 1 when both have the same type and it is 3, 5, 6, 7 or 8.
  int IsComparable(const Ox_Variant &other) const;

  // Equality against plain values (not the ordering of Compare).
  int operator==(const char *text) const;
  int operator==(long number) const;
  int operator==(int number) const {
    return *this == static_cast<long>(number);
  }
  int operator==(double number) const;
  int operator==(const Ox_Currency &number) const;
  int operator==(const Ox_DateTime &date) const;
  int operator==(const Ox_Variant &other) const;

  // Ordering of like types; 1 for a type mismatch (variant_arith.cpp).
  int Compare(const Ox_Variant &other) const;
  // In-place addition by the types of this and the argument
  // (variant_arith.cpp).
  Ox_Variant &operator+=(const Ox_Variant &other);
  Ox_Variant &operator+=(const Ox_AString &text);
  Ox_Variant &operator+=(const char *text);
  Ox_Variant &operator+=(long number);
  Ox_Variant &operator+=(int number);  // as the long form
  Ox_Variant &operator+=(double number);
  Ox_Variant &operator+=(const Ox_Currency &number);
  Ox_Variant &operator+=(const Ox_DateTime &date);

  // First binary stream form (binstream_variant.cpp): a 16-bit type field
  // and the payload, texts in `codePage` (0: the locale's). Save writes a
  // reference as its target and returns the end position, or -1. Load reads
  // the type itself; the second Load is given it. Both return the position
  // behind the value, or -1 for a cut or malformed value.
  int Save(Ox_Buffer &buffer, unsigned int codePage) const;
  int Load(const Ox_Buffer &buffer, int position, unsigned int codePage);
  int Load(short type, const Ox_Buffer &buffer, int position,
           unsigned int codePage);

  // The record. The value area is as wide as the widest value held in
  // place (a variant list or an object holder: three pointers).
  unsigned short type;
  union Value {
    int32_t lVal;         // 3
    double dVal;          // 5
    Ox_Variant *ref;      // 32768
    void *ptr;            // 8, 13: the block pointer of the text or bytes
    alignas(8) unsigned char raw[24];  // 6, 7, 8192, 16384 in place
  } value;

 private:
  // The variant at the end of the reference chain starting here.
  Ox_Variant *WriteTarget();
  const Ox_Variant *ReadTarget() const;
  // Clears the write target and moves `made` into it (a bit move).
  void Adopt(Ox_Variant &made);
};

static_assert(sizeof(Ox_Variant) <= 32, "a variant must stay small");

constexpr Ox_VariantHandler::Ox_VariantHandler()
    : Ox_ListObjHandler("Ox_Variant", sizeof(Ox_Variant), 256) {}

// The shared null variant: what GetItemNN gives out of range. Never written.
extern OX_API const Ox_Variant _OxNullVariant;

#endif
