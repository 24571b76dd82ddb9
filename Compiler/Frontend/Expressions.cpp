#include "Compiler/Frontend/Expressions.h"

#include "Compiler/SemBase.h"

// expr: expr op expr, for the operators > < = GE LE NE + - * / \ Mod ^;
// case_test: Is op expr, expr To expr, expr
SemBase* CompileBinop(SemBase* left, unsigned long op, SemBase* right) {
  return SemCode::New(IRDataType(), nullptr);
}

// expr: expr And expr; case_test: expr To expr
SemBase* CompileAnd(SemBase* left, SemBase* right) {
  return SemCode::New(IRDataType(), nullptr);
}

// expr: expr Or expr; case_tests: case_tests , case_test
SemBase* CompileOr(SemBase* left, SemBase* right) {
  return SemCode::New(IRDataType(), nullptr);
}

// expr: expr Xor expr
SemBase* CompileXor(SemBase* left, SemBase* right) {
  return SemCode::New(IRDataType(), nullptr);
}

// expr: expr token349 expr; expr: expr token350 expr
SemBase* CompileBitwiseOperation(SemBase* left, SemBase* right, TacOpcode op) {
  return SemCode::New(IRDataType(), nullptr);
}

// expr: Not expr
SemBase* CompileNot(SemBase* operand) {
  return SemCode::New(IRDataType(), nullptr);
}

// expr: - expr; const_value: - INTEGER; const_value: - FLOAT
SemBase* CompileNegation(SemBase* operand) {
  return SemCode::New(IRDataType(), nullptr);
}

// expr: STRING
SemBase* CompileStringLiteral(SemBase* literal) { return literal; }
