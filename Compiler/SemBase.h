// Semantic values: what the parser's stack holds and what every Compile...
// action takes and gives. There is no syntax tree: a statement's value is a
// SemCode (three-address code and the address of its result), concatenated
// upward until the whole program is one block.
//
// The values are region-allocated per compilation. Every one of them is
// linked on a global list at birth and deleted by PostCompileCleanup when
// the compilation context dies, so actions may drop values freely and
// nobody deletes one by one.
#ifndef COMPILER_SEMBASE_H
#define COMPILER_SEMBASE_H

#include <stdint.h>

#include "Compiler/InterRep.h"
#include "Compiler/SourceLocation.h"
#include "Compiler/TemporaryList.h"
#include "Compiler/datatypes.h"
#include "Universal/RecycledBlocks.h"
#include "Universal/SimpleVector.h"
#include "Universal/ustring.h"

class Symbol;
class VariableSymbol;

// The run-time tags in SemBase::mClass, four characters read as a word.
constexpr uint32_t SemTag(char a, char b, char c, char d) {
  return (uint32_t(uint8_t(a)) << 24) | (uint32_t(uint8_t(b)) << 16) |
         (uint32_t(uint8_t(c)) << 8) | uint32_t(uint8_t(d));
}
constexpr uint32_t kSemBaseTag = SemTag('B', 'a', 's', 'e');
constexpr uint32_t kSemCodeTag = SemTag('C', 'o', 'd', 'e');
constexpr uint32_t kSemValueTag = SemTag('V', 'a', 'l', 'u');
constexpr uint32_t kSemListTag = SemTag('L', 'i', 's', 't');
constexpr uint32_t kSemNamespaceTag = SemTag('N', 'a', 'm', 'e');
constexpr uint32_t kSemIdentifierTag = SemTag('I', 'd', 'e', 'n');
constexpr uint32_t kSemDeadTag = SemTag('D', 'E', 'A', 'D');

// The root: a value with no content (a keyword token's value). Operations a
// kind does not support are compiler faults and end in SemBase::Error.
// Values are made and freed by the million: their blocks are recycled.
class SemBase : public RecycledObject {
 public:
  static SemBase* New();
  virtual ~SemBase();

  virtual string toString() const;
  virtual bool IsList() const { return false; }
  virtual bool IsValue() const { return false; }
  virtual bool IsIdentifier() const { return false; }
  virtual bool IsConstant() const { return false; }
  virtual bool IsNamespace() const { return false; }
  virtual void Append(SemBase* other);
  // The first element of a list.
  virtual SemBase* GetContents() const { return nullptr; }
  virtual SemBase* GetNext() const { return mNext; }
  virtual SemBase* Clone() const;
  // The code of this value, or null for values that carry none.
  virtual TacBlock* Code() { return nullptr; }
  virtual void AddLine(TacOpcode opcode, TacAddr const* opA,
                       TacAddr const* opB, TacAddr const* result);
  virtual SemBase* NewTemp(IRDataType const& type, SourceLocation const* where);
  virtual TemporaryList& Temporaries();
  virtual void SetType(IRDataType const& type);
  virtual IRDataType GetType() const { return IRDataType(); }
  virtual IRValue const& GetValue() const { return kIRZeroValue; }
  virtual TacAddr const* GetAddr() const { return nullptr; }

  SourceLocation const& Location() const { return mLocation; }
  void SetLocation(SourceLocation const& where) { mLocation = where; }
  // Widens the location to span `where` as well.
  void IncludeLocation(SourceLocation const& where);
  uint32_t Tag() const { return mClass; }

  // Deletes every value still alive; the compilation context calls it last.
  static void PostCompileCleanup();
  // How many values are alive, for checks that a sweep left nothing and as
  // a mark for ReleaseNewerThan.
  static unsigned long LiveCount();
  // Deletes the newest values until `mark` remain: a pass whose values all
  // die with it (the declaration scan) gives its memory back at its end.
  // Nothing made after LiveCount() gave the mark may be referred to.
  static void ReleaseNewerThan(unsigned long mark);
  // The same, sparing `keepA` and `keepB` (either may be null), which then
  // count as made before the next mark.
  static void ReleaseNewerThanExcept(unsigned long mark, SemBase* keepA,
                                     SemBase* keepB);
  // A compiler fault: "failed assertion: " and the text, then exit.
  [[noreturn]] static void Error(char const* text);

  // Next element when this value is an element of a list.
  SemBase* mNext;

 protected:
  explicit SemBase(uint32_t tag);

  uint32_t mClass;
  SourceLocation mLocation;

 private:
  SemBase(SemBase const&) = delete;
  SemBase& operator=(SemBase const&) = delete;

  SemBase* mNextInCompleteList;
  // Head of the list of all live values, newest first, and its length.
  static SemBase* mCompleteListHead;
  static unsigned long mLiveCount;
};

// A name as written, with the type the grammar gives it.
class SemIdentifier : public SemBase {
 public:
  static SemIdentifier* New(string const& name);
  static SemIdentifier* New(string const& name, SourceLocation const& where);

  string toString() const override { return mName; }
  bool IsIdentifier() const override { return true; }
  void SetType(IRDataType const& type) override { mType = type; }
  IRDataType GetType() const override { return mType; }
  // Name and location; the type is not copied.
  SemBase* Clone() const override;

 private:
  explicit SemIdentifier(string const& name);

  IRDataType mType;
  string mName;
};

// A declaration named in an expression: a module, a class, a type.
class SemNamespace : public SemBase {
 public:
  static SemNamespace* New(Symbol* symbol, SourceLocation const& where);

  bool IsNamespace() const override { return true; }
  // The declared type when the symbol is a type; else the null type.
  IRDataType GetType() const override;
  SemBase* Clone() const override;
  Symbol* GetSymbol() const { return mSymbol; }

 private:
  explicit SemNamespace(Symbol* symbol);

  Symbol* mSymbol;
};

// An operand: a literal or a variable's address. It does not own the
// address.
class SemValue : public SemBase {
 public:
  static SemValue* New(TacAddr const* addr, SourceLocation const* where);

  string toString() const override;
  bool IsValue() const override { return true; }
  bool IsConstant() const override { return mAddr->IsConstant(); }
  void SetType(IRDataType const& type) override;
  IRDataType GetType() const override { return mAddr->mType; }
  IRValue const& GetValue() const override { return *mAddr->GetValue(); }
  TacAddr const* GetAddr() const override { return mAddr; }
  // Shares the address.
  SemBase* Clone() const override;

 private:
  explicit SemValue(TacAddr const* addr);

  TacAddr const* mAddr;
};

// A list of values chained through their mNext; it does not own them.
class SemList : public SemBase {
 public:
  static SemList* New(SemBase* head);

  string toString() const override;
  bool IsList() const override { return true; }
  SemBase* GetContents() const override { return mHead; }
  // Appends `other` and the whole chain behind it.
  void Append(SemBase* other) override;
  // Gives the type to every element.
  void SetType(IRDataType const& type) override;
  // Clones every element.
  SemBase* Clone() const override;

 private:
  explicit SemList(SemBase* head);

  SemBase* mHead;
  SemBase* mTail;
};

// Code and the value it computes. The result is null for a statement. The
// temporaries made for the code travel with it, so that the function's
// epilog can release them.
class SemCode : public SemBase {
 public:
  // With a type that is not null, a new temporary of that type becomes the
  // result.
  static SemCode* New(IRDataType const& type, SourceLocation const* where);
  // Empty code whose result is `value`: gives any value a code part.
  static SemCode* NewValueWrapper(SemBase* value, SourceLocation const* where);

  TacBlock* Code() override { return &mCode; }
  void AddLine(TacOpcode opcode, TacAddr const* opA, TacAddr const* opB,
               TacAddr const* result) override;
  SemBase* NewTemp(IRDataType const& type, SourceLocation const* where) override;
  TemporaryList& Temporaries() override { return mTemporaries; }
  IRDataType GetType() const override;
  TacAddr const* GetAddr() const override;
  // Moves the lines and the temporaries of `other` here; the result stays
  // as it is.
  void Append(SemBase* other) override;
  SemBase* Clone() const override;
  SemBase* Result() const { return mResult; }

 private:
  SemCode();

  TacBlock mCode;
  SemBase* mResult;
  TemporaryList mTemporaries;
};

// Grammar helpers. Each treats a null argument as "nothing": the other one
// is the result.
SemBase* ConcatCode(SemBase* a, SemBase* b);
// Joins into one flat list: a list b gives its elements, a non-list a is
// wrapped in a new list.
SemBase* ConcatList(SemBase* a, SemBase* b);
// As ConcatList, except that an `a` carrying code takes `b` directly.
SemBase* ConcatSemBase(SemBase* a, SemBase* b);

#endif
