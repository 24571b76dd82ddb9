// The grammar declares its token numbers itself; this file stops the build
// when they drift from the lexer's table.
#include "Compiler/Frontend/LexerTokens.h"
#include "Parser.tab.h"

#define QUORL_CHECK_KEYWORD(enumerator, grammarName, text) \
  static_assert(int(grammarName) == int(enumerator), text);
QUORL_KEYWORDS(QUORL_CHECK_KEYWORD)
#undef QUORL_CHECK_KEYWORD

static_assert(int(TK_BITWISE_A) == int(kTokBitwiseA) &&
                  int(TK_BITWISE_B) == int(kTokBitwiseB),
              "bitwise tokens");
static_assert(int(TK_IDENT) == int(kTokIdent) &&
                  int(TK_INTEGER) == int(kTokInteger) &&
                  int(TK_STRING) == int(kTokString) &&
                  int(TK_ASSIGN) == int(kTokAssign),
              "value tokens");
static_assert(int(TK_GE) == int(kTokGE) && int(TK_LE) == int(kTokLE) &&
                  int(TK_NE) == int(kTokNE),
              "comparison tokens");
static_assert(int(TK_FLOAT) == int(kTokFloat) && int(TK_EOL) == int(kTokEOL) &&
                  int(TK_BADSTRING) == int(kTokBadString) &&
                  int(TK_COLOR) == int(kTokColor) &&
                  int(TK_CONTINUATION) == int(kTokContinuation) &&
                  int(TK_UMINUS) == int(kTokUnaryMinus),
              "special tokens");
