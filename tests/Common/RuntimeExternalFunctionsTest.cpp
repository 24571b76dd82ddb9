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
  // What cannot be found is not remembered, and gives null.
  stringStorage* absent = Text("libquorl_absent");
  EXPECT_EQ(LoadFunctionPointerFromLibrary(name, absent), nullptr);
  for (stringStorage* text : {name, library, absent}) UnlockStringStorage(text);
}

}  // namespace
