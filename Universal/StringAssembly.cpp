// One allocation for text made of many pieces; see the header.
#include "Universal/StringAssembly.h"

#include <string.h>

#include "Universal/Encodings.h"
#include "Universal/StringWorkCounters.h"

namespace {

// Bytes of a piece as a string of its own, for conversion.
string PieceText(string const& text, unsigned long start, unsigned long count) {
  if (start == 0 && count == text.Length()) return text;
  return mid(text, static_cast<int>(start), static_cast<int>(count));
}

}  // namespace

// As ConvertToSameEncoding chooses, on tags alone: equal tags stay; an
// unknown tag makes the sum unknown, its bytes joined as they are; otherwise
// the common encoding, or UTF-16 or UTF-8 when there is none.
unsigned long SumEncoding(unsigned long a, unsigned long b) {
  if (a == b) return a;
  if (a == kEncodingUnknown || b == kEncodingUnknown) return kEncodingUnknown;
  unsigned long common = CommonEncoding(a, b, false);
  if (common != kEncodingUnknown) return common;
  bool oneIsUTF16 = a == kEncodingUTF16 || b == kEncodingUTF16;
  bool oneIsUTF8 = a == kEncodingUTF8 || b == kEncodingUTF8;
  return oneIsUTF16 && !oneIsUTF8 ? kEncodingUTF16 : kEncodingUTF8;
}

bool BytesStandAs(unsigned long tag, unsigned long target) {
  if (tag == target || target == kEncodingUnknown) return true;
  return tag == kEncodingASCII && !IsWideUnicodeEncoding(target);
}

bool StringAssembly::Converts(unsigned long tag) const {
  return !BytesStandAs(tag, mTag);
}

void StringAssembly::Measure(string const& text, unsigned long start,
                             unsigned long count) {
  if (!count) return;
  unsigned long tag = text.Encoding();
  mTag = mPieces ? SumEncoding(mTag, tag) : tag;
  // A piece that will need converting is only known once the final tag is:
  // any second tag makes the check worth doing.
  if (mPieces && tag != mFirst.Encoding()) mConvert = true;
  if (!mPieces) {
    mFirst = text;
    mFirstStart = start;
    mFirstCount = count;
  }
  mPieces++;
  AddLength(&mLength, count);
}

void StringAssembly::CountConverted(string const& text, unsigned long start,
                                    unsigned long count) {
  if (!count) return;
  if (!Converts(text.Encoding())) {
    AddLength(&mConvertedLength, count);
    return;
  }
  string converted = ConvertEncoding(PieceText(text, start, count), mTag);
  if (!converted.Length()) mTooLong = true;  // the heap refused the piece
  AddLength(&mConvertedLength, converted.Length());
}

// Lengths are compared before they are added, so that no total wraps.
void StringAssembly::AddLength(unsigned long* total, unsigned long count) {
  if (count > kLongestStringLength || *total > kLongestStringLength - count)
    mTooLong = true;
  else
    *total += count;
}

void StringAssembly::Allocate() {
  if (mConvert) mLength = mConvertedLength;
  if (mPieces == 1) {
    mResult = PieceText(mFirst, mFirstStart, mFirstCount);
    return;
  }
  if (!mLength && !mTooLong) return;
  stringStorage* storage =
      mTooLong ? nullptr
               : TryNewStringStorage(nullptr, static_cast<uint32_t>(mLength),
                                     static_cast<uint32_t>(mTag));
  if (!storage) {
    mRefused = true;
    return;
  }
  mResult.AdoptReference(storage);
  mCursor = storage->CString();
}

void StringAssembly::Write(string const& text, unsigned long start,
                           unsigned long count) {
  if (!count || !mCursor) return;
  if (Converts(text.Encoding())) {
    string converted = ConvertEncoding(PieceText(text, start, count), mTag);
    memcpy(mCursor, converted.CString(), converted.Length());
    mCursor += converted.Length();
    CountStringCopy(converted.Length());
    return;
  }
  memcpy(mCursor, text.CString() + start, count);
  mCursor += count;
  CountStringCopy(count);
}
