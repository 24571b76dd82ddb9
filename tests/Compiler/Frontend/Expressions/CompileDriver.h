// Compiles a small program the way the engine does up to the back end:
// declaration scan, merge into a global table, resolution, then the grammar
// with its actions. Gives the program's three-address code as listing lines
// and the compile errors with their arguments.
#ifndef TESTS_COMPILER_FRONTEND_EXPRESSIONS_COMPILEDRIVER_H
#define TESTS_COMPILER_FRONTEND_EXPRESSIONS_COMPILEDRIVER_H

#include <string>
#include <vector>

struct ReportedError {
  int code;
  unsigned line;  // from 0
  std::vector<std::string> arguments;
};

struct CompiledProgram {
  int status = -1;  // yyparse's result
  bool scanned = false;  // the declaration scan accepted the text
  std::vector<ReportedError> errors;
  // One entry per TAC line: the line's text without its source line.
  std::vector<std::string> code;
  // The same with the source line in front, "3: Add ...".
  std::vector<std::string> numbered;
  // The top-level statements alone: the lines of `code` between the main
  // body's prologue and its exit label, without the frame, the runtime
  // start and exit, and the exception handler around the releases.
  std::vector<std::string> body;

  std::vector<int> ErrorCodes() const;
  // The lines of `body` whose text starts with `opcode` (e.g. "Add", "Cvt").
  std::vector<std::string> Lines(std::string const& opcode) const;
  // Whether a line of `body` contains `fragment`.
  bool Has(std::string const& fragment) const;
  // The first `n` lines of `body`, or all of them when it is shorter.
  std::vector<std::string> Opening(size_t n) const;
  std::string Listing() const;
};

CompiledProgram CompileSource(std::string const& text);

// Expects a listing line that contains `fragment`; shows the listing if not.
#define EXPECT_HAS(program, fragment) \
  EXPECT_TRUE((program).Has(fragment)) << (program).Listing()

#endif
