#include "Compiler/BackEnds/PowerPC/PPCOpWriter.h"

#include "Universal/Assertion.h"

namespace {

void PutBigEndian(unsigned char* p, unsigned long word) {
  p[0] = word >> 24;
  p[1] = word >> 16;
  p[2] = word >> 8;
  p[3] = word;
}

unsigned long Field(int value, int bits, int shift) {
  return (static_cast<unsigned long>(value) & ((1ul << bits) - 1)) << shift;
}

}  // namespace

// ---------------------------------------------------------------- forms

void PPCOpWriter::ppc_Write(int opcode, unsigned long rest) {
  ppc_Write32(Field(opcode, 6, 26) | (rest & 0x03ffffff));
}

void PPCOpWriter::ppc_FormD(int opcode, int rt, int ra, int d) {
  ppc_Write(opcode, Field(rt, 5, 21) | Field(ra, 5, 16) | Field(d, 16, 0));
}

void PPCOpWriter::ppc_FormX(int opcode, int rt, int ra, int rb, int xo,
                            int rc) {
  ppc_Write(opcode, Field(rt, 5, 21) | Field(ra, 5, 16) | Field(rb, 5, 11) |
                        Field(xo, 10, 1) | Field(rc, 1, 0));
}

void PPCOpWriter::ppc_FormXO(int opcode, int rt, int ra, int rb, int oe,
                             int xo, int rc) {
  ppc_Write(opcode, Field(rt, 5, 21) | Field(ra, 5, 16) | Field(rb, 5, 11) |
                        Field(oe, 1, 10) | Field(xo, 9, 1) | Field(rc, 1, 0));
}

void PPCOpWriter::ppc_FormM(int opcode, int rs, int ra, int sh, int mb,
                            int me, int rc) {
  ppc_Write(opcode, Field(rs, 5, 21) | Field(ra, 5, 16) | Field(sh, 5, 11) |
                        Field(mb, 5, 6) | Field(me, 5, 1) | Field(rc, 1, 0));
}

void PPCOpWriter::ppc_FormA(int opcode, int frt, int fra, int frb, int frc,
                            int xo, int rc) {
  ppc_Write(opcode, Field(frt, 5, 21) | Field(fra, 5, 16) | Field(frb, 5, 11) |
                        Field(frc, 5, 6) | Field(xo, 5, 1) | Field(rc, 1, 0));
}

// The displacement's low two bits are always zero: AA and LK live there.
void PPCOpWriter::ppc_FormB(int opcode, int bo, int bi, int bd, int aa,
                            int lk) {
  ppc_Write(opcode, Field(bo, 5, 21) | Field(bi, 5, 16) | (bd & 0xfffc) |
                        Field(aa, 1, 1) | Field(lk, 1, 0));
}

void PPCOpWriter::ppc_FormI(int opcode, int li, int aa, int lk) {
  ppc_Write(opcode, (li & 0x03fffffc) | Field(aa, 1, 1) | Field(lk, 1, 0));
}

void PPCOpWriter::ppc_FormXL(int opcode, int bo, int bi, int bb, int xo,
                             int lk) {
  ppc_Write(opcode, Field(bo, 5, 21) | Field(bi, 5, 16) | Field(bb, 5, 11) |
                        Field(xo, 10, 1) | Field(lk, 1, 0));
}

// ---------------------------------------------------------------- rotates

void PPCOpWriter::ppc_slwi(int ra, int rs, int n) {
  QASSERT_TEXT(n < 32, "n < 32");
  ppc_rlwinm(ra, rs, n, 0, 31 - n);
}

void PPCOpWriter::ppc_srwi(int ra, int rs, int n) {
  QASSERT_TEXT(n < 32, "n < 32");
  ppc_rlwinm(ra, rs, (32 - n) & 31, n, 31);
}

void PPCOpWriter::ppc_clrrwi(int ra, int rs, int n) {
  QASSERT_TEXT(n < 32, "n < 32");
  ppc_rlwinm(ra, rs, 0, 0, 31 - n);
}

// ---------------------------------------------------------------- buffer

PPCOpBufWriter::PPCOpBufWriter(unsigned int size)
    : mBuffer(new unsigned char[size]), mCursor(mBuffer),
      mLimit(mBuffer + size) {}

PPCOpBufWriter::~PPCOpBufWriter() { delete[] mBuffer; }

void PPCOpBufWriter::ppc_BufferFullError() {
  QFAIL("PPCOpWriter buffer full");
}

void PPCOpBufWriter::ppc_Write32(unsigned long word) {
  if (mLimit - mCursor < 4) ppc_BufferFullError();
  PutBigEndian(mCursor, word);
  mCursor += 4;
}

unsigned long PPCOpBufWriter::Get32(unsigned int offset) const {
  QASSERT_TEXT(offset < Length(), "offset < Length()");
  unsigned char const* p = mBuffer + offset;
  return static_cast<unsigned long>(p[0]) << 24 | p[1] << 16 | p[2] << 8 | p[3];
}

void PPCOpBufWriter::Set32(unsigned int offset, unsigned long word) {
  QASSERT_TEXT(offset < Length(), "offset < Length()");
  PutBigEndian(mBuffer + offset, word);
}
