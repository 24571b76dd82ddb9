// Interned constants of a compilation. Identical string literals and 32-bit
// integers share one operand; the pool owns every operand it hands out and
// frees them all with itself.
//
// A compilation makes a constant for every label and literal, a few hundred
// thousand in a big program, so the constants are made side by side in
// blocks and destroyed block by block, not one heap block each.
#ifndef COMPILER_FRONTEND_TACLITERALPOOL_H
#define COMPILER_FRONTEND_TACLITERALPOOL_H

#include "Compiler/InterRep.h"
#include "Compiler/datatypes.h"
#include "Universal/IntMap.h"
#include "Universal/SimpleVector.h"
#include "Universal/stringmap.h"
#include "Universal/ustring.h"

class TacLiteralPool {
 public:
  TacLiteralPool() {}
  virtual ~TacLiteralPool();

  // A String constant; literals are told apart with case.
  TacAddr const* GetLiteral(string const& text);
  // An Int32 or UInt32 constant, interned by its low word; a 64-bit one is
  // always a new operand. Other types are a compiler fault.
  TacAddr const* GetLiteral(long long value, SimpleDataType type);
  // Any constant. Plain Int32, String and Boolean go through the interning
  // forms (Boolean gives the shared gTacTrue or gTacFalse); everything else,
  // enum-typed values included, is a new operand.
  TacAddr const* GetLiteral(IRValue const& value, IRDataType const& type);

 protected:
  // Takes ownership of `addr` and returns it.
  TacAddr* Own(TacAddr* addr);
  // A new constant in the pool's blocks.
  template <class... Arguments>
  ConstAddr* NewConstant(Arguments const&... arguments);

 private:
  TacLiteralPool(TacLiteralPool const&) = delete;
  TacLiteralPool& operator=(TacLiteralPool const&) = delete;

  static unsigned long const kConstantsPerBlock = 512;

  SimpleVector<TacAddr*> mOwned;
  SimpleVector<ConstAddr*> mConstantBlocks;
  // Full until the first block is made.
  unsigned long mConstantsInLastBlock = kConstantsPerBlock;
  IntMap<TacAddr*> mSInt32Literals;
  IntMap<TacAddr*> mUInt32Literals;
  StringMapCase<TacAddr*> mStringLiterals;
};

#endif
