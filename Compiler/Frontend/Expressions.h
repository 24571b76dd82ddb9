// Operators on values: arithmetic, comparison, logic, bitwise and the
// reference test. The grammar's expression rules reduce through these.
//
// STAND-INS FOR NOW: each action returns a harmless value (usually code
// of the null type) so that the whole language parses; the issues of
// these actions fill the bodies in.
#ifndef COMPILER_FRONTEND_EXPRESSIONS_H
#define COMPILER_FRONTEND_EXPRESSIONS_H

#include "Compiler/InterRep.h"

class SemBase;

// expr: expr op expr, for the operators > < = GE LE NE + - * / \ Mod ^;
// case_test: Is op expr, expr To expr, expr
SemBase* CompileBinop(SemBase* left, unsigned long op, SemBase* right);
// expr: expr And expr; case_test: expr To expr
SemBase* CompileAnd(SemBase* left, SemBase* right);
// expr: expr Or expr; case_tests: case_tests , case_test
SemBase* CompileOr(SemBase* left, SemBase* right);
// expr: expr Xor expr
SemBase* CompileXor(SemBase* left, SemBase* right);
// expr: expr token349 expr; expr: expr token350 expr
SemBase* CompileBitwiseOperation(SemBase* left, SemBase* right, TacOpcode op);
// expr: Not expr
SemBase* CompileNot(SemBase* operand);
// expr: - expr; const_value: - INTEGER; const_value: - FLOAT
SemBase* CompileNegation(SemBase* operand);
// expr: STRING
SemBase* CompileStringLiteral(SemBase* literal);

#endif
