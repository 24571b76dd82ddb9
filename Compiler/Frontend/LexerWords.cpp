// Words: identifiers, keywords and directives.
#include "Compiler/Frontend/LexerInternal.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/SemBase.h"
#include "Universal/ByteHelpers.h"
#include "Universal/stringmap.h"

// The keyword texts in token order, null-terminated: index i is token
// 258 + i.
char const* const tokentable[] = {
#define QUORL_KEYWORD_TEXT(enumerator, grammarName, text) text,
    QUORL_KEYWORDS(QUORL_KEYWORD_TEXT)
#undef QUORL_KEYWORD_TEXT
        nullptr,
};

namespace {

// Keyword text to token number, case-insensitive; built on first use and
// kept for the life of the process.
StringMap<int>* sTokenMap = nullptr;

StringMap<int>& TokenMap() {
  if (!sTokenMap) {
    sTokenMap = new StringMap<int>;
    for (int i = 0; tokentable[i]; i++)
      sTokenMap->AddEntry(tokentable[i], kTokFirstKeyword + i);
  }
  return *sTokenMap;
}

// The word from `start` to the current position; tokenbuf receives as much
// of it as fits.
LexerWord CollectWord(unsigned int start) {
  TokenText text;
  text.AddBytes(sState.text + start, sState.pos - start);
  return FindLexerWord(sState.text + start, sState.pos - start);
}

SemBase* BooleanLiteral(bool value) {
  IRValue v = IRValue::SInt32(value ? 1 : 0);
  TacAddr const* addr = CurrentTLP()->GetLiteral(v, IRDataType(kBooleanType));
  return SemValue::New(addr, &sTokenLocation);
}

// lexer_strcmpi: the directive comparison, through the byte case map.
bool SameDirective(char const* a, char const* b) { return ustrcmpi(a, b) == 0; }

}  // namespace

int KeywordToken(string const& word) {
  int token = 0;
  if (TokenMap().GetEntry(word, token)) return token;
  return 0;
}

int IdentifierToken(int first) {
  unsigned int start = sState.pos - 1;
  int c;
  while (IsWordByte(c = nextchar())) {
  }
  putback(c);
  EndTokenLocation();
  LexerWord found = CollectWord(start);
  string const& word = *found.text;
  int token = found.token;
  if (token == kTokRem) return CommentToken();
  if (token == kTokTrue || token == kTokFalse) {
    if (!sSkimming) yylval = BooleanLiteral(token == kTokTrue);
  } else if (token == 0) {
    if (word.Length() == 1 && word[0] == '_') return kTokContinuation;
    if (!sSkimming) yylval = SemIdentifier::New(word, sTokenLocation);
    token = kTokIdent;
  }
  TrackDeliveredWord(token);
  return token;
}

// "#" and the letters, digits and "_" after it; an unknown directive is
// swallowed whole and delivered as "#", which no rule accepts.
int DirectiveToken() {
  sState.canAssign = 0;
  TokenText text;
  text.Add('#');
  int c;
  while (IsLetter(c = nextchar()) || IsDigit(c) || c == '_') text.Add(c);
  putback(c);
  EndTokenLocation();
  if (SameDirective(tokenbuf, "#pragma")) return kTokPragmaDirective;
  if (SameDirective(tokenbuf, "#if")) return kTokIfDirective;
  if (SameDirective(tokenbuf, "#elseif")) return kTokElseIfDirective;
  if (SameDirective(tokenbuf, "#else")) return kTokElseDirective;
  if (SameDirective(tokenbuf, "#endif")) return kTokEndIfDirective;
  return '#';
}
