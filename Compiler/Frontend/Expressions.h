// Operators on values: arithmetic, comparison, logic, bitwise and the
// reference test. The grammar's expression rules reduce through these.
//
// Each action takes the operands' semantic values, decides the type the
// operation runs in (ComputeCommonType), folds constants, and otherwise
// appends three-address code to a new SemCode whose result is a fresh
// temporary. Object, delegate and variant operands go to their own forms.
#ifndef COMPILER_FRONTEND_EXPRESSIONS_H
#define COMPILER_FRONTEND_EXPRESSIONS_H

#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/InterRep.h"
#include "Compiler/SourceLocation.h"

class SemBase;

// Operator codes: the character, or two packed high byte first.
enum : unsigned long {
  kOpAdd = 0x2B,
  kOpSubtract = 0x2D,
  kOpMultiply = 0x2A,
  kOpDivide = 0x2F,
  kOpIntegerDivide = 0x5C,
  kOpModulo = 0x25,
  kOpPower = 0x5E,
  kOpLess = 0x3C,
  kOpGreater = 0x3E,
  kOpEqual = 0x3D,
  kOpNotEqual = 0x213D,
  kOpLessEqual = 0x3C3D,
  kOpGreaterEqual = 0x3E3D,
};

// expr: expr op expr, for the operators > < = GE LE NE + - * / \ Mod ^;
// case_test: Is op expr, expr To expr, expr
SemBase* CompileBinop(SemBase* left, unsigned long op, SemBase* right);
// expr: expr And expr; case_test: expr To expr
SemBase* CompileAnd(SemBase* left, SemBase* right);
// expr: expr Or expr; case_tests: case_tests , case_test
SemBase* CompileOr(SemBase* left, SemBase* right);
// expr: expr Xor expr. On objects and variants it is Or.
SemBase* CompileXor(SemBase* left, SemBase* right);
// expr: expr token349 expr; expr: expr token350 expr
SemBase* CompileBitwiseOperation(SemBase* left, SemBase* right, TacOpcode op);
// expr: Not expr. Bitwise on integers, logical on Booleans.
SemBase* CompileNot(SemBase* operand);
// The complement of an integer; constants fold.
SemBase* CompileBitwiseNot(SemBase* operand);
// expr: - expr; const_value: - INTEGER; const_value: - FLOAT
SemBase* CompileNegation(SemBase* operand);
// expr: STRING
SemBase* CompileStringLiteral(SemBase* literal);

// Before a new value is computed into a reference-counted temporary, the
// old one is released, so that the temporary may be reused in a loop.
// Nothing for other types.
void ResetReturnTemp(TacAddr const* result, SemBase* code);
void ResetReturnTemp(SemBase* result, SemBase* code);

// What an expression that failed with a report gives instead of its value:
// one shared operand of type Variant. Every action that meets it gives it
// back (conversions included) and reports nothing more, so that one mistake
// gives one report; since the compilation failed, no code is generated.
SemBase* ErrorValue(SourceLocation const& where);
bool IsErrorValue(SemBase* value);
// `op` itself when it is a value; for a type or module name (compile error
// 89) or a list (12), the report and the error value.
SemBase* RequireOperand(SemBase* op);
// Both operands of a binary operation through RequireOperand. Null when
// both are usable; otherwise what the operation gives instead: for a
// missing operand (compile error 1) empty code of `missingType`, else the
// error value that one of them became.
SemBase* RequireOperands(SemBase*& left, SemBase*& right,
                         IRDataType const& missingType);
// Whether a binary operation goes to the Operator_ methods of objects: it
// runs in an object type, or Nil meets an object.
bool IsObjectOperation(IRDataType const& common, IRDataType const& left,
                       IRDataType const& right);

#endif
