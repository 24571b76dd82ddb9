// The runner's command line and its words for compile error numbers.
#include <gtest/gtest.h>

#include <sstream>

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
  // Everything after the file belongs to the script, options included.
  CommandLine after = Parse({"--check", "a.qs", "--check", "b", "--", "-e"});
  EXPECT_EQ(after.error, "");
  EXPECT_TRUE(after.options.check);
  EXPECT_EQ(after.options.file, "a.qs");
  EXPECT_EQ(after.options.scriptArguments,
            (std::vector<std::string>{"--check", "b", "--", "-e"}));
  // With -e every operand is the script's, and there is no file.
  CommandLine program = Parse({"-e", "Print \"hi\"", "x.qs", "-v"});
  EXPECT_EQ(program.error, "");
  EXPECT_TRUE(program.options.hasProgramText);
  EXPECT_EQ(program.options.programText, "Print \"hi\"");
  EXPECT_EQ(program.options.file, "");
  EXPECT_EQ(program.options.scriptArguments, (std::vector<std::string>{"x.qs", "-v"}));
  EXPECT_EQ(quorl::runner::DisplayName(program.options), "<command line>");
  EXPECT_EQ(Parse({"--execute=", "a"}).options.scriptArguments,
            (std::vector<std::string>{"a"}));
  EXPECT_TRUE(Parse({"--version"}).options.version);
  EXPECT_EQ(Parse({"--version"}).error, "") << "version needs no file";
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
      {{"-x", "a.qs"}, "unknown option"}, {{"-e"}, "needs a value TEXT"},
      {{"--check=yes", "a.qs"}, "takes no value"}, {{"--check"}, ""},
      {{"--plugin"}, ""}, {{"--target", "arm", "a.qs"}, "ia32 or ppc"},
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
                           "-e, --execute TEXT", "--version", "ArgCount",
                           "  0 ", "  1 ", "  2 ", "  64", "  66", "  69", "  70"})
    EXPECT_NE(help.find(text), std::string::npos) << text;
  // Every description starts in one column, after the widest option, and
  // no line is wider than a terminal.
  size_t options = help.find("Options:\n") + 9;
  size_t column = help.find("show this help", options) - help.rfind('\n', help.find("show this help", options)) - 1;
  std::istringstream table(help.substr(options, help.find("\n\n", options) - options));
  for (std::string row; std::getline(table, row);) {
    EXPECT_LE(row.size(), 79u) << row;
    ASSERT_GT(row.size(), column) << row;
    EXPECT_EQ(row[column - 1], ' ') << row;
    EXPECT_NE(row[column], ' ') << row;
  }
}

}  // namespace
