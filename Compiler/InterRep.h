// Three-address code: the compiler's intermediate representation.
//
// The parser's actions append lines to blocks, blocks are concatenated, and
// one long TacBlock for the whole program reaches the code generator. There
// are no basic blocks and no control-flow graph: a block is linear code with
// labels, and a function is the stretch from an Enter line to its Leave.
//
// Lines never own their operands. Constants live in the compilation's
// literal pool, variables' addresses in their symbols, and an unused operand
// is the shared nilTacAddr, never a null pointer.
#ifndef COMPILER_INTERREP_H
#define COMPILER_INTERREP_H

#include "Compiler/TacOpcodeList.h"
#include "Compiler/datatypes.h"
#include "Universal/RecycledBlocks.h"
#include "Universal/ustring.h"

#define QUORL_TAC_ENUMERATOR(name) kTac##name,
enum TacOpcode { QUORL_TAC_OPCODES(QUORL_TAC_ENUMERATOR) };
#undef QUORL_TAC_ENUMERATOR

enum { kQtyTacOpcodes = kTacPragma + 1 };

// The operation's name without its kTac prefix ("Store"); asserts the range.
char const* TacOpcodeName(TacOpcode opcode);

// Where a SymbolAddr's storage lies, and what its StorageOffset() means.
enum StorageClass {
  // Static data, named by LinkID() and placed by the linker; no offset.
  kGlobalDataStorage = 0,
  // In the stack frame: the distance below the frame base of the far end.
  kStackDataStorage = 1,
  // An instance field: offset from the base set by the last Baseref line.
  kBaseRelativeDataStorage = 2,
};

// A constant's value. It does not know its own type: whoever holds it does,
// and tells ToString.
struct IRValue {
  union {
    long uSInt32;
    long long uSInt64;
    float uReal32;
    double uReal64;
  };
  string mString;

  IRValue() { Initialize(); }
  static IRValue SInt32(long value);
  static IRValue SInt64(long long value);
  static IRValue Real32(float value);
  static IRValue Real64(double value);
  static IRValue String(string const& value);

  // The number all zero bits, the string empty.
  void Initialize();
  // The source-like spelling of this value as a constant of `type`.
  string ToString(IRDataType const& type) const;
};

extern IRValue const kIRZeroValue;

// Source text of a string constant: "plain" with doubled quotes, or, when
// the text holds a control byte, the escaped form \"...\" with \xNN bytes.
string FormatStringLiteral(string const& text);
// Shortest text of a floating value; always with a ".", adding ".0".
string FormatFloatLiteral(double value);

// An operand of a TAC line. Asking a constant for storage, or a variable
// for a value, is a compiler defect: the base versions assert.
class TacAddr {
 public:
  explicit TacAddr(IRDataType const& type) : mType(type) {}
  virtual bool IsConstant() const = 0;
  virtual IRValue const* GetValue() const;
  virtual unsigned long StorageOffset() const;
  virtual StorageClass GetStorageClass() const;
  virtual string const& LinkID() const;
  virtual ~TacAddr() {}

  IRDataType mType;
};

// A constant operand: a literal, a label number, a link name, a table index.
// Valid: mType and mValue (the union member that mType selects, or mString
// for a String); no storage, so StorageOffset, GetStorageClass and LinkID
// assert.
class ConstAddr : public TacAddr {
 public:
  // An Int32 constant.
  explicit ConstAddr(long value);
  // A String constant: the text rides in mValue.mString.
  explicit ConstAddr(string const& text);
  ConstAddr(IRValue const& value, IRDataType const& type);

  bool IsConstant() const override { return true; }
  IRValue const* GetValue() const override { return &mValue; }

  IRValue mValue;
};

// A place in storage: a variable, a global, an instance field. Valid:
// mType and mStorageClass always; mLinkID names a global (and qualifies a
// local for listings and debug data); mStorageOffset is meaningful for stack
// and field storage only. No value, so GetValue asserts.
class SymbolAddr : public TacAddr {
 public:
  SymbolAddr(StorageClass storageClass, IRDataType const& type,
             string const& linkID, unsigned int storageOffset);

  bool IsConstant() const override { return false; }
  unsigned long StorageOffset() const override { return mStorageOffset; }
  StorageClass GetStorageClass() const override { return mStorageClass; }
  string const& LinkID() const override {
    if (!mLinkQualifier.IsEmpty()) QualifyLinkID();
    return mLinkID;
  }
  // The link ID `qualifier`.`name`, put together when first asked for: a
  // local's qualified name serves listings and debug data only, and most
  // compilations never ask.
  void SetQualifiedLinkID(string const& qualifier, string const& name);

  StorageClass mStorageClass;
  unsigned int mStorageOffset;

 private:
  void QualifyLinkID() const;

  // The link name of a global; the qualified name of a local. While
  // mLinkQualifier holds text, it is the name still to be qualified.
  mutable string mLinkID;
  mutable string mLinkQualifier;
};

// Shared operands, made once at program start (and again on demand by a
// compilation context, should a static initialiser need them earlier) and
// never freed. Every other constant comes from a literal pool.
extern TacAddr const* nilTacAddr;     // the absent operand; not a constant
extern TacAddr const* gTacZero;       // Int32 0
extern TacAddr const* gTacOne;        // Int32 1
extern TacAddr const* gTacFalse;      // Boolean False
extern TacAddr const* gTacTrue;       // Boolean True
extern TacAddr const* gTacFloatZero;  // Double 0.0
// Makes the shared operands unless they exist.
void MakeSharedOperands();

// One line: `opcode opA, opB, result`. A plain record, copied by value.
// `result` is the jump target of the branching operations.
struct TacLine {
  TacOpcode opcode;
  TacAddr const* opA;
  TacAddr const* opB;
  TacAddr const* result;
  unsigned long mLine;  // source line, from 0; becomes the line table
  TacLine* mNext;

  // Lines are made and freed by the million: their blocks are recycled.
  static void* operator new(size_t size) { return TakeRecycledBlock(size); }
  static void operator delete(void* block, size_t size) {
    GiveBackRecycledBlock(block, size);
  }
};

// Linear code. The block owns its lines; whole blocks move into others in
// constant time.
class TacBlock {
 public:
  TacBlock() : mFirst(nullptr), mLast(nullptr) {}
  virtual ~TacBlock();

  // Appends a heap copy of the line.
  void AddLine(TacLine const& line);
  void AddLine(TacOpcode opcode, TacAddr const* opA, TacAddr const* opB,
               TacAddr const* result, unsigned long sourceLine);
  // Moves all lines of `other` to the end of this block; `other` ends up
  // empty.
  void Append(TacBlock& other);
  bool IsEmpty() const { return mFirst == nullptr; }
  // Frees every line.
  void Clear();

  TacLine* mFirst;
  TacLine* mLast;

 private:
  TacBlock(TacBlock const&) = delete;
  TacBlock& operator=(TacBlock const&) = delete;
};

// Walks a block: `while (it.Next()) use(it.Value());`
class TacBlockIterator {
 public:
  explicit TacBlockIterator(TacBlock const* block);
  // Moves to the first line on the first call, to the following line after
  // that; answers whether there is a current line.
  bool Next();
  TacLine const& Value() const;

 private:
  TacBlock const* mBlock;
  TacLine const* mCurrent;
  bool mStarted;
};

#endif
