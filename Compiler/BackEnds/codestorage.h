// Containers between back end and linker: blocks of target bytes with the
// imports that the linker fills in.
//
// STAND-IN until the code storage exists: the compilation context makes and
// hands over static data blocks, and needs no more of them than their byte
// order and name. The code storage issue replaces this file with the real
// DataBlock / LinkableDataBlock / StaticDataBlock family.
#ifndef COMPILER_BACKENDS_CODESTORAGE_H
#define COMPILER_BACKENDS_CODESTORAGE_H

#include "Universal/ustring.h"

// Static data (class metadata) in the target's byte order.
class StaticDataBlock {
 public:
  explicit StaticDataBlock(unsigned char bigEndian) : mBigEndian(bigEndian) {}
  virtual ~StaticDataBlock() {}
  bool IsBigEndian() const { return mBigEndian != 0; }

  string mName;  // the link name

 private:
  unsigned char mBigEndian;
};

#endif
