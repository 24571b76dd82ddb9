// The one way a compilation speaks to whoever started it: progress, which
// may cancel it, and compile errors as they are found. The front end, the
// back ends and the declaration scanner all report through it.
#ifndef COMPILER_COMPILERDELEGATE_H
#define COMPILER_COMPILERDELEGATE_H

#include "Compiler/CompileError.h"
#include "Universal/ustring.h"

// What a compilation reports to whoever started it. Progress calls may cancel
// the compilation by returning non-zero.
class CompilerDelegate {
 public:
  // From the parser's periodic check; non-zero cancels.
  virtual int CompilerFrontendProgress(unsigned int line, unsigned int total) { return 0; }
  // Reserved: nothing calls it.
  virtual int CompilerOptimizerProgress(unsigned int done, unsigned int total) { return 0; }
  // From the code generator once per line; non-zero cancels.
  virtual int CompilerBackendProgress(unsigned int done, unsigned int total) { return 0; }
  // Once per compile error, as it is found.
  virtual int CompilerError(CompileError error) { return 0; }
  // Reserved: nothing calls it.
  virtual void CompilerFailed(string reason) {}

 protected:
  // Never deleted through this face: its owner knows the whole object.
  ~CompilerDelegate() {}
};

#endif
