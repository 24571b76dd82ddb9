// Calling the runtime library as compiled code does: by name through the
// host's resolver, cast to the C signature of its declaration.
#ifndef TESTS_STANDINHOST_RUNTIMELIBRARY_LIBRARYTESTSUPPORT_H
#define TESTS_STANDINHOST_RUNTIMELIBRARY_LIBRARYTESTSUPPORT_H

#include <gtest/gtest.h>
#include <string.h>

#include <string>
#include <type_traits>
#include <vector>

#include "StandInHost/RuntimeLibrary/LibraryText.h"
#include "Universal/ustring.h"
#include "quorl/QuorlHost.h"

typedef stringStorage* Str;

template <class Signature>
Signature* Library(char const* name) {
  void* address = quorl::ResolveHostName(name);
  EXPECT_NE(address, nullptr) << name;
  return reinterpret_cast<Signature*>(address);
}

inline std::string Bytes(Str s) { return s ? std::string(s->CString(), s->mLength) : ""; }

class LibraryTest : public ::testing::Test {
 protected:
  // A UTF-8 argument (or of the given tag) owned by the fixture, which
  // checks at the end that nothing kept a reference to it.
  Str S(char const* text, unsigned long tag = kEncodingUTF8) {
    Str s = strlen(text) ? NewStringStorage(text, strlen(text), tag) : nullptr;
    if (s) mOwned.push_back(s);
    return s;
  }
  // Calls a function that returns a String and checks the contract: every
  // string argument keeps its count, and the result carries exactly one
  // reference of its own (on top of an argument's, when it shares one).
  // Text returns the text and releases the result; Call hands it over.
  template <class... A>
  std::string Text(char const* name, A... args) {
    Str result = Call(name, args...);
    std::string text = Bytes(result);
    UnlockStringStorage(result);
    return text;
  }
  template <class... A>
  Str Call(char const* name, A... args) {
    std::vector<std::pair<Str, int>> before;
    ([&] { if constexpr (std::is_same<A, Str>::value) if (args) before.push_back({args, args->mRefCount}); }(), ...);
    Str result = Library<Str(A...)>(name)(args...);
    // The library remembers a position in the last text it walked, with a
    // reference to that text; the contract is about the caller's counts.
    quorl::standin::library::ForgetCharacterPositions();
    bool shared = false;
    for (auto const& arg : before) {
      bool same = arg.first == result;
      shared = shared || same;
      EXPECT_EQ(arg.first->mRefCount, arg.second + (same ? 1 : 0)) << name;
    }
    if (result && !shared) {
      EXPECT_EQ(result->mRefCount, 1) << name;
    }
    return result;
  }
  // The tag of a String result; whether the result is the argument `arg`.
  template <class... A>
  uint32_t Tag(char const* name, A... args) {
    Str result = Call(name, args...);
    uint32_t tag = result ? result->mEncoding : 0xFFFFFFFF;
    UnlockStringStorage(result);
    return tag;
  }
  template <class... A>
  bool Shares(Str arg, char const* name, A... args) {
    Str result = Call(name, args...);
    UnlockStringStorage(result);
    return result == arg;
  }
  void TearDown() override {
    quorl::standin::library::ForgetCharacterPositions();
    for (Str s : mOwned) {
      EXPECT_EQ(s->mRefCount, 1) << "an argument kept a reference";
      UnlockStringStorage(s);
    }
  }

 private:
  std::vector<Str> mOwned;
};

#endif
