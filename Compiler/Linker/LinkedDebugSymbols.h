// The debug data of a linked program: every unit's tables merged, with each
// function's place in the merged code, its lines and its parameter space,
// and each global's offset in the data image.
#ifndef COMPILER_LINKER_LINKEDDEBUGSYMBOLS_H
#define COMPILER_LINKER_LINKEDDEBUGSYMBOLS_H

#include "Compiler/BackEnds/codestorage.h"
#include "Compiler/DebuggerSymbols.h"
#include "Compiler/SmartRef.h"
#include "Universal/stringmap.h"

// Where one function lies in the merged code.
struct LinkedContainerEntry {
  unsigned long offset = 0;
  unsigned long length = 0;
};

class DebuggerSymbols {
 public:
  static Ref<DebuggerSymbols> New();
  virtual ~DebuggerSymbols();

  DebuggerCodeModuleData mData;
  // By function link name; the line tables are owned, their offsets are
  // those within the function.
  StringMap<CodeOffsetToLineIndex*> mLineTables;
  StringMap<unsigned int> mParameterSpaces;
  StringMap<LinkedContainerEntry> mFunctionExtents;
  // Global link name to offset in the data image.
  StringMap<unsigned int> mGlobalOffsets;
  uint32_t mEntryPoint = 0;  // offset of the main body in the merged code

 private:
  DebuggerSymbols() {}
  DebuggerSymbols(DebuggerSymbols const&) = delete;
  DebuggerSymbols& operator=(DebuggerSymbols const&) = delete;
};

#endif
