// The lexer's core: the position record, byte reading, line ends, the
// dispatch on a token's first byte, line continuation and the statement
// tracking that makes an "=" an assignment or a comparison.
#include "Compiler/Frontend/Lexer.h"

#include <string.h>

#include "Compiler/CompilationState.h"
#include "Compiler/Frontend/LexerInternal.h"
#include "Compiler/InterRep.h"
#include "Compiler/SemBase.h"

// The parser's position. Set by InitLexer at the start of each compilation
// (and of each declaration scan, which restores it); never freed.
LexerState sState;
// The text of the last token read; overwritten by every token.
char tokenbuf[kTokenBufferSize];
// Made by each InitLexer; swept with the compilation's semantic values.
SemBase* kNullSemBase = nullptr;
// Set at the start of every token by read_next_token.
SourceLocation sTokenLocation;

void InitLexer(char const* text) {
  MakeSharedOperands();
  sState = LexerState();
  sState.text = text;
  sState.atLineStart = 1;
  sState.canAssign = 1;
  char const* end = text + strlen(text);
  for (char const* p = text; (p = static_cast<char const*>(
                                  memchr(p, '\n', size_t(end - p)))) != nullptr;
       p++)
    sState.totalLines++;
  tokenbuf[0] = 0;
  kNullSemBase = SemBase::New();
  yylval = kNullSemBase;
}

unsigned int current_line() { return sState.tokenLine; }

// Symbols and semantic values, below the front end, take their line from
// here.
[[maybe_unused]] static bool const sLineReaderInstalled =
    (SetSourceLineReader(current_line), true);
unsigned int total_lines() { return sState.totalLines; }
int ByteOffsetFromLineStart() { return int(sState.pos - sState.lineStart); }

int nextchar() {
  signed char c = sState.text[sState.pos];
  if (c) sState.pos++;
  return c;
}

void putback(int c) {
  if (c) sState.pos--;
}

void flushline() {
  char c;
  while ((c = sState.text[sState.pos]) != 0 && c != '\r' && c != '\n')
    sState.pos++;
}

int endline() {
  sState.lexLine++;
  sState.lineStart = sState.pos;
  return kTokEOL;
}

void TokenText::Add(int c) {
  if (mLength + 1 >= kTokenBufferSize) return;
  tokenbuf[mLength++] = char(c);
  tokenbuf[mLength] = 0;
}

bool sSkimming = false;

SkimmedTokens::SkimmedTokens() : mWasSkimming(sSkimming) { sSkimming = true; }
SkimmedTokens::~SkimmedTokens() { sSkimming = mWasSkimming; }

void TokenText::AddBytes(char const* bytes, unsigned int count) {
  unsigned int room = kTokenBufferSize - 1 - mLength;
  if (count > room) count = room;
  memcpy(tokenbuf + mLength, bytes, count);
  mLength += count;
  tokenbuf[mLength] = 0;
}

void EndTokenLocation() {
  sTokenLocation.mEndLine = sState.lexLine;
  sTokenLocation.mEndOffset = ByteOffsetFromLineStart();
}

void ClearCanAssignAtDepthZero() {
  if (sState.parenDepth == 0) sState.canAssign = 0;
}

// Names (and Self, Me, Super) count toward "one dotted name"; any other
// word rules an assignment out. Then and Else start a new statement.
void TrackDeliveredWord(int token) {
  if (sState.parenDepth != 0) return;
  if (token == kTokIdent || token == kTokSelf || token == kTokMe ||
      token == kTokSuper)
    sState.identCount++;
  else
    sState.canAssign = 0;
  if (token == kTokThen || token == kTokElse) {
    sState.identCount = 0;
    sState.canAssign = 1;
  }
}

int CommentToken() {
  flushline();
  return yylex_ex();
}

namespace {

// The first "=" of a statement that so far is one dotted name assigns.
int EqualsToken() {
  if (sState.parenDepth == 0 && sState.canAssign) {
    sState.canAssign = 0;
    if (sState.identCount == 1) return kTokAssign;
  }
  return '=';
}

int DotToken() {
  int c = nextchar();
  putback(c);
  if (IsDigit(c)) return FractionLiteralToken();
  if (sState.parenDepth == 0) sState.identCount--;
  return '.';
}

int CompareToken(int first) {
  int c = nextchar();
  if (c == '=') return first == '>' ? kTokGE : kTokLE;
  if (first == '<' && c == '>') return kTokNE;
  putback(c);
  return first;
}

// A tilde starts a name only at the start of a word: `~Name` is one name,
// while in `a~b` the tilde is a character of its own.
bool IsLeadingTilde() {
  return sState.pos < 2 || !IsWordByte(sState.text[sState.pos - 2]);
}

int SlashOrComment() {
  int c = nextchar();
  if (c == '/') return CommentToken();
  putback(c);
  return '/';
}

int BackslashOrString() {
  int c = nextchar();
  if (c == '"') return EscapedStringLiteralToken();
  putback(c);
  return '\\';
}

}  // namespace

int read_next_token(int c) {
  sState.tokenLine = sState.lexLine;
  int offset = ByteOffsetFromLineStart() - 1;
  sTokenLocation =
      SourceLocation(sState.tokenLine, offset, sState.tokenLine, offset);
  if (c == 0) return kTokEndOfText;
  if (IsLetter(c) || c == '_' || (c & 0x80) || (c == '~' && IsLeadingTilde()))
    return IdentifierToken(c);
  if (IsDigit(c)) return NumericLiteralToken(c);
  switch (c) {
    case '/':
      return SlashOrComment();
    case '\'':
      return CommentToken();
    case '"':
      return StringLiteralToken();
    case '\\':
      return BackslashOrString();
    case '>':
    case '<':
      return CompareToken(c);
    case '.':
      return DotToken();
    case '#':
      return DirectiveToken();
    case '&':
      ClearCanAssignAtDepthZero();
      return RadixLiteralToken();
    case ',':
      ClearCanAssignAtDepthZero();
      return ',';
    case '=':
      return EqualsToken();
    case '(':
      sState.parenDepth++;
      return '(';
    case ')':
      sState.parenDepth--;
      return ')';
    case '\n':
      return endline();
    case '\r': {
      int next = nextchar();
      if (next != '\n') putback(next);
      return endline();
    }
    default:
      return c;
  }
}

namespace {

int NextNonBlank() {
  int c;
  do c = nextchar();
  while (c == ' ' || c == '\t');
  return c;
}

}  // namespace

// A "_" followed (after blanks and perhaps a comment) by a line end joins
// the lines: both vanish, the line count goes on. A "_" followed by
// anything else is delivered as such and is a syntax error.
int yylex_ex() {
  int token = read_next_token(NextNonBlank());
  if (token != kTokContinuation) return token;
  LexerState saved = sState;
  SemBase* savedValue = yylval;
  SourceLocation savedLocation = sTokenLocation;
  if (read_next_token(NextNonBlank()) == kTokEOL) return yylex_ex();
  sState = saved;
  yylval = savedValue;
  sTokenLocation = savedLocation;
  return kTokContinuation;
}

// Blank lines give no token, consecutive line ends one. A line end resets
// the statement tracking.
int GetToken() {
  yylval = kNullSemBase;
  int token = yylex_ex();
  while (sState.atLineStart && token == kTokEOL) token = yylex_ex();
  sState.atLineStart = (token == kTokEOL);
  if (token == kTokEOL) {
    sState.canAssign = 1;
    sState.parenDepth = 0;
    sState.identCount = 0;
  }
  return token;
}
