// Sums of strings. A chain a + b + c + ... is one call of the runtime with
// every piece, which makes the result once at its final size, where a call
// per + would copy the growing text again at each step.
#ifndef COMPILER_FRONTEND_STRINGSUMS_H
#define COMPILER_FRONTEND_STRINGSUMS_H

#include "Universal/SimpleVector.h"

class SemBase;
class TacAddr;

// The runtime function that adds several strings, given their count first.
extern char const* const kAddStringsFunction;

// The pieces whose sum `code` has just computed into `sum`, with the lines
// of that sum taken off the end of `code`; `sum` alone when `code` does not
// end in a sum of strings.
SimpleVector<TacAddr const*> TakeSummedPieces(TacAddr const* sum, SemBase* code);
// result := the pieces added left to right.
void AddStringPieces(SimpleVector<TacAddr const*> const& pieces,
                     TacAddr const* result, SemBase* code);

#endif
