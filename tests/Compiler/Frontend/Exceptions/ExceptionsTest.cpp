// The shapes of Try, Catch, Finally and Raise, and the handler that ends
// every method body and the main body.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "StatementTestSupport.h"

namespace {

// The index of the first line at or after `from` that starts with `text`.
int FindStart(CompiledProgram const& p, std::string const& text,
              int from = 0) {
  std::vector<std::string> l = p.Lines();
  for (int i = from; i < static_cast<int>(l.size()); i++)
    if (l[i].compare(0, text.size(), text) == 0) return i;
  return -1;
}

TEST(Exceptions, AFunctionReleasesItsLocalsOnBothPathsThenReraises) {
  CompiledProgram p = CompileProgramText(
      "Sub S()\n  Dim t As String = \"x\"\nEnd Sub\n");
  ASSERT_TRUE(p.errors.empty()) << p.listing;
  std::vector<std::string> l = p.Lines();
  int enter = p.Find("Enter           \"S");
  ASSERT_GE(enter, 0);
  int handler = FindStart(p, "HandleException", enter);
  ASSERT_GT(handler, 0) << p.listing;
  // The handler variable starts at zero, so that normal flow can tell.
  EXPECT_EQ(0u, l[handler - 1].find("Store           0 As Int32 -> S."))
      << l[handler - 1];
  // No label: normal flow falls through into the same release code.
  EXPECT_EQ(std::string::npos, l[handler].find("->"));
  int release = FindStart(p, "Unlock          S.t ", handler);
  int test = FindStart(p, "IfEQI", handler);
  int reraise = p.Find("Intrinsic       intrinsic 108", handler);
  int leave = FindStart(p, "Leave", handler);
  ASSERT_GT(release, handler) << p.listing;
  EXPECT_GT(test, release);
  EXPECT_EQ(reraise, test + 2);
  EXPECT_EQ(0u, l[reraise + 1].find("Unlock"));
  EXPECT_GT(leave, reraise);
  EXPECT_EQ(1, p.Count("Unlock          S.t ")) << "released once, on both paths";
}

TEST(Exceptions, TheMainBodyHasAFrameAndEndsWithItsHandler) {
  CompiledProgram p = CompileProgramText("Dim g As String = \"x\"\nDim h As String = g\n");
  ASSERT_TRUE(p.errors.empty()) << p.listing;
  std::vector<std::string> l = p.Lines();
  ASSERT_FALSE(l.empty());
  EXPECT_EQ(0u, l[0].find("Enter           \"% main\""));
  int handler = FindStart(p, "HandleException");
  ASSERT_GT(handler, 0);
  // The handler variable lives on the main body's stack: the raiser writes
  // it through the frame.
  EXPECT_NE(std::string::npos, l[handler].find("(stack "));
  int finalize = p.Find("\"% finalize\"", handler);
  int reraise = p.Find("intrinsic 108", handler);
  int exit = p.Find("intrinsic 2 ", handler);
  EXPECT_GT(finalize, handler);
  EXPECT_GT(reraise, finalize);
  EXPECT_GT(exit, reraise);
  EXPECT_EQ(0u, l.back().find("Stop"));
}

TEST(Exceptions, TryCatchFinallyShape) {
  CompiledProgram p = CompileProgramText(
      "Sub S()\n  Dim a As String\n  Try\n    a = \"a\"\n  Catch\n"
      "    a = \"b\"\n  Finally\n    a = \"c\"\n  End Try\nEnd Sub\n");
  ASSERT_TRUE(p.errors.empty()) << p.listing;
  std::vector<std::string> l = p.Lines();
  int begin = FindStart(p, "BeginTry");
  int catchAt = FindStart(p, "HandleException", begin);
  int finallyAt = FindStart(p, "HandleException", catchAt + 1);
  int end = FindStart(p, "EndTry");
  ASSERT_GT(begin, 0) << p.listing;
  ASSERT_GT(catchAt, begin);
  // The untyped Catch takes every exception and keeps none: normal flow
  // jumps over it to the label behind its body.
  ASSERT_EQ(0u, l[catchAt].find("HandleException -> L")) << l[catchAt];
  std::string over = l[catchAt].substr(std::string("HandleException -> ").size());
  int body = p.Find("Store           \"b\"", catchAt);
  ASSERT_GT(body, catchAt);
  EXPECT_EQ(over + ":", l[body + 1]);
  // Finally comes after the Catch and before EndTry, which closes the
  // region after all its handlers.
  ASSERT_GT(finallyAt, catchAt);
  EXPECT_GT(end, p.Find("intrinsic 108", finallyAt));
  // Catch, Finally, the function's own handler, and the main body's.
  EXPECT_EQ(4, p.Count("HandleException"));
}

TEST(Exceptions, AReturnInsideTryLeavesThroughTheExit) {
  CompiledProgram p = CompileProgramText(
      "Function F() As Integer\n  Dim a As Integer\n  Try\n    Return 1\n"
      "  Finally\n    a = 2\n  End Try\nEnd Function\n");
  ASSERT_TRUE(p.errors.empty()) << p.listing;
  int jump = FindStart(p, "Jump");
  int end = FindStart(p, "EndTry");
  ASSERT_GT(jump, 0);
  ASSERT_GT(end, jump);
  std::vector<std::string> l = p.Lines();
  EXPECT_EQ(FindStart(p, l[jump].substr(l[jump].find("-> ") + 3) + ":"),
            end + 1)
      << "the exit label follows the Try statement";
}

}  // namespace
