// A compiled PowerPC module as a file, for a loader on that machine: the
// functions merged into one block of code, the names of their entries, the
// imports still to be patched, the globals' sizes, the static data, the
// argument shapes of the calls by name and the line table.
//
// Every number is a big-endian 32-bit word, every name its encoding, its
// byte length and its bytes. In order: "QPPC", the version; the code (its
// length and bytes); the entries (count; name, offset); the imports
// (count; type, offset, name, library); the globals (count; name, size);
// the static data (length and bytes; count; name, offset; the imports as
// above); the call shapes (count; name, shape); the lines (count; offset,
// line).
#ifndef COMPILER_BACKENDS_POWERPC_PPCMODULEFILE_H
#define COMPILER_BACKENDS_POWERPC_PPCMODULEFILE_H

#include "Compiler/Linker/Linker.h"

enum {
  kPPCModuleMagic = 0x51505043,  // "QPPC"
  kPPCModuleVersion = 1,
};

class PPCModuleWriter : public Linker {
 public:
  explicit PPCModuleWriter(StringMapCase<string>& callShapes)
      : mCallShapes(callShapes) {}

  // The callers of the initializers and finalizers, in PowerPC code.
  void GenerateListCaller(string const& name, StringMap<string>& list) override;
  // The file's bytes.
  Ref<DataBlock> FormatLink() override;

 private:
  StringMapCase<string>& mCallShapes;
};

// Links a PowerPC module into its file form; null after a failure.
Ref<DataBlock> WritePPCModuleFile(Ref<CodeModule> module,
                                  StringMapCase<string>& callShapes);

#endif
