#include "Compiler/compiler.h"

#include <memory>
#include <new>

#include "Compiler/BackEnds/codestorage.h"
#include "Compiler/DebuggerSymbolFactory.h"
#include "Compiler/Frontend/FunctionSink.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/ParserSupport.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SemBase.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/Optimizer/optimizer.h"
#include "Compiler/TacListing.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Universal/Assertion.h"

// Room for every intrinsic's link name.
static unsigned long const kIntrinsicNameCapacity = kQtyIntrinsics;

Compiler::Compiler()
    : mCodeType(kCodeTypePowerPC), mCallShapes(nullptr), mLibrary(0), mDebug(0),
      mStaticClassData(0), mScriptMode(0), mTacListing(nullptr),
      mOptimize(true), mGenerateAsParsed(true), mDelegate(nullptr) {
  mIntrinsicNames.resize(kIntrinsicNameCapacity);
}

Compiler::~Compiler() {}

SrcContext* Compiler::CreateCompilationContext(string const& name) {
  SrcContext* context = new SrcContext();
  context->mDelegate = mDelegate;
  context->mOptions = mLanguageOptions;
  context->mLibrary = mLibrary;
  context->mSourceName = name;
  QASSERT_TEXT(mCodeType == kCodeTypePowerPC || mCodeType == kCodeTypeIA32,
               "unknown code type");
  context->mBigEndian = mCodeType == kCodeTypePowerPC;
  context->mStaticClassData = mStaticClassData;
  context->mScriptMode = mScriptMode;
  return context;
}

bool Compiler::RunFrontEnd(string const& source) {
  InitLexer(source.CString());
  int parsed = yyparse();
  return parsed == 0 && !gContext->mErrorFlag;
}

// The engine always asks for IA-32; PowerPC modules are written to files,
// for a loader on that machine.
Ref<CodeModule> Compiler::RunBackEnd(string const& name) {
  TacBlock* code = gContext->mProgramCode ? gContext->mProgramCode->Code() : nullptr;
  TacBlock empty;
  if (!code) code = &empty;
  if (mCodeType == kCodeTypePowerPC) {
    CGPPC* backEnd = new CGPPC();
    backEnd->Configure(mPPCOptions, mIntrinsicNames);
    backEnd->SetDelegate(mDelegate);
    Ref<CodeModule> module = backEnd->Generate(name, code, gContext->mTables);
    if (mCallShapes) *mCallShapes = backEnd->CallShapes();
    delete backEnd;
    return module;
  }
  CGIA32* backEnd = NewIA32Generator();
  Ref<CodeModule> module = backEnd->Generate(name, code, gContext->mTables);
  delete backEnd;
  return module;
}

CGIA32* Compiler::NewIA32Generator() {
  CGIA32* backEnd = new CGIA32();
  CGIA32Options options = mIA32Options;
  if (mOptimize) {
    options.mOptimizeCode = true;
    options.mUseSSE2FloatingPointMath = true;
  }
  backEnd->Configure(options, mIntrinsicNames);
  backEnd->SetDelegate(mDelegate);
  return backEnd;
}

namespace {

// Generates each batch of functions as the parser finishes it, so that the
// whole program's lines and local tables never exist at once.
class GenerateAsParsed : public FunctionSink {
 public:
  GenerateAsParsed(CGIA32* generator, bool optimize)
      : mGenerator(generator), mOptimize(optimize) {}

  bool TakeFunctions(TacBlock* lines) override {
    if (mOptimize) ImproveProgram(lines);
    return mGenerator->Feed(lines);
  }

  // What is assembled only at the end: the main body, which goes in front,
  // then the invoker stubs.
  Ref<CodeModule> Finish(SrcContext* context) {
    if (TacBlock* main = context->mProgramCode->Code()) {
      if (mOptimize) ImproveProgram(main);
      mGenerator->FeedLeading(main);
    }
    if (TacBlock* stubs = context->mStubCode->Code()) TakeFunctions(stubs);
    return mGenerator->Finish();
  }

 private:
  CGIA32* mGenerator;
  bool mOptimize;
};

}  // namespace

// What the front end made besides code: start and exit functions per item,
// and the static data blocks.
void Compiler::HandOverToModule(CodeModule* module, SrcContext* context) {
  StringMapIterator<string>* iter = context->mInitializers.NewIterator();
  QASSERT(iter);
  string function;
  while (iter->Next(function)) module->mInitializers.AddEntry(iter->Key(), function);
  delete iter;
  iter = context->mFinalizers.NewIterator();
  QASSERT(iter);
  while (iter->Next(function)) module->mFinalizers.AddEntry(iter->Key(), function);
  delete iter;
  context->MoveStaticDataBlocks(&module->mStaticData);
}

// The conditional constants and the byte order become ordinary public
// Boolean constants of the global table: the directives find them through
// name lookup like any constant.
static void AddBooleanConstant(GlobalSymbolTable* symbols, string const& name,
                               bool value) {
  ConstantSymbol* constant =
      new ConstantSymbol(name, IRDataType(kBooleanType), IRValue::SInt32(value ? 1 : 0));
  constant->SetScope(MemberSymbol::kPublic);
  symbols->AddConstant(constant);
}

void Compiler::AddIntrinsicConstantDeclarations(GlobalSymbolTable* symbols,
                                                SrcContext* context) {
  QASSERT_TEXT(symbols, "decls");
  QASSERT_TEXT(context, "ourContext");
  StringMapIterator<bool>* iter = mConditionalConstants.NewIterator();
  QASSERT_TEXT(iter, "iter");
  bool value = false;
  while (iter->Next(value)) AddBooleanConstant(symbols, iter->Key(), value);
  delete iter;
  AddBooleanConstant(symbols, string("TargetBigEndian"), context->mBigEndian);
  AddBooleanConstant(symbols, string("TargetLittleEndian"), !context->mBigEndian);
}

Ref<CodeModule> Compiler::Compile(string const& source, string const& name,
                                  GlobalSymbolTable* symbols) {
  try {
    return CompileOrThrow(source, name, symbols);
  } catch (std::bad_alloc const&) {
    // The compilation's memory is freed by now, so the report has room.
    if (mDelegate)
      mDelegate->CompilerError(CompileError(kErrorCompilerOutOfMemory,
                                            SourceLocation(current_line())));
    return Ref<CodeModule>();
  }
}

// Whatever the compilation made is freed on every way out of here.
Ref<CodeModule> Compiler::CompileOrThrow(string const& source,
                                         string const& name,
                                         GlobalSymbolTable* symbols) {
  QASSERT(symbols);
  // The lexer's words are shared by the compilation's values and go with
  // them; the blocks its values and lines freed go back to the heap.
  struct ReleaseAtEnd {
    ~ReleaseAtEnd() {
      ForgetLexerWords();
      ReleaseRecycledBlocks();
    }
  } releaseAtEnd;
  std::unique_ptr<SrcContext> context(CreateCompilationContext(name));
  context->blocks.Enter(symbols);
  // The declarations are copied before the target constants join them:
  // those are the compiler's, not the source's.
  DebuggerCodeModuleData declarations;
  if (mDebug) CopyGlobalSymbolsToDebugData(symbols, &declarations);
  AddIntrinsicConstantDeclarations(symbols, context.get());
  Ref<CodeModule> module = ParseAndGenerate(source, name, context.get());
  if (module && mDebug) {
    CopyLocalSymbolsToDebugData(name, &*context->mTables, &module->mDebugData);
    module->mDebugData.Merge(&declarations);
  }
  if (module) HandOverToModule(&*module, context.get());
  // Deleting the context clears gContext and sweeps every semantic value
  // of the compilation.
  return module;
}

// The listing, the debug data and the PowerPC module need the whole
// program's lines or tables at the end; otherwise each function is
// generated as soon as it is parsed.
Ref<CodeModule> Compiler::ParseAndGenerate(string const& source,
                                           string const& name,
                                           SrcContext* context) {
  bool asParsed = mGenerateAsParsed && mCodeType == kCodeTypeIA32 &&
                  !mTacListing && !mDebug;
  if (!asParsed) {
    if (!RunFrontEnd(source)) return Ref<CodeModule>();
    if (mOptimize && context->mProgramCode->Code())
      ImproveProgram(context->mProgramCode->Code());
    if (mTacListing)
      *mTacListing =
          ListTacBlock(*context->mProgramCode->Code(), &mTacListingStandIns);
    return RunBackEnd(name);
  }
  std::unique_ptr<CGIA32> generator(NewIA32Generator());
  GenerateAsParsed sink(generator.get(), mOptimize);
  generator->Begin(name, context->mTables);
  context->mFunctionSink = &sink;
  bool parsed = RunFrontEnd(source);
  context->mFunctionSink = nullptr;
  if (!parsed) {
    generator->Finish();
    return Ref<CodeModule>();
  }
  return sink.Finish(context);
}
