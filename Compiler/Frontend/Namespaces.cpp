#include "Compiler/Frontend/Namespaces.h"

#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/TacLiteralPool.h"
#include "Compiler/SemBase.h"

namespace {

// The conditional-compilation constants of this engine's target (IA-32,
// Linux, little-endian); null for any other name.
SemBase* TargetConstant(SemBase* ident) {
  static char const* const kTrue[] = {"TargetX86", "TargetLinux",
                                      "TargetLittleEndian", nullptr};
  static char const* const kFalse[] = {
      "TargetMacOS",   "TargetMacOSClassic", "TargetPPC",       "Target68K",
      "TargetCarbon",  "TargetCocoa",        "TargetWin32",     "TargetMachO",
      "TargetPowerPC", "TargetHasGUI",       "TargetBigEndian", nullptr};
  string name = ident->toString();
  for (int value = 0; value < 2; value++) {
    char const* const* names = value ? kTrue : kFalse;
    for (int i = 0; names[i]; i++) {
      if (name == string(names[i])) {
        TacAddr const* addr = CurrentTLP()->GetLiteral(
            IRValue::SInt32(value), IRDataType(kBooleanType));
        return SemValue::New(addr, &ident->Location());
      }
    }
  }
  return nullptr;
}

}  // namespace

SemBase* CompileLookup(SemBase* ident, SemBase* args, SemBase* assignValue,
                       FunctionResultMode mode, CompileErrorCode failureCode,
                       bool typeLike) {
  if (!args && !assignValue && mode == kRequireFunctionResult) {
    SemBase* constant = TargetConstant(ident);
    if (constant) return constant;
  }
  return SemCode::New(IRDataType(), nullptr);
}

SemBase* CompileScopeLookup(SemBase* expr, SemBase* ident, SemBase* args,
                            SemBase* assignValue, FunctionResultMode mode) {
  return SemCode::New(IRDataType(), nullptr);
}

SemBase* CompileConstVal(SemBase* value) {
  SemBase* constant = TargetConstant(value);
  return constant ? constant : value;
}
