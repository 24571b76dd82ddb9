// The compiler's front door and the one way it speaks to its caller.
#ifndef COMPILER_COMPILER_H
#define COMPILER_COMPILER_H

#include "Compiler/Frontend/ParserError.h"
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
