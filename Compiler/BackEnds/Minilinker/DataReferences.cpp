// Patching every reference that is not a branch: string literals, function
// pointers, globals and the position-independent anchors.
//
// A literal in code points at a real heap string made from its record, not
// at the record. Each site holds one reference of its own, so that the
// generated code's release of a copied handle never frees the literal, and
// the reference counts need no reset between runs. A site's reference is a
// handle kept beside the literal itself, so that whoever ends up owning the
// kept strings gives every site's reference back with them.
#include "Compiler/BackEnds/Minilinker/QuorlScriptLinker.h"
#include "Compiler/Linker/LinkerAssertion.h"

stringStorage* QuorlScriptLinker::LiteralStorage(string const& text,
                                                 StringMapCase<string>& made) {
  string literal;
  if (made.GetEntry(text, literal)) return literal.GetStringStorage();
  unsigned long offset = 0;
  QASSERT_TEXT(mLiterals.GetEntry(text, offset),
               "mLiterals.GetEntry( item.mName, offset )");
  unsigned char* record = mLiteralData->Buffer() + offset;
  mLiteralData->Set32(offset + kLiteralBufferOffset,
                      reinterpret_cast<unsigned long>(record) +
                          kLiteralTextOffset);
  literal.ConstructFromBuffer(
      reinterpret_cast<char const*>(record + kLiteralTextOffset),
      mLiteralData->Get32(offset + kLiteralLengthOffset));
  literal.SetEncoding(mLiteralData->Get32(offset + kLiteralEncodingOffset));
  made.AddEntry(text, literal);
  mStringLiterals.push_back(literal);
  return literal.GetStringStorage();
}

void QuorlScriptLinker::KeepSiteReference(stringStorage* storage) {
  mStringLiterals.push_back(string(storage));
}

unsigned long QuorlScriptLinker::CodePointerAddress(Import const& import) {
  QASSERT_NAMED(import.mSourceLibrary.Length() == 0,
                "item.mSourceLibrary.Length() == 0",
                string("A function to another library was found."));
  unsigned long entry;
  if (mEntrypoints.GetEntry(import.mName, entry)) return CodeBase() + entry;
  return FunctionAddress(import);
}

// A global is referred to from many sites through one shared name text:
// its offset is kept by the text's storage once found, for as long as the
// imports, which hold the storages, are being resolved.
unsigned long QuorlScriptLinker::GlobalAddress(Import const& import) {
  void const* name = import.mName.GetStringStorage();
  long known;
  if (name && mGlobalOffsetsByName.Find(name, &known))
    return GlobalDataBase() + static_cast<unsigned long>(known);
  unsigned long offset = 0;
  QASSERT_NAMED(mGlobalMap.GetEntry(import.mName, offset), "0",
                string("Could not find data: ") + import.mName);
  if (name) mGlobalOffsetsByName.Add(name, static_cast<long>(offset));
  return GlobalDataBase() + offset;
}

void QuorlScriptLinker::ResolveCodeReference(Import& import,
                                             StringMapCase<string>& made) {
  unsigned long anchor = 0;
  if (import.IsStringLiteral()) {
    stringStorage* storage = LiteralStorage(import.mName, made);
    if (import.mType != Import::kImportPPCStringLow)
      KeepSiteReference(storage);
    PatchGlobalReference(import, reinterpret_cast<unsigned long>(storage));
  } else if (import.IsCodePtr()) {
    unsigned long address = CodePointerAddress(import);
    if (address) PatchGlobalReference(import, address);
  } else if (import.mType == Import::kImportPPCGlobal ||
             import.mType == Import::kImportGlobal32) {
    PatchGlobalReference(import, GlobalAddress(import));
  } else if (import.mType == Import::kImportPICBaseAnchor) {
    mPICBaseAnchorMap.AddEntry(import.mName, import.mOffset);
  } else if (import.mType == Import::kImportPICHigh ||
             import.mType == Import::kImportPICLow) {
    QASSERT_TEXT(mPICBaseAnchorMap.GetEntry(import.mName, anchor),
                 "mPICBaseAnchorMap.GetEntry( item.mName, anchorOffset )");
    PatchGlobalReference(import, GlobalDataBase() - (CodeBase() + anchor));
  } else {
    QASSERT_TEXT(0, "0");
  }
}

// Static data holds absolute words. Its import offsets count from the start
// of the merged static data, which sits at mStaticDataOffset in the image. A
// reference to another static block means the block itself (a class record
// pointing at its tables), not the slot code reads the block's address from.
void QuorlScriptLinker::ResolveStaticDataReference(
    Import const& import, StringMapCase<string>& made) {
  unsigned long value;
  unsigned long blockOffset = 0;
  if (import.IsStringLiteral()) {
    stringStorage* storage = LiteralStorage(import.mName, made);
    KeepSiteReference(storage);
    value = reinterpret_cast<unsigned long>(storage);
  } else if (import.IsCodePtr()) {
    value = CodePointerAddress(import);
  } else if (import.mType == Import::kImportGlobal32 &&
             mStaticDataMap.GetEntry(import.mName, blockOffset)) {
    value = GlobalDataBase() + mStaticDataOffset + blockOffset;
  } else if (import.mType == Import::kImportGlobal32) {
    value = GlobalAddress(import);
  } else {
    QASSERT_TEXT(0, "0");
    return;
  }
  mGlobalData->Set32(mStaticDataOffset + import.mOffset, value);
}

void QuorlScriptLinker::ResolveDataReferences() {
  StringMapCase<string> made;
  for (unsigned long i = 0; i < mOneCode->mImports.size(); i++)
    if (!mOneCode->mImports[i].IsRelativeBranch())  // done by ResolveJumps
      ResolveCodeReference(mOneCode->mImports[i], made);
  for (unsigned long i = 0; i < mStaticData->mImports.size(); i++)
    ResolveStaticDataReference(mStaticData->mImports[i], made);
  // The names' storages may be given back from here on.
  mGlobalOffsetsByName.Clear();
}
