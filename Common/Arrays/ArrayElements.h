// What an element family needs to know about its element type: how to hold
// a reference to one, how to order and match two. Plain values hold no
// references; strings and objects are counted words.
#ifndef COMMON_ARRAYS_ARRAYELEMENTS_H
#define COMMON_ARRAYS_ARRAYELEMENTS_H

#include "Common/Arrays/ArrayStorage.h"
#include "Common/ObjectModel/RuntimeObjectFoundation.h"
#include "Common/RuntimeStringFoundation.h"

namespace arrays {

template <class T>
struct PlainElement {
  typedef T Type;
  static bool const kCounted = false;
  static bool const kSortable = true;
  static constexpr ArrayElementHook kUnlockWord = nullptr;
  static void* LockEntry() { return nullptr; }
  static void* UnlockEntry() { return nullptr; }
  static void Lock(T) {}
  static void Unlock(T) {}
  static bool Greater(T a, T b) { return a > b; }
  static bool Equal(T a, T b) { return a == b; }
};

// Strings order and match as the language compares them: without regard
// to case.
struct StringElement {
  typedef stringStorage* Type;
  static bool const kCounted = true;
  static bool const kSortable = true;
  static void UnlockWord(void* word) {
    RuntimeUnlockString(static_cast<stringStorage*>(word));
  }
  static constexpr ArrayElementHook kUnlockWord = &UnlockWord;
  static void* LockEntry() { return reinterpret_cast<void*>(&RuntimeLockString); }
  static void* UnlockEntry() {
    return reinterpret_cast<void*>(&RuntimeUnlockString);
  }
  static void Lock(Type value) { RuntimeLockString(value); }
  static void Unlock(Type value) { RuntimeUnlockString(value); }
  static bool Greater(Type a, Type b) { return RuntimeStringCompare(a, b) > 0; }
  static bool Equal(Type a, Type b) { return RuntimeStringCompare(a, b) == 0; }
};

// Objects have no order; they match by identity.
struct ObjectElement {
  typedef RuntimeObject* Type;
  static bool const kCounted = true;
  static bool const kSortable = false;
  static void UnlockWord(void* word) {
    RuntimeUnlockObject(static_cast<RuntimeObject*>(word));
  }
  static constexpr ArrayElementHook kUnlockWord = &UnlockWord;
  static void* LockEntry() { return reinterpret_cast<void*>(&RuntimeLockObject); }
  static void* UnlockEntry() {
    return reinterpret_cast<void*>(&RuntimeUnlockObject);
  }
  static void Lock(Type value) { RuntimeLockObject(value); }
  static void Unlock(Type value) { RuntimeUnlockObject(value); }
  static bool Equal(Type a, Type b) { return a == b; }
};

}  // namespace arrays

#endif
