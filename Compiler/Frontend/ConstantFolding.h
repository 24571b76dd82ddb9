// Arithmetic on constants at compile time: an operation whose operands are
// both literals becomes a literal, where the language defines the result.
#ifndef COMPILER_FRONTEND_CONSTANTFOLDING_H
#define COMPILER_FRONTEND_CONSTANTFOLDING_H

#include "Compiler/SourceLocation.h"
#include "Compiler/datatypes.h"

class SemBase;

// The folded constant of `left op right` computed in `common`, or null when
// this pair does not fold and generated code must compute it.
SemBase* ConstantBinop(SemBase* left, unsigned long op, SemBase* right,
                       IRDataType const& common, SourceLocation const& where);
// The negated constant; compile error 12 (and the operand back) for a type
// without a folded negation.
SemBase* ConstantNegation(SemBase* operand);

// A numeric constant read by its own type as a T: long long, unsigned long
// long or double.
template <typename T>
T ConvertSemValue(SemBase* constant);
// A literal of `type` holding `value`: T is long long, unsigned long long,
// int or double; a floating value going to an integer type is truncated
// toward zero. Only Int32, UInt32, Int64, UInt64, Single and Double types.
template <typename T>
SemBase* MakeSemValue(T value, IRDataType const& type,
                      SourceLocation const& where);

// Truncation toward zero to 32 bits; out of range (and NaN) gives the value
// the processor's own truncation gives, -2147483648.
long TruncateToInt32(double value);

#endif
