// The lexer's private parts, shared by its source files: byte reading, the
// location of the token being read, the statement tracking that tells an
// assignment from a comparison, and the scanners of each token family.
#ifndef COMPILER_FRONTEND_LEXERINTERNAL_H
#define COMPILER_FRONTEND_LEXERINTERNAL_H

#include <stdint.h>

#include "Compiler/Frontend/Lexer.h"
#include "Compiler/SourceLocation.h"

// The byte at pos as a signed value, advancing; at the NUL it returns 0
// and stays.
int nextchar();
// Steps back one byte, unless `c` is the NUL (which was not consumed).
void putback(int c);
// Advances to the next CR, LF or NUL without consuming it.
void flushline();
// Counts a consumed line end; returns the line end token.
int endline();

// Reads one token whose first byte is `c`; no line continuation.
int read_next_token(int c);
// One token with line continuation: "_" before a line end vanishes.
int yylex_ex();

// Where the token being read lies; its end is filled in by the scanners.
extern SourceLocation sTokenLocation;
// Sets the end of sTokenLocation to the current position.
void EndTokenLocation();

// The statement tracking, applied at parenthesis depth 0 only.
void ClearCanAssignAtDepthZero();
void TrackDeliveredWord(int token);

// Appends bytes to tokenbuf, never past its end, keeping a terminator.
class TokenText {
 public:
  TokenText() : mLength(0) { tokenbuf[0] = 0; }
  void Add(int c);
  // Appends as many of the bytes as fit.
  void AddBytes(char const* bytes, unsigned int count);
  unsigned int Length() const { return mLength; }

 private:
  unsigned int mLength;
};

// Byte classes of the scanners.
inline bool IsDigit(int c) { return c >= '0' && c <= '9'; }
inline bool IsLetter(int c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
// Bytes that continue a name: letters, digits, "_" and every byte with the
// top bit set (UTF-8 sequences).
inline bool IsWordByte(int c) {
  return IsLetter(c) || IsDigit(c) || c == '_' || (c & 0x80) != 0;
}
int HexDigitValue(int c);  // -1 for a byte that is no hex digit

// True while tokens are skimmed (see SkimmedTokens): the families read
// over names and literals but make no value.
extern bool sSkimming;

// The token families; each is entered with the first byte consumed.
int IdentifierToken(int first);
int DirectiveToken();
int NumericLiteralToken(int first);
int FractionLiteralToken();       // "." followed by a digit
int RadixLiteralToken();          // after "&"
int StringLiteralToken();         // after the opening quote
int EscapedStringLiteralToken();  // after the backslash and quote
// The comment routine: skips the rest of the line and reads the next token,
// which is the line end.
int CommentToken();

// The keyword's token number, or 0 when the word is no keyword.
int KeywordToken(string const& word);

// A word of the source: its text, tagged UTF-8 and shared by every token
// that spells it the same, and its keyword token or 0.
struct LexerWord {
  string const* text;
  int token;
};
// The word of these bytes; its text stays valid until the next call.
LexerWord FindLexerWord(char const* bytes, unsigned int length);

#endif
