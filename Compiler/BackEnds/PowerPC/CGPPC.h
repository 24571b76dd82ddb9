// The PowerPC target: the same one-pass, line-at-a-time generator as the
// IA-32 one, with the same write-through register cache, and code in
// big-endian words.
//
// Registers: r0 is the generator's scratch, r1 the stack pointer (there is
// no frame pointer: everything is r1-relative), r2 the base register, kept
// at 20(r1) and reloaded after each call. r3 to r10 carry the first eight
// argument words, r3 (and r4, the low word of a 64-bit value) the result;
// f1 to f13 the float arguments, f1 the float result. The cache uses r3 to
// r12 first and then the callee-saved registers from r31 downward, and the
// floats f1 to f13; r13 is never touched, as the platform keeps its small
// data anchor there.
//
// The frame, from the stack pointer upward: the back chain (from stwu), the
// condition register and the link register of this function's callees at 4
// and 8, r2 at 20, the outgoing arguments from 24 (at least 32 bytes), the
// locals, the saved float and general registers. The body is written first
// into this writer's own buffer; its size of argument area is known only at
// Leave, which patches every instruction that addressed a local and puts
// prologue and epilogue around the body.
#ifndef COMPILER_BACKENDS_POWERPC_CGPPC_H
#define COMPILER_BACKENDS_POWERPC_CGPPC_H

#include "Compiler/BackEnds/PowerPC/PPCOpWriter.h"
#include "Compiler/BackEnds/codegenerator.h"
#include "Universal/stringmap.h"

class LocalSymbolTable;

// How code reaches global data.
enum CGPPCCodeModel {
  kCodeModelTableOfContents = 0,  // r2 is a base the loader gives
  kCodeModelPositionIndependent = 1,  // r2 is computed in each prologue
  kCodeModelAbsolute = 2,  // addresses are patched into the code
};

struct CGPPCOptions {
  CGPPCOptions()
      : mCodeModel(kCodeModelTableOfContents), mUseBaseForFunctions(false),
        mGenerateTraceback(false), mCallPointersThroughGlue(false) {}
  long mCodeModel;            // one of CGPPCCodeModel; others are absolute
  bool mUseBaseForFunctions;  // in model 0: function addresses base-relative
  bool mGenerateTraceback;    // a traceback table after each function
  // Calls through a pointer go by a bl to the glue named
  // kPointerCallGluePrefix and the call's shape, with the pointer in r12,
  // for a loader whose C code has another convention.
  bool mCallPointersThroughGlue;
};

// The link name of the glue for calls through a pointer, less the shape.
extern char const* const kPointerCallGluePrefix;
// Between a function's name and a call's shape in the link name of a call
// whose shape differs from the first call's.
extern char const* const kShapedCallInfix;

// A memory operand: base register and 16-bit displacement. A stack
// operand's displacement is still missing the size of the argument area.
struct PPCOperand {
  int base;
  int disp;
  bool local;
};

class CGPPC : public CodeGenerator, public PPCOpBufWriter {
 public:
  enum {
    kRegisterCount = 32,
    kNoRegister = -1,
    kScratch = 0,
    kStackPointer = 1,
    kBaseRegister = 2,
    kFirstArgumentRegister = 3,
    kArgumentRegisterCount = 8,
    kFirstFloatArgument = 1,
    kFloatArgumentCount = 13,
    kFirstSavedGPR = 13,
    kFirstSavedFPR = 14,
    kGlueTargetRegister = 12,
  };
  // Register schemes: one bit per acceptable register of the bank.
  enum : unsigned long {
    kSelectAnyGPR = 0xffffdff8ul,      // r3 to r12, r14 to r31
    kSelectAnyFPR = 0x00003ffeul,      // f1 to f13
  };
  // Frame layout.
  enum {
    kSavedConditionOffset = 4,
    kSavedLinkOffset = 8,
    kScratchOffset = 12,  // 8 bytes the callees leave alone
    kSavedBaseOffset = 20,
    kLinkageSize = 24,
    kMinimumParameterSpace = 32,
    kFrameAlignment = 16,
  };
  // The reach of the branches, and where a pending conditional one gets a
  // repeater.
  enum {
    kConditionalReach = 32767,
    kUnconditionalReach = 33554431,
    kLongJumpThreshold = 28671,
  };
  enum { kBodyBufferSize = 16 * 1024 * 1024, kPrologBufferSize = 4096 };

  CGPPC();
  ~CGPPC() override;

  void Configure(CGPPCOptions const& options,
                 SimpleVector<string> const& intrinsicLinkNames);

  void BeginFunction(string const& name) override;
  void EndFunction() override;
  long TargetProcessorFamily() override { return kProcessorFamilyPowerPC; }
  unsigned int CodeBufferLength() override { return Length(); }
  void CompileLineBefore(TacLine const& line) override;
  void CompileLineAfter(TacLine const& line) override;

  void tac_Noop(TacLine const& line) override;
  void tac_Debugout(TacLine const& line) override;
  void tac_Store(TacLine const& line) override;
  void tac_Zero(TacLine const& line) override;
  void tac_EndianSwap(TacLine const& line) override;
  void tac_Varptr(TacLine const& line) override;
  void tac_Peek(TacLine const& line) override;
  void tac_Poke(TacLine const& line) override;
  void tac_Add(TacLine const& line) override;
  void tac_Sub(TacLine const& line) override;
  void tac_Mul(TacLine const& line) override;
  void tac_Div(TacLine const& line) override;
  void tac_Mod(TacLine const& line) override;
  void tac_Pow(TacLine const& line) override;
  void tac_Neg(TacLine const& line) override;
  void tac_BitOr(TacLine const& line) override;
  void tac_BitAnd(TacLine const& line) override;
  void tac_BitXor(TacLine const& line) override;
  void tac_BitNot(TacLine const& line) override;
  void tac_BitShiftLeft(TacLine const& line) override;
  void tac_BitShiftRight(TacLine const& line) override;
  void tac_EQ(TacLine const& line) override;
  void tac_NE(TacLine const& line) override;
  void tac_LT(TacLine const& line) override;
  void tac_LE(TacLine const& line) override;
  void tac_Cvt(TacLine const& line) override;
  void tac_Label(TacLine const& line) override;
  void tac_Jump(TacLine const& line) override;
  void tac_IfEQI(TacLine const& line) override;
  void tac_IfNEI(TacLine const& line) override;
  void tac_IfLTI(TacLine const& line) override;
  void tac_IfLTU(TacLine const& line) override;
  void tac_Lock(TacLine const& line) override;
  void tac_Unlock(TacLine const& line) override;
  void tac_SwapLocks(TacLine const& line) override;
  void tac_Enter(TacLine const& line) override;
  void tac_Leave(TacLine const& line) override;
  void tac_PutParam(TacLine const& line) override;
  void tac_GetParam(TacLine const& line) override;
  void tac_Intrinsic(TacLine const& line) override;
  void tac_Call(TacLine const& line) override;
  void tac_CallPtr(TacLine const& line) override;
  void tac_CallPtrVarargs(TacLine const& line) override;
  void tac_CallVirtual(TacLine const& line) override;
  void tac_FuncPtr(TacLine const& line) override;
  void tac_Baseref(TacLine const& line) override;
  void tac_Stop(TacLine const& line) override;
  void tac_HandleException(TacLine const& line) override;
  void tac_BeginTry(TacLine const& line) override;
  void tac_EndTry(TacLine const& line) override;
  void tac_Pragma(TacLine const& line) override;

  // The argument words of every function called by name, as the calls
  // passed them: one letter per argument ("w" a word, "l" a 64-bit
  // integer, "d" a double, "f" a single, "s" and a size a structure), led
  // by "v" for a variable argument list. A loader that calls code of
  // another convention needs them to bridge the call.
  StringMapCase<string> const& CallShapes() const { return mCallShapes; }

  // ---- the register cache (CGPPCRegisterCache.cpp)
  static bool RegMatchesScheme(int reg, unsigned long scheme);
  static unsigned long SchemeExclude(int reg, unsigned long scheme);
  long HitClock() { return ++mClock; }
  RegisterState* Bank(bool isFloat) {
    return isFloat ? mFloatRegisters : mRegisters;
  }
  bool LocateLoadedAddr(TacAddr const* addr, bool isFloat,
                        unsigned long scheme, int* foundWhere);
  void Touch(bool isFloat, int reg);
  void Touch(int reg) { Touch(false, reg); }
  int AllocateRegister(bool isFloat, unsigned long scheme);
  void InvalidateRegisters();
  void ResetRegisters();
  void ForgetAddr(TacAddr const* addr);

  // ---- moving operands (CGPPCLoadStore.cpp)
  int LoadTacAddr(TacAddr const* addr, unsigned long scheme);
  void LoadInt64TacAddr(TacAddr const* addr, int* hi, int* lo,
                        unsigned long scheme);
  int LoadSymbolAddress(TacAddr const* addr, unsigned long scheme);
  void StoreTacAddr(int reg, TacAddr const* dest);
  void StoreInt64TacAddr(int hi, int lo, TacAddr const* dest);
  // The operand's home; a base or a global's address goes into a register
  // of `scheme`.
  PPCOperand AddressOf(TacAddr const* addr, unsigned long scheme);
  // A 32-bit constant into a register: li, or lis and ori.
  void LoadImmediate(int reg, unsigned long value);
  // The address of a global into a register, for the linker to fill in.
  void LoadGlobalAddress(int reg, TacAddr const* addr);

  // ---- calls (CGPPCCalls.cpp)
  void PushCallParameters(TacAddr const* result);
  void BackFromFunctionCall(TacAddr const* result);
  void GetReturnedResult(TacAddr const* result);
  void CallIntrinsic(unsigned int functionID, TacAddr const* result) override;

  // ---- structures (CGPPCMemory.cpp)
  void CopyStructure(int dest, int src, unsigned int bytes);

  // ---- labels and branches (CGPPCLabels.cpp). The program's labels are
  // positive, the generator's own negative.
  int FindLabel(long label, bool conditional);
  void PlaceLabel(long label);
  long NewLocalLabel() { return --mNextLocalLabel; }
  void EmitJump(long label);
  void EmitConditionalBranch(int bo, int bi, long label);
  void CheckForLongJumps();
  void GenerateLongJumpRepeater(unsigned long index);

  CGPPCOptions mOptions;
  LocalSymbolTable* mLocals;
  SimpleVector<LabelPosition> mLabels;
  SimpleVector<LabelPosition> mForwardRefs;  // unconditional branches
  SimpleVector<LabelPosition> mFarBranches;  // conditional branches
  TacAddr const* mObjectBase;
  long mObjectBaseOffset;
  long mClock;
  RegisterState mRegisters[kRegisterCount];
  RegisterState mFloatRegisters[kRegisterCount];
  SimpleVector<TacAddr const*> mParameters;
  unsigned long mOutgoingParameterSpace;
  bool mMadeCall;
  bool mChangedCR;
  SimpleVector<unsigned int> mLocalDataRefs;
  PrologBufWriter mProlog;

 private:
  typedef void (PPCOpWriter::*DForm)(int, int, int);
  typedef void (PPCOpWriter::*XForm)(int, int, int);

  // One load or store of `reg` at a memory operand; a stack operand's
  // instruction is noted for the patch at Leave.
  void EmitMemory(DForm op, int reg, PPCOperand const& where);
  void NoteLocalReference() { mLocalDataRefs.push_back(Length()); }
  unsigned long LocalsSize() const;
  int StackDisplacement(TacAddr const* addr) const;

  // Loading helpers (CGPPCLoadStore.cpp).
  int LoadConstant(TacAddr const* addr, unsigned long scheme);
  void LoadFloatConstant(int reg, TacAddr const* addr);
  void LoadFromMemory(int reg, SimpleDataType type, unsigned long size,
                      PPCOperand const& where);
  void StoreToMemory(int reg, IRDataType const& type,
                     PPCOperand const& where);
  void Renormalise(int reg, SimpleDataType type);

  // Calls.
  string NoteCallShape(string const& name, bool varargs);
  string ShapedCallName(string const& name, string const& shape);
  void LoadArgumentWord(TacAddr const* arg, unsigned long word,
                        unsigned long* reserved);
  void PassArgument(TacAddr const* arg, unsigned long* word,
                    unsigned long* floats, unsigned long* reserved,
                    unsigned long* reservedFloats);
  void EmitCallTo(string const& name, string const& library);
  void CallThroughPointer(TacLine const& line, bool varargs);

  // Frames (CGPPCFrames.cpp).
  int FirstSavedRegister(bool isFloat) const;
  void PatchLocalReferences();
  unsigned int WritePrologue(unsigned long frameSize, int firstGPR,
                             int firstFPR);
  void CopyParametersToLocals(unsigned long frameSize);
  void LoadReturnValue(TacAddr const* value);
  void WriteEpilogue(unsigned long frameSize, int firstGPR, int firstFPR);
  void GenerateTracebackTable(unsigned int prologLength, int savedGPRs,
                              int savedFPRs);

  // Arithmetic (integer, 64-bit, float files).
  void IntegerBinop(TacLine const& line, XForm op, bool swap);
  void Int64Binop(TacLine const& line, XForm lowOp, XForm highOp);
  void IntegerDivide(TacLine const& line, bool remainder);
  void IntegerShift(TacLine const& line, bool left);
  void IntegerCompare(TacLine const& line, int bit, bool negate,
                      bool swap);
  void Int64Compare(TacLine const& line, bool equality, bool orEqual);
  void FloatBinop(TacLine const& line, XForm op);
  void FloatCompare(TacLine const& line, int bit, bool negate, bool swap);
  // r := bit `bit` of condition field 0, or its negation.
  int ConditionBitToRegister(int bit, bool negate, unsigned long scheme);
  void CompareAndBranch(TacLine const& line, int bo, int bi, bool isSigned);
  void LockOperation(TacLine const& line, int stringID, int objectID,
                     int wstringID, int cfstringID, char const* failure);
  PPCOperand PointerOperand(TacLine const& line, TacAddr const* pointer,
                            unsigned long scheme, int* index);
  void ZeroStructure(TacAddr const* dest);
  void EmitExceptionMarker(unsigned int marker);

  long mNextLocalLabel;
  unsigned long mReserved;       // argument registers already loaded
  unsigned long mReservedFloats;
  StringMapCase<string> mCallShapes;
};

#endif
