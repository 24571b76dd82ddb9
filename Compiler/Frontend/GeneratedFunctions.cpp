#include "Compiler/Frontend/GeneratedFunctions.h"

#include "Compiler/Frontend/Initialization.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Universal/Assertion.h"

GeneratedFunction::GeneratedFunction(string const& linkName)
    : mName(linkName), mOwnsTable(true) {
  QASSERT(gContext);
  mTableIndex = PushSymTable(new MethodSymbolTable(linkName));
  mParameters = SemCode::New(IRDataType(), nullptr);
  mBody = SemCode::New(IRDataType(), nullptr);
}

GeneratedFunction::GeneratedFunction(string const& linkName,
                                     unsigned long tableIndex)
    : mName(linkName), mTableIndex(tableIndex), mOwnsTable(false) {
  QASSERT(gContext);
  // A syntax error inside a member may leave that member's table open;
  // the code made then is never generated.
  QASSERT(gContext->mTables->GetTable(tableIndex) == gContext->mSymbols ||
          gContext->mErrorFlag);
  mParameters = SemCode::New(IRDataType(), nullptr);
  mBody = SemCode::New(IRDataType(), nullptr);
}

TacAddr const* GeneratedFunction::Parameter(IRDataType const& type) {
  TacAddr const* place = NewTempAddr(mParameters, type);
  mParameters->Temporaries().peek_back()->ProhibitInitialization();
  mParameters->AddLine(kTacGetParam, nilTacAddr, nilTacAddr, place);
  return place;
}

SemBase* GeneratedFunction::Finish(TacAddr const* result) {
  SemBase* code = SemCode::New(IRDataType(), nullptr);
  code->AddLine(kTacEnter, TextConstant(mName),
                gContext->GetLiteral((long long)mTableIndex, kSInt32Type),
                nilTacAddr);
  code->Append(mParameters);
  InitializeSymbols(gContext->mTables->GetTable(mTableIndex), code);
  code->Append(mBody);
  code->AddLine(kTacLeave, result, nilTacAddr, nilTacAddr);
  if (mOwnsTable) PopSymTable();
  code->Temporaries().deleteAll();
  return code;
}

void GeneratedFunction::Abandon() {
  if (mOwnsTable) PopSymTable();
}

TacAddr const* IntConstant(long value) {
  return gContext->GetLiteral((long long)value, kSInt32Type);
}

TacAddr const* TextConstant(string const& text) {
  return gContext->GetLiteral(text);
}

void PokeWord(SemBase* code, TacAddr const* value, TacAddr const* pointer,
              long offset) {
  code->AddLine(kTacPoke, value, IntConstant(offset), pointer);
}

void PeekWord(SemBase* code, TacAddr const* pointer, long offset,
              TacAddr const* place) {
  code->AddLine(kTacPeek, pointer, IntConstant(offset), place);
}

TacAddr const* NewTempAddr(SemBase* code, IRDataType const& type) {
  return code->NewTemp(type, nullptr)->GetAddr();
}

TacAddr const* FunctionPointer(SemBase* code, string const& linkName,
                               string const& library) {
  TacAddr const* place = NewTempAddr(code, IRDataType(kPtrType));
  code->AddLine(kTacFuncPtr, TextConstant(linkName),
                library.Length() ? TextConstant(library) : nilTacAddr, place);
  return place;
}
