// Removes the zeroing of a plain value that is overwritten before anything
// can read it. The front end clears an expression's temporaries before each
// statement; for values that hold no reference that clearing is a store
// nobody sees.
#include "Compiler/Optimizer/OptimizerPasses.h"

namespace {

// Values whose zeroing may go: no reference to release later, a size the
// next write covers whole, and a home that only this line's operand names.
bool PlainScalar(TacAddr const* addr) {
  if (addr->IsConstant() || addr->mType.RefCounted()) return false;
  if (addr->mType.GetMainType() == kStructureType) return false;
  StorageClass storage = addr->GetStorageClass();
  return storage == kStackDataStorage || storage == kGlobalDataStorage;
}

// Lines after which anything may read memory: control goes elsewhere, or
// code that is not in view runs (a call may read a global, a raise may
// reach a handler that does).
bool EndsTheView(TacOpcode opcode) {
  switch (opcode) {
    case kTacLabel:
    case kTacJump:
    case kTacIfEQI:
    case kTacIfNEI:
    case kTacIfLTI:
    case kTacIfLTU:
    case kTacIntrinsic:
    case kTacCall:
    case kTacCallPtr:
    case kTacCallPtrVarargs:
    case kTacCallVirtual:
    case kTacHandleException:
    case kTacBeginTry:
    case kTacEndTry:
    case kTacEnter:
    case kTacLeave:
    case kTacStop:
    case kTacVarptr:
    case kTacBaseref:
    case kTacPoke:
    case kTacPutParam:
    case kTacPragma:
    case kTacLock:
    case kTacUnlock:
    case kTacSwapLocks:
    case kTacEndianSwap:
    case kTacGetParam:
    case kTacPeek:
      return true;
    default:
      return false;
  }
}

enum Fate { kKeep, kOverwritten, kUndecided };

bool IsStructure(TacAddr const* addr) {
  return addr->mType.GetMainType() == kStructureType;
}

// The zeroed home, with what the scan compares against worked out once;
// the absent operand too, which most lines have one or two of.
struct Home {
  explicit Home(TacAddr const* zeroed)
      : addr(zeroed), storage(zeroed->GetStorageClass()),
        start(storage == kStackDataStorage ? zeroed->StorageOffset() : 0),
        size(zeroed->mType.StorageSize()), none(nilTacAddr) {}
  TacAddr const* addr;
  StorageClass storage;
  unsigned long start, size;
  TacAddr const* none;
};

// A block's variable and its shadow in the enclosing scope are two
// operands for one home, so operands are compared by their storage.
bool SameHome(TacAddr const* a, Home const& home) {
  if (a == home.addr) return true;
  if (a == home.none || a->IsConstant()) return false;
  StorageClass storage = a->GetStorageClass();
  if (storage != home.storage) return false;
  if (storage == kGlobalDataStorage) return a->LinkID() == home.addr->LinkID();
  if (storage != kStackDataStorage) return true;
  unsigned long start = a->StorageOffset();
  return start < home.start + home.size &&
         home.start < start + a->mType.StorageSize();
}

// A structure operand may be the whole of which the zeroed value is a
// part. Only a write to exactly the zeroed home covers it.
Fate FateAfter(TacLine const& line, Home const& zeroed) {
  if (EndsTheView(line.opcode)) return kKeep;
  if (IsStructure(line.opA) || IsStructure(line.opB) || IsStructure(line.result))
    return kKeep;
  if (line.opA != zeroed.none && SameHome(line.opA, zeroed)) return kKeep;
  if (line.opB != zeroed.none && SameHome(line.opB, zeroed)) return kKeep;
  if (!SameHome(line.result, zeroed)) return kUndecided;
  bool whole = line.result->GetStorageClass() == zeroed.storage &&
               (zeroed.storage == kGlobalDataStorage ||
                line.result->StorageOffset() == zeroed.start) &&
               line.result->mType.StorageSize() == zeroed.size;
  return whole ? kOverwritten : kKeep;
}

bool OverwrittenBeforeRead(TacLine const* zero) {
  Home zeroed(zero->result);
  for (TacLine const* later = zero->mNext; later; later = later->mNext) {
    Fate fate = FateAfter(*later, zeroed);
    if (fate != kUndecided) return fate == kOverwritten;
  }
  return false;
}

}  // namespace

void RemoveDeadZeroing(TacBlock* code) {
  TacLine* previous = nullptr;
  TacLine* line = code->mFirst;
  while (line) {
    TacLine* next = line->mNext;
    if (line->opcode == kTacZero && PlainScalar(line->result) &&
        OverwrittenBeforeRead(line)) {
      RemoveLine(code, previous, line);
    } else {
      previous = line;
    }
    line = next;
  }
}
