// Operators on objects, through methods of the class with fixed names:
// `a + b` calls `a.Operator_Add(b)`, or `b.Operator_AddRight(a)` when the
// left operand has no such method (so `1 + a` works too). Comparisons go
// through Operator_Compare (ObjectComparisons.h); there is no short circuit
// for And and Or on objects.
#ifndef COMPILER_FRONTEND_OPERATOROVERLOADING_H
#define COMPILER_FRONTEND_OPERATOROVERLOADING_H

#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Universal/ustring.h"

class SemBase;

// expr op expr where an operand is an object: comparisons and arithmetic;
// any other operator is compile error 12.
SemBase* ObjectBinop(SemBase* left, unsigned long op, SemBase* right);
// + - * / \ Mod ^ through the left or the right operand's method.
SemBase* ObjectArithmetic(SemBase* left, unsigned long op, SemBase* right);
// And, and Or (Xor too), through Operator_And and Operator_Or.
SemBase* ObjectAnd(SemBase* left, SemBase* right);
SemBase* ObjectOr(SemBase* left, SemBase* right);
// Not and unary minus, through Operator_Not and Operator_Negate.
SemBase* ObjectNot(SemBase* operand);
SemBase* ObjectNegation(SemBase* operand);

// The method `name` of `base`'s class that takes `arg` (null: none) and
// gives a result; null when the class has none that fits or `base` is no
// class instance. Two that fit equally well are compile error 24.
MethodSymbol* LookupOperatorMethod(SemBase* base, string const& name,
                                   SemBase* arg);
// `left.name(right)`, else `right.rightName(left)`; neither is compile
// error 12, and the error value of Expressions.h.
SemBase* CallObjectOperator(SemBase* left, SemBase* right, string const& name,
                            string const& rightName);

#endif
