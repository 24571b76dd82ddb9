// Runs the lexer and the parser over a text in a fresh compilation context.
#ifndef TESTS_COMPILER_FRONTEND_PARSEDRIVER_H
#define TESTS_COMPILER_FRONTEND_PARSEDRIVER_H

#include <dirent.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "Compiler/Frontend/LanguageOptions.h"
#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/ParserSupport.h"
#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/compiler.h"

typedef std::vector<std::pair<int, unsigned>> Errors;  // number, 0-based line

struct ParseOutcome {
  int status = -1;  // yyparse's result: 0 accepted, 1 aborted, 2 overflow
  Errors errors;
  LanguageOptions options;  // the pragma state at the end of the parse
  bool errorFlag = false;
};

// Keeps only the reports of the lexer, the grammar's rules and the
// directives (these texts have no declarations); may cancel at progress.
class TestDelegate : public CompilerDelegate {
 public:
  int CompilerFrontendProgress(unsigned int, unsigned int) override {
    mProgressCalls++;
    return mCancel ? 1 : 0;
  }
  int CompilerError(CompileError error) override {
    static int const kCodes[] = {1,  5,  43, 44, 45, 46, 62, 65, 68,
                                 86, 87, 95, 96, 97, 98, 99, 100};
    for (int c : kCodes)
      if (c == int(error.Type()))
        mErrors.push_back(std::make_pair(c, error.Location().mStartLine));
    return 0;
  }
  bool mCancel = false;
  int mProgressCalls = 0;
  Errors mErrors;
};

// Appends a line feed unless `appendLineEnd` is false; without a delegate
// the parse stops at the first error.
inline ParseOutcome ParseWith(std::string const& text, TestDelegate* delegate,
                              bool appendLineEnd = true) {
  std::string buffer = appendLineEnd ? text + "\n" : text;
  SrcContext* context = new SrcContext;
  context->mDelegate = delegate;
  InitLexer(buffer.c_str());
  ParseOutcome outcome;
  outcome.status = yyparse();
  outcome.options = context->mOptions;
  outcome.errorFlag = context->mErrorFlag != 0;
  delete context;
  if (delegate) outcome.errors = delegate->mErrors;
  return outcome;
}

inline ParseOutcome ParseText(std::string const& text, bool withDelegate = true) {
  TestDelegate delegate;
  return ParseWith(text, withDelegate ? &delegate : nullptr);
}

// The texts of the corpus .bas files, sorted by name.
inline std::vector<std::string> CorpusTexts() {
  std::vector<std::string> files, texts;
  std::string dir = QUORL_CORPUS_DIR;
  if (DIR* d = opendir(dir.c_str())) {
    while (dirent* entry = readdir(d)) {
      std::string name = entry->d_name;
      if (name.size() > 4 && name.substr(name.size() - 4) == ".bas")
        files.push_back(dir + "/" + name);
    }
    closedir(d);
  }
  std::sort(files.begin(), files.end());
  for (std::string const& file : files) {
    std::ifstream in(file, std::ios::binary);
    texts.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  return texts;
}

#endif
