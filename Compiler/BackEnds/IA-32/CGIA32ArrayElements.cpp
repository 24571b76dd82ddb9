// Element reads and writes of one-dimensional arrays of plain values, in
// line. The front end reaches every element through the array's method
// table:
//
//   Peek      array, 24 -> entry        the table
//   Peek      entry, Get|Set|GetFast|SetFast -> entry
//   PutParam  array
//   PutParam  value                     (a write only)
//   PutParam  index
//   CallPtrVarargs entry -> element     (nil for a write)
//
// For a one-dimensional array of numbers or Booleans the table is always
// the runtime's own linear one, so the optimizing path replaces the six
// lines by a bounds test and one move: a negative index, or one above the
// upper bound (an empty array's bound is -1), fails, and a failing index calls the runtime's raiser on a rare path that
// keeps every general register. Should the raise come back (the handler
// lies in a caller), a read gives zero and a write stores nothing, as the
// runtime's entries do.
#include "Common/Arrays/ArrayLayout.h"
#include "Compiler/BackEnds/IA-32/CGIA32.h"
#include "Compiler/Intrinsics.h"

namespace {

// The element types done in line, with the scale of their size (log2 of
// bytes); -1 for the others.
int ElementScale(SimpleDataType element) {
  switch (element) {
    case kSInt32Type:
    case kUInt32Type:
    case kColorType:
      return 2;
    case kBooleanType:
    case kUInt8Type:
      return 0;
    case kReal64Type:
      return 3;
    default:
      return -1;
  }
}

bool IsOffset(TacAddr const* addr, long offset) {
  return addr->IsConstant() && addr->mType.GetMainType() == kSInt32Type &&
         addr->GetValue()->uSInt32 == offset;
}

bool IsPutParam(TacLine const* line) {
  return line && line->opcode == kTacPutParam;
}

// Lines looked at after an access for a later use of its table entry;
// past them the entry counts as used.
int const kEntryUseHorizon = 2000;

// Whether the pointer temporary `entry` is read after `call` before it is
// written again: Array(...) fills its elements through one entry fetched
// once, and an access whose entry is read again keeps its lines.
bool EntryReadLater(TacLine const* call, TacAddr const* entry) {
  int looked = 0;
  for (TacLine const* later = call->mNext; later; later = later->mNext) {
    if (++looked > kEntryUseHorizon) return true;
    if (later->opA == entry || later->opB == entry) return true;
    if (later->result == entry) return later->opcode == kTacPoke;
    if (later->opcode == kTacEnter || later->opcode == kTacLeave ||
        later->opcode == kTacStop)
      return false;
  }
  return false;
}

// The runtime's raiser of an index outside a dimension's bounds, which
// names both in its message.
char const kIndexOutOfBoundsFunction[] = "RaiseIndexOutOfBounds";

// Words that keep the stack 16-byte aligned at the raiser's call: eight
// saved registers, two of padding and the two arguments.
int const kRaisePadding = 8;
int const kRaiseArguments = 8;

}  // namespace

// Every general register survives; the array's register still holds the
// array here, so the bound is read from it.
void CGIA32::RaiseElementOutOfBounds(int index, int array) {
  ia32_pushad();
  ia32_sub_imm32(kModRegister, kESP, kRaisePadding);
  ia32_push(kModDisplacement8, array, kArrayFirstUboundOffset);
  ia32_push(index);
  CallByName(string(kIndexOutOfBoundsFunction));
  ia32_add_imm32(kModRegister, kESP, kRaisePadding + kRaiseArguments);
  ia32_popad();
  ReloadHomeRegisters(kReloadSSEHomes);
}

// The lines of one access, or false when `line` does not start one that
// can be done in line.
bool CGIA32::MatchElementAccess(TacLine const& line, ElementAccess* access) {
  if (line.opcode != kTacPeek || !IsOffset(line.opB, kArrayMethodsOffset))
    return false;
  TacAddr const* array = line.opA;
  if (array->mType.GetMainType() != kArrayType ||
      array->mType.GetDimensions() != 1 || mArguments.size())
    return false;
  access->array = array;
  access->scale = ElementScale(array->mType.GetElementType());
  if (access->scale < 0) return false;
  TacLine const* entry = line.mNext;
  if (!entry || entry->opcode != kTacPeek || entry->opA != line.result ||
      entry->result != line.result)
    return false;
  access->write = IsOffset(entry->opB, kArraySet) || IsOffset(entry->opB, kArraySetFast);
  access->checked = IsOffset(entry->opB, kArrayGet) || IsOffset(entry->opB, kArraySet);
  bool unchecked = IsOffset(entry->opB, kArrayGetFast) ||
                   IsOffset(entry->opB, kArraySetFast);
  if (!access->checked && !unchecked) return false;
  TacLine const* next = entry->mNext;
  if (!IsPutParam(next) || next->opA != array) return false;
  next = next->mNext;
  access->value = nilTacAddr;
  if (access->write) {
    if (!IsPutParam(next)) return false;
    access->value = next->opA;
    next = next->mNext;
  }
  if (!IsPutParam(next) || next->opA->mType.GetMainType() != kSInt32Type)
    return false;
  access->index = next->opA;
  TacLine const* call = next->mNext;
  if (!call || call->opcode != kTacCallPtrVarargs || call->opA != line.result)
    return false;
  if (EntryReadLater(call, line.result)) return false;
  access->element = call->result;
  SimpleDataType element = array->mType.GetElementType();
  access->lines = 6;
  if (access->write)
    return access->element == nilTacAddr &&
           access->value->mType.GetMainType() == element;
  access->lines = 5;
  return access->element != nilTacAddr &&
         access->element->mType.GetMainType() == element;
}

// The array's register becomes the buffer's (a copy is made when the array
// lives in a home register), and a read lands in it too, so an access
// needs no register beyond its operands.
bool CGIA32::ElementAccessInLine(TacLine const& line) {
  ElementAccess access;
  if (!mOptions.mOptimizeCode || !mOptions.mUseSSE2FloatingPointMath ||
      !MatchElementAccess(line, &access))
    return false;
  SimpleDataType element = access.array->mType.GetElementType();
  bool isFloat = element == kReal64Type;
  bool isByte = access.scale == 0;
  int arrayScheme = isByte && !access.write ? kSelect8BitGPR : kSelectAnyGPR;
  int data = LoadForReading(access.array, arrayScheme);
  int index = LoadForReading(access.index, SchemeExclude(data, kSelectAnyGPR));
  if (HomeRegisterOf(access.array) != kNoRegister) {
    int copy = AllocateRegister(SchemeExclude(index, arrayScheme), kNoRegister);
    ia32_mov(kModRegister, copy, data);
    data = copy;
  }
  int value = kNoRegister;
  if (access.write) {
    int scheme = isFloat ? int(kSelectAnyXMM)
                         : SchemeExclude2(data, index,
                                          isByte ? kSelect8BitGPR : kSelectAnyGPR);
    value = LoadForReading(access.value, scheme);
    if (!isFloat && isByte && !RegMatchesScheme(value, kSelect8BitGPR)) {
      int byteReg = AllocateRegister(scheme, kNoRegister);
      ia32_mov(kModRegister, byteReg, value);
      value = byteReg;
    }
  } else {
    value = isFloat ? AllocateRegister(kSelectAnyXMM, kNoRegister) : data;
  }
  Touch(data);
  long rare = NewLocalLabel(), done = NewLocalLabel();
  if (access.checked) {
    bool neverNegative = access.index->IsConstant() &&
                         static_cast<long>(access.index->GetValue()->uSInt32) >= 0;
    if (!neverNegative) {
      ia32_cmp_imm8_se(kModRegister, index, 0);
      EmitBranch(&IA32OpWriter::ia32_jl, 2, rare);
    }
    ia32_cmp(kModDisplacement8, index, data, kArrayFirstUboundOffset);
    EmitBranch(&IA32OpWriter::ia32_jg, 2, rare);
  }
  ia32_mov(kModDisplacement8, data, data, kArrayDataOffset);
  int const sib = 4;
  if (access.write) {
    if (isFloat)
      ia32_movsd_store(kModIndirect, value, sib, access.scale, index, data);
    else if (isByte)
      ia32_mov8_store(kModIndirect, value, sib, access.scale, index, data);
    else
      ia32_mov_store(kModIndirect, value, sib, access.scale, index, data);
  } else if (isFloat) {
    ia32_movsd(kModIndirect, value, sib, access.scale, index, data);
  } else if (isByte) {
    ia32_mov8(kModIndirect, value, sib, access.scale, index, data);
  } else {
    ia32_mov(kModIndirect, value, sib, access.scale, index, data);
  }
  if (access.checked) {
    EmitBranch(&IA32OpWriter::ia32_jmp_rel, 1, done);
    PlaceLabel(rare);
    RaiseElementOutOfBounds(index, data);
    if (!access.write) {
      ia32_xor(kModRegister, data, data);
      if (isFloat) ia32_cvtsi2sd(kModRegister, value, data);
    }
    PlaceLabel(done);
    ForgetSSERegisters();
  }
  if (!access.write) {
    if (element == kBooleanType) ia32_and_imm8_se(kModRegister, value, 1);
    if (element == kUInt8Type) ia32_and_imm32(kModRegister, value, 255);
    StoreTacAddr(value, access.element);
  }
  for (int skipped = 1; skipped < access.lines; skipped++) mIterator->Next();
  return true;
}
