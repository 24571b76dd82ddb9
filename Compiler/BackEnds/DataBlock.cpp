#include "Compiler/BackEnds/codestorage.h"

#include <stdlib.h>
#include <string.h>

#include <new>

#include "Universal/Assertion.h"

namespace {

// 1 when this machine stores the high byte of a word first.
unsigned char set_machine_byte_order() {
  unsigned int probe = 0x01020304;
  return reinterpret_cast<unsigned char const*>(&probe)[0] == 0x01;
}

// A block grows by at least kMinGrowBy bytes and at least half of what it
// holds, so that a block of n bytes was copied a bounded number of times
// in all: the code of one long main body runs to megabytes. A finished
// function's block is cut to its length.
unsigned int const kMinGrowBy = 64;

}  // namespace

DataBlock::DataBlock(unsigned char bigEndian)
    : mBuffer(nullptr), mCapacity(0), mCodeLen(0),
      mBigEndian(bigEndian) {}

DataBlock::DataBlock(void const* bytes, unsigned int length)
    : mBuffer(nullptr), mCapacity(0), mCodeLen(0),
      mBigEndian(set_machine_byte_order()) {
  AppendBytes(static_cast<unsigned char const*>(bytes), length);
}

DataBlock::~DataBlock() { ReleaseBuffer(); }

void DataBlock::ReleaseBuffer() {
  if (mBuffer) FreeMemory(mBuffer);
  mBuffer = nullptr;
  mCapacity = 0;
  mCodeLen = 0;
}

unsigned char* DataBlock::AllocMemory(unsigned int size) {
  return static_cast<unsigned char*>(malloc(size ? size : 1));
}

void DataBlock::FreeMemory(unsigned char* buffer) { free(buffer); }

// A smaller capacity cuts the contents.
void DataBlock::ResizeBuffer(unsigned int n) {
  if (n == mCapacity) return;
  if (mCodeLen > n) mCodeLen = n;
  unsigned char* newBuffer = AllocMemory(n);
  // Out of memory as a C++ container is: the compile turns it into an error.
  if (!newBuffer) throw std::bad_alloc();
  if (mCodeLen) memcpy(newBuffer, mBuffer, mCodeLen);
  if (mBuffer) FreeMemory(mBuffer);
  mBuffer = newBuffer;
  mCapacity = n;
}

void DataBlock::GrowBy(unsigned int n) {
  if (mCodeLen + n <= mCapacity) return;
  unsigned int step = n > kMinGrowBy ? n : kMinGrowBy;
  unsigned int half = mCapacity / 2;
  if (step < half) step = half;
  // No growth past the 32-bit length: the heap refuses such a block first.
  if (step > ~0u - mCapacity) throw std::bad_alloc();
  ResizeBuffer(mCapacity + step);
}

void DataBlock::SetLength(unsigned int n) {
  unsigned int old = mCodeLen;
  ResizeBuffer(n);
  if (n > old) memset(mBuffer + old, 0, n - old);
  mCodeLen = n;
}

void DataBlock::AppendBytes(unsigned char const* bytes, unsigned int length) {
  if (!length) return;
  GrowBy(length);
  QASSERT_TEXT(mBuffer, "mBuffer");
  memcpy(mBuffer + mCodeLen, bytes, length);
  mCodeLen += length;
}

void DataBlock::Append(char const* bytes, unsigned int length) {
  AppendBytes(reinterpret_cast<unsigned char const*>(bytes), length);
}

void DataBlock::Append(Ref<DataBlock> other) {
  if (other) AppendBytes(other->Buffer(), other->Length());
}

void DataBlock::Append(FunctionBlock* other) {
  DataBlock* block = static_cast<DataBlock*>(other);
  AppendBytes(block->Buffer(), block->Length());
}

void DataBlock::Append(StaticDataBlock* other) {
  DataBlock* block = static_cast<DataBlock*>(other);
  AppendBytes(block->Buffer(), block->Length());
}

void DataBlock::AppendGrowing8(unsigned int value) {
  GrowBy(1);
  mCodeLen += 1;
  Set8(mCodeLen - 1, value);
}

void DataBlock::Append16(unsigned int value) {
  GrowBy(2);
  mCodeLen += 2;
  Set16(mCodeLen - 2, value);
}

void DataBlock::Append32(unsigned int value) {
  GrowBy(4);
  mCodeLen += 4;
  Set32(mCodeLen - 4, value);
}

void DataBlock::Set8(unsigned int offset, unsigned int value) {
  if (offset >= mCapacity) return;
  mBuffer[offset] = static_cast<unsigned char>(value);
}

void DataBlock::Set16(unsigned int offset, unsigned int value) {
  if (offset + 2 > mCapacity || offset + 2 < offset) return;
  int hi = mBigEndian ? 0 : 1;
  mBuffer[offset + hi] = static_cast<unsigned char>(value >> 8);
  mBuffer[offset + 1 - hi] = static_cast<unsigned char>(value);
}

void DataBlock::Set32(unsigned int offset, unsigned int value) {
  if (offset + 4 > mCapacity || offset + 4 < offset) return;
  for (int i = 0; i < 4; i++) {
    int at = mBigEndian ? 3 - i : i;
    mBuffer[offset + at] = static_cast<unsigned char>(value >> (8 * i));
  }
}

unsigned int DataBlock::Get8(unsigned int offset) const {
  return offset < mCapacity ? mBuffer[offset] : 0;
}

unsigned int DataBlock::Get16(unsigned int offset) const {
  if (offset + 2 > mCapacity || offset + 2 < offset) return 0;
  int hi = mBigEndian ? 0 : 1;
  return (unsigned(mBuffer[offset + hi]) << 8) | mBuffer[offset + 1 - hi];
}

unsigned int DataBlock::Get32(unsigned int offset) const {
  if (offset + 4 > mCapacity || offset + 4 < offset) return 0;
  unsigned int value = 0;
  for (int i = 3; i >= 0; i--) {
    int at = mBigEndian ? 3 - i : i;
    value = (value << 8) | mBuffer[offset + at];
  }
  return value;
}

Ref<DataBlock> DataBlock::Get(unsigned int offset, unsigned int length) const {
  QASSERT_TEXT(offset <= mCodeLen, "offset <= mCodeLen");
  QASSERT_TEXT(offset + length <= mCodeLen, "offset + length <= mCodeLen");
  Ref<DataBlock> copy;
  copy.BindNewObject(new DataBlock(mBigEndian));
  if (length) copy->AppendBytes(mBuffer + offset, length);
  return copy;
}

// The tail is kept aside, the block cut at `offset`, and the new bytes and
// the tail appended.
void DataBlock::Set(unsigned int offset, unsigned int length,
                    Ref<DataBlock> replacement) {
  Ref<DataBlock> tail = Get(offset + length, mCodeLen - offset - length);
  mCodeLen = offset;
  Append(replacement);
  Append(tail);
}
