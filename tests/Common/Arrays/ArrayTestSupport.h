// What the array tests share: calling table entries as generated code does,
// strings to count references on, and a record of the exceptions raised.
#ifndef TESTS_COMMON_ARRAYS_ARRAYTESTSUPPORT_H
#define TESTS_COMMON_ARRAYS_ARRAYTESTSUPPORT_H

#include <gtest/gtest.h>
#include <string.h>

#include <string>
#include <vector>

#include "Common/Arrays/RuntimeArrays.h"
#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Common/RuntimeStringFoundation.h"

namespace arraytest {

enum ElementCodes : long { kSInt32 = 0, kSingle, kDouble, kString, kObject, kUInt8,
                           kSInt8, kUInt16, kSInt16, kUInt32, kUInt64, kSInt64 };

// An entry of the table called with the C convention and these arguments,
// as generated code pushes them.
template <class R, class... A>
R Call(void* entry, A... args) {
  return reinterpret_cast<R (*)(A...)>(entry)(args...);
}

inline stringStorage* Text(char const* text) {
  return NewStringStorage(text, strlen(text), 0x600);
}

template <class T>
T* Elements(RuntimeArrayObject* array) {
  return reinterpret_cast<T*>(array->data);
}

inline long Ubound(RuntimeArrayObject* array, long dimension = 1) {
  return array->methods->ubound(array, dimension);
}

// The elements of a one-dimensional array, in order.
template <class T>
std::vector<T> Contents(RuntimeArrayObject* a) {
  return std::vector<T>(Elements<T>(a), Elements<T>(a) + Ubound(a) + 1);
}

// Exceptions raised outside script frames reach the unhandled hook; the
// fixture records the class of each.
class ArrayTest : public testing::Test {
 protected:
  void SetUp() override {
    sRaised.clear();
    mOutOfBounds = NewClass();
    mNilObject = NewClass();
    mIllegalCast = NewClass();
    SetOutOfBoundsExceptionClass(mOutOfBounds);
    SetNilObjectExceptionClass(mNilObject);
    SetIllegalCastExceptionClass(mIllegalCast);
    SetUnhandledExceptionHook(&Record);
  }

  static RuntimeClass* NewClass(RuntimeClass* base = nullptr) {
    RuntimeClass* cls = RuntimeNewClass(base, 0, 0, 0, 0, 0);
    cls->instanceSize = sizeof(RuntimeObject);
    return cls;
  }

  // The exceptions raised since the last call, by kind.
  std::vector<std::string> Raised() {
    std::vector<std::string> kinds;
    for (RuntimeClass* cls : sRaised)
      kinds.push_back(cls == mOutOfBounds ? "bounds"
                      : cls == mNilObject ? "nil"
                      : cls == mIllegalCast ? "cast" : "other");
    sRaised.clear();
    return kinds;
  }

  static void Record(RuntimeObject* exception) {
    sRaised.push_back(exception ? exception->mClass : nullptr);
  }

  static inline std::vector<RuntimeClass*> sRaised;
  RuntimeClass* mOutOfBounds = nullptr;
  RuntimeClass* mNilObject = nullptr;
  RuntimeClass* mIllegalCast = nullptr;
};

typedef std::vector<std::string> Kinds;

}  // namespace arraytest

#endif
