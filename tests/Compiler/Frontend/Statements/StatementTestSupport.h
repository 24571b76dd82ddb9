// Compiles a program as the engine does (declaration scan, merge, resolve,
// grammar pass against the global table) and keeps the listing of the
// program code and the compile errors.
#ifndef TESTS_COMPILER_FRONTEND_STATEMENTS_STATEMENTTESTSUPPORT_H
#define TESTS_COMPILER_FRONTEND_STATEMENTS_STATEMENTTESTSUPPORT_H

#include <string>
#include <utility>
#include <vector>

#include "Compiler/Frontend/LanguageOptions.h"
#include "ListingSections.h"

typedef std::vector<std::pair<int, unsigned>> ErrorList;  // number, line from 0

struct CompiledProgram {
  int status = -1;  // the parser's result
  std::string listing;
  ErrorList errors;
  std::vector<std::string> Lines() const;
  int Count(std::string const& text) const;  // lines containing `text`
  int Find(std::string const& text, int from = 0) const;
  bool InOrder(std::vector<std::string> const& fragments, int from = 0) const {
    int at = from - 1;
    for (std::string const& f : fragments)
      if ((at = Find(f, at + 1)) < 0) return false;
    return true;
  }
  std::vector<int> ErrorCodes() const;
  listing::Section Body(std::string const& name = "% main") const;
  std::vector<std::string> Statements(std::string const& name = "% main") const;
};

CompiledProgram CompileProgramText(std::string const& text,
                                   LanguageOptions options = LanguageOptions());

class GlobalSymbolTable;
class MethodSymbol;
class SemBase;
class SrcContext;
struct StatementRecorder;

class DeclaredProgram {
 public:
  explicit DeclaredProgram(std::string const& text);
  ~DeclaredProgram();
  std::vector<MethodSymbol*> Methods(char const* name) const;  // newest first
  SemBase* Variable(char const* typeName);  // a fresh variable of the type
  SemBase* VariableOfDeclared(char const* typeName);  // of a declared type
  std::vector<MethodSymbol*> MemberMethods(char const* typeName,
                                           char const* name) const;
  void EnterClass(char const* typeName);
  SemBase* Constant(long value);
  SemBase* Constant(double value);
  static std::string Listing(SemBase* code);
  std::vector<int> ErrorCodes() const;

 private:
  GlobalSymbolTable* mGlobal;
  SrcContext* mContext;
  StatementRecorder* mRecorder;
};

#endif
