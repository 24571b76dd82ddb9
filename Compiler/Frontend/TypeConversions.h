// Which types mix, and how a value of one type becomes a value of another.
//
// ComputeCommonType gives the type a binary operation runs in;
// IsLegalConversion answers whether an argument fits a parameter, for
// overload resolution; CompileRefAs is the one place that emits conversion
// code: every action that needs a value of a given type passes its operand
// through it.
//
// The predicates take the target type first and the source type second.
#ifndef COMPILER_FRONTEND_TYPECONVERSIONS_H
#define COMPILER_FRONTEND_TYPECONVERSIONS_H

#include "Compiler/SourceLocation.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/datatypes.h"

class SemBase;

// The element of a reference type; any other type as it is.
IRDataType StripReference(IRDataType const& type);
// Whether the type has no main type at all (the "result" of a Sub).
inline bool IsNullType(IRDataType const& type) {
  return type.GetMainType() == kNoType;
}

bool IsVariant(IRDataType const& type);
// Nil or Variant: takes on the type of whatever it meets.
bool IsChameleon(IRDataType const& type);
bool IsDereference(IRDataType const& target, IRDataType const& source);
bool IsNilConstantConversion(IRDataType const& target,
                             IRDataType const& source);
bool IsDeclareStringConversion(IRDataType const& target,
                               IRDataType const& source);
bool IsDelegatePtrConversion(IRDataType const& target,
                             IRDataType const& source);
bool IsNumericConversion(IRDataType const& target, IRDataType const& source);
bool IsImplicitUpcast(IRDataType const& target, IRDataType const& source);
bool IsInterfaceCast(IRDataType const& target, IRDataType const& source);
bool IsDelegateIdentityConversion(IRDataType const& target,
                                  IRDataType const& source);
bool IsArrayElementNarrowingCast(IRDataType const& target,
                                 IRDataType const& source);
bool IsOperatorConversion(IRDataType const& target, IRDataType const& source);

// The type in which an operation on an `a` and a `b` runs; the null type
// when they have none.
IRDataType ComputeCommonType(IRDataType a, IRDataType b);
// Whether a `source` value may go where a `target` is wanted. `steps` (may
// be null) becomes 0 for identity and 1 for any conversion.
bool IsLegalConversion(IRDataType const& target, IRDataType source,
                       int* steps);

// Appends `op`'s code and the conversion to `code`; gives the value that
// holds `op` as a `target`. A conversion that does not exist is compile
// error 2, and the unconverted value comes back.
SemBase* CompileRefAs(SemBase* op, IRDataType const& target, SemBase* code);
// Reads the element a reference points at into a fresh temporary.
SemBase* CompileDereference(SemBase* op, SemBase* code);

// The emitters behind CompileRefAs, each for its own kind of pair.
SemBase* CompileNilConstantConversion(SemBase* op, IRDataType const& target,
                                      SemBase* code);
SemBase* CompileNumericConversion(SemBase* op, IRDataType const& target,
                                  SemBase* code);
SemBase* CompileDeclareStringConversion(SemBase* op, IRDataType const& target,
                                        SemBase* code);
SemBase* CompileArrayElementCast(SemBase* op, IRDataType const& target,
                                 SemBase* code);
SemBase* DelegatePtrConversion(SemBase* op, IRDataType const& target,
                               SemBase* code);
SemBase* CompileOperatorConversion(SemBase* op, IRDataType const& target,
                                   SemBase* code);
SemBase* CompileConvertFromVariant(SemBase* op, IRDataType const& target,
                                   SemBase* code);
SemBase* CompileConvertToVariant(SemBase* op, IRDataType const& target,
                                 SemBase* code);

// The methods named Operator_Convert that turn a `source` into a `target`:
// convert-to methods of the source class first, else convert-from methods
// of the target class. Null or empty when there are none.
MethodList LookupConversionOperator(IRDataType const& target,
                                    IRDataType const& source);
// `op.Operator_Convert()`: the call's value is the result.
SemBase* CompileFromConversionOperator(MethodSymbol* method, SemBase* op,
                                       SemBase* code);
// A new `target` object without constructor, then
// `newObject.Operator_Convert(op)`: the new object is the result.
SemBase* CompileToConversionOperator(IRDataType const& target,
                                     MethodSymbol* method, SemBase* op,
                                     SemBase* code);

// `Type(expr)`: a checked object cast, or a reinterpretation of the same
// bits between integers, Color and Ptr of one size. It never converts
// numbers.
SemBase* CompileTypecast(IRDataType const& target, SemBase* expr,
                         SourceLocation const& where);

#endif
