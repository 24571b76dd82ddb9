// Scanning and resolving source text for the tests of the declaration pass.
#ifndef TESTS_COMPILER_MINER_MINERTESTSUPPORT_H
#define TESTS_COMPILER_MINER_MINERTESTSUPPORT_H

#include <memory>
#include <string>

#include "../CompilerTestSupport.h"
#include "Compiler/Miner/DeclarationParser.h"
#include "Compiler/Miner/Miner.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"

// Scans `source` (a line feed appended) and merges it into a fresh global
// table; resolves it when asked. Errors are kept.
struct ScannedProgram {
  explicit ScannedProgram(std::string const& source, bool resolve = true) {
    UnitSymbolTable* unit =
        ParseDeclarations("", (source + "\n").c_str(), &mDelegate);
    if (!unit) return;
    mPrototype = Std(unit->MakePrototype());
    mGlobal.reset(new GlobalSymbolTable);
    mGlobal->MergeUnitSymbols(unit, "");
    delete unit;
    if (resolve) ResolveDeclarations(mGlobal.get());
  }
  template <class T>
  T* Type(char const* name) const {
    return static_cast<T*>(mGlobal->LookupType(name));
  }
  MethodSymbol* Method(MethodDeclarationListOwner const* owner,
                       char const* name) const {
    MethodList found =
        owner->MethodDeclarationListOwner::LookupMethods(name, kAllMethods);
    return found && found->size() == 1 ? (*found)[0] : nullptr;
  }

  RecordingDelegate mDelegate;
  std::unique_ptr<GlobalSymbolTable> mGlobal;
  std::string mPrototype;  // of the unit, before merging
};

#endif
