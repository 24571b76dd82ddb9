// A module linked in this process: its code and call bridges in one
// executable mapping (so that every bl reaches), its global data and its
// string literals.
#ifndef POWERPCLOADER_LOADEDCODE_H
#define POWERPCLOADER_LOADEDCODE_H

#include <map>
#include <string>
#include <vector>

#include "PowerPCLoader/ModuleFile.h"
#include "Universal/ustring.h"

namespace ppcloader {

// Names to addresses of what the module may call outside itself.
typedef std::map<std::string, void*> FunctionTable;

class LoadedCode {
 public:
  ~LoadedCode();
  // Links the module; false with the first failure in *error.
  bool Link(Module const& module, FunctionTable const& functions,
            std::string* error);
  void* Entry(std::string const& name) const;

 private:
  unsigned char* Code() const { return mMapping; }
  bool PatchImport(Module const& module, ModuleImport const& import,
                   FunctionTable const& functions, std::string* error);
  bool LayOutGlobals(Module const& module);
  bool PatchStaticImport(ModuleImport const& import,
                         FunctionTable const& functions, std::string* error);
  // What a pointer in static data holds for a function: C calls these
  // (destructors, event handlers), so a generated one is reached through
  // an entry thunk.
  unsigned long FunctionPointer(std::string const& name,
                                FunctionTable const& functions,
                                std::string* error);
  unsigned long GlobalAddress(std::string const& name) const;
  unsigned long LiteralAddress(Name const& text, bool keepSite);
  // The bridge to an outside function, written on first use.
  unsigned long BridgeTo(std::string const& name, void* function,
                         Module const& module, std::string* error);

  unsigned char* mMapping = nullptr;
  unsigned long mMappingSize = 0;
  unsigned long mStubEnd = 0;  // offset of the next bridge
  std::map<std::string, unsigned long> mEntries;
  std::map<std::string, unsigned long> mBridges;
  std::map<std::string, unsigned long> mEntryThunks;
  unsigned long mStaticStart = 0;  // of the static data in mGlobalData
  std::vector<unsigned char> mGlobalData;
  std::map<std::string, unsigned long> mGlobalOffsets;
  std::map<std::string, string> mLiterals;
  // One more handle for each site that points at a literal.
  std::vector<string> mSiteReferences;
};

// True for an address inside the linked code: how the exception raiser
// tells generated frames from others.
bool IsGeneratedCode(void const* address);

// Where the function holding `address` saves its return address in its
// caller's frame: generated code and the call bridges at 8, the entry
// thunks and everything outside the mapping (the platform's C code) at 4.
enum { kPlatformLinkOffset = 4, kGeneratedLinkOffset = 8 };
int LinkOffsetOf(void const* address);

// The 1-based source line of the generated code at `address`; 0 outside
// it or where the module has no lines.
unsigned long SourceLineAt(void const* address);

}  // namespace ppcloader

#endif
