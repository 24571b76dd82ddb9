// IA-32 patching: branches take a displacement from the end of their
// field, data fields take an address added to what the generator left in
// them. List callers are written with the back end's instruction encoder.
#include "Compiler/BackEnds/IA-32/IA32OpWriter.h"
#include "Compiler/BackEnds/Minilinker/QuorlScriptLinker.h"
#include "Universal/Assertion.h"

namespace {

// The encoder's output appended to one function block.
class FunctionBlockWriter : public IA32OpWriter {
 public:
  explicit FunctionBlockWriter(FunctionBlock* block) : mBlock(block) {}
  void ia32_Write8(int value) override { mBlock->Append8(value); }
  void ia32_Write16(int value) override { mBlock->Append16(value); }
  void ia32_Write32(int value) override { mBlock->Append32(value); }

 private:
  FunctionBlock* mBlock;
};

// Keeps the stack at a multiple of 16 at each call.
enum { kListCallerPadding = 12 };

}  // namespace

// The callers take no arguments; the calls go in the map's order.
void QuorlScriptLinkIA32::GenerateListCaller(string const& name,
                                             StringMap<string>& list) {
  QASSERT_TEXT(mSrc, "mSrc");
  FunctionBlock* block = mSrc->MakeFunctionBlock();
  block->mName = name;
  FunctionBlockWriter writer(block);
  writer.ia32_sub_imm32(kModRegister, kESP, kListCallerPadding);
  StringMapIterator<string>* iter = list.NewIterator();
  string function;
  while (iter->Next(function)) {
    block->MarkImport(Import::kImportCall32, function, 1);
    writer.ia32_call_disp32(0);
  }
  delete iter;
  writer.ia32_add_imm32(kModRegister, kESP, kListCallerPadding);
  writer.ia32_ret_near();
  mSrc->mFunctions.push_back(block);
}

void QuorlScriptLinkIA32::ResolveLocalJump(unsigned long site,
                                           unsigned long target) {
  QASSERT_TEXT(mCode, "mCode");
  mCode->Set32(site, target - site - 4);
}

void QuorlScriptLinkIA32::ResolveExternalJump(Import& import,
                                              unsigned long address) {
  ResolveLocalJump(import.mOffset, address - CodeBase());
}

// What the generator left in the field survives as an addend: that is how
// the high word of a 64-bit global is reached.
void QuorlScriptLinkIA32::PatchGlobalReference(Import& import,
                                               unsigned long value) {
  switch (import.mType) {
    case Import::kImportCall32:
    case Import::kImportGlobal32:
    case Import::kImportFunctionPtr:
    case Import::kImportStringLiteral:
      mCode->Set32(import.mOffset, mCode->Get32(import.mOffset) + value);
      break;
    default:
      QASSERT_TEXT(0, "0");
  }
}
