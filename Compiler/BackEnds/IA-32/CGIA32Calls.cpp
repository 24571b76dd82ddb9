// The call sequence: arguments pushed last to first, the call, and the
// stack reset from the stored ESP word, so that callee-pops and caller-pops
// functions are both safe to call.
#include "Compiler/BackEnds/IA-32/CGIA32.h"

#include "Compiler/Intrinsics.h"
#include "Universal/Assertion.h"

#define QUORL_GROUP(op) &IA32OpWriter::op, &IA32OpWriter::op

// ---------------------------------------------------------------- pushing

void CGIA32::PushTacAddr(TacAddr const* addr) {
  if (addr->IsConstant()) {
    if (addr->mType.GetMainType() == kStringType) {
      if (addr->GetValue()->mString.Length())
        MarkImport(Import::kImportStringLiteral, addr->GetValue()->mString, 1);
      ia32_push_imm32(0);
    } else {
      ia32_push_imm32(addr->GetValue()->uSInt32);
    }
    return;
  }
  ia32_push(LoadForReading(addr, kSelectAnyGPR));
}

void CGIA32::PushInt64TacAddr(TacAddr const* addr) {
  int hi, lo;
  LoadInt64TacAddr(addr, &hi, &lo, kSelectAnyGPR);
  ia32_push(hi);
  ia32_push(lo);
}

// The whole value, word by word from its end.
void CGIA32::PushStructTacAddr(TacAddr const* addr) {
  int reg = LoadSymbolAddress(addr, kSelectAnyGPR);
  unsigned long size = AlignBytes(addr->mType.StorageSize(), 4);
  for (unsigned long offset = size; offset > 0; offset -= 4) {
    int disp = static_cast<int>(offset - 4);
    ia32_push(ModDisp(disp), reg, disp);
  }
}

void CGIA32::PushCallParameters(TacAddr const* result) {
  bool structResult = result != nilTacAddr && AddrIsStruct(result);
  if (mOptions.mAlignStack16) {
    unsigned long total = structResult ? 4 : 0;
    for (unsigned long i = 0; i < mArguments.size(); i++)
      total += AlignBytes(mArguments[i]->mType.StorageSize(), 4);
    for (; total % 16; total += 4) ia32_push(kEAX);
  }
  for (unsigned long i = mArguments.size(); i > 0; i--) {
    TacAddr const* arg = mArguments[i - 1];
    if (arg->mType.IsFloat()) {
      PushFloatTacAddr(arg);
      bool single = arg->mType.GetMainType() == kReal32Type;
      ia32_sub_imm32(kModRegister, kESP, single ? 4 : 8);
      if (single)
        ia32_fstp32(kModIndirect, kESP);
      else
        ia32_fstp64(kModIndirect, kESP);
    } else if (AddrIsInt64(arg) && arg->mType.StorageSize() == 8) {
      PushInt64TacAddr(arg);
    } else if (AddrIsStruct(arg)) {
      PushStructTacAddr(arg);
    } else {
      PushTacAddr(arg);
    }
  }
  if (structResult) ia32_push(LoadSymbolAddress(result, kSelectAnyGPR));
}

void CGIA32::ClearCallParameters() {
  mArguments.deleteAll();
  int disp = -static_cast<int>(StoredESPOffset());
  ia32_mov(ModDisp(disp), kESP, kEBP, disp);
  InvalidateRegisters();
  ReloadHomeRegisters(kReloadAfterCall);
}

void CGIA32::BackFromFunctionCall(TacAddr const* result) {
  ClearCallParameters();
  InvalidateRegisters();
  GetReturnedResult(result);
}

// A callee may leave the upper bytes of a narrow result undefined.
void CGIA32::GetReturnedResult(TacAddr const* result) {
  if (result == nilTacAddr) return;
  if (result->mType.IsFloat()) {
    PopFloatTacAddr(result);
    return;
  }
  if (AddrIsInt64(result) && result->mType.StorageSize() == 8) {
    Touch(kEAX);
    Touch(kEDX);
    StoreInt64TacAddr(kEDX, kEAX, result);
    return;
  }
  if (AddrIsStruct(result)) return;
  Touch(kEAX);
  switch (result->mType.GetMainType()) {
    case kBooleanType:
      ia32_and_imm8_se(kModRegister, kEAX, 1);
      break;
    case kSInt8Type:
      ia32_cbw();
      ia32_cwde();
      break;
    case kSInt16Type:
      ia32_cwde();
      break;
    case kUInt16Type:
      ia32_and_imm32(kModRegister, kEAX, 65535);
      break;
    case kUInt8Type:
      ia32_and_imm32(kModRegister, kEAX, 255);
      break;
    default:
      break;
  }
  StoreTacAddr(kEAX, result);
}

// ---------------------------------------------------------------- calls

void CGIA32::CallIntrinsic(unsigned int functionID, TacAddr const* result) {
  PushCallParameters(result);
  MarkImport(Import::kImportCall32, mIntrinsicLinkNames[functionID], 1);
  ia32_call_disp32(0);
  BackFromFunctionCall(result);
}

void CGIA32::tac_PutParam(TacLine const& line) {
  mArguments.push_back(line.opA);
}

void CGIA32::tac_Intrinsic(TacLine const& line) {
  unsigned long functionID = line.opA->GetValue()->uSInt32;
  QASSERT_TEXT(functionID < kQtyIntrinsics, "functionID < kQtyIntrinsics");
  QASSERT_TEXT(functionID < mIntrinsicLinkNames.size(),
               "functionID < mIntrinsicLinkNames.size()");
  // The yield is a countdown in every build; the stack check is one
  // compare when optimizing.
  bool plain = !mArguments.size() && line.result == nilTacAddr;
  if (plain && functionID == kIntrinsicVELDYieldToQuorl) return YieldInLine();
  if (plain && mOptions.mOptimizeCode && functionID == kIntrinsicRuntimeCheckStack)
    return CheckStackInLine();
  CallIntrinsic(functionID, line.result);
}

void CGIA32::tac_Call(TacLine const& line) {
  if (SquareRootInLine(line)) return;
  PushCallParameters(line.result);
  string library =
      line.opB == nilTacAddr ? string() : line.opB->GetValue()->mString;
  MarkImport(Import::kImportCall32, line.opA->GetValue()->mString, library, 1);
  ia32_call_disp32(0);
  BackFromFunctionCall(line.result);
}

// The pointer is loaded after the pushes, which may need every register.
void CGIA32::tac_CallPtr(TacLine const& line) {
  PushCallParameters(line.result);
  ia32_call(kModRegister, LoadTacAddr(line.opA, kSelectAnyGPR));
  BackFromFunctionCall(line.result);
}

void CGIA32::tac_CallPtrVarargs(TacLine const& line) { tac_CallPtr(line); }

// Vtable entries are 8 bytes apart.
void CGIA32::tac_CallVirtual(TacLine const& line) {
  QASSERT_TEXT(mArguments.size() > 0, "mArguments.size() > 0");
  TacAddr const* object = mArguments[0];
  QASSERT(object->mType.GetMainType() == kObjectType);
  QASSERT(line.opA->IsConstant() &&
          line.opA->mType.GetMainType() == kSInt32Type);
  int disp = line.opA->GetValue()->uSInt32 * 8;
  PushCallParameters(line.result);
  int reg = LoadTacAddr(object, kSelectAnyGPR);
  Touch(reg);
  ia32_mov(kModIndirect, reg, reg);
  ia32_call(ModDisp(disp), reg, disp);
  BackFromFunctionCall(line.result);
}

void CGIA32::tac_FuncPtr(TacLine const& line) {
  int reg = AllocateRegister(kSelectAnyGPR, kNoRegister);
  string library =
      line.opB == nilTacAddr ? string() : line.opB->GetValue()->mString;
  MarkImport(Import::kImportFunctionPtr, line.opA->GetValue()->mString,
             library, 1);
  ia32_mov_imm32(reg, 0);
  StoreTacAddr(reg, line.result);
}
