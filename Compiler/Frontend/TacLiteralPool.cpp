#include "Compiler/Frontend/TacLiteralPool.h"

#include <new>

#include "Universal/Assertion.h"

TacLiteralPool::~TacLiteralPool() {
  for (unsigned long i = 0; i < mOwned.size(); i++) delete mOwned[i];
  for (unsigned long b = 0; b < mConstantBlocks.size(); b++) {
    ConstAddr* block = mConstantBlocks[b];
    bool last = b + 1 == mConstantBlocks.size();
    unsigned long count = last ? mConstantsInLastBlock : kConstantsPerBlock;
    for (unsigned long i = 0; i < count; i++) block[i].~ConstAddr();
    ::operator delete(block);
  }
}

template <class... Arguments>
ConstAddr* TacLiteralPool::NewConstant(Arguments const&... arguments) {
  if (mConstantsInLastBlock == kConstantsPerBlock) {
    void* block = ::operator new(kConstantsPerBlock * sizeof(ConstAddr));
    mConstantBlocks.push_back(static_cast<ConstAddr*>(block));
    mConstantsInLastBlock = 0;
  }
  ConstAddr* place = mConstantBlocks.peek_back() + mConstantsInLastBlock;
  new (place) ConstAddr(arguments...);
  mConstantsInLastBlock++;
  return place;
}

TacAddr* TacLiteralPool::Own(TacAddr* addr) {
  mOwned.push_back(addr);
  return addr;
}

TacAddr const* TacLiteralPool::GetLiteral(string const& text) {
  TacAddr* addr;
  if (mStringLiterals.GetEntry(text, addr)) return addr;
  addr = NewConstant(text);
  mStringLiterals.AddEntry(text, addr);
  return addr;
}

// 32-bit values are keyed by their low word alone: 0x100000005 and 5 are
// one Int32 literal.
TacAddr const* TacLiteralPool::GetLiteral(long long value,
                                          SimpleDataType type) {
  IntMap<TacAddr*>* map;
  switch (type) {
    case kSInt32Type:
      map = &mSInt32Literals;
      break;
    case kUInt32Type:
      map = &mUInt32Literals;
      break;
    case kSInt64Type:
    case kUInt64Type:
      return NewConstant(IRValue::SInt64(value), IRDataType(type));
    default:
      QFAIL("unknown integer type");
  }
  int key = (int)value;
  TacAddr* addr;
  if (map->GetEntry(key, addr)) return addr;
  addr = NewConstant(IRValue::SInt32(key), IRDataType(type));
  map->AddEntry(key, addr);
  return addr;
}

TacAddr const* TacLiteralPool::GetLiteral(IRValue const& value,
                                          IRDataType const& type) {
  if (!type.Declaration()) {
    switch (type.GetMainType()) {
      case kSInt32Type:
        return GetLiteral((long long)value.uSInt32, kSInt32Type);
      case kStringType:
        return GetLiteral(value.mString);
      case kBooleanType:
        return value.uSInt32 ? gTacTrue : gTacFalse;
      default:
        break;
    }
  }
  return NewConstant(value, type);
}
