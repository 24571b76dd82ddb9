// Every declaration string of the standard library, and the host's forms
// of method and property declarations, through the declaration reader.
#include <gtest/gtest.h>

#include "Compiler/Frontend/NameMangler.h"
#include "MinerTestSupport.h"
#include "Plugin/RuntimeLibraryTable.h"

namespace {

TEST(RuntimeDeclarations, EveryLibraryDeclarationGivesItsMethod) {
  unsigned long count = 0;
  RuntimeLibraryEntry const* entries = RuntimeLibraryEntries(&count);
  ASSERT_GT(count, 90u);
  for (unsigned long i = 0; i < count; i++) {
    std::string text = entries[i].mDeclaration;
    std::unique_ptr<MethodSymbol> method(
        ExtractMethodDeclaration(text.c_str(), nullptr));
    ASSERT_NE(nullptr, method) << text;
    // The name is the word between "Function " and "(".
    size_t open = text.find('(');
    EXPECT_EQ(text.substr(9, open - 9), Std(method->Name())) << text;
    // One parameter per comma-separated item of the list.
    size_t close = text.rfind(')');
    std::string list = text.substr(open + 1, close - open - 1);
    size_t params = list.empty() ? 0 : 1;
    for (char c : list) params += c == ',';
    EXPECT_EQ(params, method->CountParameters()) << text;
    for (unsigned long p = 0; p < method->CountParameters(); p++)
      EXPECT_NE(kNoType, method->GetParameter(p)->GetType().GetMainType())
          << text;
    EXPECT_NE(kNoType, method->GetReturnType().GetMainType()) << text;
    EXPECT_EQ(text.find("Extends") != std::string::npos,
              method->IsExtensionMethod())
        << text;
  }
}

TEST(RuntimeDeclarations, EmptyAndLiteralDefaults) {
  std::unique_ptr<MethodSymbol> join(ExtractMethodDeclaration(
      "Function Join(fields() As String, delimiter As String=) As String",
      nullptr));
  ASSERT_EQ(2u, join->CountParameters());
  EXPECT_EQ(1u, join->GetParameter(0)->GetType().GetDimensions());
  ParameterSymbol* delimiter = join->GetParameter(1);
  EXPECT_EQ(ParameterSymbol::kOptional, delimiter->GetMode());
  EXPECT_EQ(kStringType, delimiter->GetType().GetMainType());
  // Nothing after "=": optional, with the type's empty value.
  EXPECT_EQ(kStringType, delimiter->GetDefaultValue().type.GetMainType());
  EXPECT_TRUE(delimiter->GetDefaultValue().value.mString.IsEmpty());
  EXPECT_EQ(kStringType, join->GetReturnType().GetMainType());
  std::unique_ptr<MethodSymbol> instr(ExtractMethodDeclaration(
      "Function InStr(start As Integer=0, haystack As String, needle As "
      "String) As Integer",
      nullptr));
  ASSERT_EQ(3u, instr->CountParameters());
  EXPECT_EQ(ParameterSymbol::kOptional, instr->GetParameter(0)->GetMode());
  EXPECT_EQ(0, instr->GetParameter(0)->GetDefaultValue().value.uSInt32);
  std::unique_ptr<MethodSymbol> max(ExtractMethodDeclaration(
      "Function Max(val1 As Double, val2 As Double, ParamArray others as "
      "Double) As Double",
      nullptr));
  EXPECT_TRUE(max->IsParamArrayMethod());
  EXPECT_EQ("*Max%f8%f8f8A1f8", Std(MangledMethodName(max.get(), "")));
}

}  // namespace
