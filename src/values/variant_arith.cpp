// The expression operations over Ox_Variant: Var_Add, Var_Sub, Var_Mul,
// Var_Div, Var_Mod, Var_Cat, Var_Cmp, Var_AndOr, and the members
// Ox_Variant::Compare and operator+=.
//
// Every rule is chosen by the two operand types. The rules are not
// symmetric, and each cell is a decision of this system: a pair without
// meaning gives a null result (or 0 from a comparison), never an error.
// References are not followed here, except where ToString or ToDouble and
// their kin read through them.
#include <cmath>
#include <cstdint>
#include <cstring>

#include "Ox_Object.h"
#include "Ox_VariantOps.h"
#include "values/ox_variant_chain.h"

namespace {

typedef Ox_Variant V;

bool IsNumericType(unsigned short type) {
  return type == V::kInteger || type == V::kDecimal || type == V::kCurrency;
}

// Whether a string operand counts as a number. The system's test walks the
// text, refusing a backslash, a sign anywhere but at the start, a second
// point, white space after a digit or any other non-digit, and then answers
// no whatever the walk found. The walk has no other effect, so it is left
// out here and the answer is given at once: no string is ever a number in
// the arithmetic and comparisons below.
bool IsNumericText(const Ox_Variant &) { return false; }

// Numeric operand: integer, decimal or currency (or a string that reads as
// a number, which never happens; see IsNumericText).
bool IsNumeric(const Ox_Variant &v) {
  if (v.GetType() == V::kString) return IsNumericText(v);
  return IsNumericType(v.GetType());
}

// Integer, decimal, currency or date: the operands of Var_Mul, Var_Div
// and Var_Mod.
bool IsNumberOrDate(const Ox_Variant &v) {
  return IsNumeric(v) || v.GetType() == V::kDate;
}

// The operands of Var_Sub: null, the numbers and the date.
bool IsSubtractable(const Ox_Variant &v) {
  return v.GetType() == V::kNull || IsNumberOrDate(v);
}

// The scalar types that Var_Add joins as text, and that Var_Cmp compares
// with a string by text: string, integer, decimal, currency, date.
bool IsScalar(const Ox_Variant &v) {
  return v.GetType() == V::kString || IsNumberOrDate(v);
}

// 32-bit integer arithmetic with two's-complement wrap-around.
long WrapAdd(long a, long b) {
  return long(int32_t(uint32_t(a) + uint32_t(b)));
}
long WrapSub(long a, long b) {
  return long(int32_t(uint32_t(a) - uint32_t(b)));
}
long WrapMul(long a, long b) {
  return long(int32_t(uint32_t(a) * uint32_t(b)));
}

// A double truncated into the 32-bit integer type; out of range (or not a
// number) gives 0x80000000, as the processor's truncating conversion does.
long TruncToInteger(double value) {
  if (!(value > -2147483649.0 && value < 2147483648.0)) return INT32_MIN;
  return long(int32_t(value));
}

// Reads the default property of an object operand into `temp`; false when
// the object names none. The status of the read is not looked at: a failed
// read leaves `temp` as it was, null.
bool ReadDefault(const Ox_Variant &v, Ox_Variant &temp) {
  const Ox_ObjectHolder *holder = v.GetConstObject();
  const char *name = holder->GetDefaultProp();
  if (name == nullptr) return false;
  holder->GetProperty(Ox_AString(name), nullptr, temp);
  return true;
}

bool IsObject(const Ox_Variant &v) { return v.GetType() == V::kObject; }

// Sum or difference of two numeric operands by the pair table: two
// integers stay an integer, a decimal on either side gives a decimal, and
// otherwise (a currency with an integer or a currency) a currency.
void NumericPair(const Ox_Variant &left, const Ox_Variant &right,
                 bool subtract, Ox_Variant &result) {
  const unsigned short a = left.GetType();
  const unsigned short b = right.GetType();
  if (a == V::kInteger && b == V::kInteger) {
    const long l = left.ToInteger();
    const long r = right.ToInteger();
    result = subtract ? WrapSub(l, r) : WrapAdd(l, r);
  } else if (a == V::kDecimal || b == V::kDecimal) {
    const double l = left.ToDouble();
    const double r = right.ToDouble();
    result = subtract ? l - r : l + r;
  } else {
    const Ox_Currency l = left.ToCurrency();
    const Ox_Currency r = right.ToCurrency();
    result = subtract ? l - r : l + r;
  }
}

// The text comparison of Var_Cmp: null and empty texts are equal and sort
// first; otherwise byte by byte on unsigned bytes. -1, 0 or 1.
int CompareTexts(const char *left, const char *right) {
  const bool leftEmpty = left == nullptr || *left == '\0';
  const bool rightEmpty = right == nullptr || *right == '\0';
  if (leftEmpty || rightEmpty) {
    if (leftEmpty && rightEmpty) return 0;
    return leftEmpty ? -1 : 1;
  }
  const int c = strcmp(left, right);  // compares as unsigned char
  return c < 0 ? -1 : (c > 0 ? 1 : 0);
}

// Whether comparison opcode `opcode` holds for the ordering `c`.
int OpcodeHolds(int c, short opcode) {
  if (c > 0) return opcode == OX_VAROP_GT || opcode == OX_VAROP_GE;
  if (c == 0)
    return opcode == OX_VAROP_EQ || opcode == OX_VAROP_GE ||
           opcode == OX_VAROP_LE;
  return opcode == OX_VAROP_LT || opcode == OX_VAROP_LE;
}

// -1, 0 or 1 by the sign of a difference.
int SignOf(double difference) {
  if (difference < 0) return -1;
  return difference > 0 ? 1 : 0;
}

// The text of an operand for Var_Cat: a string's own text, else ToString.
Ox_AString TextOf(const Ox_Variant &v) {
  if (v.GetType() == V::kString) return *v.GetConstStr();
  return v.ToString();
}

// Var_Add, steps 7 and 8: a new array from an array and another operand.
void AddToArray(const Ox_Variant &left, const Ox_Variant &right,
                Ox_Variant &result) {
  Ox_VariantList list;
  if (left.GetType() == V::kArray) {
    list.Assign(left.GetConstArray());
    if (right.GetType() == V::kArray)
      list.Append(right.GetConstArray());
    else
      list.Add(right);
  } else {
    list.Add(left);
    list.Append(right.GetConstArray());
  }
  result = list;
}

// Var_Add from step 1 on, after objects have been replaced.
void AddByTable(const Ox_Variant &left, const Ox_Variant &right,
                Ox_Variant &result) {
  const unsigned short a = left.GetType();
  const unsigned short b = right.GetType();
  // 1, 2. A null side gives the other side.
  if (a == V::kNull) {
    if (b == V::kNull)
      result.Clear();
    else
      result = right;
    return;
  }
  if (b == V::kNull) {
    result = left;
    return;
  }
  // 3, 4. A date and a number: the date shifted by the number of days.
  if (a == V::kDate && IsNumeric(right)) {
    result = left.ToDateTime() + Ox_DateTimeSpan(right.ToDouble());
    return;
  }
  if (b == V::kDate && IsNumeric(left)) {
    result = right.ToDateTime() + Ox_DateTimeSpan(left.ToDouble());
    return;
  }
  // 5. Two strings are joined.
  if (a == V::kString && b == V::kString) {
    Var_Cat(left, right, result);
    return;
  }
  // 6. Two numbers by the pair table.
  if (IsNumeric(left) && IsNumeric(right)) {
    NumericPair(left, right, false, result);
    return;
  }
  // 7, 8. Arrays gather their elements and the other side.
  if (a == V::kArray || b == V::kArray) {
    AddToArray(left, right, result);
    return;
  }
  // 9. Two blobs are joined byte for byte.
  if (a == V::kBlob && b == V::kBlob) {
    Ox_Buffer bytes(*left.GetConstBinary());
    const Ox_Buffer &tail = *right.GetConstBinary();
    bytes.Append(tail.GetData(), tail.GetSize());
    result.SetBinary(bytes);
    return;
  }
  // 10. A scalar on either side: the texts are joined, so a number and a
  // string make text, and two dates make their two texts run together.
  if (IsScalar(left) || IsScalar(right)) {
    Var_Cat(left, right, result);
    return;
  }
  // 11. Nothing else has a sum.
  result.Clear();
}

// Var_Sub from step 1 on, after objects have been replaced.
void SubByTable(const Ox_Variant &left, const Ox_Variant &right,
                Ox_Variant &result) {
  const unsigned short a = left.GetType();
  const unsigned short b = right.GetType();
  // 1, 2. Only null, numbers and dates subtract; two nulls give null.
  if (!IsSubtractable(left) || !IsSubtractable(right) ||
      (a == V::kNull && b == V::kNull)) {
    result.Clear();
    return;
  }
  // 3. Null minus a value: its negation. A currency and, on purpose, a
  // date give the negated currency.
  if (a == V::kNull) {
    if (b == V::kInteger)
      result = WrapSub(0, right.ToInteger());
    else if (b == V::kDecimal)
      result = -right.ToDouble();
    else
      result = -right.ToCurrency();
    return;
  }
  // 4. Minus null: the left value.
  if (b == V::kNull) {
    result = left;
    return;
  }
  // 5. Two numbers by the pair table.
  if (a != V::kDate && b != V::kDate) {
    NumericPair(left, right, true, result);
    return;
  }
  // 6. A date on either side: the type of the other side decides, and two
  // dates give their difference in days as a decimal (not a span).
  const unsigned short other = a == V::kDate ? b : a;
  if (other == V::kInteger)
    result = WrapSub(left.ToInteger(), right.ToInteger());
  else if (other == V::kCurrency)
    result = left.ToCurrency() - right.ToCurrency();
  else
    result = left.ToDouble() - right.ToDouble();
}

// The replacement of object operands for Var_Mul, Var_Div and Var_Mod: an
// object without a default property clears the result, unless both sides
// are objects, when it stays a null temporary. False when the result has
// been cleared and the operation ends.
bool ReplaceForProduct(const Ox_Variant *&left, const Ox_Variant *&right,
                       Ox_Variant &leftTemp, Ox_Variant &rightTemp,
                       Ox_Variant &result) {
  const bool both = IsObject(*left) && IsObject(*right);
  if (IsObject(*left)) {
    if (!ReadDefault(*left, leftTemp) && !both) {
      result.Clear();
      return false;
    }
    left = &leftTemp;
  }
  if (IsObject(*right)) {
    if (!ReadDefault(*right, rightTemp) && !both) {
      result.Clear();
      return false;
    }
    right = &rightTemp;
  }
  return true;
}

// Var_Mul, step 4: two currencies.
void MultiplyCurrencies(const Ox_Variant &left, const Ox_Variant &right,
                        Ox_Variant &result) {
  const Ox_Currency c1 = left.ToCurrency();
  const Ox_Currency c2 = right.ToCurrency();
  const bool whole1 = c1.IsInt() != 0;
  const bool whole2 = c2.IsInt() != 0;
  if (whole1 && whole2) {
    // a. Both whole: the greater times the integer of the other.
    result = c1 > c2 ? c1 * c2.ToInteger() : c2 * c1.ToInteger();
  } else if (whole1) {
    // b. Only the left whole.
    result = c2 * c1.ToInteger();
  } else if (whole2) {
    // c. Only the right whole.
    result = c1 * c2.ToInteger();
  } else {
    // d. Neither whole: the left value squared, as a decimal; the right
    // operand plays no part.
    result = c1.ToDouble() * c1.ToDouble();
  }
}

}  // namespace

void Var_Add(const Ox_Variant &left, const Ox_Variant &right,
             Ox_Variant &result) {
  // Two integers first of all: a 32-bit wrapping sum.
  if (left.GetType() == V::kInteger && right.GetType() == V::kInteger) {
    result = WrapAdd(left.ToInteger(), right.ToInteger());
    return;
  }
  if (!IsObject(left) && !IsObject(right)) {
    AddByTable(left, right, result);
    return;
  }
  // Objects stand for their default property; one that has none goes on
  // as itself.
  Ox_Variant leftTemp, rightTemp;
  const Ox_Variant *l = &left;
  const Ox_Variant *r = &right;
  if (IsObject(left) && ReadDefault(left, leftTemp)) l = &leftTemp;
  if (IsObject(right) && ReadDefault(right, rightTemp)) r = &rightTemp;
  AddByTable(*l, *r, result);
}

void Var_Sub(const Ox_Variant &left, const Ox_Variant &right,
             Ox_Variant &result) {
  // Two integers first of all: a 32-bit wrapping difference.
  if (left.GetType() == V::kInteger && right.GetType() == V::kInteger) {
    result = WrapSub(left.ToInteger(), right.ToInteger());
    return;
  }
  // Objects stand for their default property. Without one, a left object
  // goes on as null and a right object makes the result the left operand;
  // when both are objects a missing one stays a null temporary.
  Ox_Variant leftTemp, rightTemp;
  const Ox_Variant *l = &left;
  const Ox_Variant *r = &right;
  const bool both = IsObject(left) && IsObject(right);
  if (IsObject(left))
    l = ReadDefault(left, leftTemp) || both ? &leftTemp : &_OxNullVariant;
  if (IsObject(right)) {
    if (!ReadDefault(right, rightTemp) && !both) {
      result = *l;
      return;
    }
    r = &rightTemp;
  }
  SubByTable(*l, *r, result);
}

void Var_Mul(const Ox_Variant &left, const Ox_Variant &right,
             Ox_Variant &result) {
  Ox_Variant leftTemp, rightTemp;
  const Ox_Variant *l = &left;
  const Ox_Variant *r = &right;
  if (!ReplaceForProduct(l, r, leftTemp, rightTemp, result)) return;
  // 1. Only numbers and dates multiply.
  if (!IsNumberOrDate(*l) || !IsNumberOrDate(*r)) {
    result.Clear();
    return;
  }
  const unsigned short a = l->GetType();
  const unsigned short b = r->GetType();
  // 2. Two integers wrap; a decimal or a date on either side gives a
  // decimal.
  if (a == V::kInteger && b == V::kInteger) {
    result = WrapMul(l->ToInteger(), r->ToInteger());
  } else if (a == V::kDecimal || b == V::kDecimal || a == V::kDate ||
             b == V::kDate) {
    result = l->ToDouble() * r->ToDouble();
  } else if (a == V::kCurrency && b == V::kCurrency) {
    // 4. Two currencies.
    MultiplyCurrencies(*l, *r, result);
  } else {
    // 3. A currency and an integer, either way round.
    const Ox_Variant &money = a == V::kCurrency ? *l : *r;
    const Ox_Variant &factor = a == V::kCurrency ? *r : *l;
    result = money.ToCurrency() * factor.ToInteger();
  }
}

void Var_Div(const Ox_Variant &left, const Ox_Variant &right,
             Ox_Variant &result) {
  Ox_Variant leftTemp, rightTemp;
  const Ox_Variant *l = &left;
  const Ox_Variant *r = &right;
  if (!ReplaceForProduct(l, r, leftTemp, rightTemp, result)) return;
  // 1. Only numbers and dates divide.
  if (!IsNumberOrDate(*l) || !IsNumberOrDate(*r)) {
    result.Clear();
    return;
  }
  // 2. A currency by an integer stays a currency (by 0: the overflow
  // marker).
  if (l->GetType() == V::kCurrency && r->GetType() == V::kInteger) {
    result = l->ToCurrency() / r->ToInteger();
    return;
  }
  // 3. Division by (nearly) zero gives null.
  const double divisor = r->ToDouble();
  if (std::fabs(divisor) < 1e-15) {
    result.Clear();
    return;
  }
  // 4. Always a decimal: 7 / 2 is 3.5.
  result = l->ToDouble() / divisor;
}

void Var_Mod(const Ox_Variant &left, const Ox_Variant &right,
             Ox_Variant &result) {
  Ox_Variant leftTemp, rightTemp;
  const Ox_Variant *l = &left;
  const Ox_Variant *r = &right;
  if (!ReplaceForProduct(l, r, leftTemp, rightTemp, result)) return;
  // 1. The operand test of Var_Div.
  if (!IsNumberOrDate(*l) || !IsNumberOrDate(*r)) {
    result.Clear();
    return;
  }
  // 2. A zero divisor gives null.
  const long divisor = r->ToInteger();
  if (divisor == 0) {
    result.Clear();
    return;
  }
  // 3. The remainder takes the sign of the dividend. A divisor of -1
  // always leaves 0 (and so never overflows).
  const long dividend = l->ToInteger();
  result = divisor == -1 ? 0L : dividend % divisor;
}

void Var_Cat(const Ox_Variant &left, const Ox_Variant &right,
             Ox_Variant &result) {
  // The text is made before the result is written, so the result may be
  // one of the operands. Two nulls give an empty string, not null.
  Ox_AString text = TextOf(left);
  text += TextOf(right);
  result = text;
}

int Var_Cmp(const Ox_Variant &left, const Ox_Variant &right, short opcode) {
  // 1, 2. Nulls: two nulls are equal, a null and a value are nothing.
  if (left.GetType() == V::kNull) {
    if (right.GetType() != V::kNull) return 0;
    return OpcodeHolds(0, opcode);
  }
  if (right.GetType() == V::kNull) return 0;
  // 3. Like types: Compare decides.
  if (left.GetType() == right.GetType())
    return OpcodeHolds(left.Compare(right), opcode);
  // 4. Objects stand for their default property, null without one.
  Ox_Variant leftTemp, rightTemp;
  const Ox_Variant *l = &left;
  const Ox_Variant *r = &right;
  if (IsObject(left)) {
    ReadDefault(left, leftTemp);
    l = &leftTemp;
  }
  if (IsObject(right)) {
    ReadDefault(right, rightTemp);
    r = &rightTemp;
  }
  const bool leftString = l->GetType() == V::kString;
  const bool rightString = r->GetType() == V::kString;
  // 5. Two strings by text.
  if (leftString && rightString)
    return OpcodeHolds(CompareTexts(l->GetConstStr()->GetString(),
                                    r->GetConstStr()->GetString()),
                       opcode);
  // 6. Numbers and dates by value, equal within 1e-12.
  const bool leftNumber = l->GetType() == V::kNull || IsNumberOrDate(*l);
  if (leftNumber && IsNumberOrDate(*r)) {
    const double d = l->ToDouble() - r->ToDouble();
    const int c = std::fabs(d) < 1e-12 ? 0 : (d <= 0 ? -1 : 1);
    return OpcodeHolds(c, opcode);
  }
  // 7. A string and a number, date or null: by text, so the integer 10 is
  // less than the string 9.
  const bool rightNumber = r->GetType() == V::kNull || IsNumberOrDate(*r);
  if ((leftString && rightNumber) || (rightString && leftNumber))
    return OpcodeHolds(CompareTexts(l->ToString().GetString(),
                                    r->ToString().GetString()),
                       opcode);
  // 8. Nothing else compares.
  return 0;
}

int Var_AndOr(const Ox_Variant &left, const Ox_Variant &right, short opcode) {
  const long l = left.ToInteger();
  const long r = right.ToInteger();
  if (opcode == OX_VAROP_AND) return l != 0 && r != 0 ? 1 : 0;
  return l != 0 || r != 0 ? 1 : 0;
}

// ---- Ox_Variant::Compare ------------------------------------------------

int Ox_Variant::Compare(const Ox_Variant &other) const {
  // 1. Two nulls are equal.
  if (type == kNull && other.type == kNull) return 0;
  // 2. A reference with a target compares by its target, on either side.
  const Ox_Variant *a = this;
  const Ox_Variant *b = &other;
  if (a->type == kReference && a->value.ref != nullptr) a = a->value.ref;
  if (b->type == kReference && b->value.ref != nullptr) b = b->value.ref;
  // 3. Different types are unequal, whichever way round: no ordering.
  if (a->type != b->type) return 1;
  // 4. By type.
  switch (a->type) {
    case kInteger:
      return int(WrapSub(a->value.lVal, b->value.lVal));
    case kDecimal: {
      const double d = a->value.dVal - b->value.dVal;
      if (std::fabs(d) < 1e-10) return 0;
      return d < 0 ? -1 : 1;
    }
    case kCurrency:
      return SignOf(
          (*a->GetConstCurrency() - *b->GetConstCurrency()).ToDouble());
    case kDate:
      return SignOf(a->GetConstDateTime()->ToDouble() -
                    b->GetConstDateTime()->ToDouble());
    case kString:
      return a->ToString().Compare(b->GetConstStr()->GetString());
    case kBlob: {
      const Ox_Buffer *x = a->GetConstBinary();
      const Ox_Buffer *y = b->GetConstBinary();
      if (x->GetSize() != y->GetSize())
        return int(x->GetSize() - y->GetSize());
      if (x->GetSize() == 0) return 0;
      return memcmp(x->GetData(), y->GetData(), size_t(x->GetSize()));
    }
    case kObject:
      return a->GetConstObject()->Compare(b->GetConstObject());
    default:
      return 0;  // arrays and every other type
  }
}

// ---- Ox_Variant::operator+= ---------------------------------------------
//
// Each form follows the type of this variant: null becomes the argument,
// numbers add it converted to their own type, a date moves by it as days,
// a string appends its text, and a reference with a target acts on the
// target. Other types are left alone (the variant form adds to blobs and
// arrays as well).

namespace {

// The variant a reference hands an addition on to: the end of its chain,
// when that is a value. Null for a reference without a target (also at the
// end of a chain) and for a circle of references, which has no end.
Ox_Variant *ForwardTarget(Ox_Variant &v) {
  Ox_Variant *end = const_cast<Ox_Variant *>(OxVariantChainEnd(&v));
  return end != nullptr && end->type != Ox_Variant::kReference ? end : nullptr;
}

// What an addend gives each type it is added to: a whole number for an
// integer (added with wrap-around), a number for a decimal and the days by
// which a date moves, an amount for a currency, and the text a string
// appends.
struct LongAddend {
  long x;
  long Integer() const { return x; }
  double Number() const { return double(x); }
  Ox_Currency Amount() const { return Ox_Currency(x, 0L); }
  void AppendTo(Ox_AString &text) const {
    Ox_AString digits;
    digits.Format("%ld", x);
    text += digits;
  }
};

struct DoubleAddend {
  double x;
  long Integer() const { return TruncToInteger(x); }
  double Number() const { return x; }
  Ox_Currency Amount() const { return Ox_Currency(x); }
  void AppendTo(Ox_AString &text) const { text += x; }
};

struct TextAddend {
  const Ox_AString &x;
  long Integer() const { return x.ToInteger(); }
  double Number() const { return x.ToDouble(); }
  Ox_Currency Amount() const {
    Ox_Currency amount;  // zero first: the parser leaves it for no text
    amount.SetCurrency(x.GetString());
    return amount;
  }
  void AppendTo(Ox_AString &text) const {
    const Ox_AString tail(x);  // the text may be this string itself
    text += tail;
  }
};

struct CurrencyAddend {
  const Ox_Currency &x;
  long Integer() const { return x.ToInteger(); }
  double Number() const { return x.ToDouble(); }
  Ox_Currency Amount() const { return x; }
  void AppendTo(Ox_AString &text) const { text += x.ToString(); }
};

struct DateAddend {
  const Ox_DateTime &x;
  long Integer() const { return x.ToInteger(); }
  double Number() const { return x.ToDouble(); }
  Ox_Currency Amount() const { return Ox_Currency(x.ToDouble()); }
  void AppendTo(Ox_AString &text) const { text += x.ToString(nullptr); }
};

struct VariantAddend {
  const Ox_Variant &x;  // may be the variant added to
  long Integer() const { return x.ToInteger(); }
  double Number() const { return x.ToDouble(); }
  Ox_Currency Amount() const { return x.ToCurrency(); }
  void AppendTo(Ox_AString &text) const { text += x.ToString(); }
};

// Adds to a number, a date or a string; other types are left alone.
template <class Addend>
void AddScalar(Ox_Variant &v, const Addend &addend) {
  switch (v.type) {
    case Ox_Variant::kInteger:
      v.value.lVal = int32_t(WrapAdd(v.value.lVal, addend.Integer()));
      break;
    case Ox_Variant::kDecimal: v.value.dVal += addend.Number(); break;
    case Ox_Variant::kCurrency: *v.GetCurrency() += addend.Amount(); break;
    case Ox_Variant::kDate:
      *v.GetDateTime() += Ox_DateTimeSpan(addend.Number());
      break;
    case Ox_Variant::kString: addend.AppendTo(*v.GetStr()); break;
    default: break;
  }
}

// The whole addition of a plain value: a reference acts on the end of its
// chain, null becomes the value, the rest is AddScalar.
template <class Addend, class Arg>
void AddValue(Ox_Variant &self, const Arg &arg) {
  Ox_Variant *v = &self;
  if (v->type == Ox_Variant::kReference) {
    v = ForwardTarget(self);
    if (v == nullptr) return;
  }
  if (v->type == Ox_Variant::kNull)
    v->Set(arg);
  else
    AddScalar(*v, Addend{arg});
}

}  // namespace

Ox_Variant &Ox_Variant::operator+=(long number) {
  AddValue<LongAddend>(*this, number);
  return *this;
}

Ox_Variant &Ox_Variant::operator+=(int number) {
  return *this += static_cast<long>(number);
}

Ox_Variant &Ox_Variant::operator+=(double number) {
  AddValue<DoubleAddend>(*this, number);
  return *this;
}

Ox_Variant &Ox_Variant::operator+=(const Ox_AString &text) {
  AddValue<TextAddend>(*this, text);
  return *this;
}

Ox_Variant &Ox_Variant::operator+=(const char *text) {
  // A null text becomes the empty string, and adds nothing.
  if (type == kNull) {
    Set(text);
    return *this;
  }
  return *this += Ox_AString(text);
}

Ox_Variant &Ox_Variant::operator+=(const Ox_Currency &number) {
  AddValue<CurrencyAddend>(*this, number);
  return *this;
}

Ox_Variant &Ox_Variant::operator+=(const Ox_DateTime &date) {
  AddValue<DateAddend>(*this, date);
  return *this;
}

Ox_Variant &Ox_Variant::operator+=(const Ox_Variant &other) {
  switch (type) {
    case kNull: Set(other); break;
    case kBlob: {
      // The bytes of a blob or of a string; a copy first, as the argument
      // may be this variant.
      Ox_Buffer tail;
      if (other.type == kBlob)
        tail = *other.GetConstBinary();
      else if (other.type == kString)
        tail.Set(reinterpret_cast<const unsigned char *>(
                     other.GetConstStr()->GetString()),
                 other.GetConstStr()->GetLength());
      else
        break;
      GetBinary()->Append(tail.GetData(), tail.GetSize());
      break;
    }
    case kArray:
      if (other.type == kArray) {
        const Ox_VariantList elements(*other.GetConstArray());
        GetArray()->Append(&elements);
      } else {
        GetArray()->Add(other);
      }
      break;
    case kReference: break;  // a reference is left alone here
    default: AddScalar(*this, VariantAddend{other}); break;
  }
  return *this;
}
