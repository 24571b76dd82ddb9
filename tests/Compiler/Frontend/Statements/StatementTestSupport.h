// Compiles a program the way the engine does (declaration scan, merge,
// resolve, then the grammar pass against the global table) and keeps the
// listing of the program code and the compile errors.
#ifndef TESTS_COMPILER_FRONTEND_STATEMENTS_STATEMENTTESTSUPPORT_H
#define TESTS_COMPILER_FRONTEND_STATEMENTS_STATEMENTTESTSUPPORT_H

#include <string>
#include <utility>
#include <vector>

#include "Compiler/Frontend/LanguageOptions.h"
#include "ListingSections.h"

struct CompiledProgram {
  int status = -1;  // the parser's result
  std::string listing;
  // Each compile error: its number and its start line, from 0.
  std::vector<std::pair<int, unsigned>> errors;
  // The lines of the listing without their source line column, trimmed.
  std::vector<std::string> Lines() const;
  // How many listing lines contain `text`.
  int Count(std::string const& text) const;
  // The index of the first line containing `text` at or after `from`, or -1.
  int Find(std::string const& text, int from = 0) const;
  std::vector<int> ErrorCodes() const;
  // Where the body of the main program ("% main") or of the method whose
  // link name begins with `name` stands in Lines(): its Enter line, its
  // statements past the prologue, its exit label and its last line.
  listing::Section Body(std::string const& name = "% main") const;
  // The lines of that body's statements, without prologue, exit label and
  // epilogue.
  std::vector<std::string> Statements(
      std::string const& name = "% main") const;
};

// `text` gets a line feed appended. `options` are the initial pragmas.
CompiledProgram CompileProgramText(std::string const& text,
                                   LanguageOptions options = LanguageOptions());

#endif

class GlobalSymbolTable;
class MethodSymbol;
class SemBase;
class SrcContext;

// The declarations of `text`, scanned and resolved, with a compilation
// context open on them (the global module entered), for calling the
// actions directly. Compile errors are kept.
class DeclaredProgram {
 public:
  explicit DeclaredProgram(std::string const& text);
  ~DeclaredProgram();
  // The methods of the global module of this name, newest first.
  std::vector<MethodSymbol*> Methods(char const* name) const;
  // A value of `type` held in a fresh variable, or a literal constant.
  SemBase* Variable(char const* typeName);
  // A variable of the declared type (class, interface...) of this name.
  SemBase* VariableOfDeclared(char const* typeName);
  // The methods of the declared class or interface of this name.
  std::vector<MethodSymbol*> MemberMethods(char const* typeName,
                                           char const* name) const;
  // Enters the declared class of this name, as its body does.
  void EnterClass(char const* typeName);
  SemBase* Constant(long value);
  SemBase* Constant(double value);
  // The listing of code.
  static std::string Listing(SemBase* code);
  std::vector<int> ErrorCodes() const;

 private:
  GlobalSymbolTable* mGlobal;
  SrcContext* mContext;
  struct Recorder;
  Recorder* mRecorder;
};
