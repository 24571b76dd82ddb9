#include "Compiler/Frontend/ParserSupport.h"

#include "Compiler/CompilerDelegate.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/SyntaxRecovery.h"
#include "Universal/Assertion.h"
#include "Universal/ByteHelpers.h"

namespace {
char const kStackOverflowText[] = "parser stack overflow";
}  // namespace

char const* ParserMessage(char const* generatorText) {
  if (ustrcmp(generatorText, "memory exhausted") == 0)
    return kStackOverflowText;
  if (ustrcmp(generatorText, "syntax error") == 0) return "parse error";
  return generatorText;
}

void yyerror(char const* message) {
  QASSERT(gContext);
  gContext->mErrorFlag = 1;
  if (ustrcmpi(message, kStackOverflowText) == 0) {
    Error(kErrorParserStackOverflow);
    return;
  }
  ReportSyntaxError();
}

bool CheckDelegate() {
  QASSERT(gContext);
  if (gContext->mDelegate)
    return gContext->mDelegate->CompilerFrontendProgress(current_line(),
                                                         total_lines()) != 0;
  return gContext->mErrorFlag != 0;
}
