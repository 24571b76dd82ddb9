// The semantic actions never fault on what the grammar accepts: the corpus,
// and mutations of it, compile with declarations in place without a crash.
#include <gtest/gtest.h>
#include <unistd.h>

#include <random>

#include "../ParseDriver.h"
#include "CompileDriver.h"

namespace {

std::string Mutate(std::string text, std::mt19937& random) {
  static char const* const kPieces[] = {" + ", " = ", "(", ")", " Not ", "\"x\"", " 1.5 ", " Nil ",
                                        ".", ",", " And ", " Self ", " As ", " -", " \\ 0 "};
  if (text.empty()) return text;
  size_t at = random() % text.size(), length = 1 + random() % 6;
  switch (random() % 3) {
    case 0: return text.erase(at, length);
    case 1: return text.insert(at, kPieces[random() % 15]);
    default: return text.insert(at, text.substr(at, length));
  }
}

TEST(ExpressionRobustness, CorpusAndMutationsCompileWithoutFaults) {
  std::vector<std::string> sources = CorpusTexts();
  ASSERT_FALSE(sources.empty());
  alarm(120);
  for (std::string const& source : sources) EXPECT_GE(CompileSource(source).status, 0);
  std::mt19937 random(20240613u);
  for (int i = 0; i < 1500; i++) {
    std::string text = sources[i % sources.size()];
    for (int n = 0; n < 3; n++) text = Mutate(text, random);
    CompiledProgram p = CompileSource(text);
    ASSERT_TRUE(p.status >= 0 && p.status <= 2) << text;
  }
  alarm(0);
}

}  // namespace
