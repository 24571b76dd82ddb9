#include "Compiler/Frontend/ParserSupport.h"

#include "Compiler/CompilerDelegate.h"
#include "Compiler/Frontend/BlockContext.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/LexerInternal.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Universal/Assertion.h"
#include "Compiler/SymbolTable/SymbolTable.h"
#include "Universal/ByteHelpers.h"

// The lookahead token of the generated parser; 0 or below at the end of
// the text.
extern int yychar;

namespace {
char const kStackOverflowText[] = "parser stack overflow";

// What closes a block of each type, for the report of one left open.
char const* ClosingWords(BlockContext::Type type) {
  switch (type) {
    case BlockContext::kModule: return "End Module";
    case BlockContext::kClass: return "End Class";
    case BlockContext::kStructure: return "End Structure";
    case BlockContext::kEnum: return "End Enum";
    case BlockContext::kProperty: return "End Property";
    case BlockContext::kIf: return "End If";
    case BlockContext::kSelectCase: return "End Select";
    case BlockContext::kSub: return "End Sub";
    case BlockContext::kFunction: return "End Function";
    case BlockContext::kFor: return "Next";
    case BlockContext::kDo: return "Loop";
    case BlockContext::kWhile: return "Wend";
    default: return nullptr;
  }
}

// The text ended inside a block: the fault is the block that was never
// closed, so the report stands at its opening line. False when no block
// but the program's own is open.
bool ReportBlockLeftOpen() {
  BlockContextList const& blocks = gContext->blocks;
  if (!blocks.Depth()) return false;
  BlockContext const& top = blocks.Top();
  char const* closing = ClosingWords(top.GetType());
  bool programBlock = top.GetSymbol() && top.GetSymbol()->IsA(Symbol::kGlobal);
  if (!closing || programBlock) return false;
  SimpleVector<string> arguments;
  arguments.push_back(string("no ") + string(closing) +
                      string(" before the end of the text"));
  Error(kErrorSyntax, SourceLocation(top.OpeningLine()), arguments);
  return true;
}

// The longest token quoted in a syntax error; a longer one is not named.
int const kLongestQuotedToken = 40;

// The token the parser could not take marks the place and is named: the
// lexer stands right after it.
void ReportUnexpectedToken() {
  SourceLocation where = sTokenLocation;
  if (where.mStartLine != current_line() || where.mStartOffset < 0) {
    Error(kErrorSyntax, SourceLocation(current_line()));
    return;
  }
  SimpleVector<string> arguments;
  int length = ByteOffsetFromLineStart() - where.mStartOffset;
  bool sameLine = sState.lexLine == where.mStartLine;
  if (yychar == kTokEOL) {
    arguments.push_back(string("unexpected end of line"));
  } else if (sameLine && length > 0 && length <= kLongestQuotedToken) {
    string token;
    token.ConstructFromBuffer(sState.text + sState.lineStart + where.mStartOffset,
                              (unsigned int)length);
    arguments.push_back(string("unexpected ") + token);
  }
  if (sameLine && length > 0) {
    where.mEndLine = where.mStartLine;
    where.mEndOffset = where.mStartOffset + length;
  }
  Error(kErrorSyntax, where, arguments);
}

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
  if (yychar <= 0 && ReportBlockLeftOpen()) return;
  ReportUnexpectedToken();
}

bool ResumeAfterTopLevelError() {
  if (CheckDelegate()) return false;
  BlockContextList const& blocks = gContext->blocks;
  return blocks.Depth() == 0 ||
         (blocks.Depth() == 1 && blocks.Top().GetSymbol() &&
          blocks.Top().GetSymbol()->IsA(Symbol::kGlobal));
}

bool CheckDelegate() {
  QASSERT(gContext);
  if (gContext->mDelegate)
    return gContext->mDelegate->CompilerFrontendProgress(current_line(),
                                                         total_lines()) != 0;
  return gContext->mErrorFlag != 0;
}
