// The runner's words for the engine's compile error numbers.
#include <gtest/gtest.h>

#include <string>

#include "QuorlRunner/CompileErrorMessages.h"

namespace {

using quorl::runner::CompileErrorMessage;

TEST(RunnerMessages, EveryNumberTheEngineRaisesHasItsOwnText) {
  std::string generic = CompileErrorMessage(9999);
  std::vector<int> raised = {1,  2,  5,  6,  7,  9,  10, 11, 12, 14, 15, 16, 17,
                             18, 19, 20, 21, 22, 24, 25, 26, 27, 28, 29, 30, 31,
                             32, 33, 34, 35, 37, 41, 42, 43, 44, 45, 46, 47, 48,
                             52, 62, 63, 65, 67, 68, 69, 70, 71, 72, 73, 75, 89,
                             90, 93, 95, 96, 97, 98, 99, 100, 103, 104, 105, 106,
                             107, 108, 109, 110, 112, 113, 114, 115, 116, 117,
                             118, 119, 120, 121, 122, 124, 125, 126, 127, 128,
                             129, 130, 131, 133, 134, 135, 136, 137};
  for (int n = 76; n <= 87; ++n) raised.push_back(n);
  for (int number : raised)
    EXPECT_NE(CompileErrorMessage(number), generic) << "error " << number;
}

TEST(RunnerMessages, TextsAreShortLowerCasePhrases) {
  EXPECT_STREQ(CompileErrorMessage(2), "type mismatch");
  EXPECT_STREQ(CompileErrorMessage(11), "unknown name");
  EXPECT_STREQ(CompileErrorMessage(82), "parameter after ParamArray");
}

TEST(RunnerMessages, UnknownNumbersGetAGenericText) {
  for (int number : {0, -1, 3, 4, 8, 13, 23, 88, 138, 100000})
    EXPECT_STREQ(CompileErrorMessage(number), "compile error") << number;
}

}  // namespace
