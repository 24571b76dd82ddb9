// Every declaration string of the standard library through the declaration
// reader: its name and one parameter per listed item.
#include <gtest/gtest.h>

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
  }
}

}  // namespace
