// Where `Exit` and `Continue` jump: the search of the open blocks for the
// one a statement leaves or continues, and the errors when there is none.
#include "Compiler/Frontend/BlockContext.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/SemBase.h"

namespace {

// How the statement named the block it wants, for compile error 104:
// "For i", "While", "loop" for a bare Continue, nothing for a bare Exit.
string WantedBlockText(BlockContext::Type type, SemBase* ident,
                       bool continuing) {
  switch (type) {
    case BlockContext::kFor:
      return ident ? string("For ") + ident->toString() : string("For");
    case BlockContext::kWhile:
      return "While";
    case BlockContext::kDo:
      return "Do";
    case BlockContext::kFunction:
      return "Function";
    case BlockContext::kSub:
      return "Sub";
    case BlockContext::kSelectCase:
      return "Select Case";
    case BlockContext::kIf:
      return "If";
    case BlockContext::kAnyBlock:
      return continuing ? "loop" : "";
    default:
      return string();
  }
}

void ReportNoEnclosingBlock(BlockContext::Type type, SemBase* ident,
                            bool continuing) {
  SimpleVector<string> arguments;
  arguments.push_back(WantedBlockText(type, ident, continuing));
  arguments.push_back(continuing ? "continue" : "exit");
  Error(kErrorNoEnclosingBlock, SourceLocation(current_line()), arguments);
}

bool IsContinuable(BlockContext::Type type) {
  return type == BlockContext::kAnyBlock || type == BlockContext::kFor ||
         type == BlockContext::kDo || type == BlockContext::kWhile;
}

// A For block named by the statement must loop over that variable; the
// name compares without regard to case.
bool IdentifierMatches(BlockContext const& block, SemBase* ident) {
  return !ident || block.Identifier() == ident->toString();
}

}  // namespace

// A bare `Exit` leaves the innermost loop or method; a typed one the
// innermost block of that type (and of that variable, for `Exit For i`).
TacAddr const* BlockContextList::FindExitAddr(BlockContext::Type type,
                                              SemBase* ident) {
  for (unsigned long i = Depth(); i-- > 0;) {
    BlockContext const& block = mBlocks[i];
    bool typeMatches = type == BlockContext::kAnyBlock
                           ? block.IsLoop() || block.IsMethod()
                           : block.GetType() == type;
    if (typeMatches && IdentifierMatches(block, ident))
      return block.GetExitAddr();
  }
  ReportNoEnclosingBlock(type, ident, false);
  return nullptr;
}

// A bare `Continue` passes every block without a continue point, which in
// effect finds the innermost loop.
TacAddr const* BlockContextList::FindContinueAddr(BlockContext::Type type,
                                                  SemBase* ident) {
  if (!IsContinuable(type)) {
    Error(kErrorBadContinue);
    return nullptr;
  }
  for (unsigned long i = Depth(); i-- > 0;) {
    BlockContext const& block = mBlocks[i];
    bool typeMatches = type == BlockContext::kAnyBlock
                           ? block.HasContinueAddr()
                           : block.GetType() == type;
    if (typeMatches && IdentifierMatches(block, ident))
      return block.GetContinueAddr();
  }
  ReportNoEnclosingBlock(type, ident, true);
  return nullptr;
}
