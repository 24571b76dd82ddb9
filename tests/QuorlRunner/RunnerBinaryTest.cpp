// The quorl binary, run through the shell as a user runs it.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>

#include <fstream>
#include <sstream>
#include <string>

namespace {

struct Outcome { int status; std::string out, err; };

std::string ReadFile(std::string const& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

bool Contains(std::string const& text, std::string const& part) {
  return text.find(part) != std::string::npos;
}

class RunnerBinary : public ::testing::Test {
 protected:
  void SetUp() override {
    char pattern[] = "/tmp/quorl-runner-XXXXXX";
    ASSERT_NE(mkdtemp(pattern), nullptr);
    dir = pattern;
    WriteFile("empty.qs", "");
  }
  void TearDown() override { ASSERT_EQ(system(("rm -rf '" + dir + "'").c_str()), 0); }
  void WriteFile(std::string const& name, std::string const& text) {
    std::ofstream(dir + "/" + name, std::ios::binary) << text;
  }
  // Runs quorl in the scratch directory; `prefix` comes before the binary.
  Outcome Run(std::string const& arguments, std::string const& prefix = "") {
    WriteFile("stdin.txt", "");
    std::string command = "cd '" + dir + "' && " + prefix + " '" + QUORL_BINARY +
                          "' " + arguments + " <stdin.txt >stdout.txt 2>stderr.txt";
    int status = system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1,
            ReadFile(dir + "/stdout.txt"), ReadFile(dir + "/stderr.txt")};
  }
  std::string dir;
};

TEST_F(RunnerBinary, EmptyScriptsFromAFileOrStdinRunSilently) {
  for (char const* arguments : {"empty.qs", "-"}) {
    Outcome outcome = Run(arguments, "env -u QUORL_PLUGIN");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out + outcome.err, "") << arguments;
  }
}

TEST_F(RunnerBinary, UnreadableFilesGiveStatus66) {
  Outcome missing = Run("missing.qs");
  EXPECT_EQ(missing.status, 66);
  EXPECT_TRUE(Contains(missing.err, "cannot read missing.qs: No such file")) << missing.err;
  Outcome directory = Run("/tmp");
  EXPECT_EQ(directory.status, 66);
  EXPECT_TRUE(Contains(directory.err, "cannot read /tmp")) << directory.err;
}

TEST_F(RunnerBinary, HelpUsageErrorsAndAMissingPlugin) {
  Outcome help = Run("--help");
  EXPECT_EQ(help.status, 0);
  EXPECT_TRUE(Contains(help.out, "usage: quorl")) << help.out;
  EXPECT_TRUE(Contains(help.out, "Exit status")) << help.out;
  Outcome bogus = Run("--bogus empty.qs");
  EXPECT_EQ(bogus.status, 64);
  EXPECT_TRUE(Contains(bogus.err, "unknown option '--bogus'")) << bogus.err;
  EXPECT_TRUE(Contains(bogus.err, "quorl --help")) << bogus.err;
  for (char const* bad : {"0", "-2", "soon", "1x"}) {
    Outcome outcome = Run(std::string("--time-limit ") + bad + " empty.qs");
    EXPECT_EQ(outcome.status, 64) << bad;
    EXPECT_TRUE(Contains(outcome.err, "positive number of seconds")) << outcome.err;
  }
  EXPECT_EQ(Run("--time-limit 2.5 empty.qs").status, 0);
  Outcome plugin = Run("--plugin=/nonexistent/plugin.so empty.qs");
  EXPECT_EQ(plugin.status, 69);
  EXPECT_TRUE(Contains(plugin.err, "cannot load plug-in")) << plugin.err;
}

TEST_F(RunnerBinary, CheckAndDumpTacReportSyntaxErrorsWithOneBasedLines) {
  WriteFile("bad.bas", "Sub Main()\n  y = 0\n  For i = 1 To 3\n    y = i\n"
                       "  End If\n  z = = 1\nEnd Sub\n");
  Outcome check = Run("--check bad.bas");
  EXPECT_EQ(check.status, 1);
  EXPECT_EQ(check.out, "");
  // A mistyped terminator is reported at the block's opening line, and the
  // parse goes on to the next fault.
  EXPECT_TRUE(Contains(check.err, "bad.bas:3: error 97: ")) << check.err;
  EXPECT_TRUE(Contains(check.err, "bad.bas:6: error 1: ")) << check.err;
  Outcome dump = Run("--dump-tac bad.bas");
  EXPECT_EQ(dump.status, 1);
  EXPECT_TRUE(Contains(dump.err, "bad.bas:6: error 1: ")) << dump.err;
}

TEST_F(RunnerBinary, TheTimeLimitStopsARunawayScriptAfterItsOutput) {
  WriteFile("spin.bas", "Print \"started\"\nagain:\nGoTo again\n");
  Outcome outcome = Run("--time-limit 0.1 spin.bas");
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.out, "started\n");
  EXPECT_EQ(outcome.err, "quorl: spin.bas: stopped after the time limit of 0.1 seconds\n");
}

TEST_F(RunnerBinary, CheckAndDumpTacAcceptAValidProgram) {
  WriteFile("good.bas", "Function Twice(n As Integer) As Integer\n  Return n * 2\n"
                        "End Function\n#if TargetLinux Then\nPrint \"linux\"\n#endif\n");
  for (char const* option : {"--check", "--dump-tac"}) {
    Outcome outcome = Run(std::string(option) + " good.bas");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "") << option;
  }
}

// Addresses differ between processes, so two runs tell whether any reached
// the listing: the correspondent and the host's functions are named
// instead, and so are intrinsics. A Dim in a block makes a shadow variable
// in the enclosing table, whose name must not carry an address either.
TEST_F(RunnerBinary, DumpTacIsTheSameFromRunToRun) {
  WriteFile("stable.bas", "Dim n As Integer = 2\nIf n > 1 Then\n"
                          "  Dim label As String = Str(n)\n  Print label\nEnd If\n");
  Outcome first = Run("--dump-tac stable.bas");
  Outcome second = Run("--dump-tac stable.bas");
  ASSERT_EQ(first.status, 0) << first.err;
  EXPECT_EQ(first.out, second.out);
  EXPECT_TRUE(Contains(first.out, "Call            <host Str> As String")) << first.out;
  EXPECT_TRUE(Contains(first.out, "PutParam        <correspondent> As Int32")) << first.out;
  EXPECT_TRUE(Contains(first.out, "Intrinsic       RuntimeInit")) << first.out;
  EXPECT_TRUE(Contains(first.out, "-> label 0000000")) << first.out;
}

// --debug-symbols lists the tables instead of running the script; a script
// that does not compile lists nothing.
TEST_F(RunnerBinary, DebugSymbolsListTheTablesWithoutRunning) {
  WriteFile("tables.bas",
            "Dim gCount As Integer\n"
            "Function Twice(n As Integer) As Integer\n"
            "  Dim doubled As Integer = n * 2\n"
            "  Return doubled\n"
            "End Function\n"
            "Print Str(Twice(gCount))\n");
  Outcome outcome = Run("--debug-symbols tables.bas");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_FALSE(Contains(outcome.out, "\n0\n")) << "the script must not run";
  for (char const* line : {"functions\n", "\n  Twice  code ", ", lines 2-5, parameters 4 bytes\n",
                           "locals\n  Twice (lines 2-5)\n    n As Int32, frame offset ",
                           "    doubled As Int32, frame offset ",
                           "globals\n  gCount As Int32, data offset "})
    EXPECT_TRUE(Contains(outcome.out, line)) << line << "\n" << outcome.out;
  WriteFile("broken.bas", "Print Nothing\n");
  Outcome broken = Run("--debug-symbols broken.bas");
  EXPECT_EQ(broken.status, 1);
  EXPECT_EQ(broken.out, "");
}

}  // namespace
