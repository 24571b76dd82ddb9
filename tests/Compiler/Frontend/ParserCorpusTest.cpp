// The corpus of valid programs: every statement and declaration form of the
// language parses without a report.
#include <gtest/gtest.h>

#include "ParseDriver.h"

namespace {

TEST(ParserCorpus, EveryFileParsesWithoutErrors) {
  std::vector<std::string> files = CorpusFiles();
  ASSERT_GE(files.size(), 5u);
  for (std::string const& file : files) {
    ParseOutcome outcome = ParseText(ReadFile(file));
    EXPECT_EQ(0, outcome.status) << file;
    EXPECT_TRUE(outcome.errors.empty())
        << file << ": first error " << outcome.errors[0].first << " on line "
        << outcome.errors[0].second + 1;
  }
}

TEST(ParserCorpus, TheWholeCorpusIsOneProgram) {
  std::string all;
  for (std::string const& file : CorpusFiles()) all += ReadFile(file) + "\n";
  ParseOutcome outcome = ParseText(all);
  EXPECT_EQ(0, outcome.status);
  EXPECT_TRUE(outcome.errors.empty());
}

TEST(ParserCorpus, EmptyAndBlankSourcesParse) {
  for (char const* text : {"", "\n\n\n", "' only a comment", "  \t  "}) {
    ParseOutcome outcome = ParseText(text);
    EXPECT_EQ(0, outcome.status) << text;
    EXPECT_TRUE(outcome.errors.empty()) << text;
  }
}

TEST(ParserCorpus, SourceWithoutFinalLineEndParses) {
  // The driver appends one; a CR-only text works the same way.
  ParseOutcome outcome = ParseText("x = 1\rPrint x\r");
  EXPECT_EQ(0, outcome.status);
  EXPECT_TRUE(outcome.errors.empty());
}

TEST(ParserCorpus, ModerateNestingPasses) {
  std::string expr(40, '(');
  expr += "1" + std::string(40, ')');
  ParseOutcome outcome = ParseText("x = " + expr);
  EXPECT_EQ(0, outcome.status);
  EXPECT_TRUE(outcome.errors.empty());
}

}  // namespace
