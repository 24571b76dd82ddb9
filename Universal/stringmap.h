// StringMap<T>: the system's hash map from `string` to T.
//
// Keys ignore case (StringMapCase<T> respects it), and every map iterates in
// insertion order. That order is observable: symbol tables, constants and
// link lists come out in it, so the rules here are behaviour, not detail:
//  - a new key goes to the tail of the order; replacing a value keeps the
//    key's place;
//  - a resize (at more than 3/4 load, to double the bins) keeps the order;
//  - deleting an entry under a live iterator moves that iterator to the
//    entry's successor, so iteration goes on without skipping.
// Keys are stored and looked up as UTF-8.
#ifndef UNIVERSAL_STRINGMAP_H
#define UNIVERSAL_STRINGMAP_H

#include <string.h>

#include <utility>

#include "Universal/Assertion.h"
#include "Universal/CompileWorkCounters.h"
#include "Universal/ustring.h"

template <class T>
class StringMapIterator;

template <class T>
struct StringMapEntry {
  StringMapEntry* mNextInBin;
  StringMapEntry* mNextInOrder;
  StringMapEntry* mPreviousInOrder;  // so that a deletion needs no walk
  unsigned long mHash;  // of mKey, kept so that growing never rehashes
  bool mPlainKey;       // mKey is plain ASCII: see PlainASCII
  string mKey;
  T mValue;
};

template <class T>
class StringMap {
 public:
  typedef StringMapEntry<T> Entry;

  explicit StringMap(unsigned int binCount = 256) { Initialize(binCount); }

  // A deep copy, in order, with the same bin count; iterators are not copied.
  StringMap(StringMap const& other) {
    Initialize(other.mBinCount);
    CopyEntriesFrom(other);
  }

  StringMap& operator=(StringMap const& other) {
    if (this == &other) return *this;
    QASSERT(NULL == mIterators);
    FreeEntries();
    CopyEntriesFrom(other);
    return *this;
  }

  // Live iterators go first: they point into this map.
  virtual ~StringMap() {
    while (mIterators) delete mIterators;
    QASSERT(NULL == mIterators);
    FreeEntries();
    delete[] mBins;
  }

  // The bin count for a map that has none yet; the rest is zeroed.
  void Initialize(unsigned int binCount) {
    mBinCount = binCount;
    mCount = 0;
    mBins = nullptr;
    mHead = mTail = nullptr;
    mIterators = nullptr;
  }

  // Hash of a key: h = h * 31 + c over the bytes as signed values, with the
  // ASCII lower-case letters folded to upper case.
  virtual unsigned long hashString(string const& key) const {
    return HashBytes(key, true);
  }

  virtual bool StringsMatch(string const& a, string const& b) const {
    return a == b;
  }

  // A matching key gets the new value in place; a new key is appended.
  void AddEntry(string const& key, T value) {
    string utf8 = key.GetUTF8String();
    if (!mBins) AllocateBins();
    unsigned long hash = hashString(utf8);
    bool plain = PlainASCII(utf8);
    Entry* entry = Find(utf8, hash, plain);
    if (entry) {
      entry->mValue = value;
      return;
    }
    entry = new Entry;
    QASSERT(entry);
    entry->mHash = hash;
    entry->mPlainKey = plain;
    entry->mKey = utf8;
    entry->mValue = value;
    LinkIntoBin(entry, mBins, mBinCount);
    entry->mNextInOrder = nullptr;
    entry->mPreviousInOrder = mTail;
    if (mTail)
      mTail->mNextInOrder = entry;
    else
      mHead = entry;
    mTail = entry;
    mCount++;
    if (mCount > ((mBinCount * 3) >> 2)) ResizeBinArray(2 * mBinCount);
  }

  // Rehashes into `newSize` bins. Entries are pushed in insertion order, so
  // each chain ends up in reverse insertion order.
  void ResizeBinArray(unsigned int newSize) {
    if (newSize == mBinCount) return;
    QASSERT(newSize > 0);
    Entry** fresh = NewBinArray(newSize);
    for (Entry* e = mHead; e; e = e->mNextInOrder)
      LinkIntoBin(e, fresh, newSize);
    delete[] mBins;
    mBins = fresh;
    mBinCount = newSize;
  }

  bool HasEntry(string const& key) const { return FindKey(key); }

  bool GetEntry(string const& key, T& value) const {
    Entry* entry = FindKey(key);
    if (!entry) return false;
    value = entry->mValue;
    return true;
  }

  // Unlinks and frees the entry. Iterators standing on it move on to its
  // successor, not started, so that their next Next() yields the successor.
  // Returns whether the key was there.
  bool DeleteEntry(string const& key) {
    if (!mBins) return false;
    string utf8 = key.GetUTF8String();
    Entry* victim = UnlinkFromBin(utf8);
    bool foundInHash = victim != nullptr;
    bool foundInOrder = victim && UnlinkFromOrder(victim);
    QASSERT(foundInHash == foundInOrder);
    if (!victim) return false;
    for (StringMapIterator<T>* it = mIterators; it; it = it->mNextIterator)
      if (it->mCurrent == victim) {
        it->mCurrent = victim->mNextInOrder;
        it->mStarted = false;
      }
    delete victim;
    mCount--;
    return true;
  }

  // Empties the map, keeping the bin array. No iterator may be alive.
  void DeleteAll() {
    QASSERT(NULL == mIterators);
    FreeEntries();
  }

  StringMapIterator<T>* NewIterator() { return new StringMapIterator<T>(this); }

  unsigned long Count() const { return mCount; }
  unsigned int BinCount() const { return mBinCount; }

  // Trades contents with a map of the same kind, entries and all, without
  // copying one. No iterator may be alive on either.
  void Swap(StringMap& other) {
    QASSERT(NULL == mIterators && NULL == other.mIterators);
    QASSERT(mHashesDecide == other.mHashesDecide);
    std::swap(mBinCount, other.mBinCount);
    std::swap(mCount, other.mCount);
    std::swap(mBins, other.mBins);
    std::swap(mHead, other.mHead);
    std::swap(mTail, other.mTail);
  }

  // Calls `fn` per entry in insertion order until it returns false.
  void Iterate(bool (*fn)(string, T, long), long refCon);

 protected:
  // Inserts copies of `other`'s entries in its order. Derived classes with
  // their own hashing call this from their copy constructor, where their
  // hashString is already in force.
  void CopyEntriesFrom(StringMap const& other) {
    for (Entry* e = other.mHead; e; e = e->mNextInOrder)
      AddEntry(e->mKey, e->mValue);
  }

  unsigned long HashBytes(string const& key, bool foldCase) const {
    unsigned long h = 0;
    char const* bytes = key.CString();
    for (unsigned long i = 0; i < key.Length(); i++) {
      long c = static_cast<signed char>(bytes[i]);
      if (foldCase && c >= 97 && c <= 122) c -= 32;
      h = h * 31 + static_cast<unsigned long>(c);
    }
    return h;
  }

 private:
  friend class StringMapIterator<T>;

  static Entry** NewBinArray(unsigned int count) {
    Entry** bins = new Entry*[count];
    QASSERT(bins);
    memset(bins, 0, count * sizeof(Entry*));
    return bins;
  }

  void AllocateBins() { mBins = NewBinArray(mBinCount); }

  void LinkIntoBin(Entry* entry, Entry** bins, unsigned int binCount) {
    unsigned long bin = entry->mHash % binCount;
    entry->mNextInBin = bins[bin];
    bins[bin] = entry;
  }

  // A key to look up by: ASCII and UTF-8 keys as they are, others
  // converted to UTF-8 like the stored keys.
  static string LookupKey(string const& key) {
    return key.HasUTF8Bytes() ? key : key.GetUTF8String();
  }

  // Keys of plain ASCII (no byte above 127, no NUL) that match, with or
  // without case, have equal hashes, since the hash folds the ASCII
  // letters; other keys may match across a difference the hash does not
  // fold, or past a NUL where the comparison stops.
  static bool PlainASCII(string const& key) {
    char const* bytes = key.CString();
    for (unsigned long i = 0; i < key.Length(); i++)
      if (static_cast<signed char>(bytes[i]) <= 0) return false;
    return true;
  }

  Entry* FindKey(string const& key) const {
    if (!mBins) return nullptr;
    string lookup = LookupKey(key);
    return Find(lookup, hashString(lookup), PlainASCII(lookup));
  }

  Entry* Find(string const& utf8Key, unsigned long hash, bool plain) const {
    unsigned long compared = 0;
    Entry* e = mBins[hash % mBinCount];
    for (; e; e = e->mNextInBin) {
      compared++;
      bool hashesDecide = mHashesDecide || (plain && e->mPlainKey);
      if ((!hashesDecide || e->mHash == hash) && StringsMatch(e->mKey, utf8Key))
        break;
    }
    CountKeyComparisons(compared);
    return e;
  }

  Entry* UnlinkFromBin(string const& utf8Key) {
    Entry** link = &mBins[hashString(utf8Key) % mBinCount];
    while (*link && !StringsMatch((*link)->mKey, utf8Key))
      link = &(*link)->mNextInBin;
    Entry* victim = *link;
    if (victim) *link = victim->mNextInBin;
    return victim;
  }

  // The victim must be in the map.
  bool UnlinkFromOrder(Entry* victim) {
    Entry* previous = victim->mPreviousInOrder;
    Entry* next = victim->mNextInOrder;
    if (previous)
      previous->mNextInOrder = next;
    else if (mHead == victim)
      mHead = next;
    else
      return false;
    if (next)
      next->mPreviousInOrder = previous;
    else
      mTail = previous;
    return true;
  }

  void FreeEntries() {
    Entry* e = mHead;
    while (e) {
      Entry* next = e->mNextInOrder;
      delete e;
      e = next;
    }
    if (mBins) memset(mBins, 0, mBinCount * sizeof(Entry*));
    mHead = mTail = nullptr;
    mCount = 0;
  }

  unsigned int mBinCount;
  unsigned int mCount;
  Entry** mBins;
  Entry* mHead;
  Entry* mTail;
  StringMapIterator<T>* mIterators;

 protected:
  // Whether keys that match always have equal hashes, so that a key of
  // another hash needs no comparing. Exact keys do; keys matched without
  // case may differ in the case of letters the hash does not fold.
  bool mHashesDecide = false;
};

// Case-sensitive keys: the same hash without folding, and keys match only
// with equal bytes, length and encoding tag.
template <class T>
class StringMapCase : public StringMap<T> {
 public:
  explicit StringMapCase(unsigned int binCount = 256)
      : StringMap<T>(binCount) {
    this->mHashesDecide = true;
  }

  StringMapCase(StringMapCase const& other)
      : StringMap<T>(other.BinCount()) {
    this->mHashesDecide = true;
    this->CopyEntriesFrom(other);
  }

  StringMapCase& operator=(StringMapCase const& other) {
    StringMap<T>::operator=(other);
    return *this;
  }

  unsigned long hashString(string const& key) const override {
    return this->HashBytes(key, false);
  }

  bool StringsMatch(string const& a, string const& b) const override {
    if (a.GetStringStorage() == b.GetStringStorage()) return true;
    if (!a.GetStringStorage() || !b.GetStringStorage()) return false;
    if (a.Length() != b.Length()) return false;
    if (a.Encoding() != b.Encoding() && !(a.HasUTF8Bytes() && b.HasUTF8Bytes()))
      return false;
    return memcmp(a.CString(), b.CString(), a.Length()) == 0;
  }
};

// Walks a map in insertion order; made on the heap by NewIterator, deleted by
// the caller (or by the map, if the map goes first). Safe against deletion of
// the current entry, by Delete() or by the map's DeleteEntry.
template <class T>
class StringMapIterator {
 public:
  explicit StringMapIterator(StringMap<T>* p)
      : mMap(p), mStarted(false), mCurrent(nullptr), mNextIterator(nullptr),
        mReserved(0) {
    QASSERT(p);
    mCurrent = p->mHead;
    mNextIterator = p->mIterators;
    p->mIterators = this;
  }

  virtual ~StringMapIterator() {
    StringMapIterator** link = &mMap->mIterators;
    while (*link && *link != this) link = &(*link)->mNextIterator;
    if (*link) *link = mNextIterator;
  }

  // Starts, or steps to the successor; true while on an entry.
  bool Next() {
    if (!mStarted)
      mStarted = true;
    else if (mCurrent)
      mCurrent = mCurrent->mNextInOrder;
    return mCurrent != nullptr;
  }

  bool Next(T& value) {
    if (!Next()) return false;
    value = mCurrent->mValue;
    return true;
  }

  // The current key; empty unless started and on an entry.
  string Key() const {
    return (mStarted && mCurrent) ? mCurrent->mKey : string();
  }

  bool Value(T& value) const {
    if (!mStarted || !mCurrent) return false;
    value = mCurrent->mValue;
    return true;
  }

  // Deletes the current entry; the next Next() yields its successor.
  void Delete() {
    if (!mStarted || !mCurrent) return;
    string key = mCurrent->mKey;
    mCurrent = mCurrent->mNextInOrder;
    mStarted = false;
    mMap->DeleteEntry(key);
  }

 private:
  friend class StringMap<T>;
  StringMapIterator(StringMapIterator const&) = delete;
  StringMapIterator& operator=(StringMapIterator const&) = delete;

  StringMap<T>* mMap;
  bool mStarted;
  StringMapEntry<T>* mCurrent;
  StringMapIterator* mNextIterator;
  long mReserved;
};

// Calls `fn(key, value, refCon)` per entry in insertion order until it
// returns false. `fn` may delete the entry it is given.
template <class T>
void iterateStringMap(StringMap<T>* map, bool (*fn)(string, T, long),
                      long refCon) {
  StringMapIterator<T> it(map);
  T value;
  while (it.Next(value))
    if (!fn(it.Key(), value, refCon)) break;
}

template <class T>
void StringMap<T>::Iterate(bool (*fn)(string, T, long), long refCon) {
  iterateStringMap(this, fn, refCon);
}

class StringSetIterator;

// A set of strings, case-insensitive like StringMap, in insertion order.
class StringSet {
 public:
  void Add(string const& key) { mMap.AddEntry(key, 1); }
  bool Contains(string const& key) const { return mMap.HasEntry(key); }
  void Remove(string const& key) { mMap.DeleteEntry(key); }
  void Clear() { mMap.DeleteAll(); }
  unsigned long Count() const { return mMap.Count(); }
  StringSetIterator* NewIterator();

 private:
  friend class StringSetIterator;
  StringMap<unsigned char> mMap;
};

// Delete it before the set: a set that goes first takes the inner iterator
// with it.
class StringSetIterator {
 public:
  explicit StringSetIterator(StringSet* set)
      : mIterator(set->mMap.NewIterator()) {}
  ~StringSetIterator() { delete mIterator; }
  bool Next() { return mIterator->Next(); }
  bool Next(string& key) {
    if (!mIterator->Next()) return false;
    key = mIterator->Key();
    return true;
  }
  string Value() const { return mIterator->Key(); }

 private:
  StringSetIterator(StringSetIterator const&) = delete;
  StringSetIterator& operator=(StringSetIterator const&) = delete;

  StringMapIterator<unsigned char>* mIterator;
};

inline StringSetIterator* StringSet::NewIterator() {
  return new StringSetIterator(this);
}

#endif
