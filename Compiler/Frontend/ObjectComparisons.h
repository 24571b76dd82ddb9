// Comparisons of objects: through the class's Operator_Compare where the
// left or the right operand has one, else of the references themselves,
// which makes `x = Nil` and `a <> b` tests of identity.
#ifndef COMPILER_FRONTEND_OBJECTCOMPARISONS_H
#define COMPILER_FRONTEND_OBJECTCOMPARISONS_H

class SemBase;

// A Boolean for `left op right`, op one of the six comparisons. Operands
// that are neither objects nor Nil without an Operator_Compare to take
// them are compile error 12.
SemBase* ObjectComparison(SemBase* left, unsigned long op, SemBase* right);
// Whether `op` is one of the six comparisons.
bool IsComparisonOperator(unsigned long op);

#endif
