// A compile error travels from the compiler's delegate to the host's
// CompilerError event: line as reported (0-based), number unchanged, and the
// one fixed message text, whose host string holds 28 bytes, NUL last.
#include <gtest/gtest.h>

#include "Compiler/Frontend/ParserError.h"
#include "tests/Plugin/PluginTestSupport.h"

namespace {

VELDBuildStringProc gRealBuildString;
std::vector<std::string> gBuiltStrings;  // every string built, all bytes

VELDString RecordingBuildString(void const* bytes, int length) {
  VELDString text = gRealBuildString(bytes, length);
  gBuiltStrings.emplace_back(text ? text->CString() : "", text ? text->mLength : 0);
  return text;
}

// The plug-in resolves host names on first use: the recorder must be in the
// table before the first event.
void InterceptBuildString() {
  gRealBuildString = (VELDBuildStringProc)quorl::ResolveHostName("VELDBuildString");
  quorl::RegisterHostFunction("VELDBuildString", (void*)&RecordingBuildString);
}

struct Report {
  int line, number;
  std::string message;
};

TEST(CompilerErrorEvent, CarriesLineNumberAndTheFixedText) {
  AttachEngine();
  InterceptBuildString();
  quorl::Script script;
  std::vector<Report> reports;
  script.OnCompilerError([&](int line, int number, std::string const& message) {
    reports.push_back({line, number, message});
  });

  InterfaceOf(script)->CompilerError(CompileError(kErrorUnknownName, SourceLocation(4)));
  InterfaceOf(script)->CompilerError(CompileError(kErrorSyntax, SourceLocation(0)));

  ASSERT_EQ(reports.size(), 2u);
  EXPECT_EQ(reports[0].line, 4);
  EXPECT_EQ(reports[0].number, 11);
  EXPECT_EQ(reports[1].line, 0);  // the first line stays 0: nobody adds 1
  EXPECT_EQ(reports[1].number, 1);
  ASSERT_EQ(gBuiltStrings.size(), 2u);
  for (std::string const& built : gBuiltStrings) {
    ASSERT_EQ(built.size(), 28u);
    EXPECT_EQ(built.substr(0, 27), "Error found while compiling");
    EXPECT_EQ(built[27], '\0');
  }
  EXPECT_EQ(script.State(), quorl::ScriptState::Aborted);
}

TEST(CompilerErrorEvent, WithoutAHandlerStillAbortsAndBuildsNothing) {
  AttachEngine();
  InterceptBuildString();
  quorl::Script script;
  InterfaceOf(script)->CompilerError(CompileError(kErrorTypeMismatch, SourceLocation(2)));
  EXPECT_EQ(script.State(), quorl::ScriptState::Aborted);
  EXPECT_TRUE(gBuiltStrings.empty());
}

TEST(CompilerErrorEvent, ASetSourceAfterAnErrorStartsIdleAgain) {
  AttachEngine();
  quorl::Script script;
  InterfaceOf(script)->CompilerError(CompileError(kErrorSyntax, SourceLocation(1)));
  script.SetSource("Print 1");
  EXPECT_EQ(script.State(), quorl::ScriptState::Idle);
}

}  // namespace
