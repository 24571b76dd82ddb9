// Mutated and truncated programs through the lexer and the parser: none may
// crash, fail an assertion or hang. The mutations are drawn from a fixed
// seed, so a failure repeats.
#include <gtest/gtest.h>
#include <unistd.h>

#include <random>

#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Miner/DeclarationParser.h"
#include "Compiler/Miner/Miner.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "ParseDriver.h"

namespace {

// Fragments that stress the lexer's and the parser's edges.
char const* const kFragments[] = {
    "(",
    ")",
    "\"",
    "\\\"",
    "_",
    " _\n",
    "'",
    "\n",
    "\r",
    "\r\n",
    "End ",
    "End Sub\n",
    "#if ",
    "#else\n",
    "#endif\n",
    "#elseif ",
    "#pragma ",
    " Then ",
    "=",
    ".",
    ",",
    "&h",
    "&c",
    "1e",
    ".5",
    "~",
    "If ",
    "For ",
    "Next\n",
    "Sub S()\n",
    "Class C\n",
    "Module M\n",
    "Select Case ",
    "Case ",
    "Try\n",
    "Catch\n",
    "Dim ",
    " As ",
    "()",
    "\xC3\xA9",
    "Rem ",
    "Each ",
    "Declare ",
    "Function F() As Integer\n",
    "Property ",
};

std::string Mutate(std::string text, std::mt19937& random) {
  auto pick = [&random](size_t n) {
    return n ? size_t(random() % n) : size_t(0);
  };
  int steps = 1 + int(random() % 4);
  for (int s = 0; s < steps; s++) {
    size_t at = pick(text.size() + 1);
    switch (random() % 6) {
      case 0:  // truncate
        text.resize(at);
        break;
      case 1:  // delete a stretch
        text.erase(at, pick(40));
        break;
      case 2:  // insert a fragment
        text.insert(at,
                    kFragments[pick(sizeof kFragments / sizeof *kFragments)]);
        break;
      case 3:  // insert a random byte (never NUL)
        text.insert(at, 1, char(1 + pick(255)));
        break;
      case 4: {  // duplicate a stretch
        size_t n = pick(80);
        text.insert(at, text.substr(at, n));
        break;
      }
      default:  // overwrite a byte
        if (at < text.size()) text[at] = char(1 + pick(255));
        break;
    }
  }
  return text;
}

// The declaration pass over the same text: scan, merge, resolve, and print
// the tree back. Gives whether the scanner accepted the text.
bool ScanAndResolve(std::string const& text) {
  SrcContext* context = new SrcContext;  // sweeps the scanned literals
  TestDelegate delegate;
  UnitSymbolTable* unit =
      ParseDeclarations("", (text + "\n").c_str(), &delegate);
  bool accepted = unit != nullptr;
  if (unit) {
    GlobalSymbolTable global;
    global.MergeUnitSymbols(unit, "");
    delete unit;
    ResolveDeclarations(&global);
    global.MakeContentsPrototype();
  }
  delete context;
  return accepted;
}

TEST(ParserRobustness, MutatedCorpusNeverBreaksTheDeclarationPass) {
  std::vector<std::string> sources;
  for (std::string const& file : CorpusFiles())
    sources.push_back(ReadFile(file));
  ASSERT_FALSE(sources.empty());
  for (std::string const& source : sources)
    EXPECT_TRUE(ScanAndResolve(source));
  alarm(120);
  std::mt19937 random(20240612u);
  int accepted = 0;
  const int kCases = 3000;
  for (int i = 0; i < kCases; i++)
    accepted += ScanAndResolve(Mutate(sources[i % sources.size()], random));
  alarm(0);
  // The scanner is tolerant, but broken block structure must show.
  EXPECT_LT(accepted, kCases);
  EXPECT_GT(accepted, 0);
}

TEST(ParserRobustness, EveryPrefixOfTheCorpusScansSafely) {
  alarm(120);
  for (std::string const& file : CorpusFiles()) {
    std::string text = ReadFile(file);
    for (size_t n = 0; n <= text.size(); n += 5) ScanAndResolve(text.substr(0, n));
  }
  alarm(0);
}

TEST(ParserRobustness, MutatedCorpusNeverCrashesOrHangs) {
  std::vector<std::string> sources;
  for (std::string const& file : CorpusFiles())
    sources.push_back(ReadFile(file));
  ASSERT_FALSE(sources.empty());
  alarm(120);  // a hang ends the process, and the test with it
  std::mt19937 random(20240611u);
  int accepted = 0;
  const int kCases = 3000;
  for (int i = 0; i < kCases; i++) {
    std::string text = Mutate(sources[i % sources.size()], random);
    ParseOutcome outcome = ParseText(text, i % 3 != 0);
    ASSERT_TRUE(outcome.status >= 0 && outcome.status <= 2) << text;
    if (outcome.status == 0 && outcome.errors.empty()) accepted++;
  }
  alarm(0);
  // The mutations must actually break most programs.
  EXPECT_LT(accepted, kCases / 2);
}

TEST(ParserRobustness, EveryPrefixOfTheCorpusParsesSafely) {
  alarm(120);
  for (std::string const& file : CorpusFiles()) {
    std::string text = ReadFile(file);
    for (size_t n = 0; n <= text.size(); n += 7)
      ParseText(text.substr(0, n), (n / 7) % 2 == 0);
  }
  alarm(0);
}

TEST(ParserRobustness, NoFinalLineEndAnywhere) {
  // The script object always appends a line feed; the lexer must still not
  // loop without it, in the middle of an escaped literal included.
  alarm(60);
  for (char const* text :
       {"#if TargetLinux Then x", "x = \\\"abc", "#if TargetWin32 Then a b c",
        "Sub S()\n#if False"}) {
    TestDelegate delegate;
    ParseWith(text, &delegate, false);
  }
  alarm(0);
}

}  // namespace
