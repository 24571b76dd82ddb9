// The stack of syntactic blocks open at the parser's current point: the
// declarations being compiled (module, class, method...) and the flow
// blocks inside a body. It answers where an Exit or a Continue jumps, and
// which method, class or module the code stands in.
#ifndef COMPILER_FRONTEND_BLOCKCONTEXT_H
#define COMPILER_FRONTEND_BLOCKCONTEXT_H

#include "Compiler/InterRep.h"
#include "Universal/SimpleVector.h"
#include "Universal/ustring.h"

class ClassSymbol;
class EnumSymbol;
class GlobalSymbolTable;
class MethodSymbol;
class ModuleSymbol;
class PropertySymbol;
class SemBase;
class StructureSymbol;
class Symbol;

class BlockContext {
 public:
  // What a block is. Declaration blocks (1 to 5, 8, 9) carry their symbol;
  // flow blocks carry labels: an exit address for 1 (the global module
  // only) and 6 to 12, a continue address for the loops 10 to 12.
  enum Type {
    kAnyBlock = 0,  // a search key only: any loop or method
    kModule = 1,
    kClass = 2,
    kStructure = 3,
    kEnum = 4,
    kProperty = 5,
    kIf = 6,
    kSelectCase = 7,
    kSub = 8,
    kFunction = 9,
    kFor = 10,
    kDo = 11,
    kWhile = 12,
  };

  BlockContext();
  // `selectExpr` belongs to Select Case alone; `identifier` names a For
  // loop's variable for `Exit For i`.
  BlockContext(Type type, Symbol* symbol, TacAddr const* exitAddr,
               TacAddr const* continueAddr, string const& identifier,
               SemBase* selectExpr);
  virtual ~BlockContext() {}

  Type GetType() const { return mType; }
  Symbol* GetSymbol() const { return mSymbol; }
  string const& Identifier() const { return mIdentifier; }
  bool HasExitAddr() const { return mExitAddr != nilTacAddr; }
  bool HasContinueAddr() const { return mContinueAddr != nilTacAddr; }
  TacAddr const* GetExitAddr() const;
  void SetExitAddr(TacAddr const* exit) { mExitAddr = exit; }
  TacAddr const* GetContinueAddr() const;
  bool IsLoop() const;
  bool IsMethod() const;
  // The line (from 0) of the statement that opened the block.
  unsigned int OpeningLine() const { return mOpeningLine; }
  void SetOpeningLine(unsigned int line) { mOpeningLine = line; }
  SemBase* SelectExpr() const;
  void ClearSelectExpr();

 private:
  Type mType;
  TacAddr const* mExitAddr;
  TacAddr const* mContinueAddr;
  string mIdentifier;
  Symbol* mSymbol;
  SemBase* mSelectExpr;
  unsigned int mOpeningLine = 0;
};

class BlockContextList {
 public:
  // Pushes the block of a declaration; its kind decides the block type.
  void Enter(Symbol* owner);
  // Pushes a flow block. `var`: the selector of a Select Case (required),
  // the variable of a For (optional), nothing for the others.
  void Enter(BlockContext::Type type, SemBase* var);
  // Pops the block of a declaration. Blocks that errors left open above it
  // are dropped with it, after compile error 1.
  void Leave(Symbol* block);
  // Pops a flow block; compile error 1 when the top is of another type.
  void Leave(BlockContext::Type type);

  bool Contains(Symbol* symbol) const;
  // The innermost block whose symbol is of `kind`, or null.
  Symbol* FindBlockSymbol(int kind) const;
  // Where `Exit` and `Continue` jump: null after compile error 104 (or 103
  // for a Continue of a block type that does not loop).
  TacAddr const* FindExitAddr(BlockContext::Type type, SemBase* ident);
  TacAddr const* FindContinueAddr(BlockContext::Type type, SemBase* ident);
  // Gives the innermost method a fresh exit label and answers its old one,
  // or null outside a method. A method's own Finally runs from the old
  // one, so that a Return before it runs the Finally on its way out, while
  // a Return inside the Finally leaves past it.
  TacAddr const* MoveMethodExit();
  // The selector of the innermost Select Case; one must be open.
  SemBase* TopSelectExpr() const;
  void ClearTopSelectExpr();

  // The innermost declaration of each kind, or null.
  MethodSymbol* CurrentMethod() const;
  ClassSymbol* CurrentClass() const;
  ModuleSymbol* CurrentModule() const;
  PropertySymbol* CurrentProperty() const;
  StructureSymbol* CurrentStructure() const;
  EnumSymbol* CurrentEnum() const;
  GlobalSymbolTable* Root() const;

  unsigned long Depth() const { return mBlocks.size(); }
  BlockContext const& Top() const;

 private:
  // A block is entered right after its opening line has been read.
  void Push(BlockContext const& block);
  BlockContext* InnermostSelect() const;

  SimpleVector<BlockContext> mBlocks;
};

#endif
