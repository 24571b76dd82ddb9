#include "Compiler/Frontend/ProgramAssembly.h"

#include "Compiler/Frontend/LexerTokens.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

namespace {

void AppendItem(SemBase* item) {
  if (item && item->Code()) gContext->mProgramCode->Append(item);
}

}  // namespace

// program: top_items
SemBase* CompileProgram(SemBase* items) {
  QASSERT(gContext);
  if (!items) return nullptr;
  if (!items->IsList()) {
    AppendItem(items);
    return nullptr;
  }
  for (SemBase* item = items->GetContents(); item; item = item->GetNext())
    AppendItem(item);
  return nullptr;
}

// block: [block-scope] opt_statements
SemBase* CompileStatementBlock(SemBase* code) {
  SemBase* block = SemCode::New(IRDataType(), nullptr);
  if (code && code->Code()) block->Append(code);
  return block;
}

// With the Debug pragma on, a hook call stands in front of the statement,
// on the statement's line.
SemBase* CompileDebugEntry(SemBase* code) {
  QASSERT(gContext);
  QASSERT(code);
  if (!gContext->mOptions.mDebug) return code;
  SourceLocation where(code->Location().mStartLine);
  SemBase* hook = SemCode::New(IRDataType(), &where);
  hook->AddLine(kTacIntrinsic, IntrinsicTacAddr(kIntrinsicDebuggerHook),
                nilTacAddr, nilTacAddr);
  return ConcatCode(hook, code);
}

SemBase* FilterTemporaryVariables(SemBase* code) { return code; }

SemBase* CompileScope(int token) {
  QASSERT_TEXT(token == kTokPublic || token == kTokPrivate ||
                   token == kTokProtected || token == kTokGlobal,
               "unknown scope token");
  return nullptr;
}

// A reserved word where a name must stand: reported, and replaced by a name
// that lets the declaration go on.
SemBase* CompileReservedIdentifier() {
  Error(kErrorReservedWord);
  return SemIdentifier::New("bogus");
}
