// Programs of extreme shape through the real plug-in: very long operator
// chains and very deep nesting end in a numbered compile error or compile
// and run; none may take the compiler's memory or the host's stack with it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "quorl/QuorlHost.h"

namespace {

using quorl::Script;
using quorl::ScriptState;

std::string Chain(std::string const& term, std::string const& op, int terms) {
  std::string text = term;
  for (int k = 1; k < terms; k++) text += " " + op + " " + term;
  return text;
}

struct Outcome {
  ScriptState state;
  std::vector<int> errors;
  std::string printed;
};

Outcome RunSource(std::string const& source) {
  quorl::LoadPlugin();
  Script script;
  Outcome outcome;
  script.OnPrint([&](std::string const& s) { outcome.printed += s + "\n"; });
  script.SetSource(source);
  outcome.state = script.Run();
  for (auto const& error : script.Errors()) outcome.errors.push_back(error.number);
  return outcome;
}

// Each operator of a chain over variables leaves a temporary: past the
// limit the statement is refused once per stretch, not once per term.
TEST(ScriptSizeLimits, AVeryLongChainOverVariablesIsError140) {
  for (std::string op : {"+", "And"}) {
    std::string type = op == "And" ? "Boolean" : "Integer";
    Outcome outcome = RunSource("Dim y As " + type + "\nDim x As " + type + " = " +
                          Chain("y", op, 20000) + "\n");
    EXPECT_EQ(outcome.state, ScriptState::Aborted) << op;
    ASSERT_FALSE(outcome.errors.empty()) << op;
    EXPECT_EQ(outcome.errors[0], 140) << op;
    EXPECT_LE(outcome.errors.size(), 3u) << op;
  }
}

// Constants fold as they come, and a string sum past the folding length
// is left to run time: both compile and give the right value.
TEST(ScriptSizeLimits, LongConstantChainsCompileAndRun) {
  Outcome numbers = RunSource("Print Str(" + Chain("1", "+", 50000) + ")\n");
  EXPECT_EQ(numbers.state, ScriptState::Complete);
  EXPECT_EQ(numbers.printed, "50000\n");
  Outcome text =
      RunSource("Dim s As String = " + Chain("\"abcd\"", "+", 3000) +
          "\nPrint Str(Len(s))\nPrint Mid(s, 11997)\n");
  EXPECT_EQ(text.state, ScriptState::Complete);
  EXPECT_EQ(text.printed, "12000\nabcd\n");
}

// Nesting is bounded by the parser's stack: error 5, whatever the form.
TEST(ScriptSizeLimits, DeepNestingIsError5) {
  int const depth = 100000;
  std::string const open(depth, '(');
  std::string const close(depth, ')');
  for (std::string expression :
       {open + "1" + close, std::string(depth, '-') + "1",
        [&] { std::string s; for (int k = 0; k < depth; k++) s += "Not "; return s + "1"; }(),
        [&] { std::string s; for (int k = 0; k < depth; k++) s += "Abs("; return s + "1" + close; }()}) {
    Outcome outcome = RunSource("Dim x As Integer = " + expression + "\n");
    ASSERT_EQ(outcome.errors.size(), 1u);
    EXPECT_EQ(outcome.errors[0], 5);
  }
}

}  // namespace
