// The runner's command line and its words for compile error numbers.
#include <gtest/gtest.h>

#include "QuorlRunner/CommandLine.h"

namespace {

using quorl::runner::CommandLine;

CommandLine Parse(std::vector<std::string> const& arguments) {
  return quorl::runner::ParseCommandLine(arguments);
}

TEST(RunnerCommandLine, FilesOptionsAndValues) {
  CommandLine plain = Parse({"hello.qs"});
  EXPECT_EQ(plain.error, "");
  EXPECT_EQ(plain.options.file, "hello.qs");
  EXPECT_FALSE(plain.options.check);
  CommandLine after = Parse({"a.qs", "--check"});
  EXPECT_TRUE(after.options.check);
  EXPECT_EQ(after.options.file, "a.qs");
  EXPECT_EQ(quorl::runner::DisplayName(Parse({"-"}).options), "<stdin>");
  EXPECT_EQ(Parse({"--plugin=/x/p.so", "a.qs"}).options.pluginPath, "/x/p.so");
  CommandLine separate = Parse({"--plugin", "/x/p.so", "a.qs"});
  EXPECT_EQ(separate.options.pluginPath, "/x/p.so");
  EXPECT_EQ(separate.options.file, "a.qs");
  CommandLine ppc = Parse({"--target=ppc", "--emit-object", "m.q", "a.qs"});
  EXPECT_EQ(ppc.error, "");
  EXPECT_EQ(ppc.options.emitObject, "m.q");
  CommandLine dashes = Parse({"--", "--check"});
  EXPECT_EQ(dashes.options.file, "--check");
  EXPECT_FALSE(dashes.options.check);
}

TEST(RunnerCommandLine, UsageErrorsSayWhatIsWrong) {
  std::pair<std::vector<std::string>, char const*> rows[] = {
      {{}, "no script file"}, {{"--frobnicate", "a.qs"}, "'--frobnicate'"},
      {{"-x", "a.qs"}, "unknown option"}, {{"a.qs", "b.qs"}, "'b.qs'"},
      {{"--check=yes", "a.qs"}, "takes no value"}, {{"--check"}, ""},
      {{"a.qs", "--plugin"}, ""}, {{"--target", "arm", "a.qs"}, "ia32 or ppc"},
      {{"--target", "ppc", "a.qs"}, "go together"},
      {{"--emit-object", "m.q", "a.qs"}, "go together"}};
  for (auto const& row : rows) {
    std::string error = Parse(row.first).error;
    EXPECT_NE(error, "") << row.second;
    EXPECT_NE(error.find(row.second), std::string::npos) << error;
  }
  EXPECT_EQ(Parse({"-h"}).error, "") << "help needs no file";
  std::string help = quorl::runner::HelpText();
  for (char const* text : {"--help", "-h", "--check", "--plugin PATH", "'-'",
                           "  0 ", "  1 ", "  2 ", "  64", "  66", "  69", "  70"})
    EXPECT_NE(help.find(text), std::string::npos) << text;
}

}  // namespace
