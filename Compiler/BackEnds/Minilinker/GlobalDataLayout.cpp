// The global data image, from low to high addresses: the variables, the
// pointer slots, the static data. A global that names a static data block
// is reached through a slot holding the block's address.
//
// The whole image is built before any address in it is taken, since its
// buffer must not move afterwards.
#include <string.h>

#include "Compiler/BackEnds/Minilinker/QuorlScriptLinker.h"
#include "Compiler/BackEnds/codegenerator.h"
#include "Compiler/Linker/LinkerAssertion.h"

namespace {

bool IsGlobalReference(Import const& import) {
  return import.mType == Import::kImportPPCGlobal ||
         import.mType == Import::kImportGlobal32;
}

// A slot for each global reference to a static block, the first time.
void CollectSlots(SimpleVector<Import> const& imports,
                  StringMapCase<unsigned long> const& staticDataMap,
                  StringMapCase<unsigned long>& slots) {
  for (unsigned long i = 0; i < imports.size(); i++) {
    Import const& import = imports[i];
    if (!IsGlobalReference(import) || !staticDataMap.HasEntry(import.mName) ||
        slots.HasEntry(import.mName))
      continue;
    slots.AddEntry(import.mName, slots.Count() * 4);
  }
}

}  // namespace

void QuorlScriptLinker::AllocateGlobalDataBlock() {
  StringMapCase<unsigned long> slots;
  CollectSlots(mOneCode->mImports, mStaticDataMap, slots);
  CollectSlots(mStaticData->mImports, mStaticDataMap, slots);

  // Each variable aligned to its own size, deliberately even when that is
  // no power of two.
  unsigned long end = mGlobalData->Length();
  for (unsigned long i = 0; i < mOneCode->mImports.size(); i++) {
    Import const& item = mOneCode->mImports[i];
    if (!IsGlobalReference(item) || mGlobalMap.HasEntry(item.mName) ||
        slots.HasEntry(item.mName))
      continue;
    unsigned int globalSize = 0;
    QASSERT_TEXT(mSrc->mGlobals.GetEntry(item.mName, globalSize),
                 "mSrc->mGlobals.GetEntry( item.mName, globalSize )");
    end = CodeGenerator::AlignBytes(end, globalSize ? globalSize : 1);
    mGlobalMap.AddEntry(item.mName, end);
    end += globalSize;
  }

  unsigned long slotBytes = slots.Count() * 4;
  mStaticDataOffset = CodeGenerator::AlignBytes(end, 4) + slotBytes;
  Ref<DataBlock> image = mSrc->MakeDataBlock();
  image->SetLength(mStaticDataOffset + mStaticData->Length());
  if (mGlobalData->Length())
    memcpy(image->Buffer(), mGlobalData->Buffer(), mGlobalData->Length());
  if (mStaticData->Length())
    memcpy(image->Buffer() + mStaticDataOffset, mStaticData->Buffer(),
           mStaticData->Length());
  mGlobalData = image;

  StringMapIterator<unsigned long>* iter = slots.NewIterator();
  unsigned long slotOffset;
  while (iter->Next(slotOffset)) {
    unsigned long position = mStaticDataOffset - slotBytes + slotOffset;
    mGlobalMap.AddEntry(iter->Key(), position);
    unsigned long dataOffset = 0;
    QASSERT_TEXT(mStaticDataMap.GetEntry(iter->Key(), dataOffset),
                 "mStaticDataMap.GetEntry( iter->Key(), dataOffset )");
    mGlobalData->Set32(position,
                       GlobalDataBase() + mStaticDataOffset + dataOffset);
  }
  delete iter;
}
