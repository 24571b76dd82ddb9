#include "Compiler/BackEnds/PowerPC/PPCModuleFile.h"

#include "Compiler/BackEnds/PowerPC/CGPPC.h"
#include "Universal/Assertion.h"

namespace {

// The encoder's words appended to one function block.
class FunctionBlockWriter : public PPCOpWriter {
 public:
  explicit FunctionBlockWriter(FunctionBlock* block) : mBlock(block) {}
  void ppc_Write32(unsigned long word) override { mBlock->Append32(word); }

 private:
  FunctionBlock* mBlock;
};

enum { kListCallerFrame = 64 };

void WriteName(DataBlock* out, string const& text) {
  out->Append32(static_cast<unsigned int>(text.Encoding()));
  out->Append32(static_cast<unsigned int>(text.Length()));
  out->Append(text.CString(), static_cast<unsigned int>(text.Length()));
}

void WriteImports(DataBlock* out, SimpleVector<Import> const& imports) {
  out->Append32(static_cast<unsigned int>(imports.size()));
  for (unsigned long i = 0; i < imports.size(); i++) {
    out->Append32(imports[i].mType);
    out->Append32(imports[i].mOffset);
    WriteName(out, imports[i].mName);
    WriteName(out, imports[i].mSourceLibrary);
  }
}

template <class Value>
void WriteOffsets(DataBlock* out, StringMapCase<Value>& map) {
  out->Append32(static_cast<unsigned int>(map.Count()));
  StringMapIterator<Value>* iter = map.NewIterator();
  Value value;
  while (iter->Next(value)) {
    WriteName(out, iter->Key());
    out->Append32(static_cast<unsigned int>(value));
  }
  delete iter;
}

}  // namespace

// A frame of its own, so that each call finds a linkage area to save into.
void PPCModuleWriter::GenerateListCaller(string const& name,
                                         StringMap<string>& list) {
  FunctionBlock* block = mSrc->MakeFunctionBlock();
  block->mName = name;
  FunctionBlockWriter writer(block);
  writer.ppc_mflr(CGPPC::kScratch);
  writer.ppc_stw(CGPPC::kScratch, CGPPC::kSavedLinkOffset, CGPPC::kStackPointer);
  writer.ppc_stwu(CGPPC::kStackPointer, -kListCallerFrame, CGPPC::kStackPointer);
  writer.ppc_stw(CGPPC::kBaseRegister, CGPPC::kSavedBaseOffset,
                 CGPPC::kStackPointer);
  StringMapIterator<string>* iter = list.NewIterator();
  string function;
  while (iter->Next(function)) {
    block->MarkImport(Import::kImportPPCBranch, function, 0);
    writer.ppc_bl(0);
  }
  delete iter;
  writer.ppc_lwz(CGPPC::kScratch, kListCallerFrame + CGPPC::kSavedLinkOffset,
                 CGPPC::kStackPointer);
  writer.ppc_mtlr(CGPPC::kScratch);
  writer.ppc_addi(CGPPC::kStackPointer, CGPPC::kStackPointer, kListCallerFrame);
  writer.ppc_blr();
  mSrc->mFunctions.push_back(block);
}

Ref<DataBlock> PPCModuleWriter::FormatLink() {
  Ref<DataBlock> file;
  file.BindNewObject(new DataBlock(1));
  DataBlock* out = &*file;
  out->Append32(kPPCModuleMagic);
  out->Append32(kPPCModuleVersion);
  out->Append32(mOneCode->Length());
  out->Append(reinterpret_cast<char const*>(mOneCode->Buffer()),
              mOneCode->Length());
  WriteOffsets(out, mEntrypoints);
  WriteImports(out, mOneCode->mImports);
  StringMapCase<unsigned int> globals;
  StringMapIterator<unsigned int>* iter = mSrc->mGlobals.NewIterator();
  unsigned int size;
  while (iter->Next(size)) globals.AddEntry(iter->Key(), size);
  delete iter;
  WriteOffsets(out, globals);
  out->Append32(mStaticData->Length());
  out->Append(reinterpret_cast<char const*>(mStaticData->Buffer()),
              mStaticData->Length());
  WriteOffsets(out, mStaticDataMap);
  WriteImports(out, mStaticData->mImports);
  out->Append32(static_cast<unsigned int>(mCallShapes.Count()));
  StringMapIterator<string>* shapes = mCallShapes.NewIterator();
  string shape;
  while (shapes->Next(shape)) {
    WriteName(out, shapes->Key());
    WriteName(out, shape);
  }
  delete shapes;
  SimpleVector<cotlis> lines;
  for (unsigned long i = 0; i < mSrc->mFunctions.size(); i++) {
    FunctionBlock const* function = mSrc->mFunctions[i];
    unsigned long entry = 0;
    mEntrypoints.GetEntry(function->mName, entry);
    for (unsigned long k = 0; k < function->mLineTable.mIndex.size(); k++) {
      cotlis record = function->mLineTable.mIndex[k];
      record.offset += static_cast<unsigned int>(entry);
      lines.push_back(record);
    }
  }
  out->Append32(static_cast<unsigned int>(lines.size()));
  for (unsigned long i = 0; i < lines.size(); i++) {
    out->Append32(lines[i].offset);
    out->Append32(lines[i].line);
  }
  return file;
}

Ref<DataBlock> WritePPCModuleFile(Ref<CodeModule> module,
                                  StringMapCase<string>& callShapes) {
  QASSERT_TEXT(module->mProcessorFamily == kProcessorFamilyPowerPC,
               "a PowerPC module");
  PPCModuleWriter writer(callShapes);
  return writer.Link(module, nullptr);
}
