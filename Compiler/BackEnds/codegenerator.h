// The back-end contract. A target walks the program's single TacBlock once,
// line by line, and writes one FunctionBlock per function into a CodeModule.
// This class owns what every target shares (the module under construction,
// the import staging list, the current function, errors, progress, the
// classification of types and binary operations); a target supplies one
// tac_* operation per opcode.
//
// What each operation must do, whatever the target. "a", "b" and "r" are the
// line's opA, opB and result; every operand lives in memory and a target may
// cache values in registers only as copies (its stores write through).
//   tac_Noop            emit one no-op instruction.
//   tac_Debugout        never reaches a back end: refuse it by assertion.
//   tac_Store           r := a, a plain copy of any shape (float, 64-bit,
//                       structure, word); no reference counting.
//   tac_Zero            r := all zero bits, whatever its size.
//   tac_EndianSwap      r := a with its bytes reversed (1, 2, 4 or 8 bytes).
//   tac_Varptr          r := the address of the place a.
//   tac_Peek            r := the value of r's type at pointer a plus offset b
//                       (b nil, an Int32 constant or an Int32 variable).
//   tac_Poke            the value a is written at pointer r plus offset b.
//   tac_Add, tac_Sub    r := a + b, a - b, in the category of CategorizeBinop.
//   tac_Mul             r := a * b; 64-bit and Currency through the runtime.
//   tac_Div             r := a / b; integer division by zero gives 0, quietly.
//   tac_Mod             r := a mod b (integers); a zero divisor gives a.
//   tac_Pow             r := a ^ b, floats only, through RuntimePow.
//   tac_Neg             r := -a.
//   tac_BitOr, tac_BitAnd, tac_BitXor   r := bitwise a op b (integers).
//   tac_BitNot          r := bitwise complement of a.
//   tac_BitShiftLeft    a shifted left by b; 64-bit through the runtime.
//   tac_BitShiftRight   r := a shifted right by b, arithmetically, also for
//                       unsigned values; 64-bit through the runtime.
//   tac_EQ, tac_NE, tac_LT, tac_LE   Boolean r := 1 or 0; a NaN compares
//                       false with EQ and LT, true with NE and LE.
//   tac_Cvt             r := a converted between numeric types, truncating
//                       toward zero; the conversions the processor lacks go
//                       to the RuntimeCvt... functions.
//   tac_Label           defines label a here; register knowledge ends.
//   tac_Jump            jumps to label r.
//   tac_IfEQI, tac_IfNEI, tac_IfLTI, tac_IfLTU   jump to label r when a = b,
//                       a <> b, a < b signed, a < b unsigned (32-bit only).
//   tac_Lock            one more reference on the counted value a.
//   tac_Unlock          one reference less on a, then a := nil.
//   tac_SwapLocks       lock a, unlock b, then b := nil.
//   tac_Enter           opens function a (its name) with local table b.
//   tac_Leave           returns a (or nothing) and closes the function.
//   tac_GetParam        r is the next incoming parameter of the function.
//   tac_Baseref         instance fields are relative to pointer a plus
//                       offset b from here to the function's end.
//   tac_PutParam        queues a as the next outgoing argument.
//   tac_Intrinsic       calls runtime function number a with the queued
//                       arguments; r := its result.
//   tac_Call            calls the function linked as a (in library b);
//                       r := its result.
//   tac_CallPtr, tac_CallPtrVarargs   calls the function at pointer a.
//   tac_CallVirtual     calls entry a of the vtable of the first queued
//                       argument, an object.
//   tac_FuncPtr         r := the address of the function linked as a.
//   tac_Stop            as tac_Leave: closes the main body.
//   tac_HandleException leaves a handler record for the runtime's scanner:
//                       normal flow jumps to label r (or over the record); a
//                       raise lands after it with the exception stored in a.
//   tac_BeginTry        marks where a protected region starts.
//   tac_EndTry          marks where it ends; its handlers follow.
//   tac_Pragma          pragma a with value b; 0 sets the calling
//                       convention (0 caller pops, 1 callee pops).
#ifndef COMPILER_BACKENDS_CODEGENERATOR_H
#define COMPILER_BACKENDS_CODEGENERATOR_H

#include "Compiler/BackEnds/codestorage.h"
#include "Compiler/CompileError.h"
#include "Compiler/InterRep.h"
#include "Compiler/SmartRef.h"
#include "Compiler/SourceLocation.h"
#include "Universal/SimpleVector.h"
#include "Universal/ustring.h"

class CompilerDelegate;
class LocalSymbolTableList;

// The link name of the program's main body.
extern char const* const kMainBodyFunctionName;

// Arithmetic categories of operand types.
enum ArithmeticCategory {
  kCategorySInt32 = 0,
  kCategoryUInt32 = 1,
  kCategorySInt64 = 2,
  kCategoryUInt64 = 3,
  kCategoryCurrency = 4,
  kCategoryFloat = 5,
};

// What one machine register is known to hold: the operands whose current
// value it has (a temporary and the variable it was stored to may share one
// register), and whether the function has written it at all.
class RegisterState {
 public:
  enum { kMaxCachedTacAddrs = 64 };

  RegisterState() : mUsed(false), mLastUse(0), mRecordedTacAddrs(0) {}
  // Copies carry the recorded operands only, not the whole array: the
  // generator saves and restores the states of every register per function.
  RegisterState(RegisterState const& other) { *this = other; }
  RegisterState& operator=(RegisterState const& other) {
    mUsed = other.mUsed;
    mLastUse = other.mLastUse;
    mRecordedTacAddrs = other.mRecordedTacAddrs;
    for (int i = 0; i < mRecordedTacAddrs; i++) mRecorded[i] = other.mRecorded[i];
    return *this;
  }

  // Adds the operand. Once full, the last entry is overwritten.
  void Record(TacAddr const* addr);
  bool Contains(TacAddr const* addr) const;
  // Removes one operand; entry order means nothing.
  void Clear(TacAddr const* addr);
  // Forgets every operand; mUsed stays.
  void Clear() { mRecordedTacAddrs = 0; }
  bool Valid() const { return mRecordedTacAddrs > 0; }
  int Count() const { return mRecordedTacAddrs; }

  bool mUsed;      // written in this function: a callee-saved one is saved
  long mLastUse;   // the generator's clock at the last hit
  TacAddr const* mRecorded[kMaxCachedTacAddrs];
  int mRecordedTacAddrs;
};

// A defined label, or a displacement field waiting for one.
struct LabelPosition {
  long mLabel;
  unsigned int mOffset;
};

class CodeGenerator {
 public:
  // The staging list grows with the function; only a list whose bytes could
  // not be addressed in a 32-bit process is refused.
  enum {
    kInitialPendingImports = 256,
    kMaxPendingImports = 0x08000000,
  };

  CodeGenerator();
  virtual ~CodeGenerator();

  // Compiles the whole block; a null module after an error or a cancel.
  Ref<CodeModule> Generate(string const& sourceName, TacBlock* source,
                           Ref<LocalSymbolTableList> symbols);

  // The same in steps, for a driver that hands over each function as soon
  // as the parser finishes it: Begin, then Feed per batch of whole
  // functions, then Finish. A batch's lines may be freed once it is fed.
  void Begin(string const& sourceName, Ref<LocalSymbolTableList> symbols);
  // False once anything failed; the batches after that are ignored.
  bool Feed(TacBlock* lines);
  // Like Feed, but the batch's functions go in front of all functions fed
  // so far, and so do the globals it names first: the main body, which can
  // be assembled only once the whole program has been read, keeps the place
  // it has in a module generated in one go.
  bool FeedLeading(TacBlock* lines);
  // The module; null after an error or a cancel.
  Ref<CodeModule> Finish();
  void SetDelegate(CompilerDelegate* delegate) { mDelegate = delegate; }

  virtual void BeginFunction(string const& name) = 0;
  virtual void EndFunction() = 0;
  virtual long TargetProcessorFamily() = 0;
  virtual unsigned int CodeBufferLength() = 0;
  // Around each line; the base does nothing.
  virtual void CompileLineBefore(TacLine const& line) {}
  virtual void CompileLineAfter(TacLine const& line) {}

  virtual void tac_Noop(TacLine const& line) = 0;
  virtual void tac_Debugout(TacLine const& line) = 0;
  virtual void tac_Store(TacLine const& line) = 0;
  virtual void tac_Zero(TacLine const& line) = 0;
  virtual void tac_EndianSwap(TacLine const& line) = 0;
  virtual void tac_Varptr(TacLine const& line) = 0;
  virtual void tac_Peek(TacLine const& line) = 0;
  virtual void tac_Poke(TacLine const& line) = 0;
  virtual void tac_Add(TacLine const& line) = 0;
  virtual void tac_Sub(TacLine const& line) = 0;
  virtual void tac_Mul(TacLine const& line) = 0;
  virtual void tac_Div(TacLine const& line) = 0;
  virtual void tac_Mod(TacLine const& line) = 0;
  virtual void tac_Pow(TacLine const& line) = 0;
  virtual void tac_Neg(TacLine const& line) = 0;
  virtual void tac_BitOr(TacLine const& line) = 0;
  virtual void tac_BitAnd(TacLine const& line) = 0;
  virtual void tac_BitXor(TacLine const& line) = 0;
  virtual void tac_BitNot(TacLine const& line) = 0;
  virtual void tac_BitShiftLeft(TacLine const& line) = 0;
  virtual void tac_BitShiftRight(TacLine const& line) = 0;
  virtual void tac_EQ(TacLine const& line) = 0;
  virtual void tac_NE(TacLine const& line) = 0;
  virtual void tac_LT(TacLine const& line) = 0;
  virtual void tac_LE(TacLine const& line) = 0;
  virtual void tac_Cvt(TacLine const& line) = 0;
  virtual void tac_Label(TacLine const& line) = 0;
  virtual void tac_Jump(TacLine const& line) = 0;
  virtual void tac_IfEQI(TacLine const& line) = 0;
  virtual void tac_IfNEI(TacLine const& line) = 0;
  virtual void tac_IfLTI(TacLine const& line) = 0;
  virtual void tac_IfLTU(TacLine const& line) = 0;
  virtual void tac_Lock(TacLine const& line) = 0;
  virtual void tac_Unlock(TacLine const& line) = 0;
  virtual void tac_SwapLocks(TacLine const& line) = 0;
  virtual void tac_Enter(TacLine const& line) = 0;
  virtual void tac_Leave(TacLine const& line) = 0;
  virtual void tac_PutParam(TacLine const& line) = 0;
  virtual void tac_GetParam(TacLine const& line) = 0;
  virtual void tac_Intrinsic(TacLine const& line) = 0;
  virtual void tac_Call(TacLine const& line) = 0;
  virtual void tac_CallPtr(TacLine const& line) = 0;
  virtual void tac_CallPtrVarargs(TacLine const& line) = 0;
  virtual void tac_CallVirtual(TacLine const& line) = 0;
  virtual void tac_FuncPtr(TacLine const& line) = 0;
  virtual void tac_Baseref(TacLine const& line) = 0;
  virtual void tac_Stop(TacLine const& line) = 0;
  virtual void tac_HandleException(TacLine const& line) = 0;
  virtual void tac_BeginTry(TacLine const& line) = 0;
  virtual void tac_EndTry(TacLine const& line) = 0;
  virtual void tac_Pragma(TacLine const& line) = 0;

  // ---- shared services of the targets
  void NewFunction(string const& name);
  void FinishFunction();
  // Stages an import delta bytes after the current end of code. Past
  // kMaxPendingImports - 1 imports in one function: compile error 136.
  // The staging list grows as needed.
  void MarkImport(Import::Type type, string const& name,
                  string const& library, int delta);
  void MarkImport(Import::Type type, string const& name, int delta);
  void AdjustImportListOffsets(int delta);
  void GrowPendingImports();
  void MakeImportListPermanent(FunctionBlock* targetFunc);
  void Error(CompileErrorCode code);
  void Error(CompileErrorCode code, SimpleVector<string> const& arguments);

  static bool ExprIsFloat(TacLine const& line);
  // The 64-bit integers and Currency (the only integers of 8 bytes).
  static bool AddrIsInt64(TacAddr const* addr) {
    SimpleDataType type = addr->mType.GetMainType();
    return type == kSInt64Type || type == kUInt64Type || type == kCurrencyType;
  }
  static bool ExprIsInt64(TacLine const& line);
  static bool AddrIsStruct(TacAddr const* addr) {
    return addr->mType.GetMainType() == kStructureType;
  }
  static bool ExprIsStruct(TacLine const& line);
  static ArithmeticCategory CategorizeType(IRDataType const& type);
  // Mixed signedness of one width resolves to signed; anything else must
  // match exactly.
  static ArithmeticCategory CategorizeBinop(TacLine const& line);
  static unsigned long AlignBytes(unsigned long value,
                                  unsigned long alignment);
  // The runtime entry that changes the reference count of a value of
  // `type`, out of the one for each family of counted values; `failure` is
  // the assertion's text for a type that is not counted.
  static int CountingIntrinsic(IRDataType const& type, int stringID,
                               int objectID, int wstringID, int cfstringID,
                               char const* failure);

  unsigned int PendingImportCount() const { return mPendingImportCount; }
  Import const& PendingImport(unsigned int i) const;

 protected:
  void CompileOneLine(TacLine const& line);
  // Calls intrinsic `functionID` with the arguments gathered in mArguments
  // and stores what it returns in `result` (nil for none).
  virtual void CallIntrinsic(unsigned int functionID,
                             TacAddr const* result) = 0;
  // Queues the operands (nil ones are left out) and calls the intrinsic;
  // for the runtime forms of arithmetic, conversions and reference counts.
  void CallRuntime(unsigned int functionID, TacAddr const* a,
                   TacAddr const* b, TacAddr const* result);

  TacBlockIterator* mIterator;
  Ref<LocalSymbolTableList> mSymbols;
  Ref<CodeModule> mCode;
  FunctionBlock* mFunc;
  SourceLocation mLocation;
  SimpleVector<string> mIntrinsicLinkNames;
  // The arguments of the call being gathered, from its PutParam lines.
  SimpleVector<TacAddr const*> mArguments;
  Import* mPendingImports;
  unsigned int mPendingImportCount;
  unsigned int mPendingImportCapacity;
  CompilerDelegate* mDelegate;
  bool mFailed;
  unsigned int mLinesDone;  // for progress, over all batches

 private:
  CodeGenerator(CodeGenerator const&) = delete;
  CodeGenerator& operator=(CodeGenerator const&) = delete;
};

#endif
