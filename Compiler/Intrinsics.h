// Intrinsics: runtime functions that generated code reaches by number. The
// front end writes a kTacIntrinsic line with the number, the back end turns
// the number into a link name, and the in-memory linker resolves that name in
// the runtime's function table.
#ifndef COMPILER_INTRINSICS_H
#define COMPILER_INTRINSICS_H

#include "Compiler/InterRep.h"
#include "Compiler/IntrinsicList.h"
#include "Universal/SimpleVector.h"
#include "Universal/ustring.h"

#define QUORL_INTRINSIC_ENUMERATOR(name) kIntrinsic##name,
enum IntrinsicID {
  kIntrinsicReserved = 0,
  QUORL_INTRINSICS(QUORL_INTRINSIC_ENUMERATOR) kQtyIntrinsics
};
#undef QUORL_INTRINSIC_ENUMERATOR

// The opA operand of a kTacIntrinsic line: an Int32 constant with the
// number, made on first use and shared for ever. Asserts the range.
TacAddr const* IntrinsicTacAddr(long intrinsicEnum);
// The link names by number; entry 0 is empty.
SimpleVector<string> const& IntrinsicFunctionNames();
// Whether the function takes variable arguments (CreateArray and
// RuntimeCreateStructureArray).
bool IntrinsicHasVarArgs(int intrinsicEnum);

#endif
