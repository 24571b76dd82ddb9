#include "Compiler/BackEnds/codestorage.h"

#include "Universal/Assertion.h"
#include "Universal/CompileWorkCounters.h"

bool Import::IsRelativeBranch() const {
  return mType == kImportPPCBranch || mType == kImportCall32;
}

bool Import::IsCodePtr() const {
  return mType == kImportPPCFunctionLow || mType == kImportPPCFunctionHigh ||
         mType == kImportFunctionPtr;
}

bool Import::IsStringLiteral() const {
  return mType == kImportPPCStringHigh || mType == kImportPPCStringLow ||
         mType == kImportStringLiteral;
}

void LinkableDataBlock::MarkImport(Import::Type type, string const& imported,
                                   string const& library, int offsetFromEnd) {
  MarkImportAbsolute(type, imported, library, Length() + offsetFromEnd);
}

void LinkableDataBlock::MarkImport(Import::Type type, string const& imported,
                                   int offsetFromEnd) {
  MarkImport(type, imported, string(), offsetFromEnd);
}

void LinkableDataBlock::MarkImportAbsolute(Import::Type type,
                                           string const& imported,
                                           string const& library,
                                           unsigned int offset) {
  QASSERT_TEXT(imported.Length() > 0, "imported.Length() > 0");
  mImports.push_back(Import(type, imported, library, offset));
}

void LinkableDataBlock::MarkImportAbsolute(Import::Type type,
                                           string const& imported,
                                           unsigned int offset) {
  MarkImportAbsolute(type, imported, string(), offset);
}

void LinkableDataBlock::AppendLinkable(LinkableDataBlock const* other) {
  QASSERT(other && other != this);
  unsigned long count = other->mImports.size();
  // At least doubling when it must grow, so that a run of appends copies
  // each import a bounded number of times; a reserve made beforehand
  // (the linker's) stands.
  unsigned long needed = mImports.size() + count;
  if (needed > mImports.capacity()) {
    CountImportsCopied(mImports.size());
    mImports.resize(needed > 2 * mImports.capacity() ? needed
                                                     : 2 * mImports.capacity());
  }
  CountImportsCopied(count);
  for (unsigned long i = 0; i < count; i++) {
    Import moved = other->mImports[i];
    moved.mOffset += Length();
    mImports.push_back(moved);
  }
  AppendBytes(other->Buffer(), other->Length());
}

void FunctionBlock::Append(Ref<DataBlock> other) {
  QFAIL("raw bytes must not enter a function without their imports");
}

void FunctionBlock::Append(FunctionBlock* other) { AppendLinkable(other); }

FunctionBlock* FunctionBlock::Clone() const {
  FunctionBlock* copy = new FunctionBlock(mBigEndian);
  copy->AppendLinkable(this);
  copy->mName = mName;
  copy->mLineTable = mLineTable.Clone();
  copy->mParameterSpace = mParameterSpace;
  return copy;
}

void StaticDataBlock::Append(StaticDataBlock* other) { AppendLinkable(other); }

StaticDataBlock* StaticDataBlock::Clone() const {
  StaticDataBlock* copy = new StaticDataBlock(mBigEndian);
  copy->AppendLinkable(this);
  copy->mName = mName;
  return copy;
}
