#include "Compiler/Frontend/ParserError.h"

#include "Compiler/CompilerDelegate.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/datatypes.h"
#include "Universal/Assertion.h"
#include "Universal/Encodings.h"

namespace {

// Every form ends here: the flag keeps the back end from running, the
// delegate hears of each error as it is found.
void Report(CompileError const& error) {
  QASSERT(gContext);
  gContext->mErrorFlag = 1;
  if (gContext->mDelegate) gContext->mDelegate->CompilerError(error);
}

}  // namespace

void Error(CompileErrorCode code, SourceLocation const& where) {
  Report(CompileError(code, where));
}

void Error(CompileErrorCode code) {
  Error(code, SourceLocation(current_line()));
}

// The arguments travel in the system's encoding, as the host expects text.
void Error(CompileErrorCode code, SourceLocation const& where,
           SimpleVector<string> const& arguments) {
  SimpleVector<string> converted;
  unsigned long encoding = GetSystemEncoding();
  for (unsigned long i = 0; i < arguments.size(); i++)
    converted.push_back(ConvertEncoding(arguments[i], encoding));
  Report(CompileError(code, where, converted));
}

void TypeMismatchError(CompileErrorCode code, SourceLocation const& where,
                       IRDataType const& have, IRDataType const& want) {
  SimpleVector<string> arguments;
  arguments.push_back(have.ToString());
  arguments.push_back(want.ToString());
  Error(code, where, arguments);
}

void TypeMismatchError(SourceLocation const& where, IRDataType const& have,
                       IRDataType const& want) {
  TypeMismatchError(kErrorTypeMismatch, where, have, want);
}
