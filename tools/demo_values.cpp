// `oxtool demo`, values: variants of every scalar type, their text forms,
// conversions and arithmetic.
#include "OxClassLib.h"
#include "oxtool_demos.h"

namespace {

int Check(FILE *out, bool ok, const char *what) {
  std::fprintf(out, "  [%s] %s\n", ok ? "ok" : "FAILED", what);
  return ok ? 0 : 1;
}

void Show(FILE *out, const char *label, const Ox_Variant &value) {
  std::fprintf(out, "  %-26s type %-5u %-9s \"%s\"\n", label, value.GetType(),
               value.GetTypeString(), value.ToString().GetString());
}

}  // namespace

int DemoValues(FILE *out) {
  std::fprintf(out, "== Values ==\n");
  OxSetLocale(0x0409, 65001);
  Ox_Variant integer(static_cast<long>(42));
  Ox_Variant decimal(2.5);
  Ox_Variant money(Ox_Currency("1234.5678"));
  Ox_Variant date(Ox_DateTime(2026, 11, 20, 9, 30, 0));
  Ox_Variant text("rows of a table");
  Ox_Variant none;
  Show(out, "integer", integer);
  Show(out, "decimal", decimal);
  Show(out, "currency", money);
  Show(out, "date", date);
  Show(out, "string", text);
  Show(out, "null", none);

  Ox_Variant sum, concatenated;
  Var_Add(integer, decimal, sum);
  Show(out, "42 + 2.5", sum);
  Var_Cat(text, integer, concatenated);
  Show(out, "string & 42", concatenated);
  int failures = Check(out, sum.GetType() == 5 && sum.ToDouble() == 44.5,
                       "integer plus decimal is the decimal 44.5");

  Ox_Variant converted(text);
  converted.Set("17");
  converted.ChangeType(3);
  Show(out, "\"17\" changed to INTEGER", converted);
  failures += Check(out, converted.GetType() == 3 && converted.ToInteger() == 17,
                    "text converts to an integer");
  std::fprintf(out, "  currency for the locale:  %s\n",
               money.ToCurrency().GetFormatString(0x0409).GetString());
  std::fprintf(out, "  date as \"dddd, MMMM d, yyyy\": %s\n",
               date.ToDateTime().ToString("dddd, MMMM d, yyyy").GetString());
  std::fprintf(out, "\n");
  return failures;
}
