// Calling the runtime library as compiled code does: by name through the
// host's resolver, cast to the C signature of the declaration. Strings made
// by a test belong to its fixture, which checks at the end that nothing
// kept a reference to them.
#ifndef TESTS_STANDINHOST_RUNTIMELIBRARY_LIBRARYTESTSUPPORT_H
#define TESTS_STANDINHOST_RUNTIMELIBRARY_LIBRARYTESTSUPPORT_H

#include <gtest/gtest.h>

#include <string.h>

#include <string>
#include <vector>

#include "Universal/ustring.h"
#include "quorl/QuorlHost.h"

typedef stringStorage* Str;

template <class Signature>
Signature* Library(char const* name) {
  void* address = quorl::ResolveHostName(name);
  EXPECT_NE(address, nullptr) << name;
  return reinterpret_cast<Signature*>(address);
}

inline std::string Bytes(Str s) {
  return s ? std::string(s->CString(), s->mLength) : std::string();
}

class LibraryTest : public ::testing::Test {
 protected:
  // A UTF-8 argument (or of the given tag) that the fixture owns.
  Str S(char const* text, unsigned long tag = kEncodingUTF8) {
    Str s = strlen(text) ? NewStringStorage(text, strlen(text), tag) : nullptr;
    if (s) mOwned.push_back(s);
    return s;
  }

  // Calls a function that returns a String and checks the contract: every
  // string argument keeps its count, and the result carries exactly one
  // reference of its own (on top of an argument's, when it shares one).
  // Returns the text and releases the result.
  template <class... A>
  std::string Text(char const* name, A... args) {
    Str result = Call(name, args...);
    std::string text = Bytes(result);
    UnlockStringStorage(result);
    return text;
  }

  // As Text, but hands the result over for further checks; the caller
  // releases it.
  template <class... A>
  Str Call(char const* name, A... args) {
    std::vector<std::pair<Str, int>> before;
    (Remember(before, args), ...);
    Str result = Library<Str(A...)>(name)(args...);
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

  void TearDown() override {
    for (Str s : mOwned) {
      EXPECT_EQ(s->mRefCount, 1) << "an argument kept a reference";
      UnlockStringStorage(s);
    }
  }

 private:
  template <class T>
  static void Remember(std::vector<std::pair<Str, int>>& list, T value) {}
  static void Remember(std::vector<std::pair<Str, int>>& list, Str value) {
    if (value) list.push_back({value, value->mRefCount});
  }

  std::vector<Str> mOwned;
};

#endif
