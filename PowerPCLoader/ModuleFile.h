// A module file as `quorl --target ppc --emit-object` writes it (see
// Compiler/BackEnds/PowerPC/PPCModuleFile.h), read back on the target.
#ifndef POWERPCLOADER_MODULEFILE_H
#define POWERPCLOADER_MODULEFILE_H

#include <map>
#include <string>
#include <vector>

namespace ppcloader {

// A name as the compiler had it: its text encoding tag and its bytes.
struct Name {
  unsigned long encoding = 0;
  std::string bytes;
};

struct ModuleImport {
  unsigned long type;
  unsigned long offset;
  Name name;
  std::string library;
};

// The import kinds the loader patches (the numbering of the compiler's
// Import::Type).
enum ImportKind {
  kImportPPCBranch = 0,
  kImportPPCGlobal = 2,
  kImportPPCFunctionLow = 4,
  kImportPPCFunctionHigh = 5,
  kImportGlobal32 = 3,
  kImportFunctionPtr = 7,
  kImportPPCStringHigh = 9,
  kImportPPCStringLow = 10,
  kImportStringLiteral = 11,
};

struct Module {
  std::vector<unsigned char> code;
  std::map<std::string, unsigned long> entries;
  std::vector<ModuleImport> imports;
  std::vector<std::pair<std::string, unsigned long>> globals;  // in order
  std::vector<unsigned char> staticData;
  std::vector<std::pair<std::string, unsigned long>> staticBlocks;
  std::vector<ModuleImport> staticImports;
  std::map<std::string, std::string> callShapes;
  // Code offsets to the 0-based source lines from there on, by offset.
  std::map<unsigned long, unsigned long> lines;
};

// False with a reason when the file cannot be read or is no module.
bool ReadModuleFile(std::string const& path, Module* module,
                    std::string* error);

}  // namespace ppcloader

#endif
