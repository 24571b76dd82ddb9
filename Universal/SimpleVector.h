// SimpleVector<T>: the system's growable array. Four words: growth step,
// buffer, logical size, capacity. Failures are assertions, not exceptions.
#ifndef UNIVERSAL_SIMPLEVECTOR_H
#define UNIVERSAL_SIMPLEVECTOR_H

#include "Universal/Assertion.h"

template <class T>
class SimpleVector {
 public:
  SimpleVector() : mGrowthStep(0), mBuf(nullptr), mQtyItems(0), mBufItems(0) {}

  explicit SimpleVector(unsigned long n)
      : mGrowthStep(0), mBuf(nullptr), mQtyItems(n), mBufItems(n) {
    if (n) {
      mBuf = new T[n]();
      QASSERT(mBuf);
    }
  }

  SimpleVector(SimpleVector const& other)
      : mGrowthStep(0), mBuf(nullptr), mQtyItems(0), mBufItems(0) {
    CopyFrom(other);
  }

  SimpleVector& operator=(SimpleVector const& other) {
    if (this != &other) {
      deleteAll();
      CopyFrom(other);
    }
    return *this;
  }

  ~SimpleVector() { delete[] mBuf; }

  // Growth step 0 doubles the capacity; any step grows by at least 16.
  void SetGrowthStep(unsigned long step) { mGrowthStep = step; }
  unsigned long GrowthStep() const { return mGrowthStep; }

  unsigned long size() const { return mQtyItems; }
  unsigned long capacity() const { return mBufItems; }

  // Indexing past the end raises the logical size to index + 1 without a
  // capacity check: storing at size() appends only where resize() reserved.
  T& operator[](unsigned long i) {
    if (i >= mQtyItems) mQtyItems = i + 1;
    return mBuf[i];
  }
  T const& operator[](unsigned long i) const { return mBuf[i]; }

  // Sets the capacity (not the size) to exactly n items.
  void resize(unsigned long n) {
    if (n == mBufItems) return;
    T* fresh = n ? new T[n]() : nullptr;
    if (n) QASSERT(fresh);
    unsigned long keep = mQtyItems < n ? mQtyItems : n;
    for (unsigned long i = 0; i < keep; i++) fresh[i] = mBuf[i];
    delete[] mBuf;
    mBuf = fresh;
    mBufItems = n;
    if (mQtyItems > n) mQtyItems = n;
  }

  // The item is copied before growing: it may live in this very buffer.
  void push_back(T const& item) {
    T copy = item;
    Grow();
    mBuf[mQtyItems++] = copy;
  }

  void insert(T const& item, unsigned long i) {
    QASSERT(i <= mQtyItems);
    T copy = item;
    Grow();
    for (unsigned long k = mQtyItems; k > i; k--) mBuf[k] = mBuf[k - 1];
    mBuf[i] = copy;
    mQtyItems++;
  }

  T pop_back() {
    QASSERT(mQtyItems <= mBufItems && mQtyItems > 0);
    return mBuf[--mQtyItems];
  }

  T& peek_back() {
    QASSERT(mQtyItems <= mBufItems and mQtyItems > 0);
    return mBuf[mQtyItems - 1];
  }

  // Removes item i; shrinks the buffer once it is mostly empty.
  void deleteIdx(unsigned long i) {
    QASSERT(i < mQtyItems);
    for (unsigned long k = i + 1; k < mQtyItems; k++) mBuf[k - 1] = mBuf[k];
    mQtyItems--;
    mBuf[mQtyItems] = T();
    unsigned long freeItems = mBufItems - mQtyItems;
    if (mGrowthStep == 0) {
      if (2 * mQtyItems < freeItems) resize((mQtyItems & ~0xFUL) + 16);
    } else if (2 * mGrowthStep < freeItems) {
      resize(mGrowthStep * (mQtyItems / mGrowthStep + 1));
    }
  }

  void deleteAll() {
    delete[] mBuf;
    mBuf = nullptr;
    mQtyItems = 0;
    mBufItems = 0;
  }

 private:
  void Grow() {
    while (mQtyItems >= mBufItems) {
      unsigned long step = mGrowthStep ? mGrowthStep : mBufItems;
      if (step < 16) step = 16;
      resize(mBufItems + step);
    }
  }

  void CopyFrom(SimpleVector const& other) {
    mGrowthStep = other.mGrowthStep;
    mQtyItems = other.mQtyItems;
    mBufItems = other.mBufItems;
    mBuf = mBufItems ? new T[mBufItems]() : nullptr;
    for (unsigned long i = 0; i < mQtyItems; i++) mBuf[i] = other.mBuf[i];
  }

  unsigned long mGrowthStep;
  T* mBuf;
  unsigned long mQtyItems;
  unsigned long mBufItems;
};

#endif
