// Mutated and truncated programs through the declaration pass and the
// parser: none may crash, fail an assertion or hang. The seed is fixed.
#include <gtest/gtest.h>
#include <unistd.h>

#include <random>

#include "Compiler/Frontend/SrcContext.h"
#include "Compiler/Miner/DeclarationParser.h"
#include "Compiler/Miner/Miner.h"
#include "Compiler/SymbolTable/GlobalSymbolTable.h"
#include "ParseDriver.h"

namespace {

char const* const kFragments[] = {
    "(", ")", "\"", "\\\"", "_", " _\n", "'", "\n", "\r", "\r\n", "End ",
    "End Sub\n", "#if ", "#else\n", "#endif\n", "#elseif ", "#pragma ",
    " Then ", "=", ".", ",", "&h", "&c", "1e", ".5", "~", "If ", "For ",
    "Next\n", "Sub S()\n", "Class C\n", "Module M\n", "Select Case ", "Case ",
    "Try\n", "Catch\n", "Dim ", " As ", "()", "\xC3\xA9", "Rem ", "Each ",
    "Declare ", "Function F() As Integer\n", "Property "};

std::string Mutate(std::string text, std::mt19937& random) {
  auto pick = [&random](size_t n) { return n ? size_t(random() % n) : 0u; };
  for (int s = 0, steps = 1 + int(random() % 4); s < steps; s++) {
    size_t at = pick(text.size() + 1);
    switch (random() % 6) {
      case 0: text.resize(at); break;
      case 1: text.erase(at, pick(40)); break;
      case 2: text.insert(at, kFragments[pick(sizeof kFragments / sizeof *kFragments)]); break;
      case 3: text.insert(at, 1, char(1 + pick(255))); break;  // never NUL
      case 4: text.insert(at, text.substr(at, pick(80))); break;
      default: if (at < text.size()) text[at] = char(1 + pick(255));
    }
  }
  return text;
}

// Scan, merge, resolve and print the declarations; whether the scan accepted.
bool ScanAndResolve(std::string const& text) {
  SrcContext* context = new SrcContext;  // sweeps the scanned literals
  TestDelegate delegate;
  UnitSymbolTable* unit = ParseDeclarations("", (text + "\n").c_str(), &delegate);
  if (unit) {
    GlobalSymbolTable global;
    global.MergeUnitSymbols(unit, "");
    delete unit;
    ResolveDeclarations(&global);
    global.MakeContentsPrototype();
  }
  delete context;
  return unit != nullptr;
}

TEST(ParserRobustness, MutatedCorpusNeverBreaksTheScannerOrTheParser) {
  std::vector<std::string> sources = CorpusTexts();
  ASSERT_FALSE(sources.empty());
  for (std::string const& source : sources) EXPECT_TRUE(ScanAndResolve(source));
  alarm(240);  // a hang ends the process, and the test with it
  std::mt19937 random(20240611u);
  int scanned = 0, parsed = 0;
  for (int i = 0; i < 3000; i++) {
    std::string text = Mutate(sources[i % sources.size()], random);
    scanned += ScanAndResolve(text);
    ParseOutcome outcome = ParseText(text, i % 3 != 0);
    ASSERT_TRUE(outcome.status >= 0 && outcome.status <= 2) << text;
    if (outcome.status == 0 && outcome.errors.empty()) parsed++;
  }
  for (std::string const& text : sources)
    for (size_t n = 0; n <= text.size(); n += 5) {
      ScanAndResolve(text.substr(0, n));
      ParseText(text.substr(0, n), (n / 5) % 2 == 0);
    }
  // Without a final line end, also inside an escaped literal.
  for (char const* text : {"#if TargetLinux Then x", "x = \\\"abc",
                           "#if TargetWin32 Then a b c", "Sub S()\n#if False"}) {
    TestDelegate delegate;
    ParseWith(text, &delegate, false);
  }
  alarm(0);
  EXPECT_LT(scanned, 3000);  // the scanner is tolerant, but broken blocks show
  EXPECT_GT(scanned, 0);
  EXPECT_LT(parsed, 3000 / 2);  // the mutations must break most programs
}

}  // namespace
