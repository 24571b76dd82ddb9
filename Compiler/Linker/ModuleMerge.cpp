// Joining one module into another, for the build of whole applications:
// the blocks are copied, the tables added up.
#include "Compiler/Linker/Linker.h"

#include "Universal/Assertion.h"

namespace {

template <class T>
void AddMapEntries(StringMap<T>& dest, StringMap<T>& source) {
  StringMapIterator<T>* iter = source.NewIterator();
  T value;
  while (iter->Next(value)) dest.AddEntry(iter->Key(), value);
  delete iter;
}

void AddSetEntries(StringSet& dest, StringSet& source) {
  StringSetIterator* iter = source.NewIterator();
  string key;
  while (iter->Next(key)) dest.Add(key);
  delete iter;
}

}  // namespace

void Linker::Merge(Ref<CodeModule> dest, Ref<CodeModule> source) {
  if (!source) return;
  QASSERT_TEXT(dest, "dest");
  QASSERT_TEXT(dest->mProcessorFamily == source->mProcessorFamily,
               "dest->mProcessorFamily == source->mProcessorFamily");
  for (unsigned long i = 0; i < source->mFunctions.size(); i++)
    dest->mFunctions.push_back(source->mFunctions[i]->Clone());
  for (unsigned long i = 0; i < source->mStaticData.size(); i++)
    dest->mStaticData.push_back(source->mStaticData[i]->Clone());
  AddSetEntries(dest->mRequiredFrameworks, source->mRequiredFrameworks);
  AddMapEntries(dest->mGlobals, source->mGlobals);
  AddSetEntries(dest->mRequiredSymbols, source->mRequiredSymbols);
  AddMapEntries(dest->mInitializers, source->mInitializers);
  AddMapEntries(dest->mFinalizers, source->mFinalizers);
  for (unsigned long i = 0; i < source->mResources.size(); i++)
    dest->mResources.push_back(source->mResources[i]);
  dest->mDebugData.Merge(&source->mDebugData);
}
