// Ox_Variant: life cycle, setters and references.
//
// Conversions and equality are in ox_variant_convert.cpp, the lists and the
// handler in ox_variantlist.cpp, arithmetic and Compare in variant_arith.cpp.
#include "Ox_Variant.h"

#include <cstdlib>
#include <cstring>
#include <new>

#include "Ox_Object.h"
#include "values/ox_variant_chain.h"

static_assert(sizeof(Ox_VariantList) <= sizeof(Ox_Variant::Value),
              "a variant list is held in place");
static_assert(sizeof(Ox_ObjectHolder) <= sizeof(Ox_Variant::Value),
              "an object holder is held in place");
static_assert(sizeof(Ox_AString) == sizeof(void *), "a text is one pointer");
static_assert(sizeof(Ox_Buffer) == sizeof(void *), "a buffer is one pointer");
static_assert(sizeof(Ox_Currency) == 8 && sizeof(Ox_DateTime) == 8,
              "currency and date are held in place");

// ---------------------------------------------------------------------------
// Life cycle

void Ox_Variant::Init() { std::memset(static_cast<void *>(this), 0, sizeof(*this)); }

void Ox_Variant::Clear() {
  // Release by type; a reference owns nothing and is merely dropped.
  switch (type) {
    case kString:
      GetStr()->~Ox_AString();
      break;
    case kBlob:
      if (value.ptr != nullptr) GetBinary()->Release();
      break;
    case kArray:
      GetArray()->~Ox_VariantList();
      break;
    case kObject:
      GetObjectA()->Clear();
      break;
    default:
      break;
  }
  Init();
}

void Ox_Variant::InitWithMemory(Ox_Variant *item) {
  if (item != nullptr) new (item) Ox_Variant();
}

void Ox_Variant::FreeWithMemory(Ox_Variant *item) {
  if (item != nullptr) item->~Ox_Variant();
}

// ---------------------------------------------------------------------------
// Reference chains

const Ox_Variant *OxVariantChainEnd(const Ox_Variant *start) {
  // Two walkers: the fast one takes two links for each of the slow one's.
  // On a chain with an end the fast one gets there first; in a circle it
  // comes round and meets the slow one, which ends the walk.
  auto linked = [](const Ox_Variant *v) {
    return v->type == Ox_Variant::kReference && v->value.ref != nullptr;
  };
  const Ox_Variant *slow = start;
  const Ox_Variant *fast = start;
  while (fast != nullptr) {
    if (!linked(fast)) return fast;
    fast = fast->value.ref;
    if (!linked(fast)) return fast;
    fast = fast->value.ref;
    slow = slow->value.ref;
    if (fast == slow) return nullptr;
  }
  return nullptr;
}

// A circle of references has no end: writes land on this variant itself,
// which leaves the circle.
Ox_Variant *Ox_Variant::WriteTarget() {
  const Ox_Variant *end = OxVariantChainEnd(this);
  return end != nullptr ? const_cast<Ox_Variant *>(end) : this;
}

// A circle of references reads as null.
const Ox_Variant *Ox_Variant::ReadTarget() const {
  const Ox_Variant *end = OxVariantChainEnd(this);
  return end != nullptr ? end : &_OxNullVariant;
}

// Every setter builds the new value in a local variant first and then
// moves it into the write target. The result is that of "clear, then
// store"; building first also keeps a source that lives inside the target
// (a text of the target itself, an element of its own array) valid until
// it has been read.
void Ox_Variant::Adopt(Ox_Variant &made) {
  Ox_Variant *target = WriteTarget();
  target->Clear();
  std::memcpy(static_cast<void *>(target), &made, sizeof(Ox_Variant));
  made.Init();
}

// ---------------------------------------------------------------------------
// Constructors

Ox_Variant::Ox_Variant(const Ox_Variant &other) { Init(); Set(other); }
Ox_Variant::Ox_Variant(const Ox_AString &text) { Init(); Set(text); }
Ox_Variant::Ox_Variant(const char *text, int length) { Init(); Set(text, length); }
Ox_Variant::Ox_Variant(long number) { Init(); Set(number); }
Ox_Variant::Ox_Variant(double number) { Init(); Set(number); }
Ox_Variant::Ox_Variant(const Ox_VariantList &list) { Init(); Set(list); }
Ox_Variant::Ox_Variant(const Ox_ObjectHolder &holder) { Init(); Set(holder); }
Ox_Variant::Ox_Variant(const Ox_Currency &number) { Init(); Set(number); }
Ox_Variant::Ox_Variant(const Ox_DateTime &date) { Init(); Set(date); }

// ---------------------------------------------------------------------------
// Set(const Ox_Variant &)

void Ox_Variant::Set(const Ox_Variant &source) {
  // 1. Nothing to do on self.
  if (this == &source) return;
  // 2. Read through the source's chain and write through this one's.
  const Ox_Variant *from = source.ReadTarget();
  Ox_Variant *to = WriteTarget();
  if (from == to) return;
  // 3, 4. Copy the type and the value by type, then replace the target.
  switch (from->type) {
    case kInteger:
    case kDecimal:
    case kCurrency:
    case kDate: {
      // Plain values: a bit copy of the value area, read before the clear
      // (the source may be an element of the target's own array).
      const unsigned short fromType = from->type;
      const Value fromValue = from->value;
      to->Clear();
      to->type = fromType;
      to->value = fromValue;
      return;
    }
    default:
      break;
  }
  Ox_Variant made;
  made.type = from->type;
  switch (from->type) {
    case kString:
      new (made.GetStr()) Ox_AString(*from->GetConstStr());
      break;
    case kBlob:
      new (made.GetBinary()) Ox_Buffer(*from->GetConstBinary());
      break;
    case kArray:
      Ox_VariantList::InitWithMemory(made.GetArray());
      made.GetArray()->Assign(from->GetConstArray());
      break;
    case kObject:
      // A zeroed holder is an empty one; Set adds the count it needs.
      made.GetObjectA()->Set(*from->GetConstObject());
      break;
    default:
      // The type alone: a reference without a target stays one.
      break;
  }
  to->Adopt(made);
}

// ---------------------------------------------------------------------------
// Text and bytes

void Ox_Variant::Set(const Ox_AString &text) {
  Ox_Variant made;
  made.type = kString;
  new (made.GetStr()) Ox_AString(text);
  Adopt(made);
}

void Ox_Variant::Set(const char *text, int length) {
  Ox_Variant made;
  made.type = kString;
  new (made.GetStr()) Ox_AString(text, length);
  Adopt(made);
}

void Ox_Variant::SetStr(const char *text, int length) { Set(text, length); }

void Ox_Variant::SetBinary(const Ox_Buffer &data) {
  Ox_Variant made;
  made.type = kBlob;
  new (made.GetBinary()) Ox_Buffer(data);
  Adopt(made);
}

void Ox_Variant::SetBinary(const unsigned char *data, int size) {
  Ox_Variant made;
  made.type = kBlob;
  new (made.GetBinary()) Ox_Buffer();
  if (data != nullptr && size > 0) made.GetBinary()->Set(data, size);
  Adopt(made);
}

// ---------------------------------------------------------------------------
// Numbers, currency and dates: no allocation, the value is stored in place.

void Ox_Variant::Set(long number) {
  Ox_Variant *target = WriteTarget();
  target->Clear();
  target->type = kInteger;
  // The integer type is 32 bits with two's-complement wrap-around.
  target->value.lVal = static_cast<int32_t>(static_cast<uint32_t>(number));
}

void Ox_Variant::Set(double number) {
  Ox_Variant *target = WriteTarget();
  target->Clear();
  target->type = kDecimal;
  target->value.dVal = number;
}

void Ox_Variant::SetInteger(const char *text) {
  // atol of the text; null or empty gives the integer 0.
  Set(static_cast<long>(text != nullptr ? std::atol(text) : 0));
}

void Ox_Variant::SetDouble(const char *text) {
  Set(text != nullptr ? std::atof(text) : 0.0);
}

void Ox_Variant::Set(const Ox_Currency &number) {
  Ox_Currency copy(number);  // the source may live in the target
  Ox_Variant *target = WriteTarget();
  target->Clear();
  target->type = kCurrency;
  *target->GetCurrency() = copy;
}

void Ox_Variant::SetCurrency(long whole, long fraction) {
  Set(Ox_Currency(whole, fraction));
}

void Ox_Variant::SetCurrency(double number) { Set(Ox_Currency(number)); }

void Ox_Variant::SetCurrency(const char *text) {
  Ox_Currency number;  // zero first: a null text leaves it so
  number.SetCurrency(text);
  Set(number);
}

void Ox_Variant::Set(const Ox_DateTime &date) {
  Ox_DateTime copy(date);
  Ox_Variant *target = WriteTarget();
  target->Clear();
  target->type = kDate;
  *target->GetDateTime() = copy;
}

void Ox_Variant::SetDate(const Ox_DateTime &date) { Set(date); }
void Ox_Variant::SetDate(double days) { Set(Ox_DateTime(days)); }
void Ox_Variant::SetDate(Ox_Int64 seconds) {
  Set(Ox_DateTime(static_cast<int64_t>(seconds)));
}

void Ox_Variant::SetDate(int year, int month, int day, int hour, int minute,
                         int second) {
  Ox_DateTime date;
  date.SetDateTime(year, month, day, hour, minute, second);
  Set(date);
}

// ---------------------------------------------------------------------------
// Arrays and objects

void Ox_Variant::Set(const Ox_VariantList &list) {
  // A deep copy by Assign.
  Ox_Variant made;
  made.type = kArray;
  Ox_VariantList::InitWithMemory(made.GetArray());
  made.GetArray()->Assign(&list);
  Adopt(made);
}

void Ox_Variant::Set(const Ox_ObjectHolder &holder) {
  Ox_Variant made;
  made.type = kObject;
  made.GetObjectA()->Set(holder);
  Adopt(made);
}

void Ox_Variant::SetObject(Ox_Object *context, Ox_Object *component,
                           Ox_Object *object) {
  Ox_Variant made;
  made.type = kObject;
  made.GetObjectA()->Set(context, component, object);
  Adopt(made);
}

// ---------------------------------------------------------------------------
// References

void Ox_Variant::SetReference(const Ox_Variant *target) {
  // A reference to itself is what this variant already is; anything else
  // on self would make a cycle.
  if (target == this && type == kReference) return;
  if (target != nullptr && target->type == kObject) {
    // No reference to an object holder exists: copy it by value. The copy
    // replaces this variant itself, not what it refers to.
    Ox_Variant copy(*target);
    Clear();
    std::memcpy(static_cast<void *>(this), &copy, sizeof(Ox_Variant));
    copy.Init();
    return;
  }
  // Chains collapse: a reference target gives its own target, if any.
  const Ox_Variant *to = target;
  if (to != nullptr && to->type == kReference) to = to->value.ref;
  // Clears this variant itself, without walking a chain.
  Clear();
  if (to == nullptr) return;
  // A target whose chain leads back here would make a cycle, and one that
  // runs in a circle of its own has no end to refer to: stay null. (This
  // variant is null by now, so a chain through it ends at it.)
  const Ox_Variant *end = OxVariantChainEnd(to);
  if (end == nullptr || end == this) return;
  type = kReference;
  value.ref = const_cast<Ox_Variant *>(to);
}

// ---------------------------------------------------------------------------
// Assignment operators

Ox_Variant &Ox_Variant::operator=(const Ox_Variant &source) {
  Set(source);
  return *this;
}

Ox_Variant &Ox_Variant::operator=(const Ox_Variant *source) {
  if (source != nullptr) {
    Set(*source);
    return *this;
  }
  // A null source is not an order to become null: a plain variant stays as
  // it is, and a reference with a target clears that target.
  if (type == kReference && value.ref != nullptr) WriteTarget()->Clear();
  return *this;
}

Ox_Variant &Ox_Variant::operator=(const Ox_AString &text) {
  Set(text);
  return *this;
}

Ox_Variant &Ox_Variant::operator=(const char *text) {
  Set(text, -1);
  return *this;
}

Ox_Variant &Ox_Variant::operator=(long number) {
  Set(number);
  return *this;
}

Ox_Variant &Ox_Variant::operator=(double number) {
  Set(number);
  return *this;
}

Ox_Variant &Ox_Variant::operator=(const Ox_Currency &number) {
  Set(number);
  return *this;
}

Ox_Variant &Ox_Variant::operator=(const Ox_DateTime &date) {
  Set(date);
  return *this;
}

Ox_Variant &Ox_Variant::operator=(const Ox_VariantList &list) {
  Set(list);
  return *this;
}

Ox_Variant &Ox_Variant::operator=(const Ox_Buffer &data) {
  SetBinary(data);
  return *this;
}
