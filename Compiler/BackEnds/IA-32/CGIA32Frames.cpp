// Functions: opening, parameters, and the prologue and epilogue that Leave
// puts around the finished body once the registers it used are known.
#include "Compiler/BackEnds/IA-32/CGIA32.h"

#include "Compiler/SymbolTable/LocalSymbolTable.h"
#include "Universal/Assertion.h"

namespace {

// The callee-saved registers, in the order the prologue pushes them.
int const kCalleeSaved[] = {kEBX, kESI, kEDI};
int const kCalleeSavedCount = 3;

}  // namespace

void CGIA32::tac_Enter(TacLine const& line) {
  QASSERT_TEXT(line.opA->IsConstant(), "line.opA->IsConstant()");
  QASSERT_TEXT(kStringType == line.opA->mType.GetMainType(),
               "kStringType == line.opA->mType.GetMainType()");
  QASSERT_TEXT(!mFunc || (mFunc->mName == kMainBodyFunctionName &&
                          mFunc->Length() == 0),
               "the pending function is the empty main body or nothing");
  QASSERT_TEXT(!mLocals, "!mLocals");
  BeginFunction(line.opA->GetValue()->mString);
  if (line.opB != nilTacAddr) {
    QASSERT(line.opB->IsConstant() &&
            line.opB->mType.GetMainType() == kSInt32Type);
    mLocals = mSymbols->GetTable(line.opB->GetValue()->uSInt32);
  }
  if (mOptions.mOptimizeCode) StartOptimizedBody(line);
}

// The homes are read at the body's start, after the prologue has copied
// the parameters. A function where a raise may land keeps every
// callee-saved register of its caller: the frames a raise skips restore
// none of theirs.
void CGIA32::StartOptimizedBody(TacLine const& enter) {
  ChooseRegisterHomes(&enter);
  if (mHasLandingPad)
    for (int i = 0; i < kCalleeSavedCount; i++) mRegisters[kCalleeSaved[i]].mUsed = true;
  ReloadHomeRegisters(kReloadAllHomes);
}

void CGIA32::tac_GetParam(TacLine const& line) {
  QASSERT_TEXT(!line.result->IsConstant(), "!line.result->IsConstant()");
  mParameters.push_back(line.result);
}

void CGIA32::tac_Stop(TacLine const& line) { tac_Leave(line); }

// The body so far becomes the middle of a new block: prologue, body,
// return value, epilogue.
void CGIA32::tac_Leave(TacLine const& line) {
  FunctionBlock* body = mFunc;
  mFunc = mCode->MakeFunctionBlock();
  mFunc->mName = body->mName;
  unsigned long frameSize = FrameSize();
  // The prologue goes in front of the body: what the registers hold at the
  // body's end is still true after it, for the return value.
  RegisterState atBodyEnd[kRegisterCount];
  RegisterState xmmAtBodyEnd[kXMMRegisterCount];
  for (int reg = 0; reg < kRegisterCount; reg++) {
    atBodyEnd[reg] = mRegisters[reg];
    xmmAtBodyEnd[reg] = mXMMRegisters[reg];
  }
  InvalidateRegisters();
  EmitPrologue(frameSize);
  unsigned long parameterBytes = 0;
  for (unsigned long i = mParameters.size(); i > 0; i--)
    CopyOneParameter(mParameters[i - 1], &parameterBytes);
  mParameters.deleteAll();
  for (int reg = 0; reg < kRegisterCount; reg++) {
    atBodyEnd[reg].mUsed |= mRegisters[reg].mUsed;
    xmmAtBodyEnd[reg].mUsed |= mXMMRegisters[reg].mUsed;
    mRegisters[reg] = atBodyEnd[reg];
    mXMMRegisters[reg] = xmmAtBodyEnd[reg];
  }
  unsigned int prologueLength = CodeBufferLength();
  AdjustImportListOffsets(prologueLength);
  MoveConstantReferences(prologueLength);
  body->mLineTable.Adjust(prologueLength);
  for (unsigned long i = 0; i < body->mLineTable.mIndex.size(); i++)
    mFunc->mLineTable.AddEntry(body->mLineTable.mIndex[i].offset,
                               body->mLineTable.mIndex[i].line);
  mFunc->Append(body);
  delete body;
  mFunc->mParameterSpace = parameterBytes;
  if (line.opA != nilTacAddr) LoadReturnValue(line.opA);
  EmitEpilogue(frameSize, parameterBytes);
  EmitConstantPool();
  // The finished function keeps exactly its bytes: the growth steps would
  // leave a program of many small functions a third bigger.
  mFunc->ResizeBuffer(mFunc->Length());
  MakeImportListPermanent(mFunc);
  for (int i = 0; i < kCalleeSavedCount; i++)
    QASSERT_TEXT(!mRegisters[kCalleeSaved[i]].mUsed ||
                     mSavedRegisters[kCalleeSaved[i]],
                 "a callee-saved register was used after the prologue");
  EndFunction();
}

// Locals and the stored ESP word; with alignment, padding so that the
// bytes above the stack pointer after the saves are a multiple of 16.
unsigned long CGIA32::FrameSize() {
  unsigned long frameSize = StoredESPOffset();
  if (!mOptions.mAlignStack16) return frameSize;
  unsigned long above = frameSize + 8;
  for (int i = 0; i < kCalleeSavedCount; i++)
    if (mRegisters[kCalleeSaved[i]].mUsed) above += 4;
  if (above % 16) frameSize += 16 - above % 16;
  return frameSize;
}

void CGIA32::EmitPrologue(unsigned long frameSize) {
  ia32_push(kEBP);
  ia32_mov(kModRegister, kEBP, kESP);
  if (frameSize > 0) ia32_sub_imm32(kModRegister, kESP, frameSize);
  for (int i = 0; i < kCalleeSavedCount; i++) {
    int reg = kCalleeSaved[i];
    mSavedRegisters[reg] = mRegisters[reg].mUsed;
    if (mSavedRegisters[reg]) ia32_push(reg);
  }
  ia32_mov_store(kModDisplacement32, kESP, kEBP,
                 -static_cast<int>(StoredESPOffset()));
}

// The last GetParam line names the first argument, at EBP + 8.
void CGIA32::CopyOneParameter(TacAddr const* param, unsigned long* count) {
  ia32_mov(kModRegister, kEAX, kEBP);
  Touch(kEAX);
  int disp = static_cast<int>(8 + *count);
  unsigned long size = param->mType.StorageSize();
  if (param->mType.IsFloat()) {
    if (size == 4)
      ia32_fld32(ModDisp(disp), kEAX, disp);
    else
      ia32_fld64(ModDisp(disp), kEAX, disp);
    PopFloatTacAddr(param);
    *count += size;
  } else if (AddrIsInt64(param) && size == 8) {
    ia32_mov(ModDisp(disp + 4), kEDX, kEAX, disp + 4);
    ia32_mov(ModDisp(disp), kEAX, kEAX, disp);
    Touch(kEDX);
    StoreInt64TacAddr(kEDX, kEAX, param);
    *count += 8;
  } else if (AddrIsStruct(param)) {
    ia32_add_imm32(kModRegister, kEAX, disp);
    int dest = LoadSymbolAddress(param, SchemeExclude(kEAX, kSelectVolatileGPR));
    CopyStructure(dest, kEAX, size, kSelectVolatileGPR);
    ForgetAddr(param);
    *count += AlignBytes(size, 4);
  } else {
    ia32_mov(ModDisp(disp), kEAX, kEAX, disp);
    StoreTacAddr(kEAX, param);
    *count += 4;
  }
}

// Floats in ST0, 64-bit values in EDX:EAX, others in EAX; a structure was
// written through the hidden pointer already.
void CGIA32::LoadReturnValue(TacAddr const* value) {
  if (value->mType.IsFloat()) {
    PushFloatTacAddr(value);
  } else if (AddrIsStruct(value)) {
    return;
  } else if (AddrIsInt64(value)) {
    int hi, lo;
    LoadInt64TacAddr(value, &hi, &lo, kSelectInt64Result);
    if (lo != kEAX) ia32_xchg(kEDX);
  } else {
    QASSERT_TEXT(kEAX == LoadTacAddr(value, kSelectFunctionResult),
                 "kEAX == LoadTacAddr( line.opA, kSelectFunctionResult )");
  }
}

void CGIA32::EmitEpilogue(unsigned long frameSize,
                          unsigned long parameterBytes) {
  for (int i = kCalleeSavedCount; i > 0; i--)
    if (mSavedRegisters[kCalleeSaved[i - 1]]) ia32_pop(kCalleeSaved[i - 1]);
  if (frameSize > 0) ia32_add_imm32(kModRegister, kESP, frameSize);
  ia32_pop(kEBP);
  if (mCallingConvention == 1 && parameterBytes > 0) {
    ia32_pop(kECX);
    ia32_add_imm32(kModRegister, kESP, parameterBytes);
    ia32_push(kECX);
  }
  ia32_ret_near();
}
