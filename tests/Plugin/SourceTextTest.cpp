// The source text the compiler will read: always UTF-8, a line feed
// appended, a copy that ends at the first NUL.
#include <gtest/gtest.h>

#include <string>

#include "tests/Plugin/PluginTestSupport.h"

namespace {

TEST(SourceText, GetsALineFeedAppended) {
  AttachEngine();
  quorl::Script script;
  script.SetSource("Print \"hi\"");
  EXPECT_STREQ(InterfaceOf(script)->SourceText(), "Print \"hi\"\n");
  script.SetSource("");
  EXPECT_STREQ(InterfaceOf(script)->SourceText(), "\n");
}

TEST(SourceText, EndsAtTheFirstNul) {
  AttachEngine();
  quorl::Script script;
  script.SetSource(std::string("Print 1\0Print 2", 15));
  EXPECT_STREQ(InterfaceOf(script)->SourceText(), "Print 1");
}

TEST(SourceText, KeepsUTF8Bytes) {
  AttachEngine();
  quorl::Script script;
  script.SetSource("Print \"gr\xC3\xBC\xC3\x9F\"");
  EXPECT_STREQ(InterfaceOf(script)->SourceText(), "Print \"gr\xC3\xBC\xC3\x9F\"\n");
  EXPECT_EQ(script.Source(), "Print \"gr\xC3\xBC\xC3\x9F\"");
}

TEST(SourceText, NothingIsCompiledBeforeASourceIsSet) {
  AttachEngine();
  quorl::Script script;
  script.Precompile();
  EXPECT_EQ(InterfaceOf(script)->SourceText(), nullptr);
  EXPECT_FALSE(InterfaceOf(script)->HasReadyCode());
  EXPECT_EQ(script.State(), quorl::ScriptState::Idle);
}

}  // namespace
