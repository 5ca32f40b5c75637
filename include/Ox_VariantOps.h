// Operations of the expression language over Ox_Variant: arithmetic,
// concatenation, comparison and the logical pair. The rules are chosen by
// the two operand types; none of them signals an error: a pair without
// meaning gives a null result, and a comparison without meaning gives 0.
#ifndef OX_VARIANTOPS_H
#define OX_VARIANTOPS_H

#include "Ox_Export.h"
#include "Ox_Variant.h"

// Comparison opcodes of Var_Cmp.
enum {
  OX_VAROP_EQ = 31,  // equal
  OX_VAROP_GT = 32,  // greater
  OX_VAROP_GE = 33,  // greater or equal
  OX_VAROP_LT = 34,  // less
  OX_VAROP_LE = 35,  // less or equal
  OX_VAROP_AND = 41  // Var_AndOr: AND; every other opcode means OR
};

// `result` is written by assignment, so a reference result writes its
// target. Only Var_Cat may take `result` as one of its operands.
OX_API void Var_Add(const Ox_Variant &left, const Ox_Variant &right,
                    Ox_Variant &result);
OX_API void Var_Sub(const Ox_Variant &left, const Ox_Variant &right,
                    Ox_Variant &result);
OX_API void Var_Mul(const Ox_Variant &left, const Ox_Variant &right,
                    Ox_Variant &result);
OX_API void Var_Div(const Ox_Variant &left, const Ox_Variant &right,
                    Ox_Variant &result);
OX_API void Var_Mod(const Ox_Variant &left, const Ox_Variant &right,
                    Ox_Variant &result);
OX_API void Var_Cat(const Ox_Variant &left, const Ox_Variant &right,
                    Ox_Variant &result);
// 1 when the comparison `opcode` holds, else 0.
OX_API int Var_Cmp(const Ox_Variant &left, const Ox_Variant &right,
                   short opcode);
// Both sides by ToInteger; AND for opcode 41, OR otherwise. 1 or 0.
OX_API int Var_AndOr(const Ox_Variant &left, const Ox_Variant &right,
                     short opcode);

#endif
