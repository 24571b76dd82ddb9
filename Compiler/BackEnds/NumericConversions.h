// The numeric conversions of tac_Cvt, the same for every target: which ones
// are plain moves of one or two words, which a float load and store, and
// which a call of the runtime.
#ifndef COMPILER_BACKENDS_NUMERICCONVERSIONS_H
#define COMPILER_BACKENDS_NUMERICCONVERSIONS_H

#include "Compiler/InterRep.h"

enum ConversionKind {
  kConvertMove32,
  kConvertMove64,
  kConvertFloat,
  kConvertRuntime,
};

struct ConversionRow {
  SimpleDataType from;
  SimpleDataType to;
  ConversionKind kind;
  int intrinsic;  // for kConvertRuntime
};

// The row for a line's operand types, after narrow integers have become
// 32-bit ones and a Single target a Double one; the assertions "from <
// 256", "to < 256" and "unsupported numeric conversion" guard it.
ConversionRow const& FindNumericConversion(IRDataType const& from,
                                           IRDataType const& to);

#endif
