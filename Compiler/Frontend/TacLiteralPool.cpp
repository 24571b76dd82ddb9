#include "Compiler/Frontend/TacLiteralPool.h"

#include "Universal/Assertion.h"

TacLiteralPool::~TacLiteralPool() {
  for (unsigned long i = 0; i < mOwned.size(); i++) delete mOwned[i];
}

TacAddr* TacLiteralPool::Own(TacAddr* addr) {
  mOwned.push_back(addr);
  return addr;
}

TacAddr const* TacLiteralPool::GetLiteral(string const& text) {
  TacAddr* addr;
  if (mStringLiterals.GetEntry(text, addr)) return addr;
  addr = Own(new ConstAddr(text));
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
      return Own(new ConstAddr(IRValue::SInt64(value), IRDataType(type)));
    default:
      QFAIL("unknown integer type");
  }
  int key = (int)value;
  TacAddr* addr;
  if (map->GetEntry(key, addr)) return addr;
  addr = Own(new ConstAddr(IRValue::SInt32(key), IRDataType(type)));
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
  return Own(new ConstAddr(value, type));
}
