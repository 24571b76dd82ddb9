#include "Compiler/TemporaryList.h"

#include "Universal/Assertion.h"
#include "Universal/CompileWorkCounters.h"
#include "Universal/RecycledBlocks.h"

// Most lists hold a temporary or two and live for one statement: their
// buffers are recycled blocks.
void TemporaryList::FreeBuffer() {
  if (mBuf) GiveBackRecycledBlock(mBuf, mCapacity * sizeof(VariableSymbol*));
}

TemporaryList::TemporaryList(TemporaryList const& other)
    : mBuf(nullptr), mFirst(0), mEnd(0), mCapacity(0) {
  *this = other;
}

TemporaryList& TemporaryList::operator=(TemporaryList const& other) {
  if (this == &other) return *this;
  deleteAll();
  Reallocate(0, other.size());
  for (unsigned long i = 0; i < other.size(); i++) mBuf[mEnd++] = other[i];
  return *this;
}

VariableSymbol* TemporaryList::peek_back() const {
  QASSERT(size() > 0);
  return mBuf[mEnd - 1];
}

void TemporaryList::push_back(VariableSymbol* temp) {
  if (mEnd == mCapacity) Reallocate(0, size() + 1);
  mBuf[mEnd++] = temp;
}

void TemporaryList::deleteIdx(unsigned long i) {
  QASSERT(i < size());
  for (unsigned long k = mFirst + i + 1; k < mEnd; k++) mBuf[k - 1] = mBuf[k];
  mEnd--;
}

void TemporaryList::deleteAll() {
  FreeBuffer();
  mBuf = nullptr;
  mFirst = mEnd = mCapacity = 0;
}

void TemporaryList::MoveFrom(TemporaryList& other) {
  QASSERT(&other != this);
  unsigned long mine = size(), theirs = other.size();
  if (theirs == 0) return;
  if (mine < theirs) {
    // These go in front of the other's items, in the other's buffer.
    if (other.mFirst < mine) other.Reallocate(mine, 0);
    other.mFirst -= mine;
    for (unsigned long i = 0; i < mine; i++)
      other.mBuf[other.mFirst + i] = mBuf[mFirst + i];
    CountListSteps(mine);
    Swap(other);
  } else {
    if (mCapacity - mEnd < theirs) Reallocate(0, theirs);
    for (unsigned long i = 0; i < theirs; i++) mBuf[mEnd++] = other[i];
    CountListSteps(theirs);
  }
  other.deleteAll();
}

// Each side's room at least doubles the items, so that the runs of appends
// and of prepends each cost linear copying in all.
void TemporaryList::Reallocate(unsigned long front, unsigned long back) {
  unsigned long count = size();
  unsigned long frontRoom = front ? front + count : 0;
  unsigned long backRoom = back + count;
  if (backRoom < 4) backRoom = 4;
  VariableSymbol** fresh = static_cast<VariableSymbol**>(TakeRecycledBlock(
      (frontRoom + count + backRoom) * sizeof(VariableSymbol*)));
  for (unsigned long i = 0; i < count; i++) fresh[frontRoom + i] = mBuf[mFirst + i];
  CountListSteps(count);
  FreeBuffer();
  mBuf = fresh;
  mFirst = frontRoom;
  mEnd = frontRoom + count;
  mCapacity = frontRoom + count + backRoom;
}

void TemporaryList::Swap(TemporaryList& other) {
  VariableSymbol** buf = mBuf;
  unsigned long first = mFirst, end = mEnd, capacity = mCapacity;
  mBuf = other.mBuf;
  mFirst = other.mFirst;
  mEnd = other.mEnd;
  mCapacity = other.mCapacity;
  other.mBuf = buf;
  other.mFirst = first;
  other.mEnd = end;
  other.mCapacity = capacity;
}
