// Text put together from many pieces with one allocation of its final size:
// what Join, ReplaceAll and the like need to stay linear, where adding the
// pieces one at a time would copy the growing text again at every step.
//
// The result is what adding the pieces left to right with `+` gives: pieces
// of different encodings are brought to one encoding, chosen as the sum
// chooses it, and a single piece that is the whole result is shared, not
// copied.
//
// `AssembleString(pieces)` takes a callable that, given a sink, calls
// `sink(text, start, count)` for each piece in order (bytes [start, start +
// count) of `text`, clipped by the caller). It is called two or three times,
// and must give the same pieces each time.
#ifndef UNIVERSAL_STRINGASSEMBLY_H
#define UNIVERSAL_STRINGASSEMBLY_H

#include "Universal/ustring.h"

class StringAssembly {
 public:
  // First pass: the encoding and the byte count of the whole.
  void Measure(string const& text, unsigned long start, unsigned long count);
  // True when some piece must be converted to the result's encoding; its
  // converted size is then learned by a second pass of CountConverted.
  bool NeedsConversion() const { return mConvert; }
  void CountConverted(string const& text, unsigned long start,
                      unsigned long count);
  // Makes the result's storage; then each piece is written in order.
  void Allocate();
  void Write(string const& text, unsigned long start, unsigned long count);
  string Result() const { return mResult; }
  // True when the whole would pass the length field or the heap refused
  // it: the result is then nil and nothing was written.
  bool Refused() const { return mRefused; }

 private:
  bool Converts(unsigned long tag) const;
  void AddLength(unsigned long* total, unsigned long count);

  unsigned long mLength = 0;
  unsigned long mConvertedLength = 0;
  unsigned long mTag = kEncodingASCII;
  unsigned long mPieces = 0;
  bool mConvert = false;
  bool mTooLong = false;
  bool mRefused = false;
  // The first piece, which is the result when it is the only one.
  string mFirst;
  unsigned long mFirstStart = 0, mFirstCount = 0;
  string mResult;
  char* mCursor = nullptr;
};

// The tag of text of tag `b` added to text of tag `a`: the rule of `+`.
unsigned long SumEncoding(unsigned long a, unsigned long b);
// True when bytes of tag `tag` stand unchanged in text of tag `target`, so
// that no conversion is needed: equal tags, an unknown target, or ASCII in
// any encoding of bytes.
bool BytesStandAs(unsigned long tag, unsigned long target);

// `refused`, when given, learns whether the result could not be made.
template <class Pieces>
string AssembleString(Pieces const& pieces, bool* refused = nullptr) {
  StringAssembly assembly;
  pieces([&](string const& text, unsigned long start, unsigned long count) {
    assembly.Measure(text, start, count);
  });
  if (assembly.NeedsConversion())
    pieces([&](string const& text, unsigned long start, unsigned long count) {
      assembly.CountConverted(text, start, count);
    });
  assembly.Allocate();
  if (refused) *refused = assembly.Refused();
  if (assembly.Refused()) return string();
  pieces([&](string const& text, unsigned long start, unsigned long count) {
    assembly.Write(text, start, count);
  });
  return assembly.Result();
}

#endif
