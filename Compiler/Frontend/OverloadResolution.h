// Choosing among overloaded methods: which candidates can take the
// arguments at all, and which of those wins. There are two ranks only:
// exact on every argument, or not; a subclass's method beats its parent's
// when both survive.
#ifndef COMPILER_FRONTEND_OVERLOADRESOLUTION_H
#define COMPILER_FRONTEND_OVERLOADRESOLUTION_H

#include "Compiler/Frontend/FunctionResultMode.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Universal/SimpleVector.h"

class SemBase;

// The chosen method, or null. An ambiguity is compile error 24: reported,
// or stored in `whyFailed` when that is given; otherwise `whyFailed`
// receives the most telling reason why no candidate fits.
MethodSymbol* SelectAppropriateVariant(MethodList candidates, SemBase* base,
                                       SemBase* args, FunctionResultMode mode,
                                       CompileErrorCode* whyFailed);
// 0 when `method` can be called with `base` and `args` in `mode`; else the
// compile error that says why (6, 7, 9, 11, 31, 67).
CompileErrorCode IsLegalMethodVariant(MethodSymbol* method, SemBase* base,
                                      SemBase* args, FunctionResultMode mode);
// Negative when `a` wins, positive when `b` wins, 0 when neither does.
long CompareMethodVariants(MethodSymbol* a, MethodSymbol* b, SemBase* base,
                           SemBase* args);
// How many arguments need a conversion to reach their parameters.
unsigned long CountCallConversions(MethodSymbol* method, SemBase* base,
                                   SimpleVector<SemBase*> args);
// Whether `shadower` is an instance method of a proper subclass of the
// class of `shadowee`.
bool MethodShadowsInherited(MethodSymbol* shadower, MethodSymbol* shadowee);
// Parameters that may go without an argument: optional ones and a
// ParamArray.
unsigned long CountParameterDefaults(MethodSymbol* method);
// Whether `arg` may be passed where a `paramType` is wanted; `steps` (may
// be null) becomes 0 for an exact fit and 1 for a conversion.
bool ParamAndArgAreCompatible(IRDataType const& paramType, SemBase* arg,
                              int* steps);

// The arguments of a call as a vector, in order; `base` in front when
// given.
SimpleVector<SemBase*> ArgumentVector(SemBase* base, SemBase* args);
// The element type that each argument of a ParamArray must fit: one level
// more for an array of arrays.
IRDataType ParamArrayElementType(ParameterSymbol* param);

#endif
