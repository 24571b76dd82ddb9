#include "Compiler/Frontend/StringSums.h"

#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Intrinsics.h"
#include "Compiler/SemBase.h"
#include "Universal/Assertion.h"
#include "Universal/CompileWorkCounters.h"

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
  ForgetLastStringSum();
  SimpleVector<TacAddr const*> pieces;
  TacBlock* block = code->Code();
  SimpleVector<TacLine*> lines;
  for (TacLine* line = block ? block->mFirst : nullptr; line; line = line->mNext)
    lines.push_back(line);
  unsigned long count = lines.size();
  CountListSteps(count);
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
  TacBlock* block = code->Code();
  StringSumLines written;
  written.before = block->mLast;
  if (pieces.size() > 2) {
    code->AddLine(kTacPutParam,
                  gContext->GetLiteral(static_cast<long long>(pieces.size()),
                                       kSInt32Type),
                  nilTacAddr, nilTacAddr);
    written.count = block->mLast;
  }
  for (unsigned long k = 0; k < pieces.size(); k++)
    code->AddLine(kTacPutParam, pieces[k], nilTacAddr, nilTacAddr);
  written.lastPiece = block->mLast;
  if (pieces.size() == 2)
    code->AddLine(kTacIntrinsic, IntrinsicTacAddr(kIntrinsicRuntimeAddString),
                  nilTacAddr, result);
  else
    code->AddLine(kTacCall, gContext->GetLiteral(string(kAddStringsFunction)),
                  nilTacAddr, result);
  written.call = block->mLast;
  written.pieces = pieces.size();
  gContext->mLastStringSum = written.count ? written : StringSumLines();
}

// The lines are still in a row if the count starts the block or its
// recorded predecessor still leads to it; lines die only with their
// values, and the last sum is forgotten before that.
bool TakeLastStringSum(TacAddr const* sum, SemBase* code, StringSumLines* taken) {
  StringSumLines& last = gContext->mLastStringSum;
  TacBlock* block = code->Code();
  if (!last.call || !block || block->mLast != last.call || last.call->result != sum)
    return false;
  bool startsBlock = block->mFirst == last.count;
  if (!startsBlock && !(last.before && last.before->mNext == last.count))
    return false;
  *taken = last;
  if (startsBlock) {
    block->mFirst = block->mLast = nullptr;
  } else {
    last.before->mNext = nullptr;
    block->mLast = last.before;
  }
  ForgetLastStringSum();
  return true;
}

// Every line of a sum carries the line of the code that wrote it last, as
// when AddStringPieces writes them all.
void ExtendStringSum(StringSumLines taken, TacAddr const* piece,
                     TacAddr const* result, SemBase* code) {
  TacBlock* block = code->Code();
  unsigned long sourceLine = code->Location().mStartLine;
  taken.pieces++;
  taken.count->opA =
      gContext->GetLiteral(static_cast<long long>(taken.pieces), kSInt32Type);
  TacLine* added = new TacLine{kTacPutParam, piece,      nilTacAddr,
                               nilTacAddr,   sourceLine, taken.call};
  taken.lastPiece->mNext = added;
  taken.lastPiece = added;
  taken.call->result = result;
  if (taken.count->mLine != sourceLine)
    for (TacLine* line = taken.count; line; line = line->mNext)
      line->mLine = sourceLine;
  taken.before = block->mLast;
  if (block->mLast)
    block->mLast->mNext = taken.count;
  else
    block->mFirst = taken.count;
  block->mLast = taken.call;
  gContext->mLastStringSum = taken;
}

void ForgetLastStringSum() {
  if (gContext) gContext->mLastStringSum = StringSumLines();
}
