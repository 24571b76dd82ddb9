#include "Compiler/Frontend/SrcContext.h"

#include "Compiler/BackEnds/codestorage.h"
#include "Compiler/Frontend/Exceptions.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Compiler/SymbolTable/SymbolTable.h"
#include "Universal/Assertion.h"

// Set by the SrcContext constructor, cleared by its destructor: non-null
// exactly while a compilation (or a declaration encoding) is under way.
SrcContext* gContext = nullptr;

SrcContext::SrcContext()
    : mDelegate(nullptr), mSymbols(nullptr), mProgramCode(nullptr),
      mTopStatements(nullptr), mTopFunctions(nullptr), mFunctionSink(nullptr),
      mTopItemMark(0),
      mConditionalDepth(0), mStubCode(nullptr),
      mMainBodyTable(nullptr), mMainBodyTableIndex(0), mLibrary(0), mBigEndian(0),
      mStaticClassData(0), mScriptMode(0), mErrorFlag(0), mNextLabel(1),
      mNextID(1) {
  QASSERT(NULL == gContext);
  mTables.BindNewObject(new LocalSymbolTableList);
  mSymbols = new StaticSymbolTable("");
  mTables->AddTable(mSymbols);
  // Made before any item, so that releasing an item's values spares them.
  mProgramCode = SemCode::New(IRDataType(), nullptr);
  mTopStatements = SemCode::New(IRDataType(), nullptr);
  mTopFunctions = SemCode::New(IRDataType(), nullptr);
  mStubCode = SemCode::New(IRDataType(), nullptr);
  // A new value takes the lexer's current line, which is still that of the
  // previous compilation: the code that stands before any statement of this
  // one (the main body's start and end) is on line 0, whatever ran before.
  SemCode* programParts[] = {mProgramCode, mTopStatements, mTopFunctions, mStubCode};
  for (SemCode* part : programParts) part->SetLocation(SourceLocation());
  mTopItemMark = SemBase::LiveCount();
  gContext = this;
  SetCurrent(this);
  MakeSharedOperands();
}

// The local tables go with the last Ref to them; the semantic values,
// program code included, with the sweep.
SrcContext::~SrcContext() {
  ForgetOpenTries();
  for (unsigned long i = 0; i < mStaticBlocks.size(); i++)
    delete mStaticBlocks[i];
  for (unsigned long i = 0; i < mImplicitDelegateTypes.size(); i++)
    delete mImplicitDelegateTypes[i];
  gContext = nullptr;
  SetCurrent(nullptr);
  SemBase::PostCompileCleanup();
}

long SrcContext::NewLabel() { return mNextLabel++; }

TacAddr const* SrcContext::NamedLabel(string const& name) {
  TacAddr const* label;
  if (mNamedLabels.GetEntry(name, label)) return label;
  label = GetLiteral(NewLabel(), kSInt32Type);
  mNamedLabels.AddEntry(name, label);
  return label;
}

TacAddr const* SrcContext::GetStaticSymbolAddr(IRDataType const& type,
                                               string const& name) {
  TacAddr* addr;
  if (mStaticSymbols.GetEntry(name, addr)) return addr;
  addr = Own(new SymbolAddr(kGlobalDataStorage, type, name, 0));
  mStaticSymbols.AddEntry(name, addr);
  return addr;
}

TacAddr const* SrcContext::GetObjectSymbolAddr(IRDataType const& type,
                                               string const& name,
                                               unsigned int offset) {
  TacAddr* addr;
  if (mObjectSymbols.GetEntry(name, addr)) return addr;
  addr = Own(new SymbolAddr(kBaseRelativeDataStorage, type, name, offset));
  mObjectSymbols.AddEntry(name, addr);
  return addr;
}

StaticDataBlock* SrcContext::MakeStaticDataBlock(string const& name) {
  QASSERT(name.Length());
  StaticDataBlock* block = new StaticDataBlock(mBigEndian);
  block->mName = name;
  mStaticBlocks.push_back(block);
  return block;
}

void SrcContext::MoveStaticDataBlocks(SimpleVector<StaticDataBlock*>* target) {
  QASSERT(target);
  for (unsigned long i = 0; i < mStaticBlocks.size(); i++)
    target->push_back(mStaticBlocks[i]);
  mStaticBlocks.deleteAll();
}

void SrcContext::RecordDependency(SourceUnitDependencyLink* link) {
  if (link) link->Touch();
}

LocalSymbolTable* SrcContext::CurrentLocalTable() const { return mSymbols; }

TacAddr const* NewLabel() {
  QASSERT(gContext);
  return gContext->GetLiteral(gContext->NewLabel(), kSInt32Type);
}
