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
  EXPECT_TRUE(Contains(check.err, "bad.bas:3:7: error 97: ")) << check.err;
  EXPECT_TRUE(Contains(check.err, "bad.bas:6:7: error 1: syntax error: unexpected =\n"))
      << check.err;
  Outcome dump = Run("--dump-tac bad.bas");
  EXPECT_EQ(dump.status, 1);
  EXPECT_TRUE(Contains(dump.err, "bad.bas:6:7: error 1: ")) << dump.err;
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

// The place, the message with the name, the line and a caret under the
// name: a tab stays a tab and a two-byte character takes one place, so the
// caret lines up on a terminal.
TEST_F(RunnerBinary, ACompileErrorShowsTheLineACaretAndTheName) {
  WriteFile("typo.bas", "Dim total As Integer\n\tPrint \"\xC3\xA9\" + Str(totl)\n");
  Outcome outcome = Run("typo.bas");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err,
            "typo.bas:2:19: error 11: unknown name: totl\n"
            " 2 | \tPrint \"\xC3\xA9\" + Str(totl)\n"
            "   | \t" + std::string(16, ' ') + "^\n");
}

// One mistake, one report: the rest of a line the parser could not read is
// not reported again. A mistake inside a class ends the parse there.
TEST_F(RunnerBinary, FollowOnErrorsOfOneMistakeAreHeldBack) {
  WriteFile("echo.bas", "Dim x As Integer = = = 1\nx = 2 +\n");
  Outcome echo = Run("echo.bas");
  EXPECT_EQ(echo.status, 1);
  EXPECT_EQ(echo.err,
            "echo.bas:1:20: error 1: syntax error: unexpected =\n"
            " 1 | Dim x As Integer = = = 1\n"
            "   |                    ^\n"
            "echo.bas:2:8: error 1: syntax error: unexpected end of line\n"
            " 2 | x = 2 +\n"
            "   |        ^\n");
  // A block whose opening line was given up: its Else and End If are not
  // mistakes of their own, the next real one is reported.
  WriteFile("header.bas", "Dim x As Integer\nIf x = = 1 Then\n  x = 2\nElse\n"
                          "  x = 3\nEnd If\nx = )\n");
  Outcome header = Run("header.bas");
  EXPECT_EQ(header.status, 1);
  EXPECT_TRUE(Contains(header.err, "header.bas:2:8: error 1: ")) << header.err;
  EXPECT_TRUE(Contains(header.err, "header.bas:7:5: error 1: ")) << header.err;
  EXPECT_FALSE(Contains(header.err, "header.bas:4:")) << header.err;
  EXPECT_FALSE(Contains(header.err, "header.bas:6:")) << header.err;
  WriteFile("class.bas", "Class C\n  x = 1\nEnd Class\ny = )\n");
  Outcome inClass = Run("class.bas");
  EXPECT_EQ(inClass.status, 1);
  EXPECT_TRUE(Contains(inClass.err, "class.bas:2:5: error 1: ")) << inClass.err;
  EXPECT_FALSE(Contains(inClass.err, "class.bas:4:")) << inClass.err;
}

TEST_F(RunnerBinary, BlocksLeftOpenAreReportedWhereTheyOpen) {
  WriteFile("sub.bas", "Print \"a\"\nSub Work()\n  Print \"b\"\n\n");
  Outcome sub = Run("sub.bas");
  EXPECT_EQ(sub.status, 1);
  EXPECT_EQ(sub.err,
            "sub.bas:2: error 1: syntax error: no End Sub before the end of the text\n"
            " 2 | Sub Work()\n");
  WriteFile("loop.bas", "Dim i As Integer\nWhile i < 3\n  For i = 1 To 2\n");
  Outcome loop = Run("loop.bas");
  EXPECT_TRUE(Contains(loop.err, "loop.bas:3: error 1: syntax error: no Next")) << loop.err;
  // An If closed by End Sub is the one mistake: the Sub it leaves open at
  // the end of the text is not another.
  WriteFile("inner.bas", "Sub S()\n  If True Then\n    Print \"a\"\nEnd Sub\n");
  Outcome inner = Run("inner.bas");
  EXPECT_EQ(inner.status, 1);
  EXPECT_EQ(inner.err, "inner.bas:2: error 95: If closed by another End\n"
                       " 2 |   If True Then\n");
  // Nor is the End Class that the Sub, its End taken, then meets.
  WriteFile("method.bas", "Class C\n  Sub M()\n    While True\n  End Sub\nEnd Class\n");
  Outcome method = Run("method.bas");
  EXPECT_EQ(method.status, 1);
  EXPECT_TRUE(Contains(method.err, "method.bas:3:")) << method.err;
  EXPECT_FALSE(Contains(method.err, "method.bas:5:")) << method.err;
}

TEST_F(RunnerBinary, ARuntimeErrorGivesItsLineClassMessageAndCallStack) {
  WriteFile("raise.bas", "Print \"before\"\nSub Fetch()\n  Print Args(3)\nEnd Sub\nFetch()\n");
  Outcome outcome = Run("raise.bas one");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "before\n");
  EXPECT_EQ(outcome.err,
            "raise.bas:3: runtime error: OutOfBoundsException: there is no argument 3\n"
            "  at Fetch (raise.bas:3)\n"
            "  at <main> (raise.bas:5)\n");
}

// What follows the file is the script's, options included; the script
// reads the arguments and the environment through its context, and Quit
// ends it with a status at once, past any Catch but through its Finally.
TEST_F(RunnerBinary, TheScriptGetsItsArgumentsTheEnvironmentAndAnExitStatus) {
  WriteFile("args.bas",
            "Dim i As Integer\n"
            "For i = 0 To ArgCount - 1\n"
            "  Print Args(i)\n"
            "Next\n"
            "Print Environment(\"QUORL_TEST_VALUE\") + \"|\" + Environment(\"QUORL_UNSET\")\n"
            "Try\n"
            "  Quit(ArgCount + 3)\n"
            "Catch\n"
            "  Print \"caught\"\n"
            "Finally\n"
            "  Print \"finally\"\n"
            "End Try\n"
            "Print \"not reached\"\n");
  Outcome outcome = Run("--no-optimize args.bas --check one 'two words'",
                        "env -u QUORL_UNSET QUORL_TEST_VALUE=42");
  EXPECT_EQ(outcome.status, 6) << outcome.err;
  EXPECT_EQ(outcome.out, "--check\none\ntwo words\n42|\nfinally\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(Run("--check args.bas").status, 0) << "--check runs nothing";
}

TEST_F(RunnerBinary, OneLinersTheVersionAndAByteOrderMark) {
  Outcome oneLiner = Run("-e 'Print \"hi \" + Args(0) + Str(ArgCount)' you two");
  EXPECT_EQ(oneLiner.status, 0) << oneLiner.err;
  EXPECT_EQ(oneLiner.out, "hi you2\n");
  Outcome typo = Run("-e 'Print nme'");
  EXPECT_EQ(typo.status, 1);
  EXPECT_TRUE(Contains(typo.err, "<command line>:1:7: error 11: unknown name: nme\n"))
      << typo.err;
  Outcome version = Run("--version");
  EXPECT_EQ(version.status, 0);
  EXPECT_EQ(version.out.compare(0, 6, "quorl "), 0) << version.out;
  WriteFile("bom.bas", "\xEF\xBB\xBFPrint \"marked\"\nPrint nope\n");
  Outcome bom = Run("bom.bas");
  EXPECT_EQ(bom.status, 1);
  EXPECT_TRUE(Contains(bom.err, "bom.bas:2:7: error 11: unknown name: nope\n")) << bom.err;
  WriteFile("bom2.bas", "\xEF\xBB\xBFPrint \"marked\"\n");
  EXPECT_EQ(Run("bom2.bas").out, "marked\n");
}

TEST_F(RunnerBinary, OneSecondIsSingular) {
  WriteFile("spin.bas", "Do\nLoop\n");
  Outcome outcome = Run("--time-limit 1 spin.bas");
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.err, "quorl: spin.bas: stopped after the time limit of 1 second\n");
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

// A structure declared in a class has its table under the class's name,
// apart from a structure of the same name outside it.
TEST_F(RunnerBinary, DebugSymbolsNameClassStructuresThroughTheClass) {
  WriteFile("nested.bas",
            "Module Plane\n  Structure Point\n    Z As Int8\n  End Structure\n"
            "End Module\n"
            "Class Shape\n  Structure Point\n    X As Int16\n    Y As Int16\n"
            "  End Structure\n  Dim Corner As Point\nEnd Class\n");
  Outcome outcome = Run("--debug-symbols nested.bas");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  for (char const* line : {"  Shape.Point\n    X As Int16, field offset 0 (2 bytes)\n"
                           "    Y As Int16, field offset 2 (2 bytes)\n",
                           "  Point\n    Z As Int8, field offset 0 (1 bytes)\n",
                           "Corner As Shape.Point"})
    EXPECT_TRUE(Contains(outcome.out, line)) << line << "\n" << outcome.out;
}

}  // namespace
