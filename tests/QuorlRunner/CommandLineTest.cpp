// The runner's command line: which arguments make a run, and which are
// usage errors.
#include <gtest/gtest.h>

#include "QuorlRunner/CommandLine.h"

namespace {

using quorl::runner::CommandLine;
using quorl::runner::ParseCommandLine;

CommandLine Parse(std::vector<std::string> const& arguments) {
  return ParseCommandLine(arguments);
}

TEST(RunnerCommandLine, OptionsMayComeBeforeOrAfterTheFile) {
  CommandLine plain = Parse({"hello.qs"});
  EXPECT_EQ(plain.error, "");
  EXPECT_EQ(plain.options.file, "hello.qs");
  EXPECT_FALSE(plain.options.check);
  EXPECT_TRUE(Parse({"--check", "a.qs"}).options.check);
  CommandLine after = Parse({"a.qs", "--check"});
  EXPECT_TRUE(after.options.check);
  EXPECT_EQ(after.options.file, "a.qs");
}

TEST(RunnerCommandLine, ADashIsStandardInput) {
  CommandLine command = Parse({"-"});
  EXPECT_EQ(command.error, "");
  EXPECT_EQ(command.options.file, "-");
  EXPECT_EQ(quorl::runner::DisplayName(command.options), "<stdin>");
  EXPECT_EQ(quorl::runner::DisplayName(Parse({"a.qs"}).options), "a.qs");
}

TEST(RunnerCommandLine, ValuesComeInlineOrAsTheNextArgument) {
  EXPECT_EQ(Parse({"--plugin=/x/p.so", "a.qs"}).options.pluginPath, "/x/p.so");
  CommandLine separate = Parse({"--plugin", "/x/p.so", "a.qs"});
  EXPECT_EQ(separate.options.pluginPath, "/x/p.so");
  EXPECT_EQ(separate.options.file, "a.qs");
  EXPECT_NE(Parse({"a.qs", "--plugin"}).error, "");
}

TEST(RunnerCommandLine, DoubleDashEndsTheOptions) {
  CommandLine command = Parse({"--", "--check"});
  EXPECT_EQ(command.error, "");
  EXPECT_EQ(command.options.file, "--check");
  EXPECT_FALSE(command.options.check);
}

TEST(RunnerCommandLine, UsageErrorsSayWhatIsWrong) {
  EXPECT_NE(Parse({}).error.find("no script file"), std::string::npos);
  EXPECT_NE(Parse({"--frobnicate", "a.qs"}).error.find("'--frobnicate'"),
            std::string::npos);
  EXPECT_NE(Parse({"-x", "a.qs"}).error.find("unknown option"), std::string::npos);
  EXPECT_NE(Parse({"a.qs", "b.qs"}).error.find("'b.qs'"), std::string::npos);
  EXPECT_NE(Parse({"--check=yes", "a.qs"}).error.find("takes no value"),
            std::string::npos);
  EXPECT_NE(Parse({"--check"}).error, "");
  EXPECT_EQ(Parse({"-h"}).error, "") << "help needs no file";
}

TEST(RunnerCommandLine, TheHelpCoversEveryOptionAndStatus) {
  std::string help = quorl::runner::HelpText();
  for (char const* text : {"--help", "-h", "--check", "--plugin PATH", "'-'",
                           "  0 ", "  1 ", "  2 ", "  64", "  66", "  69", "  70"})
    EXPECT_NE(help.find(text), std::string::npos) << text;
}

}  // namespace
