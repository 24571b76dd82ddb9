// Errors as the embedding API gives them, through the real plug-in: the
// detail (1-based lines, columns, names, messages) beside the classic
// events, which keep their 0-based lines and fixed text.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "quorl/QuorlHost.h"

namespace {

using quorl::Script;
using quorl::ScriptError;
using quorl::ScriptState;

class ScriptErrors : public ::testing::Test {
 protected:
  void SetUp() override { quorl::LoadPlugin(); }
};

TEST_F(ScriptErrors, ACompileErrorNamesTheFaultWithLineAndColumn) {
  Script script;
  std::vector<int> rawLines;
  std::vector<std::string> rawTexts;
  script.OnCompilerError([&](int line, int, std::string const& text) {
    rawLines.push_back(line);
    rawTexts.push_back(text);
  });
  std::vector<ScriptError> seen;
  script.OnError([&](ScriptError const& error) { seen.push_back(error); });
  script.SetSource("Dim x As Integer\nx = 1\nx = Countr + 1\n");
  EXPECT_EQ(script.Run(), ScriptState::Aborted);
  ASSERT_EQ(script.Errors().size(), 1u);
  ScriptError const& error = script.Errors()[0];
  EXPECT_EQ(error.kind, ScriptError::Kind::Compile);
  EXPECT_EQ(error.number, 11);
  EXPECT_EQ(error.summary, "unknown name");
  EXPECT_EQ(error.message, "unknown name: Countr");
  EXPECT_EQ(error.line, 3);
  EXPECT_EQ(error.column, 5);
  ASSERT_EQ(seen.size(), 1u);
  EXPECT_EQ(seen[0].message, error.message);
  EXPECT_EQ(rawLines, std::vector<int>{2}) << "the event counts from 0";
  EXPECT_EQ(rawTexts, std::vector<std::string>{"Error found while compiling"});

  // Each compile starts the list afresh; a good source leaves it empty.
  script.SetSource("Print \"fine\"\n");
  EXPECT_EQ(script.Run(), ScriptState::Complete);
  EXPECT_TRUE(script.Errors().empty());
}

TEST_F(ScriptErrors, TypeMismatchesNameBothTypes) {
  Script script;
  script.SetSource("Dim x As Integer\nDim s As String\nx = s\n");
  script.Precompile();
  ASSERT_FALSE(script.Errors().empty());
  EXPECT_EQ(script.Errors()[0].number, 2);
  EXPECT_NE(script.Errors()[0].message.find("String"), std::string::npos)
      << script.Errors()[0].message;
}

TEST_F(ScriptErrors, AnUncaughtExceptionGivesItsLineAndClass) {
  Script script;
  int rawLine = -1;
  std::string rawClass;
  script.OnRuntimeError([&](int line, std::string const& cls) {
    rawLine = line;
    rawClass = cls;
  });
  script.SetSource(
      "Sub Fill(a() As Integer)\n"
      "  a(1) = 1\n"
      "  a(7) = 2\n"
      "End Sub\n"
      "Dim a(2) As Integer\n"
      "Fill(a)\n");
  EXPECT_EQ(script.Run(), ScriptState::Aborted);
  ASSERT_EQ(script.Errors().size(), 1u);
  ScriptError const& error = script.Errors()[0];
  EXPECT_EQ(error.kind, ScriptError::Kind::Runtime);
  EXPECT_EQ(error.exceptionClass, "OutOfBoundsException");
  EXPECT_EQ(error.line, 3);
  EXPECT_EQ(rawLine, 0) << "the classic event knows no line";
  EXPECT_EQ(rawClass, "OutOfBoundsException");
}

TEST_F(ScriptErrors, AnUncaughtScriptExceptionGivesItsClassMessageAndNumber) {
  Script script;
  script.SetSource(
      "Class Overdrawn\n"
      "  Inherits RuntimeException\n"
      "End Class\n"
      "Dim e As New Overdrawn\n"
      "e.Message = \"balance below zero\"\n"
      "e.ErrorNumber = 402\n"
      "Raise e\n");
  EXPECT_EQ(script.Run(), ScriptState::Aborted);
  ASSERT_EQ(script.Errors().size(), 1u);
  ScriptError const& error = script.Errors()[0];
  EXPECT_EQ(error.exceptionClass, "Overdrawn");
  EXPECT_EQ(error.message, "balance below zero");
  EXPECT_EQ(error.number, 402);
  EXPECT_EQ(error.line, 7);
}

}  // namespace
