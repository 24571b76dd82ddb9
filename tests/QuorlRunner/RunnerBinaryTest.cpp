// The quorl binary, run through the shell as a user runs it.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>

#include <fstream>
#include <sstream>
#include <string>

namespace {

struct Outcome {
  int status;
  std::string out;
  std::string err;
};

std::string ReadFile(std::string const& path) {
  std::ifstream stream(path, std::ios::binary);
  std::ostringstream text;
  text << stream.rdbuf();
  return text.str();
}

class RunnerBinary : public ::testing::Test {
 protected:
  void SetUp() override {
    char pattern[] = "/tmp/quorl-runner-XXXXXX";
    ASSERT_NE(mkdtemp(pattern), nullptr);
    dir = pattern;
  }
  void TearDown() override {
    ASSERT_EQ(system(("rm -rf '" + dir + "'").c_str()), 0);
  }

  void WriteFile(std::string const& name, std::string const& text) {
    std::ofstream(dir + "/" + name, std::ios::binary) << text;
  }

  // Runs quorl in the scratch directory with `input` on standard input.
  // `prefix` comes before the binary, for env(1) settings.
  Outcome Run(std::string const& arguments, std::string const& input = "",
              std::string const& prefix = "") {
    WriteFile("stdin.txt", input);
    std::string command = "cd '" + dir + "' && " + prefix + " '" +
                          QUORL_BINARY + "' " + arguments +
                          " <stdin.txt >stdout.txt 2>stderr.txt";
    int status = system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1,
            ReadFile(dir + "/stdout.txt"), ReadFile(dir + "/stderr.txt")};
  }

  std::string dir;
};

bool Contains(std::string const& text, std::string const& part) {
  return text.find(part) != std::string::npos;
}

TEST_F(RunnerBinary, AnEmptyScriptRunsSilently) {
  WriteFile("empty.qs", "");
  Outcome outcome = Run("empty.qs");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(RunnerBinary, ADashReadsTheScriptFromStandardInput) {
  Outcome outcome = Run("-", "");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.err, "");
}

TEST_F(RunnerBinary, AMissingFileIsReportedWithStatus66) {
  Outcome outcome = Run("missing.qs");
  EXPECT_EQ(outcome.status, 66);
  EXPECT_TRUE(Contains(outcome.err, "cannot read missing.qs")) << outcome.err;
  EXPECT_TRUE(Contains(outcome.err, "No such file")) << outcome.err;
  EXPECT_EQ(outcome.out, "");
}

TEST_F(RunnerBinary, ADirectoryIsNoReadableScript) {
  Outcome outcome = Run("/tmp");
  EXPECT_EQ(outcome.status, 66);
  EXPECT_TRUE(Contains(outcome.err, "cannot read /tmp")) << outcome.err;
}

TEST_F(RunnerBinary, HelpExplainsAndExitsZero) {
  Outcome outcome = Run("--help");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_TRUE(Contains(outcome.out, "usage: quorl")) << outcome.out;
  EXPECT_TRUE(Contains(outcome.out, "Exit status")) << outcome.out;
  EXPECT_EQ(outcome.err, "");
}

TEST_F(RunnerBinary, AnUnknownOptionIsAUsageError) {
  WriteFile("empty.qs", "");
  Outcome outcome = Run("--bogus empty.qs");
  EXPECT_EQ(outcome.status, 64);
  EXPECT_TRUE(Contains(outcome.err, "unknown option '--bogus'")) << outcome.err;
  EXPECT_TRUE(Contains(outcome.err, "quorl --help")) << outcome.err;
}

TEST_F(RunnerBinary, ThePluginBesideTheBinaryIsFoundWithoutTheEnvironment) {
  WriteFile("empty.qs", "");
  Outcome outcome = Run("empty.qs", "", "env -u QUORL_PLUGIN");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
}

TEST_F(RunnerBinary, AMissingPluginIsReportedWithStatus69) {
  WriteFile("empty.qs", "");
  Outcome outcome = Run("--plugin=/nonexistent/plugin.so empty.qs");
  EXPECT_EQ(outcome.status, 69);
  EXPECT_TRUE(Contains(outcome.err, "cannot load plug-in")) << outcome.err;
}

TEST_F(RunnerBinary, CheckReportsSyntaxErrorsWithTheirOneBasedLines) {
  WriteFile("bad.bas",
            "Sub Main()\n"
            "  y = 0\n"
            "  For i = 1 To 3\n"
            "    y = i\n"
            "  End If\n"
            "  z = = 1\n"
            "End Sub\n");
  Outcome outcome = Run("--check bad.bas");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "");
  // A mistyped terminator is reported at the block's opening line, and the
  // parse goes on to the next fault.
  EXPECT_TRUE(Contains(outcome.err, "bad.bas:3: error 97: ")) << outcome.err;
  EXPECT_TRUE(Contains(outcome.err, "bad.bas:6: error 1: ")) << outcome.err;
}

TEST_F(RunnerBinary, DumpTacListsInsteadOfRunningAndReportsErrors) {
  WriteFile("bad.bas", "Sub Main()\n  z = = 1\nEnd Sub\n");
  Outcome bad = Run("--dump-tac bad.bas");
  EXPECT_EQ(bad.status, 1);
  EXPECT_TRUE(Contains(bad.err, "bad.bas:2: error 1: ")) << bad.err;
  WriteFile("good.bas", "Sub Main()\nEnd Sub\n");
  Outcome good = Run("--dump-tac good.bas");
  EXPECT_EQ(good.status, 0) << good.err;
  EXPECT_EQ(good.err, "");
}

TEST_F(RunnerBinary, ATimeLimitMustBeAPositiveNumber) {
  WriteFile("empty.bas", "");
  for (char const* bad : {"0", "-2", "soon", "1x"}) {
    Outcome outcome = Run(std::string("--time-limit ") + bad + " empty.bas");
    EXPECT_EQ(outcome.status, 64) << bad;
    EXPECT_TRUE(Contains(outcome.err, "positive number of seconds")) << outcome.err;
  }
  EXPECT_EQ(Run("--time-limit 2.5 empty.bas").status, 0);
}

TEST_F(RunnerBinary, CheckAcceptsAValidProgram) {
  WriteFile("good.bas",
            "Function Twice(n As Integer) As Integer\n"
            "  Return n * 2\n"
            "End Function\n"
            "#if TargetLinux Then\n"
            "Print \"linux\"\n"
            "#endif\n");
  Outcome outcome = Run("--check good.bas");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.err, "");
}

}  // namespace
