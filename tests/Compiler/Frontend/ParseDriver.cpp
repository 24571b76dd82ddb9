#include "ParseDriver.h"

#include <dirent.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "Compiler/Frontend/Lexer.h"
#include "Compiler/Frontend/ParserSupport.h"
#include "Compiler/Frontend/SrcContext.h"

ParseOutcome ParseWith(std::string const& text, TestDelegate* delegate,
                       bool appendLineEnd) {
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

bool IsGrammarError(int code) {
  static int const kCodes[] = {1,  5,  43, 44, 45, 46, 62, 65, 68,
                               86, 87, 95, 96, 97, 98, 99, 100};
  for (int c : kCodes)
    if (c == code) return true;
  return false;
}

ParseOutcome ParseText(std::string const& text, bool withDelegate) {
  TestDelegate delegate;
  return ParseWith(text, withDelegate ? &delegate : nullptr);
}

std::vector<int> ErrorCodes(ParseOutcome const& outcome) {
  std::vector<int> codes;
  for (auto const& e : outcome.errors) codes.push_back(e.first);
  return codes;
}

std::string ReadFile(std::string const& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

std::vector<std::string> CorpusFiles() {
  std::vector<std::string> files;
  std::string dir = QUORL_CORPUS_DIR;
  DIR* d = opendir(dir.c_str());
  if (!d) return files;
  while (dirent* entry = readdir(d)) {
    std::string name = entry->d_name;
    if (name.size() > 4 && name.substr(name.size() - 4) == ".bas")
      files.push_back(dir + "/" + name);
  }
  closedir(d);
  std::sort(files.begin(), files.end());
  return files;
}
