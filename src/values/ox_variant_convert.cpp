// Ox_Variant: type names, conversions, ChangeType and equality against
// plain values.
#include <cmath>
#include <cstdint>
#include <cstring>

#include "Ox_BaseFunc.h"
#include "Ox_Object.h"
#include "Ox_Variant.h"
#include "values/ox_variant_chain.h"

namespace {

// A double truncated toward zero into the 32-bit integer type. A value
// that does not fit (or is not a number) gives the "integer indefinite"
// 0x80000000, which is what the processor's own truncating conversion
// answers for such values.
int32_t TruncToInt32(double number) {
  if (!(number > -2147483649.0 && number < 2147483648.0)) return INT32_MIN;
  return static_cast<int32_t>(number);
}

// Reads the default property of an object into `out`. False when the
// object has no default property or reading it fails.
bool ReadDefaultProperty(const Ox_ObjectHolder &holder, Ox_Variant &out) {
  const char *name = holder.GetDefaultProp();
  if (name == nullptr) return false;
  return holder.GetProperty(Ox_AString(name), nullptr, out) == 0;
}

// Fixed-position date text yyyymmddHHMMSS: a slice is read only when the
// text reaches its end. `defaultMonthDay` is the month and day of a text
// that stops before them; `shortIsYear` reads a text shorter than the year
// slice as the year. Month and day defaults differ between SetDate (0)
// and ChangeType (1), and so does the short text.
Ox_DateTime FixedPositionDate(const Ox_AString &text, int defaultMonthDay,
                              bool shortIsYear) {
  int parts[6] = {0, defaultMonthDay, defaultMonthDay, 0, 0, 0};
  static const int kStart[6] = {0, 4, 6, 8, 10, 12};
  static const int kWidth[6] = {4, 2, 2, 2, 2, 2};
  const int length = text.GetLength();
  if (length < 4 && shortIsYear) parts[0] = text.ToInteger();
  for (int i = 0; i < 6; ++i) {
    if (length < kStart[i] + kWidth[i]) break;
    parts[i] = text.Mid(kStart[i], kWidth[i]).ToInteger();
  }
  Ox_DateTime date;
  date.SetDateTime(parts[0], parts[1], parts[2], parts[3], parts[4], parts[5]);
  return date;
}

// "true" and "false", ignoring case, are the boolean words of ToInteger.
long TextToInteger(const Ox_AString &text) {
  if (ox_stricmpA(text.GetString(), "true") == 0) return 1;
  if (ox_stricmpA(text.GetString(), "false") == 0) return 0;
  return text.ToInteger();
}

// ToInteger of a double: a nudge of 5e-16 away from zero, then truncation,
// so that 2.9999999999999996 comes out as 3.
long NudgedInteger(double number) {
  if (number > 0) return TruncToInt32(number + 5e-16);
  if (number < 0) return TruncToInt32(number - 5e-16);
  return 0;
}

}  // namespace

// ---------------------------------------------------------------------------
// Type names

const char *Ox_Variant::GetTypeString() const {
  switch (type) {
    case kNull: return "null";
    case kInteger: return "INTEGER";
    case kDecimal: return "DECIMAL";
    case kCurrency: return "CURRENCY";
    case kDate: return "DATE";
    case kString: return "STRING";
    case kBlob: return "BLOB";
    case kArray: return "ARRAY";
    case kObject: return "object";
    default: return "UNKNOWN";  // the reference and every other number
  }
}

unsigned short Ox_Variant::GetTypeNo(const char *name) {
  // Prefixes ignoring case, in this order; the first match decides.
  if (ox_strnicmpA(name, "INTEGER", 3) == 0) return kInteger;
  if (ox_strnicmpA(name, "DECIMAL", 7) == 0) return kDecimal;
  if (ox_strnicmpA(name, "STRING", 6) == 0) return kString;
  if (ox_strnicmpA(name, "CURRENCY", 8) == 0) return kCurrency;
  if (ox_strnicmpA(name, "DATE", 4) == 0) return kDate;
  if (ox_strnicmpA(name, "BLOB", 4) == 0) return kBlob;
  if (ox_strnicmpA(name, "BINARY", 6) == 0) return kBlob;
  if (ox_strnicmpA(name, "ARRAY", 5) == 0) return kArray;
  return kNull;
}

int Ox_Variant::IsComparable(const Ox_Variant &other) const {
  if (type != other.type) return 0;
  switch (type) {
    case kInteger:
    case kDecimal:
    case kCurrency:
    case kDate:
    case kString:
      return 1;
    default:
      return 0;
  }
}

// ---------------------------------------------------------------------------
// Text

namespace {

// The text of an object: its own hook, its default property, or a label.
void ObjectToString(const Ox_ObjectHolder &holder, Ox_AString &out) {
  // 1. No object: empty.
  Ox_Object *object = holder.GetObjectA();
  if (object == nullptr) {
    out.Empty();
    return;
  }
  // 2. The object's own text stands when the hook wrote one.
  if (object->ToStringHook(out) != 0) return;
  // 3. The default property's text.
  Ox_Variant temp;
  if (ReadDefaultProperty(holder, temp)) {
    temp.ToString(out);
    return;
  }
  // 4. A label with the identifier.
  Ox_AString id = holder.GetID();
  out.Set("[object:");
  out += id.GetLength() > 0 ? id.GetString() : "Unknown";
  out += "]";
}

// ToString and ToNumberExp share every row but that of a decimal. An
// array's elements and a reference's target always use plain ToString.
Ox_AString &VariantText(const Ox_Variant &v, Ox_AString &out, bool exp) {
  switch (v.type) {
    case Ox_Variant::kInteger:
      out.Set(static_cast<int>(v.value.lVal));
      break;
    case Ox_Variant::kDecimal:
      if (exp) {
        out.NumFormatExp(v.value.dVal, 0, 10);
      } else {
        out.Set(v.value.dVal);
      }
      break;
    case Ox_Variant::kCurrency:
      out = v.GetConstCurrency()->ToString();
      break;
    case Ox_Variant::kDate:
      out = v.GetConstDateTime()->ToString(nullptr);
      break;
    case Ox_Variant::kString:
      out.Set(*v.GetConstStr());
      break;
    case Ox_Variant::kBlob:
      out.Set("[binary]");
      break;
    case Ox_Variant::kArray: {
      // "[" elements joined by "," "]"; a null slot writes nothing.
      const Ox_VariantList *list = v.GetConstArray();
      Ox_AString text("[");
      Ox_AString item;
      for (int i = 0; i < list->Count(); ++i) {
        if (i > 0) text += ",";
        const Ox_Variant *element = list->GetItem(i);
        if (element == nullptr) continue;
        item.Empty();
        element->ToString(item);
        text += item;
      }
      text += "]";
      out = text;
      break;
    }
    case Ox_Variant::kObject:
      ObjectToString(*v.GetConstObject(), out);
      break;
    case Ox_Variant::kReference:
      // With no target the output is left as it is. The end of the chain
      // writes the text; a circle of references has none and reads as null.
      if (v.value.ref != nullptr) {
        const Ox_Variant *end = OxVariantChainEnd(&v);
        if (end != nullptr)
          end->ToString(out);
        else
          out.Empty();
      }
      break;
    default:
      // Null and the numbers that carry no value.
      out.Empty();
      break;
  }
  return out;
}

}  // namespace

Ox_AString &Ox_Variant::ToString(Ox_AString &out) const {
  return VariantText(*this, out, false);
}

Ox_AString Ox_Variant::ToString() const {
  Ox_AString out;
  ToString(out);
  return out;
}

Ox_AString &Ox_Variant::ToNumberExp(Ox_AString &out) const {
  return VariantText(*this, out, true);
}

Ox_AString Ox_Variant::ToNumberExp() const {
  Ox_AString out;
  ToNumberExp(out);
  return out;
}

// ---------------------------------------------------------------------------
// Numbers, currency and dates. Each reads through a reference (none gives
// zero) and reads an object's default property (none gives zero).

long Ox_Variant::ToInteger() const {
  const Ox_Variant *v = ReadTarget();
  switch (v->type) {
    case kInteger: return v->value.lVal;
    case kDecimal: return NudgedInteger(v->value.dVal);
    case kCurrency: return v->GetConstCurrency()->ToInteger();
    case kDate: return v->GetConstDateTime()->ToInteger();
    case kString: return TextToInteger(*v->GetConstStr());
    case kObject: {
      Ox_Variant temp;
      return ReadDefaultProperty(*v->GetConstObject(), temp) ? temp.ToInteger()
                                                            : 0;
    }
    default: return 0;
  }
}

double Ox_Variant::ToDouble() const {
  const Ox_Variant *v = ReadTarget();
  switch (v->type) {
    case kInteger: return v->value.lVal;
    case kDecimal: return v->value.dVal;
    case kCurrency: return v->GetConstCurrency()->ToDouble();
    case kDate: return v->GetConstDateTime()->ToDouble();
    case kString: return v->GetConstStr()->ToDouble();  // no boolean words
    case kObject: {
      Ox_Variant temp;
      return ReadDefaultProperty(*v->GetConstObject(), temp) ? temp.ToDouble()
                                                            : 0.0;
    }
    default: return 0.0;
  }
}

Ox_Currency Ox_Variant::ToCurrency() const {
  const Ox_Variant *v = ReadTarget();
  switch (v->type) {
    case kInteger: return Ox_Currency(static_cast<long>(v->value.lVal), 0);
    case kDecimal: return Ox_Currency(v->value.dVal);
    case kCurrency: return *v->GetConstCurrency();
    case kDate: return Ox_Currency(v->GetConstDateTime()->ToDouble());
    case kString: {
      Ox_Currency number;
      number.SetCurrency(v->GetConstStr()->GetString());
      return number;
    }
    case kObject: {
      Ox_Variant temp;
      return ReadDefaultProperty(*v->GetConstObject(), temp) ? temp.ToCurrency()
                                                            : Ox_Currency();
    }
    default: return Ox_Currency();
  }
}

Ox_DateTime Ox_Variant::ToDateTime() const {
  const Ox_Variant *v = ReadTarget();
  switch (v->type) {
    case kInteger: return Ox_DateTime(static_cast<double>(v->value.lVal));
    case kDecimal: return Ox_DateTime(v->value.dVal);
    case kCurrency: return Ox_DateTime(v->GetConstCurrency()->ToDouble());
    case kDate: return *v->GetConstDateTime();
    case kString: return FixedPositionDate(*v->GetConstStr(), 0, false);
    case kObject: {
      Ox_Variant temp;
      return ReadDefaultProperty(*v->GetConstObject(), temp) ? temp.ToDateTime()
                                                            : Ox_DateTime();
    }
    default: return Ox_DateTime();
  }
}

void Ox_Variant::SetDate(const Ox_AString &text) {
  // Month and day default to 0 here; a text shorter than 4 gives year 0.
  Set(FixedPositionDate(text, 0, false));
}

// ---------------------------------------------------------------------------
// ChangeType

namespace {

bool IsConvertibleType(unsigned short t) {
  return t == Ox_Variant::kInteger || t == Ox_Variant::kDecimal ||
         t == Ox_Variant::kCurrency || t == Ox_Variant::kDate ||
         t == Ox_Variant::kString;
}

// The value `newType` (3, 5, 6, 7 or 8) takes from `source`, built into
// `made`. Integers lose no nudge here, unlike ToInteger.
void ConvertInto(const Ox_Variant &source, unsigned short newType,
                 Ox_Variant &made) {
  const unsigned short from = source.type;
  switch (newType) {
    case Ox_Variant::kInteger:
      if (from == Ox_Variant::kDecimal) {
        made.Set(static_cast<long>(TruncToInt32(source.value.dVal)));
      } else if (IsConvertibleType(from)) {
        made.Set(source.ToInteger());  // with the boolean words for text
      } else {
        made.Set(0L);
      }
      break;
    case Ox_Variant::kDecimal:
      made.Set(IsConvertibleType(from) ? source.ToDouble() : 0.0);
      break;
    case Ox_Variant::kCurrency:
      made.Set(IsConvertibleType(from) ? source.ToCurrency() : Ox_Currency());
      break;
    case Ox_Variant::kDate:
      if (from == Ox_Variant::kString) {
        // Month and day default to 1; a short text is all year.
        made.Set(FixedPositionDate(*source.GetConstStr(), 1, true));
      } else {
        made.Set(IsConvertibleType(from) ? source.ToDateTime() : Ox_DateTime());
      }
      break;
    default: {  // kString
      Ox_AString text;
      source.ToString(text);
      made.Set(text);
      break;
    }
  }
}

}  // namespace

void Ox_Variant::ChangeType(unsigned short newType, Ox_Variant *source) {
  // 1. A null source is this; a reference reads its target.
  const Ox_Variant *from = source != nullptr ? source : this;
  if (from == this) {
    if (type == newType) return;
    if (type == kReference) from = ReadTarget();
  }
  const bool fromSelf = from == this;
  const bool numericOrDate = newType == kInteger || newType == kDecimal ||
                            newType == kCurrency || newType == kDate;
  // 2. An empty text asked to be a number or a date becomes null.
  if (numericOrDate && from->type == kString &&
      from->GetConstStr()->GetLength() == 0) {
    Set(_OxNullVariant);
    return;
  }
  // 3. The five convertible types take their value by the table.
  if (IsConvertibleType(newType)) {
    Ox_Variant made;
    ConvertInto(*from, newType, made);
    Set(made);
    return;  // step 4 rewrites a tag that Set has already written
  }
  // 4. Any other type: only this variant's own tag changes, and the value
  // stays. The one pair that callers use is a string turned into a blob of
  // the same bytes; the text and byte blocks of this build differ in their
  // headers, so the bytes are carried over into a buffer block. Every other
  // pair would make the new type misread the old value bits, and is
  // refused.
  if (!fromSelf) return;
  if (type == kString && newType == kBlob) {
    Ox_Buffer bytes;
    const Ox_AString *text = GetConstStr();
    if (text->GetLength() > 0) {
      bytes.Set(reinterpret_cast<const unsigned char *>(text->GetString()),
                text->GetLength());
    }
    SetBinary(bytes);
  }
}

// ---------------------------------------------------------------------------
// Equality against plain values

int Ox_Variant::operator==(const char *text) const {
  // Only a string can equal a text; null and empty are equal.
  if (type != kString) return 0;
  return std::strcmp(GetConstStr()->GetString(),
                     text != nullptr ? text : "") == 0;
}

int Ox_Variant::operator==(long number) const {
  switch (type) {
    case kInteger: return value.lVal == number;
    case kDecimal: return std::fabs(value.dVal - number) < 1e-10;
    case kCurrency: return GetConstCurrency()->ToInteger() == number;
    case kDate: return GetConstDateTime()->ToInteger() == number;
    default: return 0;
  }
}

int Ox_Variant::operator==(double number) const {
  switch (type) {
    case kInteger: return std::fabs(value.lVal - number) < 1e-10;
    case kDecimal: return std::fabs(value.dVal - number) < 1e-10;
    case kCurrency:
      return std::fabs(GetConstCurrency()->ToDouble() - number) < 1e-10;
    case kDate: return GetConstDateTime()->ToDouble() == number;
    default: return 0;
  }
}

int Ox_Variant::operator==(const Ox_Currency &number) const {
  switch (type) {
    case kInteger: return value.lVal == number.ToInteger();
    case kDecimal: return std::fabs(value.dVal - number.ToDouble()) < 1e-10;
    case kCurrency: return *GetConstCurrency() == number;
    case kDate: return number.ToDouble() == GetConstDateTime()->ToDouble();
    default: return 0;
  }
}

int Ox_Variant::operator==(const Ox_DateTime &date) const {
  switch (type) {
    case kInteger: return value.lVal == date.ToInteger();
    case kDecimal: return value.dVal == date.ToDouble();
    case kCurrency:
      return Ox_DateTime(GetConstCurrency()->ToDouble()) == date;
    case kDate: return *GetConstDateTime() == date;
    default: return 0;
  }
}

int Ox_Variant::operator==(const Ox_Variant &other) const {
  if (type != other.type) return 0;  // a mixed pair is unequal
  switch (type) {
    case kNull: return 1;
    case kInteger: return value.lVal == other.value.lVal;
    case kDecimal: return std::fabs(value.dVal - other.value.dVal) < 1e-10;
    case kCurrency: return *GetConstCurrency() == *other.GetConstCurrency();
    case kDate: return *GetConstDateTime() == *other.GetConstDateTime();
    case kString:
      return GetConstStr()->Compare(other.GetConstStr()->GetString()) == 0;
    case kBlob: {
      const Ox_Buffer *a = GetConstBinary();
      const Ox_Buffer *b = other.GetConstBinary();
      if (a->GetSize() != b->GetSize()) return 0;
      return a->GetSize() == 0 ||
             std::memcmp(a->GetData(), b->GetData(), a->GetSize()) == 0;
    }
    case kObject:
      return GetConstObject()->Compare(other.GetConstObject()) == 0;
    case kReference:
      // Two references are followed when both have targets. A circle of
      // references has no value and equals nothing (checked first, so the
      // step-by-step comparison below always reaches an end).
      if (value.ref == nullptr || other.value.ref == nullptr) return 0;
      if (OxVariantChainEnd(this) == nullptr ||
          OxVariantChainEnd(&other) == nullptr)
        return 0;
      return *value.ref == *other.value.ref;
    default:
      return 0;  // an array is never equal, not even to itself
  }
}
