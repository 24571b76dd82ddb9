// Sums of strings. A chain a + b + c + ... is one call of the runtime with
// every piece, which makes the result once at its final size, where a call
// per + would copy the growing text again at each step.
#ifndef COMPILER_FRONTEND_STRINGSUMS_H
#define COMPILER_FRONTEND_STRINGSUMS_H

#include "Universal/SimpleVector.h"

class SemBase;
class TacAddr;
struct TacLine;

// The lines of the last sum of many strings written: the count, the pieces
// and the call, in a row at the end of some block. The next + of the chain
// adds its piece to them where they stand, so that a chain of n pieces
// costs n lines written, not a square of them.
struct StringSumLines {
  TacLine* before = nullptr;  // the line in front of the count; null: none
  TacLine* count = nullptr;
  TacLine* lastPiece = nullptr;
  TacLine* call = nullptr;
  unsigned long pieces = 0;
};

// The runtime function that adds several strings, given their count first.
extern char const* const kAddStringsFunction;

// The pieces whose sum `code` has just computed into `sum`, with the lines
// of that sum taken off the end of `code`; `sum` alone when `code` does not
// end in a sum of strings.
SimpleVector<TacAddr const*> TakeSummedPieces(TacAddr const* sum, SemBase* code);
// result := the pieces added left to right.
void AddStringPieces(SimpleVector<TacAddr const*> const& pieces,
                     TacAddr const* result, SemBase* code);
// When `code` ends in the last sum of many strings, computed into `sum`:
// unlinks its lines into `taken` and returns true. Else false, and nothing
// changes.
bool TakeLastStringSum(TacAddr const* sum, SemBase* code, StringSumLines* taken);
// Appends the lines of `taken` to `code` with `piece` added last, their
// result now `result`: the same lines AddStringPieces would write for all
// the pieces.
void ExtendStringSum(StringSumLines taken, TacAddr const* piece,
                     TacAddr const* result, SemBase* code);
// Forgets the last sum, whose lines are about to go.
void ForgetLastStringSum();

#endif
