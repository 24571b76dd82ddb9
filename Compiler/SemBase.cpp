#include "Compiler/SemBase.h"

#include "Compiler/CompilationState.h"
#include "Compiler/InternalFailure.h"
#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Compiler/SymbolTable/SymbolTable.h"
#include "Compiler/TacListing.h"
#include "Universal/Assertion.h"
#include "Universal/CompileWorkCounters.h"
#include "Universal/ByteHelpers.h"

// ---------------------------------------------------------------- SemBase

SemBase* SemBase::mCompleteListHead = nullptr;
unsigned long SemBase::mLiveCount = 0;

// Every value starts on the current token's line and joins the list that
// the end of the compilation sweeps.
SemBase::SemBase(uint32_t tag)
    : mNext(nullptr), mClass(tag), mLocation(CurrentSourceLine()),
      mNextInCompleteList(mCompleteListHead) {
  mCompleteListHead = this;
  mLiveCount++;
}

// The tag outlives the object on purpose, so that a second deletion fails
// here. The store is volatile: an ordinary store at the end of a lifetime is
// dead to the optimiser and would be dropped.
SemBase::~SemBase() {
  QASSERT(mClass != kSemDeadTag);
  *static_cast<uint32_t volatile*>(&mClass) = kSemDeadTag;
}

SemBase* SemBase::New() { return new SemBase(kSemBaseTag); }

string SemBase::toString() const { return "<null>"; }

void SemBase::Append(SemBase* other) {
  Error("Append called on invalid SemBase type");
}

SemBase* SemBase::Clone() const {
  Error("Clone called on invalid SemBase type");
}

void SemBase::AddLine(TacOpcode opcode, TacAddr const* opA,
                      TacAddr const* opB, TacAddr const* result) {
  Error("AddLine called on invalid SemBase type");
}

SemBase* SemBase::NewTemp(IRDataType const& type, SourceLocation const* where) {
  Error("NewTemp called on invalid SemBase type");
}

TemporaryList& SemBase::Temporaries() {
  Error("Temporaries called on invalid SemBase type");
}

void SemBase::SetType(IRDataType const& type) {
  Error("SetType called on invalid SemBase type");
}

void SemBase::IncludeLocation(SourceLocation const& where) {
  mLocation = mLocation + where;
}

// Pops before deleting, so that the list never holds a dead value.
void SemBase::PostCompileCleanup() { ReleaseNewerThan(0); }

unsigned long SemBase::LiveCount() { return mLiveCount; }

void SemBase::ReleaseNewerThan(unsigned long mark) {
  ReleaseNewerThanExcept(mark, nullptr, nullptr);
}

// The kept values are linked again as the newest, in their old order.
void SemBase::ReleaseNewerThanExcept(unsigned long mark, SemBase* keepA,
                                     SemBase* keepB) {
  SemBase* kept[2];
  int keptCount = 0;
  while (mCompleteListHead && mLiveCount > mark) {
    SemBase* victim = mCompleteListHead;
    mCompleteListHead = victim->mNextInCompleteList;
    mLiveCount--;
    if (victim == keepA || victim == keepB)
      kept[keptCount++] = victim;
    else
      delete victim;
  }
  while (keptCount > 0) {
    SemBase* survivor = kept[--keptCount];
    survivor->mNextInCompleteList = mCompleteListHead;
    mCompleteListHead = survivor;
    mLiveCount++;
  }
}

void SemBase::Error(char const* text) { QFAIL_STRING(text); }

// ---------------------------------------------------------------- identifier

SemIdentifier::SemIdentifier(string const& name)
    : SemBase(kSemIdentifierTag), mName(name) {}

SemIdentifier* SemIdentifier::New(string const& name) {
  return new SemIdentifier(name);
}

SemIdentifier* SemIdentifier::New(string const& name,
                                  SourceLocation const& where) {
  SemIdentifier* ident = new SemIdentifier(name);
  ident->mLocation = where;
  return ident;
}

SemBase* SemIdentifier::Clone() const { return New(mName, mLocation); }

// ---------------------------------------------------------------- namespace

SemNamespace::SemNamespace(Symbol* symbol)
    : SemBase(kSemNamespaceTag), mSymbol(symbol) {}

SemNamespace* SemNamespace::New(Symbol* symbol, SourceLocation const& where) {
  QASSERT(symbol);
  SemNamespace* space = new SemNamespace(symbol);
  space->mLocation = where;
  return space;
}

IRDataType SemNamespace::GetType() const {
  if (!mSymbol->IsA(Symbol::kType)) return IRDataType();
  return static_cast<TypeSymbol*>(mSymbol)->InstanceType();
}

SemBase* SemNamespace::Clone() const { return New(mSymbol, mLocation); }

// ---------------------------------------------------------------- value

SemValue::SemValue(TacAddr const* addr) : SemBase(kSemValueTag), mAddr(addr) {}

SemValue* SemValue::New(TacAddr const* addr, SourceLocation const* where) {
  QASSERT(addr);
  SemValue* value = new SemValue(addr);
  if (where) value->mLocation = *where;
  return value;
}

string SemValue::toString() const { return TacAddrText(mAddr); }

// The type belongs to the address, which others share.
void SemValue::SetType(IRDataType const& type) {
  Error("SetType is prohibited on SemValue");
}

SemBase* SemValue::Clone() const { return New(mAddr, &mLocation); }

// ---------------------------------------------------------------- list

SemList::SemList(SemBase* head)
    : SemBase(kSemListTag), mHead(head), mTail(head) {}

SemList* SemList::New(SemBase* head) {
  QASSERT(head);
  SemList* list = new SemList(head);
  list->mLocation = head->Location();
  return list;
}

string SemList::toString() const {
  string text;
  for (SemBase* item = mHead; item; item = item->mNext) {
    if (item != mHead) text += ", ";
    text += item->toString();
  }
  return text;
}

// `other` may head a chain of its own (the contents of another list); the
// chain comes along whole and the tail moves to its end.
void SemList::Append(SemBase* other) {
  QASSERT(other);
  mTail->mNext = other;
  for (SemBase* item = other; item; item = item->mNext) {
    IncludeLocation(item->Location());
    mTail = item;
  }
}

void SemList::SetType(IRDataType const& type) {
  for (SemBase* item = mHead; item; item = item->mNext) item->SetType(type);
}

SemBase* SemList::Clone() const {
  QASSERT(mHead);
  SemList* copy = New(mHead->Clone());
  for (SemBase* item = mHead->mNext; item; item = item->mNext)
    copy->Append(item->Clone());
  copy->mLocation = mLocation;
  return copy;
}

// ---------------------------------------------------------------- code

// Names of temporaries: eight hex digits of a counter that runs for the
// whole process and is never reset, so no two temporaries ever share one.
static uint32_t sTemporaryCounter = 0;

SemCode::SemCode() : SemBase(kSemCodeTag), mResult(nullptr) {}

SemCode* SemCode::New(IRDataType const& type, SourceLocation const* where) {
  SemCode* code = new SemCode;
  if (where) code->mLocation = *where;
  if (type.GetMainType() != kNoType)
    code->mResult = code->NewTemp(type, where);
  return code;
}

SemCode* SemCode::NewValueWrapper(SemBase* value, SourceLocation const* where) {
  SemCode* code = new SemCode;
  if (where) code->mLocation = *where;
  code->mResult = value;
  return code;
}

// The line carries this value's start line: that is how source lines reach
// the back end's line table.
void SemCode::AddLine(TacOpcode opcode, TacAddr const* opA,
                      TacAddr const* opB, TacAddr const* result) {
  mCode.AddLine(opcode, opA, opB, result, mLocation.mStartLine);
}

// A hidden variable of the current local table, recorded here so that it
// can be released when the function ends.
SemBase* SemCode::NewTemp(IRDataType const& type, SourceLocation const* where) {
  string name = ultohexa(++sTemporaryCounter);
  CompilationState* compilation = CompilationState::Current();
  QASSERT(compilation);
  VariableSymbol* temp = compilation->CurrentLocalTable()->AddVariable(name, type);
  temp->HideFromUser();
  mTemporaries.push_back(temp);
  return SemValue::New(temp->GetAddr(), where);
}

IRDataType SemCode::GetType() const {
  return mResult ? mResult->GetType() : IRDataType();
}

TacAddr const* SemCode::GetAddr() const {
  return mResult ? mResult->GetAddr() : nilTacAddr;
}

void SemCode::Append(SemBase* other) {
  QASSERT(other);
  TacBlock* code = other->Code();
  QASSERT(code);
  QASSERT(code != &mCode);
  IncludeLocation(other->Location());
  mCode.Append(*code);
  mTemporaries.MoveFrom(other->Temporaries());
}

SemBase* SemCode::Clone() const {
  SemCode* copy = NewValueWrapper(mResult, &mLocation);
  TacBlockIterator lines(&mCode);
  while (lines.Next()) copy->mCode.AddLine(lines.Value());
  copy->mTemporaries = mTemporaries;
  return copy;
}

// ---------------------------------------------------------------- helpers

SemBase* ConcatCode(SemBase* a, SemBase* b) {
  if (!a) return b;
  if (!b) return a;
  // After a syntax error the parser's recovery can leave a value without
  // code where a statement stood; the error is reported, so drop it.
  if (!b->Code()) return a;
  if (!a->Code()) return b;
  a->Append(b);
  return a;
}

// Shared by ConcatList and ConcatSemBase: `keepCode` lets an `a` that
// carries code take `b` without being wrapped in a list.
static SemBase* Concat(SemBase* a, SemBase* b, bool keepCode) {
  if (!a) return b;
  if (!b) return a;
  SemBase* item = b;
  if (b->IsList()) {
    item = b->GetContents();
    if (!item) return a;
  }
  if (!a->IsList() && !(keepCode && a->Code())) a = SemList::New(a);
  if (b != item) a->IncludeLocation(b->Location());
  a->Append(item);
  return a;
}

SemBase* ConcatList(SemBase* a, SemBase* b) { return Concat(a, b, false); }

SemBase* ConcatSemBase(SemBase* a, SemBase* b) { return Concat(a, b, true); }
