// The words the engine gives every host for its compile errors.
#include <gtest/gtest.h>

#include "Compiler/Frontend/ParserError.h"
#include "Plugin/CompileErrorMessages.h"

namespace {

TEST(CompileErrorMessages, EveryNumberTheEngineRaisesHasItsOwnSummary) {
  std::string generic = CompileErrorSummary(9999);
  int const raised[][2] = {{1, 2}, {5, 7}, {9, 12}, {14, 22}, {24, 35}, {37, 37}, {41, 52},
                           {62, 65}, {67, 73}, {75, 87}, {89, 90},
                           {93, 93}, {95, 100}, {103, 122}, {124, 131}, {133, 142}};
  for (auto const& range : raised)
    for (int number = range[0]; number <= range[1]; ++number)
      EXPECT_NE(CompileErrorSummary(number), generic) << "error " << number;
  EXPECT_STREQ(CompileErrorSummary(82), "parameter after ParamArray");
  for (int number : {0, -1, 3, 4, 8, 13, 23, 88, 143, 100000})
    EXPECT_STREQ(CompileErrorSummary(number), "compile error") << number;
}

// The raiser's arguments name what is wrong; without them the message
// quotes the stretch of source the error points at, when that is short and
// on one line.
TEST(CompileErrorMessages, TheMessageNamesWhatIsAtFault) {
  char const source[] = "Dim x As Integer\nx = Fooo + 1\n";
  SimpleVector<string> types;
  types.push_back(string("Integer"));
  types.push_back(string("String"));
  struct Row {
    CompileError error;
    char const* message;
  } const rows[] = {
      {CompileError(kErrorTypeMismatch, SourceLocation(1, 4, 1, 8), types),
       "type mismatch: Integer, String"},
      {CompileError(kErrorUnknownName, SourceLocation(1, 4, 1, 8)),
       "unknown name: Fooo"},
      // Offsets unknown, spanning lines, or running past the line's end.
      {CompileError(kErrorUnknownName, SourceLocation(1)), "unknown name"},
      {CompileError(kErrorUnknownName, SourceLocation(0, 4, 1, 2)), "unknown name"},
      {CompileError(kErrorUnknownName, SourceLocation(1, 4, 1, 40)), "unknown name"},
      {CompileError(kErrorUnknownName, SourceLocation(7, 0, 7, 2)), "unknown name"},
  };
  for (Row const& row : rows)
    EXPECT_STREQ(CompileErrorText(row.error, source).CString(), row.message);
  EXPECT_STREQ(CompileErrorText(rows[1].error, nullptr).CString(), "unknown name");
}

}  // namespace
