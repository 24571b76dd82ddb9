// The compiler's work grows in proportion to the program. Each program
// below once cost time or memory with the square of its size; compiled
// through the script object at n and at 4n, every count of work done
// (keys compared by lookups, entries walked, imports copied, string bytes
// made and copied) may grow at most six times, not the sixteen of a square.
// The spare half covers hash tables, whose probes per lookup rise with
// their load between two enlargements.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "Universal/CompileWorkCounters.h"
#include "Universal/StringWorkCounters.h"
#include "tests/Plugin/PluginTestSupport.h"

namespace {

struct Work {
  uint64_t keyComparisons, listSteps, importsCopied, stringBytes;
};

// Compiles without running; counts only the compile and the link.
Work CompileAndCount(std::string const& source) {
  AttachEngine();
  quorl::Script script;
  std::vector<int> errors;
  script.OnCompilerError([&](int, int number, std::string const&) { errors.push_back(number); });
  script.SetSource(source);
  ResetCompileWork();
  ResetStringWork();
  script.Precompile();
  EXPECT_TRUE(errors.empty()) << "first error " << errors[0];
  CompileWorkCounts compile = CurrentCompileWork();
  StringWorkCounts strings = CurrentStringWork();
  return {compile.keyComparisons, compile.listSteps, compile.importsCopied,
          strings.allocatedBytes + strings.copiedBytes};
}

typedef std::function<std::string(int)> Generator;

int const kGrowth = 4;
double const kAllowedRatio = 6.0;

// A fixed cost (the runtime's declarations) comes with every compile, so the
// counts of the smaller program are taken less that of an empty one.
void ExpectLinear(Generator const& program, int n) {
  Work empty = CompileAndCount(program(0));
  Work small = CompileAndCount(program(n));
  Work large = CompileAndCount(program(kGrowth * n));
  auto check = [&](char const* what, uint64_t e, uint64_t s, uint64_t l) {
    double grown = double(l - e), base = double(s - e);
    EXPECT_LE(grown, kAllowedRatio * base + 64) << what << ": " << s << " at n, " << l << " at 4n";
  };
  check("key comparisons", empty.keyComparisons, small.keyComparisons, large.keyComparisons);
  check("list steps", empty.listSteps, small.listSteps, large.listSteps);
  check("imports copied", empty.importsCopied, small.importsCopied, large.importsCopied);
  check("string bytes", empty.stringBytes, small.stringBytes, large.stringBytes);
}

std::string Lines(int n, std::function<std::string(int)> const& line) {
  std::string text;
  for (int i = 1; i <= n; i++) text += line(i) + "\n";
  return text;
}

TEST(CompileWork, EmptySubsAreLinkedInLinearWork) {
  ExpectLinear([](int n) {
    return Lines(n, [](int i) { return "Sub S" + std::to_string(i) + "()\nEnd Sub"; });
  }, 1500);
}

TEST(CompileWork, SmallFunctionsAndTheirCallersCompileInLinearWork) {
  ExpectLinear([](int n) {
    std::string calls = "Dim total As Integer\n";
    std::string text = Lines(n, [&calls](int i) {
      std::string name = "F" + std::to_string(i);
      calls += "total = total + " + name + "(3)\n";
      return "Function " + name + "(n As Integer) As Integer\n"
             "  Dim total As Integer = n * 2\n"
             "  For i As Integer = 1 To n\n"
             "    If i Mod 3 = 0 Then total = total + i\n"
             "  Next\n"
             "  Return total Mod 1000\n"
             "End Function";
    });
    return text + calls + "Print Str(total)\n";
  }, 500);
}

TEST(CompileWork, LabelsAreFoundInLinearWork) {
  ExpectLinear([](int n) {
    return Lines(n, [](int i) {
      std::string label = "L" + std::to_string(i);
      return "GoTo " + label + "\n" + label + ":";
    });
  }, 2500);
}

TEST(CompileWork, GlobalsAreReleasedInLinearWork) {
  ExpectLinear([](int n) {
    return Lines(n, [](int i) { return "Dim g" + std::to_string(i) + " As String = \"x\""; });
  }, 2500);
}

TEST(CompileWork, DistinctIntegerConstantsAreInternedInLinearWork) {
  ExpectLinear([](int n) {
    return "Dim total As Integer\n" +
           Lines(n, [](int i) { return "total = total + " + std::to_string(1000 + 7 * i); });
  }, 2500);
}

TEST(CompileWork, AMainBodyPastTheOldImportLimitCompilesInLinearWork) {
  ExpectLinear([](int n) {
    return "Dim s As String\n" + Lines(n, [](int i) { return "s = Str(" + std::to_string(i) + ")"; });
  }, 9000);
}

TEST(CompileWork, AnExpressionOfManyVariablesCompilesInLinearWork) {
  ExpectLinear([](int n) {
    std::string sum = "Dim total As Integer = 0";
    std::string text = Lines(n, [&sum](int i) {
      sum += " + v" + std::to_string(i);
      return "Dim v" + std::to_string(i) + " As Integer = " + std::to_string(i);
    });
    return text + sum + "\n";
  }, 2000);
}

// Each body finds its declaration among the overloads by its line, and
// the check for two bodies of one signature looks up its link name.
TEST(CompileWork, OverloadsOfOneNameCompileInLinearWork) {
  ExpectLinear([](int n) {
    return Lines(n, [](int i) {
      std::string type = "C" + std::to_string(i);
      return "Class " + type + "\nEnd Class\nSub S(x As " + type + ")\nEnd Sub";
    });
  }, 500);
}

// Every top-level handler finds the main body's table, remembered once
// made, not searched for among the tables of all the functions.
TEST(CompileWork, TopLevelHandlersAfterManyFunctionsCompileInLinearWork) {
  ExpectLinear([](int n) {
    return Lines(n, [](int i) { return "Sub S" + std::to_string(i) + "()\nEnd Sub"; }) +
           Lines(n, [](int i) {
             return "Try\n  S" + std::to_string(i) + "\nCatch\nEnd Try";
           });
  }, 500);
}

// The chain extends the lines of its sum in place instead of taking all
// its pieces off and writing them again for each +.
TEST(CompileWork, ALongStringSumCompilesInLinearWork) {
  ExpectLinear([](int n) {
    std::string sum = "Dim s As String = x";
    for (int i = 0; i < n; i++) sum += " + x";
    return "Dim x As String = \"ab\"\n" + sum + "\nPrint s\n";
  }, 2000);
}

}  // namespace
