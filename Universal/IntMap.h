// IntMap<T>: a map from int to T with a fixed table of 1,024 bins that
// iterates (where a client walks it) in insertion order. It never resizes and
// keeps no count: it serves small, hot tables such as the Unicode case maps.
#ifndef UNIVERSAL_INTMAP_H
#define UNIVERSAL_INTMAP_H

#include "Universal/Assertion.h"

template <class T>
struct IntMapEntry {
  IntMapEntry* mNextInBin;
  IntMapEntry* mNextInOrder;
  int mKey;
  T mValue;
};

template <class T>
class IntMap {
 public:
  enum { kBinCount = 1024 };

  IntMap() : mHead(nullptr), mTail(nullptr) {
    for (int i = 0; i < kBinCount; i++) mBins[i] = nullptr;
  }

  virtual ~IntMap() {
    IntMapEntry<T>* entry = mHead;
    while (entry) {
      IntMapEntry<T>* next = entry->mNextInOrder;
      delete entry;
      entry = next;
    }
  }

  bool HasEntry(int key) const { return Find(key) != nullptr; }

  // An existing key has its value replaced in place; a new one goes to the
  // head of its bin and the tail of the insertion order.
  void AddEntry(int key, T value) {
    IntMapEntry<T>* entry = Find(key);
    if (entry) {
      entry->mValue = value;
      return;
    }
    entry = new IntMapEntry<T>;
    QASSERT(entry);
    entry->mKey = key;
    entry->mValue = value;
    unsigned bin = Bin(key);
    entry->mNextInBin = mBins[bin];
    mBins[bin] = entry;
    entry->mNextInOrder = nullptr;
    if (mTail)
      mTail->mNextInOrder = entry;
    else
      mHead = entry;
    mTail = entry;
  }

  bool GetEntry(int key, T& value) const {
    IntMapEntry<T>* entry = Find(key);
    if (!entry) return false;
    value = entry->mValue;
    return true;
  }

  // Removes the key if present; the order of the others is kept.
  void RemoveEntry(int key) {
    IntMapEntry<T>* victim = UnlinkFromBin(key);
    if (!victim) return;
    UnlinkFromOrder(victim);
    delete victim;
  }

  // The head of the insertion-order list, for clients that walk the map.
  IntMapEntry<T>* First() const { return mHead; }

 private:
  IntMap(IntMap const&) = delete;
  IntMap& operator=(IntMap const&) = delete;

  static unsigned Bin(int key) { return ((unsigned)key * 13u) & 0x3FF; }

  IntMapEntry<T>* Find(int key) const {
    for (IntMapEntry<T>* e = mBins[Bin(key)]; e; e = e->mNextInBin)
      if (e->mKey == key) return e;
    return nullptr;
  }

  IntMapEntry<T>* UnlinkFromBin(int key) {
    IntMapEntry<T>** link = &mBins[Bin(key)];
    while (*link && (*link)->mKey != key) link = &(*link)->mNextInBin;
    IntMapEntry<T>* victim = *link;
    if (victim) *link = victim->mNextInBin;
    return victim;
  }

  void UnlinkFromOrder(IntMapEntry<T>* victim) {
    IntMapEntry<T>* previous = nullptr;
    IntMapEntry<T>** link = &mHead;
    while (*link != victim) {
      previous = *link;
      link = &(*link)->mNextInOrder;
    }
    *link = victim->mNextInOrder;
    if (mTail == victim) mTail = previous;
  }

  IntMapEntry<T>* mBins[kBinCount];
  IntMapEntry<T>* mHead;
  IntMapEntry<T>* mTail;
};

#endif
