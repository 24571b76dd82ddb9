// The declaration scanner's lexer: a private position over a private copy
// of the text, swapped in for the parser's around each token.
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Frontend/TacLiteralPool.h"
#include "Compiler/SemBase.h"

namespace {

// The literals of declaration scans that run with no compilation context.
// Made on first need; lives as long as the process.
TacLiteralPool* sScanPool = nullptr;

// Installs a private record for the lifetime of the object and puts the
// parser's position back at its end.
class SwappedState {
 public:
  explicit SwappedState(LexerState* mine)
      : mMine(mine), mSaved(sState), mSavedValue(yylval) {
    sState = *mine;
  }
  ~SwappedState() {
    *mMine = sState;
    sState = mSaved;
    yylval = mSavedValue;
  }

 private:
  LexerState* mMine;
  LexerState mSaved;
  SemBase* mSavedValue;
};

}  // namespace

TacLiteralPool* CurrentTLP() {
  if (gContext) return gContext;
  if (!sScanPool) sScanPool = new TacLiteralPool;
  return sScanPool;
}

Lexer::Lexer(string const& source)
    : mState(new LexerState()),
      mText(source.GetUTF8String()),
      mToken(0),
      mTokenStart(0) {
  Reset();
}

Lexer::~Lexer() { delete mState; }

// InitLexer replaces the keyword placeholder too; the parser keeps its own.
void Lexer::Reset() {
  LexerState saved = sState;
  SemBase* savedValue = yylval;
  SemBase* savedPlaceholder = kNullSemBase;
  InitLexer(mText.CString());
  *mState = sState;
  sState = saved;
  yylval = savedValue;
  kNullSemBase = savedPlaceholder;
}

bool Lexer::NextToken() {
  SwappedState swap(mState);
  mTokenStart = sState.pos;
  mToken = GetToken();
  mTokenText = string(tokenbuf);
  return mToken != kTokEndOfText;
}

void Lexer::SetLexerPosition(unsigned int pos) {
  unsigned int length = (unsigned int)mText.Length();
  mState->pos = pos < length ? pos : length;
}

unsigned int Lexer::Position() const { return mState->pos; }
unsigned int Lexer::Line() const { return mState->tokenLine; }
