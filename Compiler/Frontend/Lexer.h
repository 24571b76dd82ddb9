// The lexer: source text to the grammar's tokens.
//
// Hand written, one pass over a NUL-terminated byte buffer, with all its
// position state in one ten-word record. The parser reads the global record
// through GetToken(); the declaration scanner owns a private record in a
// Lexer object and swaps it in around each token, so that both can hold a
// position of their own. Saving and restoring a position is copying the
// record.
//
// The lexer is not context free: it decides whether an "=" assigns or
// compares by following the shape of the statement (LexerState::canAssign
// and identCount). Literals are interned and wrapped in semantic values
// here, so the parser receives ready-made values in yylval.
//
// One compilation at a time: the record, the token buffer and yylval are
// process-wide.
#ifndef COMPILER_FRONTEND_LEXER_H
#define COMPILER_FRONTEND_LEXER_H

#include <stdint.h>

#include "Compiler/Frontend/LexerTokens.h"
#include "Universal/ustring.h"

class SemBase;
class TacLiteralPool;

// Ten 32-bit words, copied as a block.
struct LexerState {
  char const* text;      // start of the source buffer
  uint32_t pos;          // index of the next byte
  uint32_t atLineStart;  // the last token was a line end, or none was given
  uint32_t lexLine;      // line ends consumed so far
  uint32_t tokenLine;    // lexLine when the current token began
  uint32_t lineStart;    // pos just after the last line end
  uint32_t canAssign;    // an "=" here may still be an assignment
  int32_t parenDepth;    // parentheses open on this line
  int32_t identCount;    // names met at depth 0 in this statement
  uint32_t totalLines;   // line feed bytes in the whole text
};
static_assert(sizeof(LexerState) == 40 || sizeof(void*) != 4,
              "the lexer state is ten words");

enum { kTokenBufferSize = 2048 };

// The position of the parser's lexer; set by InitLexer.
extern LexerState sState;
// The text of the current token: NUL-terminated for names and numbers, and
// for strings their first bytes with no terminator added.
extern char tokenbuf[kTokenBufferSize];
// The semantic value of the current token; the keyword placeholder for a
// token without a value. Defined with the parser.
extern SemBase* yylval;
// The value of tokens without one; made anew by each InitLexer, swept with
// the compilation's values.
extern SemBase* kNullSemBase;

// While one stands, tokens come without values: names and literals are
// read over, but no value is made and no literal interned. The declaration
// scan reads method bodies so, as only their token numbers matter to it.
class SkimmedTokens {
 public:
  SkimmedTokens();
  ~SkimmedTokens();

 private:
  SkimmedTokens(SkimmedTokens const&) = delete;
  SkimmedTokens& operator=(SkimmedTokens const&) = delete;
  bool mWasSkimming;
};

// Lets go of the words the lexer keeps for the compilation in progress.
void ForgetLexerWords();
// Starts reading `text` from its beginning; counts its line feeds.
void InitLexer(char const* text);
// The next token number (LexerToken or a character code) of the global
// position, with its value in yylval.
int GetToken();
// The line, counted from 0, on which the current token began.
unsigned int current_line();
// The line feeds of the whole text.
unsigned int total_lines();
// Bytes from the start of the line to the next byte to read.
int ByteOffsetFromLineStart();
// True when the next token is a line end; consumes nothing.
bool IsAtEndOfLine();
// Skips to the end of the line; the line end stays to be read.
void IgnoreRestOfLine();
// Skips to the "End Sub" or "End Function" that closes the method, which
// stays to be read, or to the end of the text.
void SkipToEndOfMethod();
// Skips the lines of a false branch of a conditional: to its "#else" (read
// past; only when `skipToEnd` is false), "#elseif" or "#endif" (left to be
// read), or past a method's end.
void SkipConditionallyCompiledLines(bool skipToEnd);
// The pool that interns literals: the compilation's, or without one a
// process-wide pool made on first need.
TacLiteralPool* CurrentTLP();

// A private lexer position over its own copy of a text, for the declaration
// scanner. Each call swaps its record in for the global one and back, so
// that the parser's position is never disturbed.
class Lexer {
 public:
  explicit Lexer(string const& source);
  ~Lexer();

  // Back to the beginning of the text.
  void Reset();
  // Reads one token into LastToken()/TokenText(); false at the end of the
  // text.
  bool NextToken();
  // Moves the position, clamped to the text's length.
  void SetLexerPosition(unsigned int pos);

  int LastToken() const { return mToken; }
  string const& TokenText() const { return mTokenText; }
  unsigned int TokenStart() const { return mTokenStart; }
  unsigned int Position() const;
  unsigned int Line() const;
  string const& Text() const { return mText; }

 private:
  Lexer(Lexer const&) = delete;
  Lexer& operator=(Lexer const&) = delete;

  LexerState* mState;
  string mText;
  int mToken;
  string mTokenText;
  unsigned int mTokenStart;
};

#endif
