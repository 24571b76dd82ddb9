// The temporaries of a piece of code, in the order they were made: the
// epilog of a statement or a function releases them in that order.
//
// Code is concatenated upward, a long expression appending its operands'
// code level after level, so the list must take another's items without
// copying the longer of the two: the shorter side is always the one copied,
// and room kept before the first item lets a short list go in front of a
// long one. Each temporary is then copied a logarithmic number of times at
// most, however the expression nests.
#ifndef COMPILER_TEMPORARYLIST_H
#define COMPILER_TEMPORARYLIST_H

class VariableSymbol;

class TemporaryList {
 public:
  TemporaryList() : mBuf(nullptr), mFirst(0), mEnd(0), mCapacity(0) {}
  TemporaryList(TemporaryList const& other);
  TemporaryList& operator=(TemporaryList const& other);
  ~TemporaryList() { FreeBuffer(); }

  unsigned long size() const { return mEnd - mFirst; }
  VariableSymbol* operator[](unsigned long i) const { return mBuf[mFirst + i]; }
  VariableSymbol* peek_back() const;
  void push_back(VariableSymbol* temp);
  // Removes item i; the others keep their order.
  void deleteIdx(unsigned long i);
  void deleteAll();
  // Puts `other`'s items after these, in their order; `other` ends empty.
  void MoveFrom(TemporaryList& other);

 private:
  // A buffer with at least `front` free slots before the items and `back`
  // after them; the items are copied once.
  void Reallocate(unsigned long front, unsigned long back);
  void Swap(TemporaryList& other);
  void FreeBuffer();

  VariableSymbol** mBuf;
  unsigned long mFirst;     // index of the first item
  unsigned long mEnd;       // one past the last item
  unsigned long mCapacity;  // slots in mBuf
};

#endif
