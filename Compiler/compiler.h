// The compiler's front door and the one way it speaks to its caller.
#ifndef COMPILER_COMPILER_H
#define COMPILER_COMPILER_H

#include "Compiler/BackEnds/IA-32/CGIA32.h"
#include "Compiler/BackEnds/PowerPC/CGPPC.h"
#include "Compiler/CompilerDelegate.h"
#include "Compiler/Frontend/LanguageOptions.h"
#include "Compiler/SmartRef.h"
#include "Compiler/TacListing.h"
#include "Universal/SimpleVector.h"
#include "Universal/stringmap.h"
#include "Universal/ustring.h"

class CodeModule;
class GlobalSymbolTable;
class SrcContext;

// The back ends a compilation can select.
enum CompilerCodeType {
  kCodeTypePowerPC = 0,
  kCodeTypeIA32 = 1,
};

// One compilation's options and the steps from text to a CodeModule. A
// Compiler lives on its caller's frame for one compilation; it keeps nothing
// of it but its options.
class Compiler {
 public:
  Compiler();
  virtual ~Compiler();

  // Compiles `source`, whose declarations `symbols` already holds, merged
  // and resolved; the caller keeps `symbols`. Nil after any error: the
  // errors went to the delegate as they were found. Running out of memory
  // is such an error (kErrorCompilerOutOfMemory).
  Ref<CodeModule> Compile(string const& source, string const& name,
                          GlobalSymbolTable* symbols);

  void SetDelegate(CompilerDelegate* delegate) { mDelegate = delegate; }

  LanguageOptions mLanguageOptions;     // initial pragma values
  SimpleVector<string> mIntrinsicNames;  // link name per intrinsic number
  long mCodeType;                        // a CompilerCodeType
  CGIA32Options mIA32Options;
  CGPPCOptions mPPCOptions;
  // When set, receives the argument shapes of the calls by name of a
  // PowerPC compile (CGPPC::CallShapes).
  StringMapCase<string>* mCallShapes;
  // The conditional-compilation constants ("TargetLinux"...), in order.
  StringMap<bool> mConditionalConstants;
  unsigned char mLibrary;          // no main body in this unit
  unsigned char mDebug;            // copy symbols to the debug data
  unsigned char mStaticClassData;  // class records as static data
  unsigned char mScriptMode;       // a script: nothing that needs external code
  // When set, receives the listing of the program's three-address code
  // once the front end has succeeded: the developer's view of a compile.
  string* mTacListing;
  // What the listing names in place of run-dependent constants.
  TacListingStandIns mTacListingStandIns;
  // Run the optimizing passes and let the back end generate its faster
  // forms; on unless the caller asks for the code exactly as written. The
  // listing shows the code after the passes.
  bool mOptimize;
  // Generate each function's code as soon as the parser finishes it and
  // free its lines and local tables then, so that a big program never
  // holds all of them at once. The module is the same either way; a
  // listing, debug data or a PowerPC compile generate in one go at the end.
  bool mGenerateAsParsed;

 private:
  Compiler(Compiler const&) = delete;
  Compiler& operator=(Compiler const&) = delete;

  // Makes the context of one compilation (it installs itself as gContext).
  SrcContext* CreateCompilationContext(string const& name);
  // The target constants and the byte order as Boolean constants.
  void AddIntrinsicConstantDeclarations(GlobalSymbolTable* symbols,
                                        SrcContext* context);
  // Compile without its guard: a failed allocation comes out as
  // std::bad_alloc, after everything of the compilation has been freed.
  Ref<CodeModule> CompileOrThrow(string const& source, string const& name,
                                 GlobalSymbolTable* symbols);
  // Runs the front end and the back end over the context; nil on failure.
  Ref<CodeModule> ParseAndGenerate(string const& source, string const& name,
                                   SrcContext* context);
  // Parses the text into the context's program code; false on failure.
  bool RunFrontEnd(string const& source);
  // Turns the context's program code into a module; nil on failure.
  Ref<CodeModule> RunBackEnd(string const& name);
  // An IA-32 generator with this compilation's options.
  CGIA32* NewIA32Generator();
  void HandOverToModule(CodeModule* module, SrcContext* context);

  CompilerDelegate* mDelegate;
};

#endif
