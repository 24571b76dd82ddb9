// The single live compile path: from the source text to ready code.
//
// The runtime's declarations and the host's callbacks are put in place
// between the compiler's steps, which is why this path drives the steps
// itself. They are rebuilt for each compilation: nothing of them survives in
// the interface. The source is read twice, once by the declaration scanner
// and once by the full grammar.
#include "Compiler/BackEnds/codestorage.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/compiler.h"
#include "Plugin/QuorlScriptInterface.h"

// The conditional-compilation constants a script sees: every target false,
// then this one's true (the later entries overwrite the earlier ones).
static void SetTargetConstants(StringMap<bool>& constants) {
  static char const* const kTargets[] = {
      "TargetMacOS", "TargetMacOSClassic", "TargetPPC",   "Target68K",
      "TargetCarbon", "TargetCocoa",       "TargetWin32", "TargetX86",
      "TargetMachO", "TargetPowerPC",      "TargetLinux", "TargetHasGUI"};
  for (char const* target : kTargets) constants.AddEntry(string(target), false);
  constants.AddEntry(string("TargetX86"), true);
  constants.AddEntry(string("TargetLinux"), true);
}

// The declarations every script starts from: the runtime's and the host's.
static GlobalSymbolTable* MakeScriptDeclarations() {
  return new GlobalSymbolTable();
}

void QuorlScriptInterface::Precompile() {
  if (!mSourceText || mReadyCode) return;
  Compiler compiler;
  compiler.mIntrinsicNames = IntrinsicFunctionNames();
  SetTargetConstants(compiler.mConditionalConstants);
  compiler.mCodeType = kCodeTypeIA32;
  GlobalSymbolTable* symbols = MakeScriptDeclarations();
  compiler.SetDelegate(this);
  compiler.mScriptMode = 1;
  Ref<CodeModule> module = compiler.Compile(string(mSourceText), string(""), symbols);
  delete symbols;
  // Linking into ready code joins here once the in-memory linker exists.
  module = Ref<CodeModule>(0);
}
