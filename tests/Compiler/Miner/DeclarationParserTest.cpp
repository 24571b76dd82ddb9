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
      "  Public Shared instances As Integer\n  Protected grid(3, 3) As Integer\n"
      "  Public Event Changed(value As Integer)\n"
      "  Sub Draw(g As Graphics)\n  End Sub\n  Private Sub Poke()\n  End Sub\n"
      "  Shared Function Make() As Widget\n  End Function\n"
      "  Property Width As Integer\n    Get\n      Return 1\n    End Get\n"
      "    Set\n    End Set\n  End Property\n"
      "  Sub Clicked() Handles Click\n  End Sub\n"
      "  Declare Function Native Lib \"libc\" Alias \"native_fn\" (x As Int32) "
      "As Int32\n"
      "End Class\n",
      false);
  ASSERT_TRUE(program.mGlobal);
  ClassSymbol* widget = program.Type<ClassSymbol>("Widget");
  ASSERT_NE(nullptr, widget);
  EXPECT_EQ("Control", Std(widget->GetSuperclassType().ToString()));
  ASSERT_NE(nullptr, widget->LookupEvent("Changed"));
  EXPECT_EQ(MemberSymbol::kPrivate, widget->LookupEvent("Changed")->GetScope());
  EXPECT_EQ(MethodSymbol::Virtual, program.Method(widget, "Draw")->GetDispatchMethod());
  EXPECT_EQ(MethodSymbol::Normal, program.Method(widget, "Poke")->GetDispatchMethod());
  MethodSymbol* make = program.Method(widget, "Make");
  EXPECT_FALSE(make->IsInstanceMethod());
  EXPECT_EQ(MethodSymbol::Normal, make->GetDispatchMethod());
  PropertySymbol* width = widget->LookupProperty("Width");
  ASSERT_TRUE(width && width->GetGetter() && width->GetSetter());
  EXPECT_EQ(3u, width->GetSetter()->CountParameters());  // self, selector, value
  EXPECT_EQ("__Selector", Std(width->GetGetter()->GetParameter(1)->Name()));
  EXPECT_TRUE(widget->LookupProperty("instances")->IsShared());
  EXPECT_EQ(2u, widget->LookupProperty("grid")->GetType().GetDimensions());
  ASSERT_NE(nullptr, widget->LookupHandledEvent("Click"));
  EXPECT_EQ("Click", Std(program.Method(widget, "Clicked")->GetHandles()));
  EXPECT_EQ("libc", Std(program.Method(widget, "Native")->GetSourceLibrary()));
  EXPECT_EQ("native_fn", Std(program.Method(widget, "Native")->GetLinkID()));
  EXPECT_EQ(kClassType,
            program.Method(widget, "__Lookup")->GetReturnType().GetMainType());
}

TEST(DeclarationScanner, ParameterFlagsRolesAndDefaults) {
  ScannedProgram program(
      "Sub F(ByRef a() As Int32, Optional b As String = \"x\", "
      "c As Int32 = Limit(1, 2) + k, d As Double = -2.5, e As Integer = -3)\n"
      "End Sub\nSub H(Extends s As String, Assigns v As Boolean = True)\n"
      "End Sub\n",
      false);
  ASSERT_TRUE(program.mGlobal);
  MethodSymbol* f = program.Method(program.mGlobal.get(), "F");
  ASSERT_EQ(5u, f->CountParameters());
  IRDataType a = f->GetParameter(0)->GetType();
  EXPECT_EQ(kReferenceType, a.GetMainType());
  EXPECT_EQ(1u, a.GetDimensions());
  ParameterSymbol* b = f->GetParameter(1);
  EXPECT_EQ(ParameterSymbol::kOptional, b->GetMode());
  EXPECT_EQ("x", Std(b->GetDefaultValue().value.mString));
  ParameterSymbol* c = f->GetParameter(2);
  EXPECT_EQ(ParameterSymbol::kOptional, c->GetMode());
  EXPECT_EQ(kNoType, c->GetDefaultValue().type.GetMainType());
  EXPECT_EQ(-2.5, f->GetParameter(3)->GetDefaultValue().value.uReal64);
  EXPECT_EQ(-3, f->GetParameter(4)->GetDefaultValue().value.uSInt32);
  MethodSymbol* h = program.Method(program.mGlobal.get(), "H");
  EXPECT_TRUE(h->IsExtensionMethod());
  EXPECT_TRUE(h->IsSetterMethod());
  EXPECT_EQ(1, h->GetParameter(1)->GetDefaultValue().value.uSInt32);
}

TEST(DeclarationScanner, ADeclarationFurtherDownIsKnown) {
  ScannedProgram program(
      "Sub Main()\n  Dim b As New Base\n  Later(b)\nEnd Sub\n"
      "Class Derived\n  Inherits Base\nEnd Class\n"
      "Sub Later(x As Base)\nEnd Sub\n"
      "Class Base\nEnd Class\n");
  ASSERT_TRUE(program.mGlobal);
  ClassSymbol* derived = program.Type<ClassSymbol>("Derived");
  EXPECT_EQ(program.Type<ClassSymbol>("Base"), derived->GetParent());
  MethodSymbol* later = program.Method(program.mGlobal.get(), "Later");
  EXPECT_EQ(program.Type<ClassSymbol>("Base"),
            later->GetParameter(0)->GetType().Declaration());
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
       {"end of input in method body", "end of input in module"}},
      {"Module M\nProperty P As Integer\nEnd Sub\nEnd Module\n",
       {"bad block ender in computed property"}},
  };
  for (auto const& c : cases) EXPECT_EQ(c.messages, ScanErrors(c.source));
  ScannedProgram lines("Sub A()\nEnd Sub\n\nSub B()\nEnd Class\n", false);
  ASSERT_EQ(1u, lines.mDelegate.mErrors.size());
  EXPECT_EQ(4u, lines.mDelegate.mErrors[0].Location().mStartLine);
}

}  // namespace

// "Dim a, b As T" declares both names as T: a name without its own type
// takes the type of the next clause, keeping its own dimensions.
TEST(DeclarationScanner, TopLevelNamesShareTheNextClausesType) {
  ScannedProgram program(
      "Dim a, b(2) As Integer, s, t As String\n"
      "Dim x As Double = Pow(2, 3), y As Int64 = 1\n"
      "Dim last\n");
  ASSERT_TRUE(program.mGlobal);
  EXPECT_EQ(kSInt32Type, program.mGlobal->LookupProperty("a")->GetType().GetMainType());
  IRDataType b = program.mGlobal->LookupProperty("b")->GetType();
  EXPECT_EQ(1u, b.GetDimensions());
  EXPECT_EQ(kSInt32Type, b.GetElementType());
  EXPECT_EQ(kStringType, program.mGlobal->LookupProperty("s")->GetType().GetMainType());
  EXPECT_EQ(kStringType, program.mGlobal->LookupProperty("t")->GetType().GetMainType());
  EXPECT_EQ(kSInt64Type, program.mGlobal->LookupProperty("y")->GetType().GetMainType());
  EXPECT_EQ(kNoType, program.mGlobal->LookupProperty("last")->GetType().GetMainType());
}
