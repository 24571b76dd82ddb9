// Small generated functions for the operation tests.
#ifndef TESTS_COMPILER_BACKENDS_GENERATEDFUNCTIONS_H
#define TESTS_COMPILER_BACKENDS_GENERATEDFUNCTIONS_H

#include <memory>

#include "tests/Compiler/BackEnds/GeneratedCode.h"

// f(a, b) returns `a op b`, the operands and result of the given types.
inline std::unique_ptr<LoadedCode> BinaryFunction(
    TacOpcode op, SimpleDataType a, SimpleDataType b, SimpleDataType r,
    CGIA32Options const& options = CGIA32Options()) {
  TacProgram p;
  long f = p.Frame("f");
  TacAddr const* x = p.Local(f, "a", IRDataType(a));
  TacAddr const* y = p.Local(f, "b", IRDataType(b));
  TacAddr const* z = p.Local(f, "r", IRDataType(r));
  p.Enter("f", f);
  p.Params({x, y});
  p.Line(op, x, y, z);
  p.Line(kTacLeave, z);
  Ref<CodeModule> module = GenerateIA32(p, options);
  EXPECT_TRUE(module);
  return std::unique_ptr<LoadedCode>(new LoadedCode(module));
}

// f(a) returns `op a` (a unary operation or a conversion).
inline std::unique_ptr<LoadedCode> UnaryFunction(
    TacOpcode op, SimpleDataType a, SimpleDataType r,
    CGIA32Options const& options = CGIA32Options()) {
  TacProgram p;
  long f = p.Frame("f");
  TacAddr const* x = p.Local(f, "a", IRDataType(a));
  TacAddr const* z = p.Local(f, "r", IRDataType(r));
  p.Enter("f", f);
  p.Params({x});
  p.Line(op, x, nilTacAddr, z);
  p.Line(kTacLeave, z);
  Ref<CodeModule> module = GenerateIA32(p, options);
  EXPECT_TRUE(module);
  return std::unique_ptr<LoadedCode>(new LoadedCode(module));
}

#endif
