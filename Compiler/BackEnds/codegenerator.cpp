#include "Compiler/BackEnds/codegenerator.h"

#include "Compiler/CompilerDelegate.h"
#include "Compiler/InternalFailure.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Compiler/TacListing.h"
#include "Universal/Assertion.h"
#include "Universal/CompileWorkCounters.h"

char const* const kMainBodyFunctionName = "% main";

// ---------------------------------------------------------------- registers

// Once 63 entries are held, the newest replaces the last one: the operand
// just recorded must always be found.
void RegisterState::Record(TacAddr const* addr) {
  QASSERT_TEXT(mRecordedTacAddrs < kMaxCachedTacAddrs,
               "mRecordedTacAddrs < kMaxCachedTacAddrs");
  if (mRecordedTacAddrs == kMaxCachedTacAddrs - 1) mRecordedTacAddrs--;
  mRecorded[mRecordedTacAddrs++] = addr;
}

bool RegisterState::Contains(TacAddr const* addr) const {
  for (int i = 0; i < mRecordedTacAddrs; i++)
    if (mRecorded[i] == addr) return true;
  return false;
}

void RegisterState::Clear(TacAddr const* addr) {
  for (int i = 0; i < mRecordedTacAddrs; i++) {
    if (mRecorded[i] == addr) {
      mRecorded[i] = mRecorded[--mRecordedTacAddrs];
      return;
    }
  }
}

// ---------------------------------------------------------------- lifecycle

CodeGenerator::CodeGenerator()
    : mIterator(nullptr), mFunc(nullptr),
      mPendingImports(new Import[kInitialPendingImports]),
      mPendingImportCount(0), mPendingImportCapacity(kInitialPendingImports),
      mDelegate(nullptr), mFailed(false), mLinesDone(0) {}

CodeGenerator::~CodeGenerator() {
  delete mIterator;
  delete mFunc;
  delete[] mPendingImports;
}

namespace {

unsigned int CountLines(TacBlock const* block) {
  unsigned int total = 0;
  TacBlockIterator counter(block);
  while (counter.Next()) total++;
  return total;
}

}  // namespace

Ref<CodeModule> CodeGenerator::Generate(string const& sourceName,
                                        TacBlock* source,
                                        Ref<LocalSymbolTableList> symbols) {
  QASSERT_TEXT(source, "source");
  Begin(sourceName, symbols);
  Feed(source);
  return Finish();
}

// An empty main body is open from the start, because the first batch may
// begin with any line; it is dropped at the end if nothing went into it.
void CodeGenerator::Begin(string const& sourceName,
                          Ref<LocalSymbolTableList> symbols) {
  QASSERT_TEXT(symbols, "symbols");
  mSymbols = symbols;
  mFailed = false;
  mLinesDone = 0;
  mCode.BindNewObject(new CodeModule);
  QASSERT_TEXT(mCode, "mCode");
  mCode->mSourceName = sourceName;
  mCode->mProcessorFamily = TargetProcessorFamily();
  BeginFunction(kMainBodyFunctionName);
}

// Progress counts every line fed so far against the lines known so far.
bool CodeGenerator::Feed(TacBlock* lines) {
  QASSERT_TEXT(lines, "lines");
  QASSERT_TEXT(mCode, "Begin comes first");
  if (mFailed) return false;
  unsigned int total = mDelegate ? mLinesDone + CountLines(lines) : 0;
  mIterator = new TacBlockIterator(lines);
  while (!mFailed && mIterator->Next()) {
    CompileOneLine(mIterator->Value());
    mLinesDone++;
    if (mDelegate && mDelegate->CompilerBackendProgress(mLinesDone, total))
      mFailed = true;
  }
  delete mIterator;
  mIterator = nullptr;
  return !mFailed;
}

bool CodeGenerator::FeedLeading(TacBlock* lines) {
  QASSERT_TEXT(mCode, "Begin comes first");
  SimpleVector<FunctionBlock*>& functions = mCode->mFunctions;
  unsigned long fedBefore = functions.size();
  StringMap<unsigned int> earlierGlobals = mCode->mGlobals;
  mCode->mGlobals = StringMap<unsigned int>();
  bool fed = Feed(lines);
  StringMapIterator<unsigned int>* it = earlierGlobals.NewIterator();
  unsigned int size = 0;
  while (it->Next(size))
    if (!mCode->mGlobals.GetEntry(it->Key(), size))
      mCode->mGlobals.AddEntry(it->Key(), size);
  delete it;
  SimpleVector<FunctionBlock*> reordered;
  reordered.resize(functions.size());
  for (unsigned long i = fedBefore; i < functions.size(); i++)
    reordered.push_back(functions[i]);
  for (unsigned long i = 0; i < fedBefore; i++) reordered.push_back(functions[i]);
  functions = reordered;
  return fed;
}

Ref<CodeModule> CodeGenerator::Finish() {
  QASSERT_TEXT(mCode, "Begin comes first");
  if (!mFailed)
    QASSERT_TEXT((!mFunc) or (mFunc->mName == kMainBodyFunctionName and
                              mFunc->Length() == 0),
                 "(!mFunc) or (mFunc->mName == kMainBodyFunctionName and "
                 "mFunc->Length() == 0)");
  delete mFunc;
  mFunc = nullptr;
  mPendingImportCount = 0;
  mSymbols = Ref<LocalSymbolTableList>();
  if (mFailed) mCode = Ref<CodeModule>();
  Ref<CodeModule> result = mCode;
  mCode = Ref<CodeModule>();
  return result;
}

void CodeGenerator::CompileOneLine(TacLine const& line) {
  mLocation = SourceLocation(static_cast<unsigned int>(line.mLine));
  CompileLineBefore(line);
  switch (line.opcode) {
#define QUORL_DISPATCH(name) \
  case kTac##name:           \
    tac_##name(line);        \
    break;
    QUORL_TAC_OPCODES(QUORL_DISPATCH)
#undef QUORL_DISPATCH
    default:
      QASSERT_TEXT(0, "0");
  }
  CompileLineAfter(line);
}

void CodeGenerator::NewFunction(string const& name) {
  delete mFunc;
  mFunc = mCode->MakeFunctionBlock();
  mFunc->mName = name;
}

void CodeGenerator::FinishFunction() {
  QASSERT_TEXT(mFunc, "mFunc");
  mCode->mFunctions.push_back(mFunc);
  mFunc = nullptr;
}

// ---------------------------------------------------------------- imports

void CodeGenerator::MarkImport(Import::Type type, string const& name,
                               string const& library, int delta) {
  if (mPendingImportCount >= kMaxPendingImports - 1) {
    Error(kErrorImportLimit);
    return;
  }
  if (mPendingImportCount == mPendingImportCapacity) GrowPendingImports();
  mPendingImports[mPendingImportCount++] =
      Import(type, name, library, CodeBufferLength() + delta);
}

// Doubles the staging list, so that a function's imports are copied a
// bounded number of times however many it has.
void CodeGenerator::GrowPendingImports() {
  unsigned int capacity = 2 * mPendingImportCapacity;
  Import* fresh = new Import[capacity];
  for (unsigned int i = 0; i < mPendingImportCount; i++)
    fresh[i] = mPendingImports[i];
  CountImportsCopied(mPendingImportCount);
  delete[] mPendingImports;
  mPendingImports = fresh;
  mPendingImportCapacity = capacity;
}

void CodeGenerator::MarkImport(Import::Type type, string const& name,
                               int delta) {
  MarkImport(type, name, string(), delta);
}

void CodeGenerator::AdjustImportListOffsets(int delta) {
  for (unsigned int i = 0; i < mPendingImportCount; i++)
    mPendingImports[i].mOffset += delta;
}

void CodeGenerator::MakeImportListPermanent(FunctionBlock* targetFunc) {
  QASSERT_TEXT(targetFunc->mImports.size() == 0,
               "targetFunc->mImports.size() == 0");
  targetFunc->mImports.resize(mPendingImportCount);
  for (unsigned int i = 0; i < mPendingImportCount; i++) {
    targetFunc->mImports.push_back(mPendingImports[i]);
    mPendingImports[i] = Import();
  }
  mPendingImportCount = 0;
}

Import const& CodeGenerator::PendingImport(unsigned int i) const {
  QASSERT(i < mPendingImportCount);
  return mPendingImports[i];
}

// ---------------------------------------------------------------- errors

void CodeGenerator::Error(CompileErrorCode code) {
  Error(code, SimpleVector<string>());
}

void CodeGenerator::Error(CompileErrorCode code,
                          SimpleVector<string> const& arguments) {
  mFailed = true;
  QASSERT_TEXT(mDelegate, "mDelegate");
  mDelegate->CompilerError(CompileError(code, mLocation, arguments));
}

// ---------------------------------------------------------------- types

bool CodeGenerator::ExprIsFloat(TacLine const& line) {
  if (!line.opA->mType.IsFloat()) return false;
  QASSERT_TEXT(line.opB == nilTacAddr or line.opB->mType.IsFloat(),
               "line.opB == nilTacAddr or line.opB->mType.IsFloat()");
  return true;
}

bool CodeGenerator::ExprIsInt64(TacLine const& line) {
  return AddrIsInt64(line.opA) || AddrIsInt64(line.opB) ||
         AddrIsInt64(line.result);
}

bool CodeGenerator::ExprIsStruct(TacLine const& line) {
  return AddrIsStruct(line.opA) || AddrIsStruct(line.opB) ||
         AddrIsStruct(line.result);
}

ArithmeticCategory CodeGenerator::CategorizeType(IRDataType const& type) {
  if (type.IsFloat()) return kCategoryFloat;
  if (type.GetMainType() == kCurrencyType) return kCategoryCurrency;
  if (type.IsInteger() && type.StorageSize() >= 5)
    return type.Signed() ? kCategorySInt64 : kCategoryUInt64;
  return type.Signed() ? kCategorySInt32 : kCategoryUInt32;
}

ArithmeticCategory CodeGenerator::CategorizeBinop(TacLine const& line) {
  ArithmeticCategory atype = CategorizeType(line.opA->mType);
  ArithmeticCategory btype = CategorizeType(line.opB->mType);
  if ((atype == kCategoryUInt32 && btype == kCategorySInt32) ||
      (atype == kCategorySInt32 && btype == kCategoryUInt32))
    return kCategorySInt32;
  if ((atype == kCategoryUInt64 && btype == kCategorySInt64) ||
      (atype == kCategorySInt64 && btype == kCategoryUInt64))
    return kCategorySInt64;
  if (atype != btype)
    QFAIL_STRING(string("atype == btype: ") + TacAddrText(line.opA) +
                 " doesn't match " + TacAddrText(line.opB));
  return atype;
}

unsigned long CodeGenerator::AlignBytes(unsigned long value,
                                        unsigned long alignment) {
  return (value + alignment - 1) / alignment * alignment;
}

int CodeGenerator::CountingIntrinsic(IRDataType const& type, int stringID,
                                     int objectID, int wstringID,
                                     int cfstringID, char const* failure) {
  QASSERT_TEXT(type.RefCounted(), "type.RefCounted()");
  switch (type.GetMainType()) {
    case kStringType:
      return stringID;
    case kVariantType:
    case kObjectType:
    case kArrayType:
      return objectID;
    case kExternalWStringType:
      return wstringID;
    case kCFStringRefType:
      return cfstringID;
    default:
      xxxxxxx_printassertion(QASSERT_MESSAGE, __FILE__, __LINE__, failure);
  }
}

void CodeGenerator::CallRuntime(unsigned int functionID, TacAddr const* a,
                                TacAddr const* b, TacAddr const* result) {
  QASSERT_TEXT(!mArguments.size(), "a runtime call inside an argument list");
  QASSERT_TEXT(functionID < mIntrinsicLinkNames.size(),
               "functionID < mIntrinsicLinkNames.size()");
  if (a != nilTacAddr) mArguments.push_back(a);
  if (b != nilTacAddr) mArguments.push_back(b);
  CallIntrinsic(functionID, result);
}
