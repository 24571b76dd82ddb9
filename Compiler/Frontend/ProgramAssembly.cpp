#include "Compiler/Frontend/ProgramAssembly.h"

#include <unordered_set>

#include "Compiler/Frontend/Exceptions.h"
#include "Compiler/Frontend/Finalization.h"
#include "Compiler/Frontend/FunctionSink.h"
#include "Compiler/Frontend/Functions.h"
#include "Compiler/Frontend/Initialization.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/LexerTokens.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/StringSums.h"
#include "Compiler/Frontend/SymbolUtilities.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Universal/Assertion.h"

namespace {

bool HasLines(SemBase* item) {
  return item && item->Code() && !item->Code()->IsEmpty();
}

bool IsFunctionItem(SemBase* item) {
  return HasLines(item) && BlockIsFunction(item->Code());
}

// Calls `take` for each top item in source order; `items` is one item or a
// flat list of them.
template <class Take>
void ForEachItem(SemBase* items, Take take) {
  if (!items) return;
  if (!items->IsList()) {
    take(items);
    return;
  }
  for (SemBase* item = items->GetContents(); item;) {
    SemBase* next = item->GetNext();
    take(item);
    item = next;
  }
}

void CallByName(SemBase* code, char const* linkName) {
  code->AddLine(kTacCall, gContext->GetLiteral(string(linkName)), nilTacAddr,
                nilTacAddr);
}

// Where a top-level Return lands. A parse without a global table (the
// grammar's own tests) has no root block; its label is then a fresh one
// that nothing jumps to.
TacAddr const* MainExitLabel() {
  if (!gContext->blocks.Root()) return NewLabel();
  return gContext->blocks.FindExitAddr(BlockContext::kModule, nullptr);
}

// A top-level Dim is seen twice: the declaration scan makes it a property
// of the root module, and the statement makes it a variable of the static
// table, both one storage under one link name. Releasing it as both would
// give up a reference the program never took.
// The link names of the static table's variables that it releases, gathered
// once so that each property costs one lookup.
void CollectReleasedLinkNames(LocalSymbolTable* table, StringSet* names) {
  if (!table) return;
  LocalVariableIterator it(table);
  while (it.Next())
    if (it.Value()->FinalizationAllowed()) names->Add(it.Value()->LinkID());
}

// A method's Static locals live in static data but are never released by
// the method itself: they are released here, once per run.
// The places are gathered before any is released: a release takes a slot
// in the current table, which after a syntax error in a method may still
// be that method's, walked here.
void ReleaseMethodStatics(SemBase* code) {
  LocalSymbolTableList const* tables = &*gContext->mTables;
  SimpleVector<TacAddr const*> statics;
  for (unsigned long i = 1; i < tables->Count(); i++) {
    LocalSymbolTable* table = tables->GetTable(i);
    if (!table || !table->IsMethodTable()) continue;
    LocalVariableIterator it(table);
    while (it.Next()) {
      VariableSymbol* var = it.Value();
      if (var->GetStorageClass() == kGlobalDataStorage &&
          var->GetType().RefCounted())
        statics.push_back(var->GetAddr());
    }
  }
  for (unsigned long i = 0; i < statics.size(); i++)
    ReleaseGlobalPlace(statics[i], code);
}

// Each global storage gets one Unlock: the variables of the static table,
// the Static locals of methods, then the root module's properties that no
// variable stood for.
void ReleaseGlobals(SemBase* code) {
  LocalSymbolTable* table = gContext->mTables->GetGlobalTable();
  FinalizeGlobalSymbols(table, code);
  ReleaseMethodStatics(code);
  GlobalSymbolTable* root = gContext->blocks.Root();
  if (!root) return;
  StringSet releasedWithTheStaticTable;
  CollectReleasedLinkNames(table, &releasedWithTheStaticTable);
  PropertySymbolIterator it = root->IterateProperties();
  while (it.Next())
    if (!releasedWithTheStaticTable.Contains(it.Value()->GetLinkName()))
      FinalizeStaticProperty(it.Value(), code);
}

// The item finalisers and the release of the globals run on the way out
// of an exception too. An exception that reaches this handler has found no
// other: its re-raise reports it to the host, and the run ends here.
SemBase* MainBodyRelease() {
  SemBase* release = SemCode::New(IRDataType(), nullptr);
  CallByName(release, "% finalize");
  ReleaseGlobals(release);
  return MakeDefaultExceptionHandler(release);
}

// The frame of the main body around the top-level statements: runtime
// start, item initialisers, the statements, item finalisers, release of
// the globals, runtime exit. The main body has a stack frame of its own for
// the variables of its exception handlers; top-level variables are static.
void AssembleMainBody() {
  SemCode* main = gContext->mProgramCode;
  main->AddLine(kTacEnter, gContext->GetLiteral(string("% main")),
                gContext->GetLiteral((long long)MainBodyTableIndex(),
                                     kSInt32Type),
                nilTacAddr);
  main->AddLine(kTacIntrinsic, IntrinsicTacAddr(kIntrinsicRuntimeInit),
                nilTacAddr, nilTacAddr);
  CallByName(main, "% initialize");
  main->Append(gContext->mTopStatements);
  main->AddLine(kTacLabel, MainExitLabel(), nilTacAddr, nilTacAddr);
  main->Append(MainBodyRelease());
  TacAddr const* status =
      main->NewTemp(IRDataType(kSInt32Type), nullptr)->GetAddr();
  main->AddLine(kTacIntrinsic, IntrinsicTacAddr(kIntrinsicRuntimeExit),
                nilTacAddr, status);
  main->AddLine(kTacStop, status, nilTacAddr, nilTacAddr);
}

bool HoldsStatics(LocalSymbolTable* table) {
  LocalVariableIterator it(table);
  while (it.Next())
    if (it.Value()->GetStorageClass() == kGlobalDataStorage) return true;
  return false;
}

// The method tables that the batch's functions name, and the block tables
// inside them, unless a later stage still reads them: the main body's, and
// a method's whose Static locals the program releases at its end.
SimpleVector<unsigned long> TablesDoneWith(TacBlock const* lines) {
  LocalSymbolTableList* tables = &*gContext->mTables;
  SimpleVector<unsigned long> done;
  std::unordered_set<LocalSymbolTable const*> roots;
  unsigned long first = tables->Count();
  for (TacLine const* line = lines->mFirst; line; line = line->mNext) {
    if (line->opcode != kTacEnter || line->opB == nilTacAddr) continue;
    unsigned long index = (unsigned long)line->opB->GetValue()->uSInt32;
    LocalSymbolTable* table = tables->GetTable(index);
    if (!table || table == gContext->mMainBodyTable || HoldsStatics(table))
      continue;
    roots.insert(table);
    if (index < first) first = index;
  }
  for (unsigned long i = first; i < tables->Count(); i++) {
    LocalSymbolTable* table = tables->GetTable(i);
    if (table && roots.count(table->Root())) done.push_back(i);
  }
  return done;
}

// The item's functions become code now; their lines and local tables go.
void PassFunctionsToSink() {
  TacBlock* lines = gContext->mTopFunctions->Code();
  if (!lines || lines->IsEmpty()) return;
  SimpleVector<unsigned long> done = TablesDoneWith(lines);
  if (!gContext->mFunctionSink->TakeFunctions(lines)) gContext->mErrorFlag = 1;
  lines->Clear();
  for (unsigned long i = 0; i < done.size(); i++)
    gContext->mTables->ReleaseTable(done[i]);
}

}  // namespace

// After a compile error the code is never generated, and syntax recovery
// may have left blocks open that the main body's assembly would look into.
SemBase* CompileProgram() {
  QASSERT(gContext);
  if (gContext->mErrorFlag) return nullptr;
  if (!gContext->mLibrary) AssembleMainBody();
  SemCode* program = gContext->mProgramCode;
  if (HasLines(gContext->mTopFunctions)) program->Append(gContext->mTopFunctions);
  // Generated as parsed, the stubs stay apart: they go after the main body,
  // which goes in front of everything else.
  if (HasLines(gContext->mStubCode) && !gContext->mFunctionSink)
    program->Append(gContext->mStubCode);
  return nullptr;
}

// The program's code holds the item's lines now, and the symbol tables its
// variables: its semantic values can go. Nothing of an item refers to
// values of an earlier one, except the parser's lookahead token, which
// belongs to the next item, and the lexer's empty value. After a compile
// error nothing is released, because syntax recovery may leave blocks open
// across items and the code will never be generated anyway.
void CollectTopItem(SemBase* item, SemBase* lookahead) {
  QASSERT(gContext);
  ForEachItem(item, [](SemBase* each) {
    if (IsFunctionItem(each))
      gContext->mTopFunctions->Append(each);
    else if (HasLines(each))
      gContext->mTopStatements->Append(each);
  });
  if (gContext->mErrorFlag) return;
  if (gContext->mFunctionSink) PassFunctionsToSink();
  ForgetLastStringSum();
  SemBase::ReleaseNewerThanExcept(gContext->mTopItemMark, lookahead,
                                  kNullSemBase);
  gContext->mTopItemMark = SemBase::LiveCount();
}

SemBase* CompileStatementBlock(SemBase* code) {
  QASSERT(gContext);
  SemBase* block =
      SemCode::New(IRDataType(), code ? &code->Location() : nullptr);
  InitializeSymbols(gContext->mSymbols, block);
  if (code && code->Code()) block->Append(code);
  FinalizeSymbols(gContext->mSymbols, block);
  PopSymTable();
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

// The wrapper keeps the statement's result, so that a filtered condition
// can still be tested after its temporaries are gone.
SemBase* FilterTemporaryVariables(SemBase* code) {
  if (!code || !code->Code() || code->Temporaries().size() == 0) return code;
  SemBase* result = code->Tag() == kSemCodeTag
                        ? static_cast<SemCode*>(code)->Result()
                        : nullptr;
  SemBase* wrapper = SemCode::NewValueWrapper(result, &code->Location());
  wrapper->Append(code);
  TemporaryList& temps = wrapper->Temporaries();
  for (unsigned long i = 0; i < temps.size(); i++)
    FinalizeVariable(temps[i], wrapper);
  temps.deleteAll();
  return wrapper;
}

namespace {

// Public and Global members belong to modules that sit directly in the
// global table. Members of the global table itself pass: it is no module
// that can be nested.
void CheckModuleScope() {
  ModuleSymbol* module = gContext->blocks.CurrentModule();
  if (!module || module->IsA(Symbol::kGlobal)) return;
  ModuleSymbol* container = module->GetContainer();
  if (!container || !container->IsA(Symbol::kGlobal))
    Error(kErrorScopeInNestedModule);
}

}  // namespace

SemBase* CompileScope(int token) {
  QASSERT(gContext);
  BlockContextList const& blocks = gContext->blocks;
  switch (token) {
    case kTokPrivate:
    case kTokProtected:
      break;
    case kTokGlobal:
      if (blocks.CurrentClass())
        Error(kErrorGlobalInClass);
      else
        CheckModuleScope();
      break;
    case kTokPublic:
      if (!blocks.CurrentClass()) CheckModuleScope();
      break;
    default:
      QFAIL("unknown scope token");
  }
  return nullptr;
}

// A reserved word where a name must stand: reported, and replaced by a name
// that lets the declaration go on.
SemBase* CompileReservedIdentifier() {
  Error(kErrorReservedWord);
  return SemIdentifier::New("bogus");
}
