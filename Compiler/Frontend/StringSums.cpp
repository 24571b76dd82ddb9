#include "Compiler/Frontend/StringSums.h"

#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"

char const* const kAddStringsFunction = "RuntimeAddStrings";

namespace {

bool IsSumOfTwo(TacLine const* line) {
  return line->opcode == kTacIntrinsic &&
         line->opA == IntrinsicTacAddr(kIntrinsicRuntimeAddString);
}

bool IsSumOfMany(TacLine const* line) {
  return line->opcode == kTacCall &&
         line->opA->GetValue()->mString == string(kAddStringsFunction);
}

}  // namespace

// A sum's lines are its queued pieces and the call, at the very end of the
// code, with the pieces' own code before them; a sum of many queues its
// count first.
SimpleVector<TacAddr const*> TakeSummedPieces(TacAddr const* sum, SemBase* code) {
  SimpleVector<TacAddr const*> pieces;
  TacBlock* block = code->Code();
  SimpleVector<TacLine*> lines;
  for (TacLine* line = block ? block->mFirst : nullptr; line; line = line->mNext)
    lines.push_back(line);
  unsigned long count = lines.size();
  TacLine const* call = count ? lines[count - 1] : nullptr;
  unsigned long queued = 0;
  if (call && call->result == sum && IsSumOfTwo(call)) queued = 2;
  if (call && call->result == sum && IsSumOfMany(call)) {
    while (queued + 1 < count && lines[count - 2 - queued]->opcode == kTacPutParam)
      queued++;
    TacAddr const* tally = queued ? lines[count - 1 - queued]->opA : nilTacAddr;
    if (!queued || !tally->IsConstant() ||
        static_cast<unsigned long>(tally->GetValue()->uSInt32) + 1 != queued)
      queued = 0;
  }
  if (!queued || queued + 1 > count) {
    pieces.push_back(sum);
    return pieces;
  }
  unsigned long first = count - 1 - queued;
  for (unsigned long k = first; k + 1 < count; k++) {
    QASSERT(lines[k]->opcode == kTacPutParam);
    if (!IsSumOfMany(call) || k > first) pieces.push_back(lines[k]->opA);
  }
  for (unsigned long k = first; k < count; k++) delete lines[k];
  block->mLast = first ? lines[first - 1] : nullptr;
  if (block->mLast)
    block->mLast->mNext = nullptr;
  else
    block->mFirst = nullptr;
  return pieces;
}

void AddStringPieces(SimpleVector<TacAddr const*> const& pieces,
                     TacAddr const* result, SemBase* code) {
  QASSERT(pieces.size() >= 2);
  if (pieces.size() > 2)
    code->AddLine(kTacPutParam,
                  gContext->GetLiteral(static_cast<long long>(pieces.size()),
                                       kSInt32Type),
                  nilTacAddr, nilTacAddr);
  for (unsigned long k = 0; k < pieces.size(); k++)
    code->AddLine(kTacPutParam, pieces[k], nilTacAddr, nilTacAddr);
  if (pieces.size() == 2)
    code->AddLine(kTacIntrinsic, IntrinsicTacAddr(kIntrinsicRuntimeAddString),
                  nilTacAddr, result);
  else
    code->AddLine(kTacCall, gContext->GetLiteral(string(kAddStringsFunction)),
                  nilTacAddr, result);
}
