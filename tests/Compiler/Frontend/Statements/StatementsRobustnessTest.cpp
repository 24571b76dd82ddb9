// The corpus of valid programs, and damaged copies of it, compiled with
// their declarations and the global table: whatever the text, the
// statement actions report and go on; they never fail an assertion.
#include <dirent.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <random>
#include <sstream>

#include "StatementTestSupport.h"

namespace {

std::vector<std::string> CorpusTexts() {
  std::vector<std::string> texts;
  std::string dir = QUORL_CORPUS_DIR;
  DIR* d = opendir(dir.c_str());
  if (!d) return texts;
  std::vector<std::string> names;
  while (dirent* entry = readdir(d)) {
    std::string name = entry->d_name;
    if (name.size() > 4 && name.substr(name.size() - 4) == ".bas")
      names.push_back(dir + "/" + name);
  }
  closedir(d);
  std::sort(names.begin(), names.end());
  for (std::string const& name : names) {
    std::ifstream in(name, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    texts.push_back(text.str());
  }
  return texts;
}

// Drops, doubles or swaps whole lines: the damage that leaves blocks open
// or closes them twice.
std::string DamageLines(std::string const& text, std::mt19937& random) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  if (lines.empty()) return text;
  for (int n = 0; n < 3; n++) {
    size_t at = random() % lines.size();
    switch (random() % 3) {
      case 0:
        lines.erase(lines.begin() + at);
        break;
      case 1:
        lines.insert(lines.begin() + at, lines[at]);
        break;
      default:
        std::swap(lines[at], lines[random() % lines.size()]);
        break;
    }
    if (lines.empty()) break;
  }
  std::string out;
  for (std::string const& line : lines) out += line + "\n";
  return out;
}

TEST(StatementsRobustness, CorpusCompilesWithoutFaultsOfTheProgram) {
  std::vector<std::string> texts = CorpusTexts();
  ASSERT_FALSE(texts.empty());
  for (std::string const& text : texts) {
    CompiledProgram p = CompileProgramText(text);
    EXPECT_NE(std::string::npos, p.listing.find("Stop"));
  }
}

TEST(StatementsRobustness, DamagedBlocksNeverFailAnAssertion) {
  std::vector<std::string> texts = CorpusTexts();
  std::mt19937 random(20261121u);
  for (int i = 0; i < 600; i++) {
    std::string text = DamageLines(texts[i % texts.size()], random);
    CompileProgramText(text);
  }
  SUCCEED();
}

}  // namespace
