#include "Compiler/Frontend/BlockContext.h"

#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SemBase.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "Universal/Assertion.h"

// ---------------------------------------------------------------- one block

BlockContext::BlockContext()
    : mType(kAnyBlock), mExitAddr(nilTacAddr), mContinueAddr(nilTacAddr),
      mSymbol(nullptr), mSelectExpr(nullptr) {}

BlockContext::BlockContext(Type type, Symbol* symbol, TacAddr const* exitAddr,
                           TacAddr const* continueAddr,
                           string const& identifier, SemBase* selectExpr)
    : mType(type), mExitAddr(exitAddr), mContinueAddr(continueAddr),
      mIdentifier(identifier), mSymbol(symbol), mSelectExpr(selectExpr) {
  QASSERT(not selectExpr or type == kSelectCase);
}

TacAddr const* BlockContext::GetExitAddr() const {
  QASSERT_TEXT(HasExitAddr(), "mExitAddr");
  return mExitAddr;
}

TacAddr const* BlockContext::GetContinueAddr() const {
  QASSERT_TEXT(HasContinueAddr(), "mContinueAddr");
  return mContinueAddr;
}

bool BlockContext::IsLoop() const {
  return mType == kFor || mType == kDo || mType == kWhile;
}

bool BlockContext::IsMethod() const {
  return mType == kSub || mType == kFunction;
}

SemBase* BlockContext::SelectExpr() const {
  QASSERT(kSelectCase == mType);
  return mSelectExpr;
}

void BlockContext::ClearSelectExpr() {
  QASSERT(kSelectCase == mType);
  mSelectExpr = nullptr;
}

// ---------------------------------------------------------------- entering

namespace {

// The block type of a declaration. Order matters: the global table is a
// module too, and every class is a type.
BlockContext::Type DeclarationBlockType(Symbol* owner) {
  if (owner->IsA(Symbol::kModule)) return BlockContext::kModule;
  if (owner->IsA(Symbol::kClass)) return BlockContext::kClass;
  if (owner->IsA(Symbol::kStructure)) return BlockContext::kStructure;
  if (owner->IsA(Symbol::kEnum)) return BlockContext::kEnum;
  if (owner->IsA(Symbol::kProperty)) return BlockContext::kProperty;
  if (owner->IsA(Symbol::kMethod)) {
    MethodSymbol* method = static_cast<MethodSymbol*>(owner);
    return method->GetReturnType().GetMainType() == kNoType
               ? BlockContext::kSub
               : BlockContext::kFunction;
  }
  QFAIL("unknown symbol type");
}

}  // namespace

// Methods get an exit label for `Return` and `Exit Sub`; so does the global
// module, whose exit is the end of the main body.
void BlockContextList::Push(BlockContext const& block) {
  mBlocks.push_back(block);
  mBlocks.peek_back().SetOpeningLine(current_line());
}

void BlockContextList::Enter(Symbol* owner) {
  QASSERT(owner);
  BlockContext::Type type = DeclarationBlockType(owner);
  bool hasExit = type == BlockContext::kSub ||
                 type == BlockContext::kFunction ||
                 owner->IsA(Symbol::kGlobal);
  Push(BlockContext(type, owner, hasExit ? NewLabel() : nilTacAddr,
                    nilTacAddr, string(), nullptr));
}

void BlockContextList::Enter(BlockContext::Type type, SemBase* var) {
  switch (type) {
    case BlockContext::kIf:
      QASSERT(not var);
      Push(BlockContext(type, nullptr, NewLabel(), nilTacAddr, string(),
                        nullptr));
      break;
    case BlockContext::kSelectCase:
      QASSERT(var);
      Push(BlockContext(type, nullptr, NewLabel(), nilTacAddr, string(), var));
      break;
    case BlockContext::kFor: {
      string identifier = var ? var->toString() : string();
      TacAddr const* exitAddr = NewLabel();
      Push(BlockContext(type, nullptr, exitAddr, NewLabel(), identifier,
                        nullptr));
      break;
    }
    case BlockContext::kDo:
    case BlockContext::kWhile: {
      QASSERT(!var);
      TacAddr const* exitAddr = NewLabel();
      Push(BlockContext(type, nullptr, exitAddr, NewLabel(), string(),
                        nullptr));
      break;
    }
    default:
      QFAIL("illegal non-flow-control block entry");
  }
}

// ---------------------------------------------------------------- leaving

void BlockContextList::Leave(BlockContext::Type type) {
  switch (type) {
    case BlockContext::kIf:
    case BlockContext::kSelectCase:
    case BlockContext::kFor:
    case BlockContext::kDo:
    case BlockContext::kWhile:
      break;
    default:
      QFAIL("illegal flow control block exit");
  }
  BlockContext top = mBlocks.pop_back();
  if (top.GetType() != type) Error(kErrorSyntax);
}

// The end of a declaration recovers the stack: whatever errors left open
// inside it goes too. An unknown symbol leaves the stack alone.
void BlockContextList::Leave(Symbol* block) {
  QASSERT(block != NULL);
  if (Depth() && Top().GetSymbol() == block) {
    mBlocks.pop_back();
    return;
  }
  Error(kErrorSyntax);
  for (unsigned long i = Depth(); i-- > 0;) {
    if (mBlocks[i].GetSymbol() != block) continue;
    while (Depth() > i) mBlocks.pop_back();
    return;
  }
}

// ---------------------------------------------------------------- queries

bool BlockContextList::Contains(Symbol* symbol) const {
  for (unsigned long i = 0; i < Depth(); i++)
    if (mBlocks[i].GetSymbol() == symbol) return true;
  return false;
}

Symbol* BlockContextList::FindBlockSymbol(int kind) const {
  for (unsigned long i = Depth(); i-- > 0;) {
    Symbol* symbol = mBlocks[i].GetSymbol();
    if (symbol && symbol->IsA(kind)) return symbol;
  }
  return nullptr;
}

BlockContext* BlockContextList::InnermostSelect() const {
  for (unsigned long i = Depth(); i-- > 0;)
    if (mBlocks[i].GetType() == BlockContext::kSelectCase)
      return const_cast<BlockContext*>(&mBlocks[i]);
  return nullptr;
}

SemBase* BlockContextList::TopSelectExpr() const {
  BlockContext* found = InnermostSelect();
  QASSERT(found);
  return found->SelectExpr();
}

void BlockContextList::ClearTopSelectExpr() {
  BlockContext* found = InnermostSelect();
  QASSERT(found);
  found->ClearSelectExpr();
}

BlockContext const& BlockContextList::Top() const {
  QASSERT(Depth() > 0);
  return mBlocks[Depth() - 1];
}

TacAddr const* BlockContextList::MoveMethodExit() {
  for (unsigned long i = Depth(); i-- > 0;) {
    BlockContext& block = mBlocks[i];
    if (!block.IsMethod() || !block.HasExitAddr()) continue;
    TacAddr const* old = block.GetExitAddr();
    block.SetExitAddr(NewLabel());
    return old;
  }
  return nullptr;
}

MethodSymbol* BlockContextList::CurrentMethod() const {
  return static_cast<MethodSymbol*>(FindBlockSymbol(Symbol::kMethod));
}

ClassSymbol* BlockContextList::CurrentClass() const {
  return static_cast<ClassSymbol*>(FindBlockSymbol(Symbol::kClass));
}

ModuleSymbol* BlockContextList::CurrentModule() const {
  return static_cast<ModuleSymbol*>(FindBlockSymbol(Symbol::kModule));
}

PropertySymbol* BlockContextList::CurrentProperty() const {
  return static_cast<PropertySymbol*>(FindBlockSymbol(Symbol::kProperty));
}

StructureSymbol* BlockContextList::CurrentStructure() const {
  return static_cast<StructureSymbol*>(FindBlockSymbol(Symbol::kStructure));
}

EnumSymbol* BlockContextList::CurrentEnum() const {
  return static_cast<EnumSymbol*>(FindBlockSymbol(Symbol::kEnum));
}

GlobalSymbolTable* BlockContextList::Root() const {
  return static_cast<GlobalSymbolTable*>(FindBlockSymbol(Symbol::kGlobal));
}
