// Helpers of the variant arithmetic tests: variants of each type and a
// host object with an optional default property.
#ifndef OX_TESTS_ARITH_HELPERS_H
#define OX_TESTS_ARITH_HELPERS_H

#include <cstdint>
#include <string>

#include "Ox_Object.h"
#include "Ox_VariantOps.h"

namespace arith {

inline Ox_Variant Int(long v) { return Ox_Variant(v); }
inline Ox_Variant Dec(double v) { return Ox_Variant(v); }
inline Ox_Variant Str(const char *text) { return Ox_Variant(text); }
// A currency of `count` ten-thousandths.
inline Ox_Variant Cur(int64_t count) {
  Ox_Currency c;
  c.low = uint32_t(uint64_t(count));
  c.high = int32_t(uint32_t(uint64_t(count) >> 32));
  return Ox_Variant(c);
}
inline Ox_Variant Date(double days) { return Ox_Variant(Ox_DateTime(days)); }
inline Ox_Variant Blob(const char *bytes) {
  Ox_Variant v;
  v.SetBinary(reinterpret_cast<const unsigned char *>(bytes),
              int(std::string(bytes).size()));
  return v;
}
inline Ox_Variant Array(std::initializer_list<long> items) {
  Ox_VariantList list;
  for (long item : items) list.Add(Ox_Variant(item));
  return Ox_Variant(list);
}
inline Ox_Variant Ref(const Ox_Variant &target) {
  Ox_Variant v;
  v.SetReference(&target);
  return v;
}

inline int64_t CountOf(const Ox_Variant &v) {
  const Ox_Currency *c = v.GetConstCurrency();
  return int64_t((uint64_t(uint32_t(c->high)) << 32) | c->low);
}
inline std::string TextOf(const Ox_Variant &v) { return v.ToString().GetString(); }
inline std::string BytesOf(const Ox_Variant &v) {
  const Ox_Buffer *b = v.GetConstBinary();
  return std::string(reinterpret_cast<const char *>(b->GetData()),
                     size_t(b->GetSize()));
}

// A host object whose default property, when it has one, is `value`.
class PropObject : public Ox_Object {
 public:
  explicit PropObject(const Ox_Variant &property, bool hasDefault = true)
      : m_property(property), m_hasDefault(hasDefault) {
    refCount = -1;  // not counted: it lives on the test's stack
  }
  void Destroy() override {}
  Ox_AString GetID() const override { return "prop"; }
  long GetProperty(const Ox_AString &name, const Ox_VariantList *,
                   Ox_Variant &value) override {
    ++reads;
    if (name.Compare("value") != 0) return -1;
    value.Set(m_property);
    return 0;
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
  const char *GetDefaultProp() const override {
    return m_hasDefault ? "value" : nullptr;
  }
  int GetItemCount() const override { return 0; }
  long GetItem(int, Ox_Variant &) override { return -1; }
  long GetItem(const Ox_AString &, Ox_Variant &) override { return -1; }
  int ToStringHook(Ox_AString &) override { return 0; }

  int reads = 0;

 private:
  Ox_Variant m_property;
  bool m_hasDefault;
};

// A variant holding `object` as its own component (not counted).
inline Ox_Variant Obj(Ox_Object &object) {
  Ox_Variant v;
  v.SetObject(nullptr, &object, &object);
  return v;
}

}  // namespace arith

#endif
