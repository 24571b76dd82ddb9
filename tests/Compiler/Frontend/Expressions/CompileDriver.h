// Compiles a small program as the engine does up to the back end
// (declaration scan, merge, resolution, grammar with its actions) and gives
// its three-address code as listing lines, blanks squeezed and temporaries
// numbered t1, t2... in order of appearance, and its compile errors.
#ifndef TESTS_COMPILER_FRONTEND_EXPRESSIONS_COMPILEDRIVER_H
#define TESTS_COMPILER_FRONTEND_EXPRESSIONS_COMPILEDRIVER_H

#include <algorithm>
#include <string>
#include <vector>

#include "../Statements/ListingSections.h"

struct ReportedError {
  int code;
  unsigned line;  // from 0
  std::vector<std::string> arguments;
};

struct CompiledProgram {
  int status = -1;  // yyparse's result
  std::vector<ReportedError> errors;
  std::vector<std::string> numbered, code, body;  // code: every line; body: the main statements

  std::vector<int> ErrorCodes() const {
    std::vector<int> codes;
    for (auto const& e : errors) codes.push_back(e.code);
    return codes;
  }
  std::vector<std::string> Lines(std::string const& opcode) const {
    std::vector<std::string> found;
    for (auto const& line : body)
      if (listing::IsPhaseLine(line, opcode)) found.push_back(line);
    return found;
  }
  bool Has(std::string const& fragment) const {  // in a line of `body`
    for (auto const& line : body)
      if (line.find(fragment) != std::string::npos) return true;
    return false;
  }
  std::vector<std::string> Opening(size_t n) const {  // first n of `body`
    return std::vector<std::string>(body.begin(), body.begin() + std::min(n, body.size()));
  }
  int Count(std::string const& text) const {  // lines of `code` containing it
    return int(std::count_if(code.begin(), code.end(), [&text](std::string const& line) {
      return line.find(text) != std::string::npos;
    }));
  }
  int Find(std::string const& text, int from = 0) const {  // in `code`, or -1
    for (int i = from; i < int(code.size()); i++)
      if (code[i].find(text) != std::string::npos) return i;
    return -1;
  }
  bool InOrder(std::vector<std::string> const& fragments, int from = 0) const {
    int at = from - 1;
    for (std::string const& f : fragments)
      if ((at = Find(f, at + 1)) < 0) return false;
    return true;
  }
  listing::Section Body(std::string const& name = "% main") const {
    return listing::FindBody(code, name);
  }
  std::string Listing() const {
    std::string all;
    for (auto const& line : numbered) all += line + "\n";
    return all;
  }
};

CompiledProgram CompileSource(std::string const& text);

#define EXPECT_HAS(program, fragment) \
  EXPECT_TRUE((program).Has(fragment)) << (program).Listing()

#endif
