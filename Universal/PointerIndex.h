// PointerIndex: a number per object, keyed by the object's address, for
// passes that meet the same objects many times: the operands of one
// function's lines, the shared name strings of a module's imports.
//
// It is an open-addressed table. Emptying it costs nothing: every slot
// carries the generation it was written in, and a slot of an older
// generation counts as free. The slots are kept across emptyings, so a
// code generator allocates them only while its largest function grows.
#ifndef UNIVERSAL_POINTERINDEX_H
#define UNIVERSAL_POINTERINDEX_H

#include <stdint.h>
#include <string.h>

class PointerIndex {
 public:
  PointerIndex() = default;
  ~PointerIndex() { delete[] mSlots; }
  PointerIndex(PointerIndex const&) = delete;
  PointerIndex& operator=(PointerIndex const&) = delete;

  // Forgets every object.
  void Clear() {
    mCount = 0;
    if (++mGeneration == 0) {  // wrapped: old stamps could look current
      if (mSlots) memset(mSlots, 0, mCapacity * sizeof(Slot));
      mGeneration = 1;
    }
  }

  bool Find(void const* addr, long* value) const {
    if (!mSlots) return false;
    unsigned long mask = mCapacity - 1;
    for (unsigned long i = Hash(addr) & mask;; i = (i + 1) & mask) {
      Slot const& slot = mSlots[i];
      if (slot.generation != mGeneration) return false;
      if (slot.addr == addr) {
        *value = slot.value;
        return true;
      }
    }
  }

  // The object must not be in the index yet. At most half the slots are
  // taken, so every search meets a free one.
  void Add(void const* addr, long value) {
    if (2 * (mCount + 1) > mCapacity) Grow();
    Place(addr, value);
    mCount++;
  }

 private:
  struct Slot {
    void const* addr;
    uint32_t generation;
    long value;
  };
  static unsigned long const kSmallestCapacity = 64;

  // The objects are heap blocks: their low bits carry nothing.
  static unsigned long Hash(void const* addr) {
    uint32_t bits = static_cast<uint32_t>(reinterpret_cast<uintptr_t>(addr) >> 3);
    return (bits * 2654435761u) >> 8;
  }

  void Place(void const* addr, long value) {
    unsigned long i = Hash(addr) & (mCapacity - 1);
    while (mSlots[i].generation == mGeneration) i = (i + 1) & (mCapacity - 1);
    mSlots[i] = {addr, mGeneration, value};
  }

  void Grow() {
    Slot* old = mSlots;
    unsigned long oldCapacity = mCapacity;
    mCapacity = mCapacity ? 2 * mCapacity : kSmallestCapacity;
    mSlots = new Slot[mCapacity]();
    for (unsigned long i = 0; i < oldCapacity; i++)
      if (old[i].generation == mGeneration) Place(old[i].addr, old[i].value);
    delete[] old;
  }

  Slot* mSlots = nullptr;
  unsigned long mCapacity = 0;
  unsigned long mCount = 0;
  uint32_t mGeneration = 1;
};

#endif  // UNIVERSAL_POINTERINDEX_H
