// The PowerPC instruction encoder: one call per instruction, turned into one
// 32-bit word and handed to a single sink. Like the IA-32 encoder it knows
// encodings and nothing else.
//
// Operands come in the order the assembler writes them: `ppc_lwz(rt, d, ra)`
// is "lwz rt, d(ra)", `ppc_ori(ra, rs, ui)` is "ori ra, rs, ui". Register
// fields are masked to five bits, immediates to their field, never checked:
// the generator chooses them. A relative branch operand is a byte
// displacement from the branch itself.
#ifndef COMPILER_BACKENDS_POWERPC_PPCOPWRITER_H
#define COMPILER_BACKENDS_POWERPC_PPCOPWRITER_H

// Branch options (BO) and condition bits (BI) of the conditional branches.
enum {
  kBranchIfFalse = 4,
  kBranchIfTrue = 12,
  kBranchDecrementNotZero = 16,
  kBranchAlways = 20,

  kConditionLT = 0,  // bit of a condition field: cr n is bits 4n to 4n + 3
  kConditionGT = 1,
  kConditionEQ = 2,
  kConditionSO = 3,
};

class PPCOpWriter {
 public:
  virtual void ppc_Write32(unsigned long word) = 0;

  // ---- the instruction forms; the primary opcode goes in the top six
  // bits.
  void ppc_Write(int opcode, unsigned long rest);
  void ppc_FormD(int opcode, int rt, int ra, int d);
  void ppc_FormX(int opcode, int rt, int ra, int rb, int xo, int rc);
  void ppc_FormXO(int opcode, int rt, int ra, int rb, int oe, int xo, int rc);
  void ppc_FormM(int opcode, int rs, int ra, int sh, int mb, int me, int rc);
  void ppc_FormA(int opcode, int frt, int fra, int frb, int frc, int xo,
                 int rc);
  void ppc_FormB(int opcode, int bo, int bi, int bd, int aa, int lk);
  void ppc_FormI(int opcode, int li, int aa, int lk);
  void ppc_FormXL(int opcode, int bo, int bi, int bb, int xo, int lk);

  // ---- D form: loads and stores "op rt, d(ra)"
  void ppc_lbz(int rt, int d, int ra) { ppc_FormD(34, rt, ra, d); }
  void ppc_lhz(int rt, int d, int ra) { ppc_FormD(40, rt, ra, d); }
  void ppc_lwz(int rt, int d, int ra) { ppc_FormD(32, rt, ra, d); }
  void ppc_lfd(int frt, int d, int ra) { ppc_FormD(50, frt, ra, d); }
  void ppc_lfs(int frt, int d, int ra) { ppc_FormD(48, frt, ra, d); }
  void ppc_lmw(int rt, int d, int ra) { ppc_FormD(46, rt, ra, d); }
  void ppc_stb(int rs, int d, int ra) { ppc_FormD(38, rs, ra, d); }
  void ppc_sth(int rs, int d, int ra) { ppc_FormD(44, rs, ra, d); }
  void ppc_stw(int rs, int d, int ra) { ppc_FormD(36, rs, ra, d); }
  void ppc_stwu(int rs, int d, int ra) { ppc_FormD(37, rs, ra, d); }
  void ppc_stfd(int frs, int d, int ra) { ppc_FormD(54, frs, ra, d); }
  void ppc_stfs(int frs, int d, int ra) { ppc_FormD(52, frs, ra, d); }
  void ppc_stmw(int rs, int d, int ra) { ppc_FormD(47, rs, ra, d); }
  void ppc_la(int rt, int d, int ra) { ppc_FormD(14, rt, ra, d); }

  // ---- D form: arithmetic "op rt, ra, si" and logical "op ra, rs, ui"
  void ppc_addi(int rt, int ra, int si) { ppc_FormD(14, rt, ra, si); }
  void ppc_addis(int rt, int ra, int si) { ppc_FormD(15, rt, ra, si); }
  void ppc_mulli(int rt, int ra, int si) { ppc_FormD(7, rt, ra, si); }
  void ppc_subfic(int rt, int ra, int si) { ppc_FormD(8, rt, ra, si); }
  void ppc_cmpwi(int crf, int ra, int si) { ppc_FormD(11, crf << 2, ra, si); }
  void ppc_li(int rt, int si) { ppc_FormD(14, rt, 0, si); }
  void ppc_lis(int rt, int si) { ppc_FormD(15, rt, 0, si); }
  void ppc_ori(int ra, int rs, int ui) { ppc_FormD(24, rs, ra, ui); }
  void ppc_oris(int ra, int rs, int ui) { ppc_FormD(25, rs, ra, ui); }
  void ppc_xori(int ra, int rs, int ui) { ppc_FormD(26, rs, ra, ui); }
  void ppc_xoris(int ra, int rs, int ui) { ppc_FormD(27, rs, ra, ui); }
  void ppc_noop() { ppc_FormD(24, 0, 0, 0); }

  // ---- X form: "op ra, rs, rb" logical and shifts
  void ppc_and(int ra, int rs, int rb) { ppc_FormX(31, rs, ra, rb, 28, 0); }
  void ppc_or(int ra, int rs, int rb) { ppc_FormX(31, rs, ra, rb, 444, 0); }
  void ppc_or_rc(int ra, int rs, int rb) { ppc_FormX(31, rs, ra, rb, 444, 1); }
  void ppc_xor(int ra, int rs, int rb) { ppc_FormX(31, rs, ra, rb, 316, 0); }
  void ppc_slw(int ra, int rs, int rb) { ppc_FormX(31, rs, ra, rb, 24, 0); }
  void ppc_srw(int ra, int rs, int rb) { ppc_FormX(31, rs, ra, rb, 536, 0); }
  void ppc_sraw(int ra, int rs, int rb) { ppc_FormX(31, rs, ra, rb, 792, 0); }
  void ppc_srawi(int ra, int rs, int sh) { ppc_FormX(31, rs, ra, sh, 824, 0); }
  void ppc_mr(int ra, int rs) { ppc_or(ra, rs, rs); }
  void ppc_extsb(int ra, int rs) { ppc_FormX(31, rs, ra, 0, 954, 0); }
  void ppc_extsh(int ra, int rs) { ppc_FormX(31, rs, ra, 0, 922, 0); }
  void ppc_cntlzw(int ra, int rs) { ppc_FormX(31, rs, ra, 0, 26, 0); }

  // ---- X form: compares into condition field crf
  void ppc_cmpw(int crf, int ra, int rb) { ppc_FormX(31, crf << 2, ra, rb, 0, 0); }
  void ppc_cmpl(int crf, int ra, int rb) { ppc_FormX(31, crf << 2, ra, rb, 32, 0); }
  void ppc_fcmpu(int crf, int fra, int frb) { ppc_FormX(63, crf << 2, fra, frb, 0, 0); }
  void ppc_fcmpo(int crf, int fra, int frb) { ppc_FormX(63, crf << 2, fra, frb, 32, 0); }

  // ---- X form: special registers
  void ppc_mflr(int rt) { ppc_FormX(31, rt, kSPRLink, 0, 339, 0); }
  void ppc_mtlr(int rs) { ppc_FormX(31, rs, kSPRLink, 0, 467, 0); }
  void ppc_mtctr(int rs) { ppc_FormX(31, rs, kSPRCount, 0, 467, 0); }
  void ppc_mfcr(int rt) { ppc_FormX(31, rt, 0, 0, 19, 0); }
  // All eight condition fields.
  void ppc_mtcr(int rs) { ppc_Write(31, (rs & 31) << 21 | 0xff << 12 | 144 << 1); }

  // ---- X form: indexed loads and stores "op rt, ra, rb"
  void ppc_lbzx(int rt, int ra, int rb) { ppc_FormX(31, rt, ra, rb, 87, 0); }
  void ppc_lhzx(int rt, int ra, int rb) { ppc_FormX(31, rt, ra, rb, 279, 0); }
  void ppc_lwzx(int rt, int ra, int rb) { ppc_FormX(31, rt, ra, rb, 23, 0); }
  void ppc_lwzux(int rt, int ra, int rb) { ppc_FormX(31, rt, ra, rb, 55, 0); }
  void ppc_lhbrx(int rt, int ra, int rb) { ppc_FormX(31, rt, ra, rb, 790, 0); }
  void ppc_lwbrx(int rt, int ra, int rb) { ppc_FormX(31, rt, ra, rb, 534, 0); }
  void ppc_lfdx(int frt, int ra, int rb) { ppc_FormX(31, frt, ra, rb, 599, 0); }
  void ppc_lfsx(int frt, int ra, int rb) { ppc_FormX(31, frt, ra, rb, 535, 0); }
  void ppc_stbx(int rs, int ra, int rb) { ppc_FormX(31, rs, ra, rb, 215, 0); }
  void ppc_sthx(int rs, int ra, int rb) { ppc_FormX(31, rs, ra, rb, 407, 0); }
  void ppc_stwx(int rs, int ra, int rb) { ppc_FormX(31, rs, ra, rb, 151, 0); }
  void ppc_stwux(int rs, int ra, int rb) { ppc_FormX(31, rs, ra, rb, 183, 0); }
  void ppc_stfdx(int frs, int ra, int rb) { ppc_FormX(31, frs, ra, rb, 727, 0); }
  void ppc_stfsx(int frs, int ra, int rb) { ppc_FormX(31, frs, ra, rb, 663, 0); }

  // ---- X form: traps and float moves
  void ppc_tw(int to, int ra, int rb) { ppc_FormX(31, to, ra, rb, 4, 0); }
  void ppc_trap() { ppc_tw(31, 0, 0); }
  void ppc_fctiw(int frt, int frb) { ppc_FormX(63, frt, 0, frb, 14, 0); }
  void ppc_fctiwz(int frt, int frb) { ppc_FormX(63, frt, 0, frb, 15, 0); }
  void ppc_fmr(int frt, int frb) { ppc_FormX(63, frt, 0, frb, 72, 0); }
  void ppc_fneg(int frt, int frb) { ppc_FormX(63, frt, 0, frb, 40, 0); }
  // Rounds to single precision, as a store of a single would.
  void ppc_frsp(int frt, int frb) { ppc_FormX(63, frt, 0, frb, 12, 0); }

  // ---- XO form: "op rt, ra, rb" and "op rt, ra"
  void ppc_add(int rt, int ra, int rb) { ppc_FormXO(31, rt, ra, rb, 0, 266, 0); }
  void ppc_addc(int rt, int ra, int rb) { ppc_FormXO(31, rt, ra, rb, 0, 10, 0); }
  void ppc_adde(int rt, int ra, int rb) { ppc_FormXO(31, rt, ra, rb, 0, 138, 0); }
  void ppc_subf(int rt, int ra, int rb) { ppc_FormXO(31, rt, ra, rb, 0, 40, 0); }
  void ppc_subfc(int rt, int ra, int rb) { ppc_FormXO(31, rt, ra, rb, 0, 8, 0); }
  void ppc_subfe(int rt, int ra, int rb) { ppc_FormXO(31, rt, ra, rb, 0, 136, 0); }
  void ppc_subfze(int rt, int ra) { ppc_FormXO(31, rt, ra, 0, 0, 200, 0); }
  void ppc_neg(int rt, int ra) { ppc_FormXO(31, rt, ra, 0, 0, 104, 0); }
  void ppc_mullw(int rt, int ra, int rb) { ppc_FormXO(31, rt, ra, rb, 0, 235, 0); }
  void ppc_mulhwu(int rt, int ra, int rb) { ppc_FormXO(31, rt, ra, rb, 0, 11, 0); }
  void ppc_divw(int rt, int ra, int rb) { ppc_FormXO(31, rt, ra, rb, 0, 491, 0); }
  void ppc_divwu(int rt, int ra, int rb) { ppc_FormXO(31, rt, ra, rb, 0, 459, 0); }

  // ---- M form: rotates, and the shifts and clears made of them
  void ppc_rlwinm(int ra, int rs, int sh, int mb, int me) {
    ppc_FormM(21, rs, ra, sh, mb, me, 0);
  }
  void ppc_slwi(int ra, int rs, int n);
  void ppc_srwi(int ra, int rs, int n);
  void ppc_clrrwi(int ra, int rs, int n);

  // ---- A form: "op frt, fra, frb"; fmul takes frc; fsel frt, fra, frc, frb
  void ppc_fadd(int frt, int fra, int frb) { ppc_FormA(63, frt, fra, frb, 0, 21, 0); }
  void ppc_fsub(int frt, int fra, int frb) { ppc_FormA(63, frt, fra, frb, 0, 20, 0); }
  void ppc_fmul(int frt, int fra, int frc) { ppc_FormA(63, frt, fra, 0, frc, 25, 0); }
  void ppc_fdiv(int frt, int fra, int frb) { ppc_FormA(63, frt, fra, frb, 0, 18, 0); }
  void ppc_fsel(int frt, int fra, int frc, int frb) {
    ppc_FormA(63, frt, fra, frb, frc, 23, 0);
  }

  // ---- branches
  void ppc_bc(int bo, int bi, int disp) { ppc_FormB(16, bo, bi, disp, 0, 0); }
  void ppc_bdnz(int disp) { ppc_bc(kBranchDecrementNotZero, 0, disp); }
  void ppc_b(int disp) { ppc_FormI(18, disp, 0, 0); }
  void ppc_ba(int address) { ppc_FormI(18, address, 1, 0); }
  void ppc_bl(int disp) { ppc_FormI(18, disp, 0, 1); }
  void ppc_bla(int address) { ppc_FormI(18, address, 1, 1); }
  void ppc_blr() { ppc_FormXL(19, kBranchAlways, 0, 0, 16, 0); }
  void ppc_bctr() { ppc_bcctr(kBranchAlways, 0); }
  void ppc_bctrl() { ppc_bcctrl(kBranchAlways, 0); }
  void ppc_bcctr(int bo, int bi) { ppc_FormXL(19, bo, bi, 0, 528, 0); }
  void ppc_bcctrl(int bo, int bi) { ppc_FormXL(19, bo, bi, 0, 528, 1); }
  // Condition register bits: bt := ba xor bb, bt := ba eqv bb.
  void ppc_crxor(int bt, int ba, int bb) { ppc_FormXL(19, bt, ba, bb, 193, 0); }
  void ppc_creqv(int bt, int ba, int bb) { ppc_FormXL(19, bt, ba, bb, 289, 0); }

 protected:
  ~PPCOpWriter() {}

 private:
  // The special-register numbers as the mfspr field holds them.
  enum { kSPRLink = 8, kSPRCount = 9 };
};

// An encoder into a fixed buffer of big-endian words that never grows.
class PPCOpBufWriter : public PPCOpWriter {
 public:
  explicit PPCOpBufWriter(unsigned int size);
  virtual ~PPCOpBufWriter();
  virtual void ppc_BufferFullError();

  void ppc_Write32(unsigned long word) override;

  unsigned int Length() const { return mCursor - mBuffer; }
  unsigned char* Buffer() const { return mBuffer; }
  void Reset() { mCursor = mBuffer; }
  // The word at a byte offset below Length().
  unsigned long Get32(unsigned int offset) const;
  void Set32(unsigned int offset, unsigned long word);

 protected:
  unsigned char* mBuffer;
  unsigned char* mCursor;
  unsigned char* mLimit;

 private:
  PPCOpBufWriter(PPCOpBufWriter const&) = delete;
  PPCOpBufWriter& operator=(PPCOpBufWriter const&) = delete;
};

// The function prologue, which is written after the body is known.
class PrologBufWriter : public PPCOpBufWriter {
 public:
  explicit PrologBufWriter(unsigned int size) : PPCOpBufWriter(size) {}
};

#endif
