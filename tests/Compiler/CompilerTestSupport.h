// Helpers shared by the compiler's tests.
#ifndef TESTS_COMPILER_COMPILERTESTSUPPORT_H
#define TESTS_COMPILER_COMPILERTESTSUPPORT_H

#include <gtest/gtest.h>
#include <stdio.h>
#include <unistd.h>

#include <string>

#include "Compiler/compiler.h"
#include "Universal/SimpleVector.h"
#include "Universal/ustring.h"

// Assertions print on standard output; the death test reads standard error.
// Joining the two lets a test name the failure it expects.
#define EXPECT_ASSERTION(statement, text)                                  \
  EXPECT_EXIT(                                                             \
      {                                                                    \
        fflush(stdout);                                                    \
        dup2(2, 1);                                                        \
        statement;                                                         \
      },                                                                   \
      testing::ExitedWithCode(1), text)

inline std::string Std(string const& s) { return std::string(s.CString()); }

// Keeps every compile error it is told of.
class RecordingDelegate : public CompilerDelegate {
 public:
  int CompilerError(CompileError error) override {
    mErrors.push_back(error);
    return 0;
  }
  SimpleVector<CompileError> mErrors;
};

#endif
