// The declarations of a program, scanned, merged and resolved as the engine
// does, with a compilation context open on them: for tests that call the
// call and overload machinery directly. Whole programs compile through
// CompileSource (../Expressions/CompileDriver.h).
#ifndef TESTS_COMPILER_FRONTEND_STATEMENTS_STATEMENTTESTSUPPORT_H
#define TESTS_COMPILER_FRONTEND_STATEMENTS_STATEMENTTESTSUPPORT_H

#include <string>
#include <vector>

#include "../Expressions/CompileDriver.h"

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
