// The IA-32 target: a one-pass, line-at-a-time generator with no lookahead
// and no liveness analysis.
//
// Every TAC operand lives in memory. Registers are a write-through cache of
// memory: a store writes memory at once and then remembers that the source
// register holds the operand, so a value can always be found in its home
// and nothing is flushed at a jump. What a register holds is its
// RegisterState; the kinds of entries are:
//   - a variable or temporary (stack, field or global operand): the register
//     holds its current value, renormalised to the type's width on each use;
//   - a constant: the register holds that value;
//   - nothing: the register is free, or holds a scratch value (an address,
//     a partial result) that no operand names.
// Entries are dropped when the register is about to change (Touch), when
// the operand is stored from elsewhere, and wholesale at labels, calls,
// landing pads and base changes. The one eviction policy is in
// AllocateRegister; there is no spill code, as a register holds only copies.
//
// The frame, from high addresses to low: arguments from EBP + 8 (a hidden
// first word for a structure result), return address, saved EBP (the chain
// the exception raiser walks), locals down to EBP - T, the stored ESP word
// at EBP - StoredESPOffset(), padding, then saved EBX, ESI, EDI where used.
// The body is generated first; Leave builds the prologue in front of it
// once the registers used are known.
#ifndef COMPILER_BACKENDS_IA32_CGIA32_H
#define COMPILER_BACKENDS_IA32_CGIA32_H

#include "Compiler/BackEnds/IA-32/IA32OpWriter.h"
#include "Compiler/BackEnds/codegenerator.h"
#include "Universal/IntMap.h"
#include "Universal/PointerIndex.h"

class LocalSymbolTable;

struct CGIA32Options {
  CGIA32Options()
      : mAlignStack16(false), mUseSSE2FloatingPointMath(false),
        mOptimizeCode(false) {}
  bool mAlignStack16;              // 16-byte stack alignment at calls
  bool mUseSSE2FloatingPointMath;  // SSE registers instead of the x87 stack
  // Faster forms that look beyond the line at hand: variables of loops in
  // registers for a whole function, comparisons whose flags feed the
  // branch, floating constants in a pool, Int32 to Double and the stack
  // check in line.
  bool mOptimizeCode;
};

// A memory operand as the writer's shapes want it: a base register and a
// displacement, an optional index (SIB, no displacement), or an absolute
// address whose field the linker fills for a global.
// The register scheme that accepts `reg` alone; schemes are unions of these.
constexpr int RegisterBit(int reg) { return 1 << reg; }

struct IA32Operand {
  int mod;
  int rm;
  int disp;
  int index;                   // kNoRegister when there is none
  TacAddr const* global;       // the global named by an absolute operand
};

// The global word an optimized module counts its loop passes down in; the
// code that runs the module zeroes it to have the host called at the next
// pass.
extern char const kYieldCountdownWord[];

class CGIA32 : public CodeGenerator, public IA32OpWriter {
 public:
  enum {
    kRegisterCount = 8,
    kXMMRegisterCount = 8,
    kNoRegister = -1,
  };
  // Register schemes: one bit per acceptable register. An SSE scheme has
  // bits in the top byte, which no general register uses.
  enum {
    kSelectAnyGPR = RegisterBit(kEAX) | RegisterBit(kECX) | RegisterBit(kEDX) |
                    RegisterBit(kEBX) | RegisterBit(kESI) | RegisterBit(kEDI),
    kSelect8BitGPR = RegisterBit(kEAX) | RegisterBit(kECX) |
                     RegisterBit(kEDX) | RegisterBit(kEBX),
    kSelectFunctionResult = RegisterBit(kEAX),
    kSelectVolatileGPR =
        RegisterBit(kEAX) | RegisterBit(kECX) | RegisterBit(kEDX),
    kSelectInt64Result = RegisterBit(kEAX) | RegisterBit(kEDX),
    kSelectAnyXMM = -1,
  };
  static unsigned int const kXMMSchemeBits = 0xFF000000u;

  CGIA32();
  ~CGIA32() override;

  void Configure(CGIA32Options const& options,
                 SimpleVector<string> const& intrinsicLinkNames);
  void ia32_Write8(int value) override;
  void ia32_Write16(int value) override;
  void ia32_Write32(int value) override;

  void BeginFunction(string const& name) override;
  void EndFunction() override;
  long TargetProcessorFamily() override { return kProcessorFamilyIA32; }
  unsigned int CodeBufferLength() override;
  void CompileLineBefore(TacLine const& line) override;

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

  // ---- register schemes and the cache (CGIA32RegisterCache.cpp)
  static bool RegMatchesScheme(int reg, int scheme);
  static bool IsXMMScheme(int scheme);
  static int SchemeExclude(int reg, int scheme);
  static int SchemeExclude2(int reg1, int reg2, int scheme);
  static int SchemeExclude3(int reg1, int reg2, int reg3, int scheme);
  static int ModDisp(int disp);
  long HitClock() { return ++mClock; }
  bool LocateLoadedAddr(TacAddr const* addr, int scheme, int* foundWhere);
  void Touch(RegisterState* state);
  void Touch(int reg);
  int AllocateRegister(int scheme, int preferred);
  void AllocateInt64Registers(int* hi, int* lo, int scheme);
  void InvalidateRegisters();
  void ResetRegisters();
  // The operand is no longer what any register holds (its memory changed).
  void ForgetAddr(TacAddr const* addr);

  // ---- register homes of an optimized function (CGIA32RegisterHomes.cpp)
  // Picks the variables that live in EBX, ESI and EDI from the lines after
  // `enter` up to the function's end.
  void ChooseRegisterHomes(TacLine const* enter);
  int HomeRegisterOf(TacAddr const* addr) const;
  void StartOptimizedBody(TacLine const& enter);
  void ClearRegisterHomes();
  void KeepHomeRecords();
  // Which homes to read again from memory: the globals after a write
  // through a pointer; those and every SSE home after a call; every SSE
  // home after the rare path of an in-line check; all where a raise lands
  // and where the body starts.
  enum HomesToReload {
    kReloadGlobalHomes, kReloadAfterCall, kReloadSSEHomes, kReloadAllHomes
  };
  void ReloadHomeRegisters(HomesToReload which);
  // An operand's memory home, worked out once per function.
  struct OperandHome {
    TacAddr const* addr;
    StorageClass storage;
    unsigned long start;  // stack homes only
    unsigned long size;
  };
  struct HomeCandidate {
    unsigned long operand;  // its entry among the function's operands
    long weight;     // uses, weighted by loop depth
    bool addressed;  // its address is taken, or it was already offered
    int bank;        // 0 general, 1 SSE
  };
  void PickHomes(SimpleVector<HomeCandidate>& candidates,
                 SimpleVector<OperandHome> const& operands, int bank,
                 int const* registers, int count);
  // A float place the x87 stack wrote: its home register reads it back.
  void RefreshHome(TacAddr const* dest);
  // The operand in a register that the caller will not change: a home
  // register itself, or what LoadTacAddr gives.
  int LoadForReading(TacAddr const* addr, int scheme);
  // After `reg` was stored to `dest`: dest's home register takes the value.
  void FollowHome(int reg, TacAddr const* dest);

  // ---- moving operands (CGIA32LoadStore.cpp)
  int LoadTacAddr(TacAddr const* addr, int scheme);
  void LoadInt64TacAddr(TacAddr const* addr, int* hi, int* lo, int scheme);
  int LoadSymbolAddress(TacAddr const* addr, int scheme);
  void LoadGlobal(TacAddr const* addr, int delta);
  void StoreTacAddr(int reg, TacAddr const* dest);
  void StoreInt64TacAddr(int hi, int lo, TacAddr const* dest);
  void PushFloatTacAddr(TacAddr const* addr);
  void PopFloatTacAddr(TacAddr const* addr);
  void SignExtend(int reg, unsigned int size);
  // The operand's home; a base-relative one loads the base from `scheme`.
  IA32Operand AddressOf(TacAddr const* addr, int scheme);
  unsigned long StoredESPOffset() const;

  // ---- calls (CGIA32Calls.cpp)
  void PushTacAddr(TacAddr const* addr);
  void PushInt64TacAddr(TacAddr const* addr);
  void PushStructTacAddr(TacAddr const* addr);
  void PushCallParameters(TacAddr const* result);
  void ClearCallParameters();
  void BackFromFunctionCall(TacAddr const* result);
  void GetReturnedResult(TacAddr const* result);
  void CallIntrinsic(unsigned int functionID, TacAddr const* result) override;

  // ---- the pool of floating constants (CGIA32Constants.cpp), for an
  // optimized function.
  struct ConstantReference {
    unsigned long mField;  // offset of the 32-bit field in the function
    unsigned long mSlot;
  };
  // The slot of the constant's bits, shared by equal constants.
  unsigned long ConstantSlot(TacAddr const* constant);
  // The last four bytes written are an absolute field for `slot`.
  void ReferToConstant(unsigned long slot);
  // The body moved by `distance` bytes (the prologue went in front).
  void MoveConstantReferences(unsigned long distance);
  // Appends the pool and fills the fields that read it.
  void EmitConstantPool();

  // ---- structures (CGIA32Memory.cpp)
  void CopyStructure(int dest, int src, unsigned int bytes, int scheme);

  // ---- labels (CGIA32Labels.cpp). Label numbers of the program are
  // positive; the generator's own jump targets are negative, so that one
  // mechanism serves both.
  int FindLabel(long label, int delta);
  void PlaceLabel(long label);
  long NewLocalLabel() { return --mNextLocalLabel; }

  CGIA32Options mOptions;
  LocalSymbolTable* mLocals;
  // A jump's displacement field waiting for its label, and the one that
  // waited for the same label before it (a position in mForwardRefs plus
  // one; 0 ends the chain).
  struct ForwardRef {
    unsigned int mField;
    unsigned long mPreviousForLabel;
  };
  // Per function, keyed by label: where each label stands, and the newest
  // jump that waits for it, so that a function of many labels finds each
  // one at once. Made afresh by BeginFunction.
  IntMap<unsigned int>* mLabelOffsets;
  IntMap<unsigned long>* mNewestForwardRef;
  SimpleVector<ForwardRef> mForwardRefs;
  unsigned long mUnresolvedForwardRefs;
  TacAddr const* mObjectBase;
  long mObjectBaseOffset;
  long mClock;
  RegisterState mRegisters[kRegisterCount];
  RegisterState mXMMRegisters[kXMMRegisterCount];
  SimpleVector<TacAddr const*> mParameters;
  long mCallingConvention;

 private:
  typedef void (IA32OpWriter::*RegMemPlain)(int, int, int);
  typedef void (IA32OpWriter::*RegMemDisp)(int, int, int, int);
  typedef void (IA32OpWriter::*RegMemSIB)(int, int, int, int, int, int);
  typedef void (IA32OpWriter::*GroupPlain)(int, int);
  typedef void (IA32OpWriter::*GroupDisp)(int, int, int);
  typedef void (IA32OpWriter::*Branch)(int);

  // One instruction on a memory operand, in the shape the operand needs.
  void EmitRegMem(RegMemPlain plain, RegMemDisp displaced, RegMemSIB sib,
                  int reg, IA32Operand const& where);
  void EmitGroup(GroupPlain plain, GroupDisp displaced,
                 IA32Operand const& where);
  // A branch to one of the generator's own labels; `opcodeBytes` is the
  // length of the branch before its displacement.
  void EmitBranch(Branch branch, int opcodeBytes, long label);
  RegisterState* Bank(int scheme) {
    return IsXMMScheme(scheme) ? mXMMRegisters : mRegisters;
  }

  // Loading helpers (CGIA32LoadStore.cpp).
  int LoadConstant(TacAddr const* addr, int scheme);
  void LoadFromMemory(int reg, TacAddr const* addr, IA32Operand const& where);
  void Renormalise(int reg, SimpleDataType type);
  int RestrictScheme(SimpleDataType type, int scheme, int* preferred);
  void StoreToMemory(int reg, TacAddr const* dest, IA32Operand const& where);

  // Frames (CGIA32Frames.cpp).
  unsigned long FrameSize();
  void EmitPrologue(unsigned long frameSize);
  void CopyOneParameter(TacAddr const* param, unsigned long* count);
  void LoadReturnValue(TacAddr const* value);
  void EmitEpilogue(unsigned long frameSize, unsigned long parameterBytes);

  // Arithmetic helpers (integer, 64-bit, float files).
  void IntegerBinop(TacLine const& line, RegMemPlain op);
  void Int64Binop(TacLine const& line, RegMemPlain lowOp, RegMemPlain highOp);
  void IntegerDivide(TacLine const& line, bool remainder);
  void IntegerShift(TacLine const& line, bool left);
  void IntegerCompare(TacLine const& line, GroupPlain setcc);
  void Int64Compare(TacLine const& line, GroupPlain setHigh,
                    GroupPlain setLow, bool equality);
  void FloatBinop(TacLine const& line, void (IA32OpWriter::*x87)(),
                  RegMemPlain sseDouble, RegMemPlain sseSingle);
  void FloatCompare(TacLine const& line, bool swap, int mask, int value,
                    GroupPlain setcc);
  // The optimizing form: ucomisd between SSE registers. `swap` compares b
  // with a; `setcc` is the answer when ordered, and `parity` (setp or
  // setnp, or null) is joined to it by `join` to decide unordered operands.
  void SSEFloatCompare(TacLine const& line, bool swap, GroupPlain setcc,
                       GroupPlain parity, RegMemPlain join);
  // Ends a comparison: the Boolean in `reg` is made exactly 0 or 1 by an
  // `and` whose flags then tell the value, and stored.
  void FinishComparison(int reg, TacAddr const* dest);
  // A conditional jump on a Boolean that the previous line has just
  // compared: the flags of its final `and` decide, with no reload and no
  // compare. False when the line is not such a jump.
  bool BranchOnComparisonFlags(TacLine const& line);
  // A call of the library's square root of a Double as sqrtsd; false for
  // any other call.
  bool SquareRootInLine(TacLine const& line);
  // Int32 to Double in an SSE register; false when the conversion is not
  // that one.
  bool ConvertInLine(TacLine const& line);
  // The per-iteration yield as a countdown in the module's data (the word
  // named kYieldCountdownWord): the call happens once every kYieldInterval
  // passes, all registers kept, or at the next pass once the word is zeroed.
  void YieldInLine();
  // The entry's stack check as a compare with the limit kept in the
  // module's data; the runtime is called when the limit is not known yet
  // or the stack has reached it.
  void CheckStackInLine();
  void CallByName(string const& name);
  // Calls the runtime between pushad and popad, so that every general
  // register survives; the SSE homes are read again after it.
  void CallOnRarePath(unsigned int functionID);
  // The front end's nil test of a value with its raise, as one compare and
  // a rare path; false when `line` does not start such a test.
  bool NilCheckInLine(TacLine const& line);
  // One element read or write of a one-dimensional array of plain values
  // (CGIA32ArrayElements.cpp): the lines of the call through the array's
  // method table that start at `line`, compiled as a bounds test and a
  // move; false when they are not such an access.
  struct ElementAccess {
    TacAddr const* array;
    TacAddr const* index;
    TacAddr const* value;    // what a write stores, nilTacAddr for a read
    TacAddr const* element;  // where a read goes, nilTacAddr for a write
    int scale;               // log2 of the element's bytes
    bool write;
    bool checked;            // the bounds are tested
    int lines;               // the lines of the access, `line` included
  };
  bool MatchElementAccess(TacLine const& line, ElementAccess* access);
  // The rare path of a failed bounds test: the raise that names `index`
  // and the bound of the array in `array`.
  void RaiseElementOutOfBounds(int index, int array);
  bool ElementAccessInLine(TacLine const& line);
  void ForgetSSERegisters();
  void StoreEAXTo(TacAddr const* global);
  void CompareAndBranch(TacLine const& line, Branch branch);
  void StoreBoolean(int reg, TacAddr const* dest);
  void LockOperation(TacLine const& line, int stringID, int objectID,
                     int wstringID, int cfstringID, char const* failure);
  void ZeroStructure(TacAddr const* dest);
  // Peek and Poke's address of pointer a plus offset b.
  IA32Operand PointerOperand(TacLine const& line, TacAddr const* pointer,
                             int scheme, bool x87);
  void EmitExceptionMarker(unsigned int marker);

  long mNextLocalLabel;
  // The Boolean whose value the flags hold for the current line, and the
  // one the line under way leaves in them (nilTacAddr for none).
  // The variable each register is home to (nilTacAddr for none), the
  // mask of those registers, and whether a raise may land in the function.
  TacAddr const* mHomes[kRegisterCount];
  int mHomeMask;
  TacAddr const* mXMMHomes[kXMMRegisterCount];
  int mXMMHomeMask;
  bool mHasLandingPad;
  // The operands ChooseRegisterHomes has met in the current function.
  PointerIndex mMetOperands;
  SimpleVector<unsigned long long> mConstantPool;
  SimpleVector<ConstantReference> mConstantReferences;
  TacAddr const* mFlagsHold;
  TacAddr const* mFlagsLeft;
  // Callee-saved registers the prologue saved; nothing may add to them
  // while the epilogue is written.
  bool mSavedRegisters[kRegisterCount];
};

#endif
