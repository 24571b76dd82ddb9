// A script that compiles but needs a runtime function the host does not
// serve can't be linked: the host hears of it as an unknown name (line 0),
// the state is aborted, and nothing runs.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/Plugin/PluginTestSupport.h"

namespace {

TEST(LinkFailure, AMissingRuntimeFunctionIsReportedAndNothingRuns) {
  quorl::HostOptions options;
  options.withheld = {"RuntimeStringCompare"};
  quorl::Attach(&VELDPluginMain, options);
  quorl::Script script;
  std::vector<int> numbers, lines;
  std::vector<std::string> printed;
  script.OnCompilerError([&](int line, int number, std::string const&) {
    lines.push_back(line);
    numbers.push_back(number);
  });
  script.OnPrint([&](std::string const& text) { printed.push_back(text); });
  script.SetSource(
      "Print \"before\"\nDim s As String = \"a\"\nIf s < \"b\" Then Print s\n");
  script.Run();
  ASSERT_EQ(numbers.size(), 1u);
  EXPECT_EQ(numbers[0], 11);
  EXPECT_EQ(lines[0], 0);
  EXPECT_TRUE(printed.empty());
  EXPECT_EQ(script.State(), quorl::ScriptState::Aborted);
}

TEST(LinkFailure, TheSameScriptLinksWhereTheHostServesEverything) {
  AttachEngine();
  quorl::Script script;
  std::vector<std::string> printed;
  script.OnPrint([&](std::string const& text) { printed.push_back(text); });
  script.SetSource("Dim s As String = \"a\"\ns = s + \"b\"\nPrint s\n");
  script.Run();
  ASSERT_EQ(printed.size(), 1u);
  EXPECT_EQ(printed[0], "ab");
  EXPECT_EQ(script.State(), quorl::ScriptState::Complete);
}

}  // namespace
