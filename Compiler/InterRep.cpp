#include "Compiler/InterRep.h"

#include "Universal/Assertion.h"

// ---------------------------------------------------------------- opcodes

namespace {

#define QUORL_TAC_NAME(name) #name,
char const* const kTacOpcodeNames[] = {QUORL_TAC_OPCODES(QUORL_TAC_NAME)};
#undef QUORL_TAC_NAME

static_assert(sizeof kTacOpcodeNames / sizeof kTacOpcodeNames[0] ==
                  kQtyTacOpcodes,
              "one name per opcode");
static_assert(kQtyTacOpcodes == 51, "the operation set has 51 members");

}  // namespace

char const* TacOpcodeName(TacOpcode opcode) {
  QASSERT(unsigned(opcode) < unsigned(kQtyTacOpcodes));
  return kTacOpcodeNames[opcode];
}

// ---------------------------------------------------------------- values

IRValue const kIRZeroValue;

IRValue IRValue::SInt32(long value) {
  IRValue v;
  v.uSInt32 = value;
  return v;
}

IRValue IRValue::SInt64(long long value) {
  IRValue v;
  v.uSInt64 = value;
  return v;
}

IRValue IRValue::Real32(float value) {
  IRValue v;
  v.uReal32 = value;
  return v;
}

IRValue IRValue::Real64(double value) {
  IRValue v;
  v.uReal64 = value;
  return v;
}

IRValue IRValue::String(string const& value) {
  IRValue v;
  v.mString = value;
  return v;
}

void IRValue::Initialize() {
  uReal64 = 0.0;
  mString = string();
}

// ---------------------------------------------------------------- operands

IRValue const* TacAddr::GetValue() const {
  QFAIL("GetValue of an operand that is no constant");
}

unsigned long TacAddr::StorageOffset() const {
  QFAIL("StorageOffset of an operand that has no storage");
}

StorageClass TacAddr::GetStorageClass() const {
  QFAIL("GetStorageClass of an operand that has no storage");
}

string const& TacAddr::LinkID() const {
  QFAIL("LinkID of an operand that has no storage");
}

ConstAddr::ConstAddr(long value)
    : TacAddr(IRDataType(kSInt32Type)), mValue(IRValue::SInt32(value)) {}

ConstAddr::ConstAddr(string const& text)
    : TacAddr(IRDataType(kStringType)), mValue(IRValue::String(text)) {}

ConstAddr::ConstAddr(IRValue const& value, IRDataType const& type)
    : TacAddr(type), mValue(value) {}

SymbolAddr::SymbolAddr(StorageClass storageClass, IRDataType const& type,
                       string const& linkID, unsigned int storageOffset)
    : TacAddr(type), mStorageClass(storageClass), mStorageOffset(storageOffset),
      mLinkID(linkID) {}

// ---------------------------------------------------------------- shared

namespace {

// The absent operand. It is neither a constant nor a place, so every
// question beyond IsConstant() is a defect of the asker.
class NilTacAddr : public TacAddr {
 public:
  NilTacAddr() : TacAddr(IRDataType()) {}
  bool IsConstant() const override { return false; }
};

}  // namespace

// Made by MakeSharedOperands, at program start or by the first compilation
// context, whichever comes first; they live until the process ends.
TacAddr const* nilTacAddr;
TacAddr const* gTacZero;
TacAddr const* gTacOne;
TacAddr const* gTacFalse;
TacAddr const* gTacTrue;
TacAddr const* gTacFloatZero;

void MakeSharedOperands() {
  if (nilTacAddr) return;
  nilTacAddr = new NilTacAddr;
  gTacZero = new ConstAddr(0L);
  gTacOne = new ConstAddr(1L);
  gTacFalse = new ConstAddr(IRValue::SInt32(0), IRDataType(kBooleanType));
  gTacTrue = new ConstAddr(IRValue::SInt32(1), IRDataType(kBooleanType));
  gTacFloatZero = new ConstAddr(IRValue::Real64(0.0), IRDataType(kReal64Type));
}

namespace {
// The pointers above are zero before any dynamic initialiser runs, so a
// caller from another file's initialiser may already have made them.
bool const sSharedOperandsMade = (MakeSharedOperands(), true);
}  // namespace

void SymbolAddr::SetQualifiedLinkID(string const& qualifier,
                                    string const& name) {
  mLinkID = name;
  mLinkQualifier = qualifier;
}

void SymbolAddr::QualifyLinkID() const {
  mLinkID = JoinAround(mLinkQualifier, '.', mLinkID);
  mLinkQualifier = string();
}

// ---------------------------------------------------------------- blocks

TacBlock::~TacBlock() { Clear(); }

void TacBlock::Clear() {
  TacLine* line = mFirst;
  while (line) {
    TacLine* next = line->mNext;
    delete line;
    line = next;
  }
  mFirst = mLast = nullptr;
}

void TacBlock::AddLine(TacLine const& line) {
  QASSERT_TEXT(line.opA, "a");
  QASSERT_TEXT(line.opB, "b");
  QASSERT_TEXT(line.result, "res");
  TacLine* copy = new TacLine(line);
  copy->mNext = nullptr;
  if (mLast)
    mLast->mNext = copy;
  else
    mFirst = copy;
  mLast = copy;
}

void TacBlock::AddLine(TacOpcode opcode, TacAddr const* opA,
                       TacAddr const* opB, TacAddr const* result,
                       unsigned long sourceLine) {
  TacLine line = {opcode, opA, opB, result, sourceLine, nullptr};
  AddLine(line);
}

// Constant time: the chain of `other` is linked in whole, never walked.
void TacBlock::Append(TacBlock& other) {
  QASSERT(&other != this);
  if (other.IsEmpty()) return;
  if (mLast)
    mLast->mNext = other.mFirst;
  else
    mFirst = other.mFirst;
  mLast = other.mLast;
  other.mFirst = nullptr;
  other.mLast = nullptr;
}

TacBlockIterator::TacBlockIterator(TacBlock const* block)
    : mBlock(block), mCurrent(nullptr), mStarted(false) {
  QASSERT(block);
}

bool TacBlockIterator::Next() {
  if (!mStarted) {
    mStarted = true;
    mCurrent = mBlock->mFirst;
  } else if (mCurrent) {
    mCurrent = mCurrent->mNext;
  }
  return mCurrent != nullptr;
}

TacLine const& TacBlockIterator::Value() const {
  QASSERT(mCurrent);
  return *mCurrent;
}
