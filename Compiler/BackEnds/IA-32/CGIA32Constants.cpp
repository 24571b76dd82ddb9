// Floating-point constants of an optimized function: a pool of 8-byte
// slots after the function's last instruction, read by absolute address.
// The address is the function's own, which the linker adds to the slot's
// offset left in the field. The pool lies past the `ret` that ends the
// exception scanner's walk, so its bytes are never taken for code.
#include "Compiler/BackEnds/IA-32/CGIA32.h"

#include "Universal/Assertion.h"

unsigned long CGIA32::ConstantSlot(TacAddr const* constant) {
  QASSERT(constant->IsConstant() && constant->mType.IsFloat());
  unsigned long long bits = constant->GetValue()->uSInt64;
  if (constant->mType.GetMainType() == kReal32Type) bits &= 0xFFFFFFFFull;
  for (unsigned long slot = 0; slot < mConstantPool.size(); slot++)
    if (mConstantPool[slot] == bits) return slot;
  mConstantPool.push_back(bits);
  return mConstantPool.size() - 1;
}

// The instruction's 32-bit field has just been written as the last four
// bytes.
void CGIA32::ReferToConstant(unsigned long slot) {
  MarkImport(Import::kImportFunctionPtr, mFunc->mName, -4);
  ConstantReference reference = {CodeBufferLength() - 4, slot};
  mConstantReferences.push_back(reference);
}

void CGIA32::MoveConstantReferences(unsigned long distance) {
  for (unsigned long i = 0; i < mConstantReferences.size(); i++)
    mConstantReferences[i].mField += distance;
}

void CGIA32::EmitConstantPool() {
  if (!mConstantPool.size()) return;
  int const kSlotSize = 8;
  while (CodeBufferLength() % kSlotSize) ia32_int3();
  unsigned long start = CodeBufferLength();
  for (unsigned long slot = 0; slot < mConstantPool.size(); slot++) {
    ia32_Write32(static_cast<int>(mConstantPool[slot]));
    ia32_Write32(static_cast<int>(mConstantPool[slot] >> 32));
  }
  for (unsigned long i = 0; i < mConstantReferences.size(); i++) {
    ConstantReference const& reference = mConstantReferences[i];
    mFunc->Set32(reference.mField, start + reference.mSlot * kSlotSize);
  }
  mConstantPool.deleteAll();
  mConstantReferences.deleteAll();
}
