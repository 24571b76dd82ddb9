// Variants in expressions: operators between two variants (or a variant and
// Nil) and the members of a variant value, each a call of the variant
// runtime. A variant mixed with a plain value never comes here: it takes
// the plain value's type (ComputeCommonType) and is converted to it.
#ifndef COMPILER_FRONTEND_VARIANTTYPE_H
#define COMPILER_FRONTEND_VARIANTTYPE_H

#include "Compiler/Frontend/FunctionResultMode.h"
#include "Compiler/Intrinsics.h"
#include "Universal/ustring.h"

class SemBase;

// expr: expr OP expr with two variants. + - * / \ Mod ^ give a Variant
// through the runtime; the six comparisons a Boolean from VariantCompare;
// any other operator is compile error 12.
SemBase* VariantBinop(SemBase* left, unsigned long op, SemBase* right);
// expr And expr, expr Or expr (and Xor, which is Or here): both sides are
// evaluated, there is no short circuit.
SemBase* VariantAnd(SemBase* left, SemBase* right);
SemBase* VariantOr(SemBase* left, SemBase* right);
// Not expr, - expr on a variant.
SemBase* VariantNot(SemBase* operand);
SemBase* VariantNegation(SemBase* operand);

// expr . IDENT on a variant value: a member (Type, Hash, Equals, the
// ...Value conversions), a type constant, or an extension method.
SemBase* VariantScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                            SemBase* assignValue, FunctionResultMode mode);
// Variant . IDENT: a type constant (Variant.TypeString).
SemBase* StaticVariantScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                                  SemBase* assignValue,
                                  FunctionResultMode mode);

// The value of a type constant such as "TypeString"; false for other names.
bool LookupVariantTypeConstant(string const& name, long* value);
// The runtime entry behind a member such as "Hash"; false for other names.
bool LookupVariantMember(string const& name, IntrinsicID* intrinsic);

#endif
