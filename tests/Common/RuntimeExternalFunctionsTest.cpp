// Finding the functions that Declare statements name.
#include <gtest/gtest.h>

#include <dlfcn.h>
#include <string.h>

#include "Common/RuntimeExternalFunctions.h"

namespace {

stringStorage* Text(char const* text) {
  return string(text).ExtractStringStorage();
}

TEST(RuntimeExternalFunctions, FindsAFunctionAndRemembersItPerCallSite) {
  stringStorage* name = Text("strlen");
  stringStorage* library = Text("libc.so.6");
  void* found = LoadFunctionPointerFromLibrary(name, library);
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found, dlsym(RTLD_DEFAULT, "strlen"));
  auto length = reinterpret_cast<size_t (*)(char const*)>(found);
  EXPECT_EQ(length("four"), 4u);
  EXPECT_EQ(LoadFunctionPointerFromLibrary(name, library), found);
  // The same storage with other text is another function.
  strcpy(name->CString(), "strchr");
  EXPECT_EQ(LoadFunctionPointerFromLibrary(name, library),
            dlsym(RTLD_DEFAULT, "strchr"));
  UnlockStringStorage(name);
  UnlockStringStorage(library);
}

TEST(RuntimeExternalFunctions, AMissingLibraryOrSymbolOrNameGivesNull) {
  stringStorage* libc = Text("libc.so.6");
  stringStorage* absent = Text("quorl_no_such_symbol");
  stringStorage* strlenName = Text("strlen");
  stringStorage* nowhere = Text("libquorl_no_such_library");
  EXPECT_EQ(LoadFunctionPointerFromLibrary(absent, libc), nullptr);
  EXPECT_EQ(LoadFunctionPointerFromLibrary(strlenName, nowhere), nullptr);
  EXPECT_EQ(LoadFunctionPointerFromLibrary(nullptr, libc), nullptr);
  EXPECT_EQ(LoadFunctionPointerFromLibrary(strlenName, nullptr), nullptr);
  for (stringStorage* s : {libc, absent, strlenName, nowhere})
    UnlockStringStorage(s);
}

}  // namespace
