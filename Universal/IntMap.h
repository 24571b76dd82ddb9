// IntMap<T>: a map from int to T that iterates (where a client walks it) in
// insertion order. Its bins double whenever it is more than 3/4 full, so a
// lookup costs a few key comparisons however many keys it holds: it serves
// the small, hot tables such as the Unicode case maps and the compiler's
// tables of labels and literals alike.
#ifndef UNIVERSAL_INTMAP_H
#define UNIVERSAL_INTMAP_H

#include <string.h>

#include <new>

#include "Universal/Assertion.h"
#include "Universal/CompileWorkCounters.h"
#include "Universal/RecycledBlocks.h"

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
  enum { kInitialBinCount = 16 };

  // The first bins are part of the map, so a small map allocates nothing
  // until its first key.
  IntMap()
      : mBins(mInlineBins), mBinCount(kInitialBinCount), mCount(0),
        mHead(nullptr), mTail(nullptr), mChunks(nullptr), mFree(nullptr),
        mNextChunkSize(kFirstChunkSize) {
    memset(mInlineBins, 0, sizeof mInlineBins);
  }

  virtual ~IntMap() {
    DeleteBins();
    for (IntMapEntry<T>* entry = mHead; entry;) {
      IntMapEntry<T>* next = entry->mNextInOrder;
      entry->~IntMapEntry<T>();
      entry = next;
    }
    while (mChunks) {
      Chunk* next = mChunks->next;
      GiveBackRecycledBlock(mChunks, ChunkBytes(mChunks->count));
      mChunks = next;
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
    entry = NewEntry();
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
    mCount++;
    if (mCount > ((mBinCount * 3) >> 2)) Rehash(2 * mBinCount);
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
    FreeEntry(victim);
    mCount--;
  }

  unsigned long Count() const { return mCount; }
  unsigned long BinCount() const { return mBinCount; }

  // The head of the insertion-order list, for clients that walk the map.
  IntMapEntry<T>* First() const { return mHead; }

 private:
  IntMap(IntMap const&) = delete;
  IntMap& operator=(IntMap const&) = delete;

  static IntMapEntry<T>** NewBinArray(unsigned long count) {
    return static_cast<IntMapEntry<T>**>(
        TakeZeroedRecycledBlock(count * sizeof(IntMapEntry<T>*)));
  }

  void DeleteBins() {
    if (mBins != mInlineBins)
      GiveBackRecycledBlock(mBins, mBinCount * sizeof(IntMapEntry<T>*));
  }

  // The bin count is a power of two: the mask keeps the product's low bits,
  // which spread runs of consecutive keys over consecutive bins.
  unsigned Bin(int key) const {
    return ((unsigned)key * 13u) & (unsigned)(mBinCount - 1);
  }

  // Entries live in chunks, each twice the size of the one before up to a
  // limit, so that a map of n keys makes about log n allocations; a removed
  // entry's place is reused. Chunks and bins are recycled blocks: the code
  // generator makes several small maps for every function.
  enum { kFirstChunkSize = 8, kLargestChunkSize = 1024 };
  struct alignas(IntMapEntry<T>) Chunk {
    Chunk* next;
    unsigned long count;
  };
  static size_t ChunkBytes(unsigned long count) {
    return sizeof(Chunk) + count * sizeof(IntMapEntry<T>);
  }
  struct FreePlace {
    FreePlace* next;
  };

  IntMapEntry<T>* NewEntry() {
    if (!mFree) AddChunk();
    void* place = mFree;
    mFree = mFree->next;
    return new (place) IntMapEntry<T>();
  }

  void FreeEntry(IntMapEntry<T>* entry) {
    entry->~IntMapEntry<T>();
    FreePlace* place = reinterpret_cast<FreePlace*>(entry);
    place->next = mFree;
    mFree = place;
  }

  void AddChunk() {
    static_assert(sizeof(IntMapEntry<T>) >= sizeof(FreePlace),
                  "a free entry holds a link");
    unsigned long count = mNextChunkSize;
    if (mNextChunkSize < kLargestChunkSize) mNextChunkSize *= 2;
    Chunk* chunk = static_cast<Chunk*>(TakeRecycledBlock(ChunkBytes(count)));
    chunk->next = mChunks;
    chunk->count = count;
    mChunks = chunk;
    IntMapEntry<T>* places = reinterpret_cast<IntMapEntry<T>*>(chunk + 1);
    for (unsigned long i = count; i-- > 0;) {
      FreePlace* place = reinterpret_cast<FreePlace*>(&places[i]);
      place->next = mFree;
      mFree = place;
    }
  }

  void Rehash(unsigned long binCount) {
    DeleteBins();
    mBins = NewBinArray(binCount);
    mBinCount = binCount;
    for (IntMapEntry<T>* e = mHead; e; e = e->mNextInOrder) {
      unsigned bin = Bin(e->mKey);
      e->mNextInBin = mBins[bin];
      mBins[bin] = e;
    }
  }

  IntMapEntry<T>* Find(int key) const {
    unsigned long compared = 0;
    IntMapEntry<T>* e = mBins[Bin(key)];
    for (; e; e = e->mNextInBin) {
      compared++;
      if (e->mKey == key) break;
    }
    CountKeyComparisons(compared);
    return e;
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

  IntMapEntry<T>** mBins;
  unsigned long mBinCount;
  unsigned long mCount;
  IntMapEntry<T>* mHead;
  IntMapEntry<T>* mTail;
  Chunk* mChunks;
  FreePlace* mFree;
  unsigned long mNextChunkSize;
  IntMapEntry<T>* mInlineBins[kInitialBinCount];
};

#endif
