// The first binary stream form of a variant and of a variable list, and the
// text helpers that every block of the form shares.
#include <climits>
#include <new>

#include "Ox_Object.h"
#include "Ox_Variable.h"
#include "Ox_Variant.h"
#include "interchange/binstream_internal.h"
#include "values/ox_variant_chain.h"

// ===========================================================================
// Texts

long OxBinWriteText(Ox_Buffer &buffer, const Ox_AString &text,
                    unsigned codePage) {
  const char *bytes = text.GetString();
  int length = text.GetLength();
  // Only a stream in a foreign code page needs a converted copy.
  Ox_AString converted;
  if (length > 0 && OxBinNeedsConversion(codePage)) {
    converted.ConvertCodePageFrom(OxGetLocaleCP(), bytes, length, codePage);
    bytes = converted.GetString();
    length = converted.GetLength();
  }
  unsigned char *at = OxBinGrow(buffer, 2L + length);
  if (at == nullptr) return -1;
  // The length field keeps the low 16 bits only; a longer text is still
  // written whole, and its reader then loses step.
  at = OxBinPut16(at, static_cast<unsigned>(length) & 0xFFFF);
  if (length > 0) std::memcpy(at, bytes, static_cast<size_t>(length));
  return buffer.GetSize();
}

void OxBinReadText(Ox_AString &out, const unsigned char *at, int length,
                   unsigned codePage) {
  const char *text = reinterpret_cast<const char *>(at);
  if (length <= 0) {
    out.Empty();
  } else if (OxBinNeedsConversion(codePage)) {
    out.ConvertCodePageFrom(codePage, text, length, OxGetLocaleCP());
  } else {
    out.Set(text, length);
  }
}

namespace {

// A buffer position as the int that the Load and Save members report.
int EndPosition(long size) { return size > INT_MAX ? -1 : static_cast<int>(size); }

}  // namespace

// ===========================================================================
// Ox_Variant

// The end of a reference chain; a reference without target stays itself.
// A reference travels as the value at the end of its chain; a chain that
// runs in a circle has no value and travels as null.
static const Ox_Variant &SavedValue(const Ox_Variant &value) {
  const Ox_Variant *end = OxVariantChainEnd(&value);
  return end ? *end : _OxNullVariant;
}

long OxBinVariantSize(const Ox_Variant &value) {
  const Ox_Variant &source = SavedValue(value);
  switch (source.type) {
    case Ox_Variant::kInteger:
      return 2 + 4;
    case Ox_Variant::kDecimal:
      return ox_isinf(source.value.dVal) ? 2 : 2 + 8;
    case Ox_Variant::kCurrency:
    case Ox_Variant::kDate:
      return 2 + 8;
    case Ox_Variant::kString:
      return 2 + 2 + source.GetConstStr()->GetLength();
    case Ox_Variant::kBlob:
      return 2 + 4 + source.GetConstBinary()->GetSize();
    default:
      return 2;
  }
}

unsigned char *OxBinPutVariant(unsigned char *at, const Ox_Variant &value) {
  const Ox_Variant &source = SavedValue(value);
  switch (source.type) {
    case Ox_Variant::kInteger:
      at = OxBinPut16(at, Ox_Variant::kInteger);
      return OxBinPut32(at, static_cast<uint32_t>(source.value.lVal));
    case Ox_Variant::kDecimal:
      // An infinity or NaN is the null decimal: the type field 0 alone.
      if (ox_isinf(source.value.dVal)) return OxBinPut16(at, Ox_Variant::kNull);
      at = OxBinPut16(at, Ox_Variant::kDecimal);
      ox_dtobyte(source.value.dVal, reinterpret_cast<char *>(at));
      return at + 8;
    case Ox_Variant::kCurrency: {
      // The high word first, then the low one.
      const Ox_Currency *number = source.GetConstCurrency();
      at = OxBinPut16(at, Ox_Variant::kCurrency);
      at = OxBinPut32(at, static_cast<uint32_t>(number->high));
      return OxBinPut32(at, number->low);
    }
    case Ox_Variant::kDate:
      at = OxBinPut16(at, Ox_Variant::kDate);
      ox_dtobyte(source.GetConstDateTime()->GetStoredValue(),
                 reinterpret_cast<char *>(at));
      return at + 8;
    case Ox_Variant::kString: {
      // Only the low 16 bits of the length are kept; the text goes whole.
      const Ox_AString *text = source.GetConstStr();
      const int length = text->GetLength();
      at = OxBinPut16(at, Ox_Variant::kString);
      at = OxBinPut16(at, static_cast<unsigned>(length) & 0xFFFF);
      if (length > 0) std::memcpy(at, text->GetString(), static_cast<size_t>(length));
      return at + length;
    }
    case Ox_Variant::kBlob: {
      const Ox_Buffer *bytes = source.GetConstBinary();
      const long length = bytes->GetSize();
      at = OxBinPut16(at, Ox_Variant::kBlob);
      at = OxBinPut32(at, static_cast<uint32_t>(length));
      if (length > 0) std::memcpy(at, bytes->GetData(), static_cast<size_t>(length));
      return at + length;
    }
    case Ox_Variant::kReference:  // a reference that leads nowhere
      return OxBinPut16(at, Ox_Variant::kNull);
    default:  // null, array, object and unknown types: the type alone
      return OxBinPut16(at, source.type);
  }
}

int Ox_Variant::Save(Ox_Buffer &buffer, unsigned int codePage) const {
  const Ox_Variant &source = SavedValue(*this);
  // A text in a foreign code page is converted before its length is taken.
  if (source.type == kString && OxBinNeedsConversion(codePage)) {
    if (OxBinWrite16(buffer, kString) < 0 ||
        OxBinWriteText(buffer, *source.GetConstStr(), codePage) < 0)
      return -1;
    return EndPosition(buffer.GetSize());
  }
  const long size = OxBinVariantSize(source);
  unsigned char *at = OxBinGrow(buffer, size);
  if (at == nullptr) return -1;
  OxBinPutVariant(at, source);
  return EndPosition(buffer.GetSize());
}

// The value behind a type field, read at `position`; `ownType` tells the
// form that has read the type itself from the form that was given it.
static int LoadVariantPayload(Ox_Variant &out, unsigned short type,
                              const Ox_Buffer &buffer, long position,
                              unsigned codePage, bool ownType) {
  const long size = buffer.GetSize();
  const unsigned char *data = buffer.GetData();
  // A fresh cell is null already: nothing to release.
  if (out.type != Ox_Variant::kNull) out.Clear();
  switch (type) {
    case Ox_Variant::kInteger:
      if (!OxBinFits(size, position, 4)) return -1;
      out.value.lVal = static_cast<int32_t>(OxBinGet32(data + position));
      out.type = type;
      return EndPosition(position + 4);
    case Ox_Variant::kDecimal:
    case Ox_Variant::kDate: {
      if (!OxBinFits(size, position, 8)) return -1;
      const double number = ox_bytetod(
          const_cast<char *>(reinterpret_cast<const char *>(data + position)));
      // The reader of its own type field takes an infinity as the null
      // decimal; the other keeps it.
      if (type == Ox_Variant::kDecimal && ownType && ox_isinf(number))
        return EndPosition(position + 8);
      if (type == Ox_Variant::kDecimal) {
        out.value.dVal = number;
      } else {
        new (&out.value) Ox_DateTime();
        out.GetDateTime()->SetStoredValue(number);
      }
      out.type = type;
      return EndPosition(position + 8);
    }
    case Ox_Variant::kCurrency: {
      if (!OxBinFits(size, position, 8)) return -1;
      Ox_Currency *number = new (&out.value) Ox_Currency();
      number->high = static_cast<int32_t>(OxBinGet32(data + position));
      number->low = OxBinGet32(data + position + 4);
      out.type = type;
      return EndPosition(position + 8);
    }
    case Ox_Variant::kString: {
      // An overrun leaves the variant null.
      if (!OxBinFits(size, position, 2)) return -1;
      const int length = static_cast<int>(OxBinGet16(data + position));
      position += 2;
      if (!OxBinFits(size, position, length)) return -1;
      // An empty text is an empty string for the reader of its own type,
      // and null for the other.
      if (length == 0 && !ownType) return EndPosition(position);
      Ox_AString *text = new (&out.value) Ox_AString();
      out.type = type;
      OxBinReadText(*text, data + position, length, codePage);
      return EndPosition(position + length);
    }
    case Ox_Variant::kBlob: {
      if (!OxBinFits(size, position, 4)) return -1;
      const int32_t length = static_cast<int32_t>(OxBinGet32(data + position));
      position += 4;
      // A negative length, or one past the end, is refused before any
      // memory is taken for it.
      if (length < 0 || !OxBinFits(size, position, length)) return -1;
      Ox_Buffer *bytes = new (&out.value) Ox_Buffer();
      out.type = type;
      bytes->Set(data + position, length);
      return EndPosition(position + length);
    }
    case Ox_Variant::kArray:
      // No payload: an empty, well-formed array.
      new (&out.value) Ox_VariantList();
      out.type = type;
      return EndPosition(position);
    case Ox_Variant::kObject:
      new (&out.value) Ox_ObjectHolder();
      out.type = type;
      return EndPosition(position);
    default:
      // Null, a reference (with no target) and unknown types: the type
      // stays and nothing is read.
      out.type = type;
      return EndPosition(position);
  }
}

int Ox_Variant::Load(const Ox_Buffer &buffer, int position,
                     unsigned int codePage) {
  const long size = buffer.GetSize();
  if (!OxBinFits(size, position, 2)) return -1;
  const unsigned short ownType =
      static_cast<unsigned short>(OxBinGet16(buffer.GetData() + position));
  position += 2;
  // A value type with nothing behind it is a cut variant.
  if (ownType != kNull && position >= size) return -1;
  return LoadVariantPayload(*this, ownType, buffer, position, codePage, true);
}

int Ox_Variant::Load(short givenType, const Ox_Buffer &buffer, int position,
                     unsigned int codePage) {
  if (position < 0 || position >= buffer.GetSize()) return -1;
  return LoadVariantPayload(*this, static_cast<unsigned short>(givenType),
                            buffer, position, codePage, false);
}

// ===========================================================================
// Ox_VariableList

int Ox_VariableList::Save(Ox_Buffer &buffer, unsigned int codePage,
                          int version) const {
  // 1. Magic and version, the code page from 3100 on (0 as the locale's),
  //    and the count.
  const bool withCodePage = version >= kOxBinLayoutVersion;
  unsigned char *at = OxBinGrow(buffer, withCodePage ? 8 : 6);
  if (at == nullptr) return -1;
  at = OxBinPut16(at, kOxMagicVarList);
  at = OxBinPut16(at, static_cast<unsigned>(version) & 0xFFFF);
  if (withCodePage) {
    const unsigned streamPage = codePage != 0 ? codePage : OxGetLocaleCP();
    at = OxBinPut16(at, streamPage & 0xFFFF);
  }
  OxBinPut16(at, static_cast<unsigned>(Count()) & 0xFFFF);
  // 2. Per variable its name, then its value.
  for (int i = 0; i < Count(); ++i) {
    const Ox_Variable *item = GetItem(i);
    if (OxBinWriteText(buffer, item->id, codePage) < 0) return -1;
    if (item->var.Save(buffer, codePage) < 0) return -1;
  }
  return EndPosition(buffer.GetSize());
}

int Ox_VariableList::Load(const Ox_Buffer &buffer, int position,
                          unsigned int codePage) {
  // 1. The list starts empty; an empty buffer holds no list.
  Clear();
  const long size = buffer.GetSize();
  const unsigned char *data = buffer.GetData();
  if (size == 0) return 0;
  // 2. The fixed part: a short one is a normal end, a wrong magic an error.
  if (!OxBinFits(size, position, 4)) return EndPosition(size);
  if (OxBinGet16(data + position) != kOxMagicVarList) return -1;
  const unsigned version = OxBinGet16(data + position + 2);
  position += 4;
  // 3. From 3100 on, the block's own code page replaces the argument.
  if (version >= static_cast<unsigned>(kOxBinLayoutVersion)) {
    if (!OxBinFits(size, position, 2)) return EndPosition(size);
    codePage = OxBinGet16(data + position);
    position += 2;
  }
  if (!OxBinFits(size, position, 2)) return EndPosition(size);
  const int count = static_cast<int>(OxBinGet16(data + position));
  position += 2;
  // 4. The items. A count needs no reservation: each item is read from
  //    bytes that are there, so a false count ends at the buffer's end.
  Ox_Variable item;
  for (int i = 0; i < count; ++i) {
    if (!OxBinFits(size, position, 2)) return EndPosition(size);
    const int nameLength = static_cast<int>(OxBinGet16(data + position));
    if (nameLength == 0) {
      // An unnamed item is stepped over by 6 bytes from its length field.
      position += 6;
      continue;
    }
    position += 2;
    if (!OxBinFits(size, position, nameLength)) return EndPosition(size);
    OxBinReadText(item.id, data + position, nameLength, codePage);
    position += nameLength;
    const int end = item.var.Load(buffer, position, codePage);
    if (end < 0) {
      Clear();
      return end;
    }
    position = end;
    Add(&item);
  }
  // An unnamed last item may step past the end: that is the end.
  return EndPosition(position < size ? position : size);
}
