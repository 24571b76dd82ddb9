#include "Compiler/Intrinsics.h"

#include "Universal/Assertion.h"

// The runtime contract's 137 numbers, and one of this engine's beyond them
// (the stop that passes every Catch).
static_assert(kQtyIntrinsics == 138, "the runtime contract has 137 numbers, plus one");

namespace {

#define QUORL_INTRINSIC_NAME(name) #name,
char const* const kIntrinsicNames[] = {"", QUORL_INTRINSICS(QUORL_INTRINSIC_NAME)};
#undef QUORL_INTRINSIC_NAME

// Both made on first use and kept until the process ends: the operands are
// shared by every compilation's TAC lines.
TacAddr const* sIntrinsicAddrPtrs[kQtyIntrinsics];
SimpleVector<string>* sLinkMap;

}  // namespace

TacAddr const* IntrinsicTacAddr(long intrinsicEnum) {
  QASSERT_TEXT(intrinsicEnum >= 0 and intrinsicEnum < kQtyIntrinsics,
               "intrinsicEnum >= 0 and intrinsicEnum < kQtyIntrinsics");
  if (!sIntrinsicAddrPtrs[intrinsicEnum])
    sIntrinsicAddrPtrs[intrinsicEnum] = new ConstAddr(intrinsicEnum);
  return sIntrinsicAddrPtrs[intrinsicEnum];
}

SimpleVector<string> const& IntrinsicFunctionNames() {
  if (!sLinkMap) {
    sLinkMap = new SimpleVector<string>;
    for (int i = 0; i < kQtyIntrinsics; i++)
      sLinkMap->push_back(string(kIntrinsicNames[i]));
  }
  return *sLinkMap;
}

bool IntrinsicHasVarArgs(int intrinsicEnum) {
  return intrinsicEnum == kIntrinsicCreateArray ||
         intrinsicEnum == kIntrinsicRuntimeCreateStructureArray;
}
