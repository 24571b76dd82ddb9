// The declaration scanner over source text: what it declares, how it skips
// bodies, what it prints back, and its block-structure errors.
#include <gtest/gtest.h>

#include "MinerTestSupport.h"

namespace {

// The errors' messages, in order.
std::vector<std::string> Messages(RecordingDelegate const& delegate) {
  std::vector<std::string> messages;
  for (unsigned long i = 0; i < delegate.mErrors.size(); i++) {
    EXPECT_EQ(kErrorSyntax, delegate.mErrors[i].Type());
    messages.push_back(Std(delegate.mErrors[i].Arguments()[0]));
  }
  return messages;
}

std::vector<std::string> ScanErrors(std::string const& source) {
  ScannedProgram program(source, false);
  EXPECT_EQ(nullptr, program.mGlobal.get()) << source;
  return Messages(program.mDelegate);
}

TEST(DeclarationScanner, PrototypesReadBackAsWritten) {
  char const* const source =
      "Const kLimit = 10\n"
      "Sub Main()\n  If x Then\n    Call Helper(1)\n  End If\n"
      "  Select Case x\n  End Select\nEnd Sub\n"
      "Function Helper(n As Int32, ByRef s As String) As Boolean\n"
      "  Try\n  End Try\nEnd Function\n"
      "Module Geometry\n"
      "  Protected Function Area(w As Double, Optional h As Double = 1.5) "
      "As Double\n  End Function\n"
      "  Private Sub Hidden()\n  End Sub\n"
      "  Structure Pair\n    a As Int8\n    b(3) As Int32\n"
      "    name As String * 10\n  End Structure\n"
      "  Enum Level As UInt8\n    Low\n    High = 5\n    Top\n  End Enum\n"
      "  Delegate Function Transform(x As Double) As Double\n"
      "End Module\n";
  ScannedProgram program(source, false);
  ASSERT_TRUE(program.mGlobal) << Messages(program.mDelegate).size();
  EXPECT_EQ(
      "Const kLimit = 10\n"
      "Sub Main()\nEnd Sub\n"
      "Function Helper(n As Int32, ByRef s As String) As Boolean\n"
      "End Function\n"
      "Module Geometry\n"
      "Protected Function Area(w As Double, h As Double = 1.5) As Double\n"
      "End Function\n"
      "Global Structure Pair\n"
      "a As Int8\nb(3) As Int32\nname As String * 10\n"
      "End Structure\n"
      "Global Enum Level As UInt8\nLow = 0\nHigh = 5\nTop = 6\nEnd Enum\n"
      "Global Delegate Function Transform (x As Double) As Double\n"
      "End Module\n",
      program.mPrototype);
}

TEST(DeclarationScanner, ClassesKnowTheirMembers) {
  ScannedProgram program(
      "Class Widget\n  Inherits Control\n  Inherits Other\n"
      "  Implements Drawable\n  Dim count As Integer\n"
      "  Public Event Changed(value As Integer)\n"
      "  Sub Draw(g As Graphics)\n  End Sub\n"
      "  Shared Function Make() As Widget\n  End Function\n"
      "  Property Width As Integer\n    Get\n      Return 1\n    End Get\n"
      "    Set\n    End Set\n  End Property\n"
      "  Sub Clicked() Handles Click\n  End Sub\n"
      "  Declare Function Native Lib \"libc\" Alias \"native_fn\" () As Int32\n"
      "End Class\n",
      false);
  ASSERT_TRUE(program.mGlobal);
  ClassSymbol* widget = program.Type<ClassSymbol>("Widget");
  EXPECT_EQ("Control", Std(widget->GetSuperclassType().ToString()));
  ASSERT_NE(nullptr, widget->LookupEvent("Changed"));
  EXPECT_EQ(MemberSymbol::kPrivate, widget->LookupEvent("Changed")->GetScope());
  EXPECT_EQ(MethodSymbol::Virtual, program.Method(widget, "Draw")->GetDispatchMethod());
  EXPECT_EQ(MethodSymbol::Normal, program.Method(widget, "Make")->GetDispatchMethod());
  PropertySymbol* width = widget->LookupProperty("Width");
  ASSERT_TRUE(width && width->GetGetter() && width->GetSetter());
  EXPECT_EQ(3u, width->GetSetter()->CountParameters());  // self, selector, value
  EXPECT_EQ("__Selector", Std(width->GetGetter()->GetParameter(1)->Name()));
  EXPECT_EQ("Click", Std(program.Method(widget, "Clicked")->GetHandles()));
  EXPECT_EQ("native_fn", Std(program.Method(widget, "Native")->GetLinkID()));
}

// A default that is an expression is kept for the parser: the scanner
// marks the parameter optional without a value.
TEST(DeclarationScanner, ExpressionDefaultsHaveNoValue) {
  ScannedProgram program("Sub F(c As Int32 = Limit(1, 2) + k)\nEnd Sub\n", false);
  ASSERT_TRUE(program.mGlobal);
  ParameterSymbol* c = program.Method(program.mGlobal.get(), "F")->GetParameter(0);
  EXPECT_EQ(ParameterSymbol::kOptional, c->GetMode());
  EXPECT_EQ(kNoType, c->GetDefaultValue().type.GetMainType());
}

TEST(DeclarationScanner, BlockStructureErrors) {
  struct {
    char const* source;
    std::vector<std::string> messages;
  } const cases[] = {
      {"Sub S()\nEnd Function\n", {"bad scope end in method body"}},
      {"Class A\nEnd Module\n", {"bad block end in class"}},
      {"Class A\n  Dim x As Integer\n", {"end of input in class"}},
      {"Interface I\nEnd Class\n", {"bad block ender in interface"}},
      {"Interface I\n", {"end of input in interface"}},
      {"Module M\nEnd Class\n", {"bad block ender in module"}},
      {"Module M\n", {"end of input in module"}},
      {"Sub 5()\nEnd Sub\n", {"invalid declaration name"}},
      {"Module M\nSub S()\n",
       {"no End Sub before the end of the text", "end of input in module"}},
      {"Module M\nProperty P As Integer\nEnd Sub\nEnd Module\n",
       {"bad block ender in computed property"}},
  };
  for (auto const& c : cases) EXPECT_EQ(c.messages, ScanErrors(c.source));
  ScannedProgram lines("Sub A()\nEnd Sub\n\nSub B()\nEnd Class\n", false);
  ASSERT_EQ(1u, lines.mDelegate.mErrors.size());
  EXPECT_EQ(4u, lines.mDelegate.mErrors[0].Location().mStartLine);
  // A body the text ends in is reported at its header.
  ScannedProgram open("x = 1\nFunction F() As Integer\n  Return 1\n\n", false);
  ASSERT_EQ(1u, open.mDelegate.mErrors.size());
  EXPECT_EQ(1u, open.mDelegate.mErrors[0].Location().mStartLine);
}

}  // namespace
