// Runs the lexer and the parser over a text inside a fresh compilation
// context and collects what they report.
#ifndef TESTS_COMPILER_FRONTEND_PARSEDRIVER_H
#define TESTS_COMPILER_FRONTEND_PARSEDRIVER_H

#include <string>
#include <utility>
#include <vector>

#include "Compiler/Frontend/LanguageOptions.h"
#include "Compiler/compiler.h"

struct ParseOutcome {
  int status = -1;  // yyparse's result: 0 accepted, 1 aborted, 2 overflow
  // Each reported compile error: its number and its 0-based start line.
  std::vector<std::pair<int, unsigned>> errors;
  LanguageOptions options;  // the pragma state at the end of the parse
  bool errorFlag = false;
};

// Parses `text` with a line feed appended, as the script object does.
// Without a delegate the parse stops at the first error.
ParseOutcome ParseText(std::string const& text, bool withDelegate = true);

// The numbers of the errors alone, in order.
std::vector<int> ErrorCodes(ParseOutcome const& outcome);

// Whether the lexer, a grammar rule or a directive raises this error.
bool IsGrammarError(int code);

// A delegate that records errors and may cancel at the first progress
// report.
class TestDelegate : public CompilerDelegate {
 public:
  int CompilerFrontendProgress(unsigned int line, unsigned int total) override {
    mProgressCalls++;
    return mCancel ? 1 : 0;
  }
  // Only the reports of the lexer, the grammar's own rules and the
  // directives are kept: these texts are parsed without declarations, so
  // the semantic actions' reports (unknown names, types) say nothing about
  // the grammar.
  int CompilerError(CompileError error) override {
    if (IsGrammarError(int(error.Type())))
      mErrors.push_back(
          std::make_pair(int(error.Type()), error.Location().mStartLine));
    return 0;
  }
  bool mCancel = false;
  int mProgressCalls = 0;
  std::vector<std::pair<int, unsigned>> mErrors;
};

// Parses with the given delegate; `appendLineEnd` false parses the text
// exactly as given.
ParseOutcome ParseWith(std::string const& text, TestDelegate* delegate,
                       bool appendLineEnd = true);

// The text of a file, for the corpus.
std::string ReadFile(std::string const& path);
// The .bas files of the corpus folder, sorted.
std::vector<std::string> CorpusFiles();

#endif
