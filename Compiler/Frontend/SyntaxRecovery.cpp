#include "Compiler/Frontend/SyntaxRecovery.h"

#include "Compiler/Frontend/BlockContext.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/LexerInternal.h"
#include "Compiler/Frontend/ParserError.h"
#include "Compiler/Frontend/ParserSupport.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SymbolTable/SymbolTable.h"
#include "Universal/ByteHelpers.h"

// The lookahead token of the generated parser; 0 or below at the end of
// the text.
extern int yychar;

namespace {

// The longest token quoted in a syntax error; a longer one is not named.
int const kLongestQuotedToken = 40;

SyntaxRecoveryState& Recovery() { return gContext->mSyntaxRecovery; }

// The first and last words of line `line` (from 0) of the text being
// parsed, before any comment, and where the first one starts.
struct LineWords {
  string first;
  string last;
  int firstOffset = -1;
};

bool IsWordByte(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
         (c >= '0' && c <= '9') || c == '_';
}

LineWords WordsOfLine(unsigned int line) {
  char const* p = sState.text;
  for (unsigned int n = 0; n < line && *p; n++) {
    while (*p && *p != '\n') p++;
    if (*p) p++;
  }
  LineWords words;
  char const* start = p;
  bool inString = false;
  while (*p && *p != '\n' && *p != '\r') {
    if (*p == '"') inString = !inString;
    bool comment = *p == '\'' || (p[0] == '/' && p[1] == '/');
    if (!inString && comment) break;
    if (inString || !IsWordByte(*p)) {
      p++;
      continue;
    }
    char const* word = p;
    while (IsWordByte(*p)) p++;
    string text;
    text.ConstructFromBuffer(word, (unsigned int)(p - word));
    if (words.firstOffset < 0) {
      words.first = text;
      words.firstOffset = int(word - start);
    }
    words.last = text;
  }
  return words;
}

bool IsOneOf(string const& word, char const* const* list) {
  for (; *list; list++)
    if (ustrcmpi(word.CString(), *list) == 0) return true;
  return false;
}

// A line that opens a flow block; a one-line If does not.
bool OpensBlock(LineWords const& words) {
  static char const* const kOpeners[] = {"For", "While", "Do", "Select", "Try", nullptr};
  if (ustrcmpi(words.first.CString(), "If") == 0)
    return ustrcmpi(words.last.CString(), "Then") == 0;
  return IsOneOf(words.first, kOpeners);
}

bool ClosesBlock(LineWords const& words) {
  static char const* const kClosers[] = {"End", "Next", "Wend", "Loop", nullptr};
  return IsOneOf(words.first, kClosers);
}

bool ContinuesBlock(LineWords const& words) {
  static char const* const kMiddles[] = {"Else", "ElseIf", "Case", "Catch", "Finally", nullptr};
  return IsOneOf(words.first, kMiddles);
}

// A line that continues or closes a block whose opening line was given
// up, met at its first word: the echo of that line's error.
bool IsEchoOfAbandonedBlock(SyntaxRecoveryState& recovery) {
  if (!recovery.abandonedBlocks || yychar <= 0) return false;
  LineWords words = WordsOfLine(sTokenLocation.mStartLine);
  if (words.firstOffset != sTokenLocation.mStartOffset) return false;
  if (ClosesBlock(words)) {
    recovery.abandonedBlocks--;
    return true;
  }
  return ContinuesBlock(words);
}

// An End line after a block took the End of another: the End that the
// other one then lacks.
bool IsEchoOfBorrowedEnd(SyntaxRecoveryState& recovery) {
  if (!recovery.borrowedEnds || yychar <= 0) return false;
  if (ustrcmpi(WordsOfLine(sTokenLocation.mStartLine).first.CString(), "End") != 0)
    return false;
  recovery.borrowedEnds--;
  return true;
}

// What closes a flow block of each type, for the report of one left open;
// null for a declaration.
char const* ClosingWords(BlockContext::Type type) {
  switch (type) {
    case BlockContext::kIf: return "End If";
    case BlockContext::kSelectCase: return "End Select";
    case BlockContext::kFor: return "Next";
    case BlockContext::kDo: return "Loop";
    case BlockContext::kWhile: return "Wend";
    default: return nullptr;
  }
}

bool IsProgramBlock(BlockContext const& block) {
  return block.GetSymbol() && block.GetSymbol()->IsA(Symbol::kGlobal);
}

// The text ended inside a block: the fault is the block that was never
// closed, so the report stands at its opening line. A declaration (a
// method, a class...) the text ends in was reported by the declaration
// scanner already, or else its End closed a block inside it, which was
// reported as the block's fault: nothing more is said. False when no block
// but the program's own is open.
bool ReportBlockLeftOpen() {
  BlockContextList const& blocks = gContext->blocks;
  if (!blocks.Depth() || IsProgramBlock(blocks.Top())) return false;
  char const* closing = ClosingWords(blocks.Top().GetType());
  if (!closing) return true;
  SimpleVector<string> arguments;
  arguments.push_back(string("no ") + string(closing) +
                      string(" before the end of the text"));
  Error(kErrorSyntax, SourceLocation(blocks.Top().OpeningLine()), arguments);
  return true;
}

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

void ReportSyntaxError() {
  SyntaxRecoveryState& recovery = Recovery();
  recovery.lastErrorLine = sTokenLocation.mStartLine;
  if (IsEchoOfAbandonedBlock(recovery) || IsEchoOfBorrowedEnd(recovery)) return;
  if (yychar <= 0 && ReportBlockLeftOpen()) return;
  ReportUnexpectedToken();
}

void NoteBlockClosedByAnotherEnd() { Recovery().borrowedEnds++; }

bool ResumeAfterTopLevelError() {
  if (CheckDelegate()) return false;
  BlockContextList const& blocks = gContext->blocks;
  bool onlyTheProgram = blocks.Depth() == 0 ||
                        (blocks.Depth() == 1 && IsProgramBlock(blocks.Top()));
  if (!onlyTheProgram) return false;
  SyntaxRecoveryState& recovery = Recovery();
  if (OpensBlock(WordsOfLine(recovery.lastErrorLine))) recovery.abandonedBlocks++;
  return true;
}
