// The IA-32 instruction encoder: one call per instruction, with the
// registers given, turned into bytes. It knows encodings and nothing else (no
// labels, no register state, no buffer): the bytes go to three sinks, so the
// same encoder writes into a growing function block, a fixed buffer or a
// linker stub.
//
// Register numbers are the hardware's (kEAX...kEDI); the SSE registers are
// numbered 0 to 7 too. Every memory-capable operation takes `mod` first, the
// ModRM mode (ModRMMode). An operand based on ESP (rm 4) needs the SIB shape,
// which the caller picks; only the x87 memory operations add the SIB byte
// for ESP on their own.
#ifndef COMPILER_BACKENDS_IA32_IA32OPWRITER_H
#define COMPILER_BACKENDS_IA32_IA32OPWRITER_H

#include "Compiler/BackEnds/IA-32/IA32OperationList.h"

enum IA32Register {
  kEAX = 0,
  kECX = 1,
  kEDX = 2,
  kEBX = 3,
  kESP = 4,
  kEBP = 5,
  kESI = 6,
  kEDI = 7,
};

// The mode field of a ModRM byte.
enum ModRMMode {
  // No displacement; with rm 5 (EBP's number) a 32-bit absolute address,
  // given as the displacement.
  kModIndirect = 0,
  kModDisplacement8 = 1,
  kModDisplacement32 = 2,
  kModRegister = 3,  // the register itself, no memory
};

class IA32OpWriter {
 public:
  // The sinks; 16- and 32-bit values are little-endian.
  virtual void ia32_Write8(int value) = 0;
  virtual void ia32_Write16(int value) = 0;
  virtual void ia32_Write32(int value) = 0;

  // ---- primitives, each checking its fields
  void ia32_WriteOpcode(int val);
  void ia32_WriteOpcode(int val1, int val2);
  void ia32_WriteOpcode(int val1, int val2, int val3);
  // The opcode with the register in its low three bits.
  void ia32_WriteRegisterOpcode(int opcode, int reg);
  void ia32_WriteModRM(int mod, int reg, int rm);
  void ia32_WriteSIB(int scale, int index, int base);
  // One byte for kModDisplacement8, four for kModIndirect and
  // kModDisplacement32.
  void ia32_WriteDisplacement(int mod, int disp);

  // ---- register and memory operand families, four shapes each:
  //   (mod, reg, rm)                          plain
  //   (mod, reg, rm, disp)                    displaced
  //   (mod, reg, rm, scale, index, base)      SIB; rm must be 4
  //   (mod, reg, rm, scale, index, base, disp) displaced SIB
  // `_store` forms write the register to the memory operand.
#define QUORL_IA32_DECLARE_SHAPES(name, opcode, text)                       \
  void name(int mod, int reg, int rm) { ia32_RegMem(opcode, mod, reg, rm); } \
  void name(int mod, int reg, int rm, int disp) {                           \
    ia32_RegMem(opcode, mod, reg, rm, disp);                                \
  }                                                                         \
  void name(int mod, int reg, int rm, int scale, int index, int base) {     \
    ia32_RegMemSIB(opcode, mod, reg, rm, scale, index, base);               \
  }                                                                         \
  void name(int mod, int reg, int rm, int scale, int index, int base,       \
            int disp) {                                                     \
    ia32_RegMemSIB(opcode, mod, reg, rm, scale, index, base, disp);         \
  }
  QUORL_IA32_REG_MEM_OPERATIONS(QUORL_IA32_DECLARE_SHAPES)
#undef QUORL_IA32_DECLARE_SHAPES

  // SSE forms: all shapes but the displaced SIB one.
#define QUORL_IA32_DECLARE_SSE_SHAPES(name, opcode, text)                   \
  void name(int mod, int reg, int rm) { ia32_RegMem(opcode, mod, reg, rm); } \
  void name(int mod, int reg, int rm, int disp) {                           \
    ia32_RegMem(opcode, mod, reg, rm, disp);                                \
  }                                                                         \
  void name(int mod, int reg, int rm, int scale, int index, int base) {     \
    ia32_RegMemSIB(opcode, mod, reg, rm, scale, index, base);               \
  }
  QUORL_IA32_SSE_OPERATIONS(QUORL_IA32_DECLARE_SSE_SHAPES)
#undef QUORL_IA32_DECLARE_SSE_SHAPES

  // ---- operations whose reg field is part of the opcode: (mod, rm) and
  // (mod, rm, disp). Unary F7 group, set-on-condition, indirect call.
#define QUORL_IA32_DECLARE_GROUP(name, opcode, group, text)                 \
  void name(int mod, int rm) { ia32_RegMem(opcode, mod, group, rm); }        \
  void name(int mod, int rm, int disp) {                                    \
    ia32_RegMem(opcode, mod, group, rm, disp);                              \
  }
  QUORL_IA32_GROUP_OPERATIONS(QUORL_IA32_DECLARE_GROUP)
#undef QUORL_IA32_DECLARE_GROUP

  // ---- x87 memory operations: (mod, rm), with a SIB byte added for ESP,
  // and (mod, rm, disp).
#define QUORL_IA32_DECLARE_X87(name, opcode, group, text)                   \
  void name(int mod, int rm) { ia32_X87Mem(opcode, mod, group, rm); }        \
  void name(int mod, int rm, int disp) {                                    \
    ia32_RegMem(opcode, mod, group, rm, disp);                              \
  }
  QUORL_IA32_X87_MEMORY_OPERATIONS(QUORL_IA32_DECLARE_X87)
#undef QUORL_IA32_DECLARE_X87

  // ---- operations without operands.
#define QUORL_IA32_DECLARE_FIXED(name, opcode, text) void name();
  QUORL_IA32_FIXED_OPERATIONS(QUORL_IA32_DECLARE_FIXED)
#undef QUORL_IA32_DECLARE_FIXED

  // ---- ALU with an immediate: (mod, rm, imm), mod 3 or plain mod 0.
  void ia32_add_imm32(int mod, int rm, int imm);
  void ia32_and_imm32(int mod, int rm, int imm);
  void ia32_cmp_imm32(int mod, int rm, int imm);
  void ia32_sbb_imm32(int mod, int rm, int imm);
  void ia32_sub_imm32(int mod, int rm, int imm);
  // The same with one sign-extended byte (-128 to 127).
  void ia32_add_imm8_se(int mod, int rm, int imm8);
  void ia32_and_imm8_se(int mod, int rm, int imm8);
  void ia32_cmp_imm8_se(int mod, int rm, int imm8);
  void ia32_sub_imm8_se(int mod, int rm, int imm8);
  // A byte compare with a byte.
  void ia32_cmp_imm8(int mod, int rm, int imm8);

  // ---- immediate load, stack.
  void ia32_mov_imm32(int reg, int imm);
  void ia32_push(int reg);
  void ia32_pop(int reg);
  void ia32_push(int mod, int rm, int disp);
  void ia32_pop(int mod, int rm, int disp);
  void ia32_push_imm32(int imm);

  // ---- shifts: by CL, or by a count byte.
  void ia32_sal_cl(int mod, int rm);
  void ia32_sar_cl(int mod, int rm);
  void ia32_sal_imm8(int mod, int rm, int count);
  void ia32_sar_imm8(int mod, int rm, int count);

  // ---- branches, all with a 32-bit displacement from the instruction's
  // end.
  void ia32_jmp_rel(int disp);
  void ia32_je(int disp);
  void ia32_jne(int disp);
  void ia32_jnz(int disp);
  void ia32_jb(int disp);
  void ia32_jl(int disp);
  void ia32_jle(int disp);
  void ia32_jg(int disp);
  void ia32_jge(int disp);
  void ia32_ja(int disp);
  void ia32_jae(int disp);
  void ia32_jbe(int disp);
  void ia32_jns(int disp);
  void ia32_call_disp32(int disp);
  void ia32_jmp_abs(int mod, int rm, int disp);
  void ia32_loop(int disp8);

  // ---- misc.
  void ia32_bswap(int reg);
  void ia32_dec(int reg);
  // Exchange with EAX.
  void ia32_xchg(int reg);
  // Swaps the two low bytes of EAX, ECX, EDX or EBX (AL with AH...).
  void ia32_xchg_swap8(int reg);
  void ia32_or_imm16(int mod, int rm, int scale, int index, int base,
                     int imm16);

 protected:
  ~IA32OpWriter() {}

 private:
  // Opcodes of up to three bytes, packed first byte highest (0x0FAF).
  void ia32_WritePackedOpcode(int opcode);
  void ia32_RegMem(int opcode, int mod, int reg, int rm);
  void ia32_RegMem(int opcode, int mod, int reg, int rm, int disp);
  void ia32_RegMemSIB(int opcode, int mod, int reg, int rm, int scale,
                      int index, int base);
  void ia32_RegMemSIB(int opcode, int mod, int reg, int rm, int scale,
                      int index, int base, int disp);
  void ia32_X87Mem(int opcode, int mod, int group, int rm);
  void ia32_Immediate32Group(int group, int mod, int rm, int imm);
  void ia32_Immediate8Group(int opcode, int group, int mod, int rm, int imm8);
  void ia32_Branch32(int opcode, int disp);
};

// An encoder into a fixed buffer that never grows: a full buffer is a
// defect of the caller.
class IA32OpBufWriter : public IA32OpWriter {
 public:
  explicit IA32OpBufWriter(unsigned int size);
  virtual ~IA32OpBufWriter();
  virtual void ia32_BufferFullError();

  void ia32_Write8(int value) override;
  void ia32_Write16(int value) override;
  void ia32_Write32(int value) override;

  unsigned char* Buffer() const { return mBuffer; }
  unsigned int Length() const { return mCursor - mBuffer; }

 protected:
  unsigned char* mBuffer;
  unsigned char* mCursor;
  unsigned char* mLimit;

 private:
  IA32OpBufWriter(IA32OpBufWriter const&) = delete;
  IA32OpBufWriter& operator=(IA32OpBufWriter const&) = delete;
};

#endif
