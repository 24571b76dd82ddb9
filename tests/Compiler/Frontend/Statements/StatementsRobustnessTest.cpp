// The corpus, and copies of it with whole lines dropped, doubled or swapped
// (blocks left open or closed twice), compile with their declarations: the
// statement actions report and go on; they never fail an assertion.
#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "../ParseDriver.h"
#include "StatementTestSupport.h"

namespace {

std::string DamageLines(std::string const& text, std::mt19937& random) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  for (int n = 0; n < 3 && !lines.empty(); n++) {
    size_t at = random() % lines.size();
    switch (random() % 3) {
      case 0: lines.erase(lines.begin() + at); break;
      case 1: lines.insert(lines.begin() + at, lines[at]); break;
      default: std::swap(lines[at], lines[random() % lines.size()]);
    }
  }
  std::string out;
  for (std::string const& line : lines) out += line + "\n";
  return out;
}

TEST(StatementsRobustness, CorpusAndDamagedCopiesCompileWithoutFaults) {
  std::vector<std::string> texts = CorpusTexts();
  ASSERT_FALSE(texts.empty());
  for (std::string const& text : texts)
    EXPECT_NE(std::string::npos, CompileProgramText(text).listing.find("Stop"));
  std::mt19937 random(20261121u);
  for (int i = 0; i < 600; i++)
    CompileProgramText(DamageLines(texts[i % texts.size()], random));
}

}  // namespace
