// Reading past text the parser must not see: the rest of a line, the rest
// of a method, and the false branches of conditional compilation. The
// skipped text is fully scanned, token by token, so it must still be
// lexically sound.
#include "Compiler/Frontend/LexerInternal.h"
#include "Compiler/SemBase.h"

namespace {

// A token read ahead and then taken back: the position, the value and the
// token's text as they were.
class Lookahead {
 public:
  Lookahead() : mState(sState), mValue(yylval), mLocation(sTokenLocation) {}
  void Restore() {
    sState = mState;
    yylval = mValue;
    sTokenLocation = mLocation;
  }

 private:
  LexerState mState;
  SemBase* mValue;
  SourceLocation mLocation;
};

}  // namespace

bool IsAtEndOfLine() {
  Lookahead before;
  int token = GetToken();
  before.Restore();
  return token == kTokEOL;
}

// Stops before the line end. The end of the text stops it too, so that a
// text without a final line end cannot hang the parser.
void IgnoreRestOfLine() {
  for (;;) {
    Lookahead before;
    int token = GetToken();
    if (token == kTokEOL || token == 0 || token == kTokEndOfText) {
      before.Restore();
      return;
    }
  }
}

void SkipToEndOfMethod() {
  Lookahead before;
  int token;
  while ((token = GetToken()) != kTokEndOfText) {
    if (token == kTokEnd) {
      token = GetToken();
      if (token == kTokSub || token == kTokFunction) break;
      if (token == kTokEndOfText) break;
    }
    before = Lookahead();
  }
  before.Restore();
}

// A method's end ends the skip even inside a false branch, and stays to be
// read, so that the method can close; nested #if blocks are counted.
void SkipConditionallyCompiledLines(bool skipToEnd) {
  int nesting = 0;
  bool afterEnd = false;
  Lookahead beforeEnd;
  for (;;) {
    Lookahead before;
    int token = GetToken();
    if (token == kTokEndOfText) return;
    if (afterEnd && (token == kTokSub || token == kTokFunction)) {
      beforeEnd.Restore();
      return;
    }
    afterEnd = (token == kTokEnd);
    if (afterEnd) beforeEnd = before;
    if (token == kTokIfDirective) {
      nesting++;
    } else if (token == kTokEndIfDirective) {
      if (nesting == 0) {
        before.Restore();
        return;
      }
      nesting--;
    } else if (nesting == 0 && !skipToEnd) {
      if (token == kTokElseDirective) {
        GetToken();
        return;
      }
      if (token == kTokElseIfDirective) {
        before.Restore();
        return;
      }
    }
  }
}
