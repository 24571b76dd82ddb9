// The assignment primitive: a value into a variable or through a reference,
// with the reference counts kept right.
#ifndef COMPILER_FRONTEND_ASSIGNMENTS_H
#define COMPILER_FRONTEND_ASSIGNMENTS_H

#include "Compiler/InterRep.h"

class SemBase;

// Appends to `code` the conversion of `rhs` to the type of `lhs` and the
// store. A reference-counted value takes its reference and releases the
// old one (SwapLocks) before the store. A constant `lhs` is compile error
// 115, and nothing is emitted.
void AssignToSymbol(TacAddr const* lhs, SemBase* rhs, SemBase* code);

#endif
