// Declare'd C functions as a host sees them: a missing library or symbol
// ends an uncaught run with a FunctionNotFoundException that names both.
#include <gtest/gtest.h>

#include <string>

#include "quorl/QuorlHost.h"

namespace {

using quorl::Script;
using quorl::ScriptError;
using quorl::ScriptState;

class ScriptExternalFunctions : public ::testing::Test {
 protected:
  void SetUp() override { quorl::LoadPlugin(); }
};

ScriptError RunToError(std::string const& source) {
  Script script;
  script.SetSource(source);
  EXPECT_EQ(script.Run(), ScriptState::Aborted);
  EXPECT_EQ(script.Errors().size(), 1u);
  return script.Errors().empty() ? ScriptError() : script.Errors()[0];
}

TEST_F(ScriptExternalFunctions, AMissingLibraryIsNamedWithTheFunction) {
  ScriptError error = RunToError(
      "Declare Sub Vanish Lib \"libquorl_absent.so\" ()\n"
      "Print \"before\"\n"
      "Vanish\n");
  EXPECT_EQ(error.kind, ScriptError::Kind::Runtime);
  EXPECT_EQ(error.exceptionClass, "FunctionNotFoundException");
  EXPECT_EQ(error.message, "Could not load Vanish from libquorl_absent.so");
  EXPECT_EQ(error.line, 3);
}

TEST_F(ScriptExternalFunctions, AMissingSymbolIsNamedByItsAlias) {
  ScriptError error = RunToError(
      "Declare Function Gone Lib \"libc.so.6\" Alias \"quorl_absent\" () As Integer\n"
      "Print Str(Gone())\n");
  EXPECT_EQ(error.message, "Could not load quorl_absent from libc.so.6");
}

}  // namespace
