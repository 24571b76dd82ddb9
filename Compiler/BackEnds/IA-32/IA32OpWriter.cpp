#include "Compiler/BackEnds/IA-32/IA32OpWriter.h"

#include "Universal/Assertion.h"

// ---------------------------------------------------------------- primitives

void IA32OpWriter::ia32_WriteOpcode(int val) {
  QASSERT_TEXT(val >= 0 && val < 256, "val >= 0 && val < 256");
  ia32_Write8(val);
}

void IA32OpWriter::ia32_WriteOpcode(int val1, int val2) {
  QASSERT_TEXT(val1 >= 0 && val1 < 256, "val1 >= 0 && val1 < 256");
  QASSERT_TEXT(val2 >= 0 && val2 < 256, "val2 >= 0 && val2 < 256");
  ia32_Write8(val1);
  ia32_Write8(val2);
}

void IA32OpWriter::ia32_WriteOpcode(int val1, int val2, int val3) {
  QASSERT_TEXT(val1 >= 0 && val1 < 256, "val1 >= 0 && val1 < 256");
  QASSERT_TEXT(val2 >= 0 && val2 < 256, "val2 >= 0 && val2 < 256");
  QASSERT_TEXT(val3 >= 0 && val3 < 256, "val3 >= 0 && val3 < 256");
  ia32_Write8(val1);
  ia32_Write8(val2);
  ia32_Write8(val3);
}

void IA32OpWriter::ia32_WriteRegisterOpcode(int opcode, int reg) {
  QASSERT_TEXT(opcode >= 0 && opcode <= 0x00FF, "opcode >= 0 && opcode <= 0x00FF");
  QASSERT_TEXT((opcode & 0x00F8) == opcode, "(opcode & 0x00F8) == opcode");
  QASSERT_TEXT(reg >= 0 && reg < 8, "reg >= 0 && reg < 8");
  ia32_Write8(opcode | reg);
}

void IA32OpWriter::ia32_WriteModRM(int mod, int reg, int rm) {
  QASSERT_TEXT(mod >= 0 && mod < 4, "mod >= 0 && mod < 4");
  QASSERT_TEXT(reg >= 0 && reg < 8, "reg >= 0 && reg < 8");
  QASSERT_TEXT(rm >= 0 && rm < 8, "rm >= 0 && rm < 8");
  ia32_Write8(mod * 64 + reg * 8 + rm);
}

void IA32OpWriter::ia32_WriteSIB(int scale, int index, int base) {
  QASSERT_TEXT(scale >= 0 && scale < 4, "scale >= 0 && scale < 4");
  QASSERT_TEXT(index >= 0 && index < 8, "index >= 0 && index < 8");
  QASSERT_TEXT(base >= 0 && base < 8, "base >= 0 && base < 8");
  ia32_Write8(scale * 64 + index * 8 + base);
}

void IA32OpWriter::ia32_WriteDisplacement(int mod, int disp) {
  if (mod == kModDisplacement8) {
    QASSERT_TEXT(disp >= -128 and disp <= 127, "disp >= -128 and disp <= 127");
    ia32_Write8(disp & 0xFF);
  } else if (mod == kModIndirect || mod == kModDisplacement32) {
    ia32_Write32(disp);
  } else {
    QASSERT_TEXT(0, "0");
  }
}

// ---------------------------------------------------------------- operands

void IA32OpWriter::ia32_WritePackedOpcode(int opcode) {
  if (opcode > 0xFFFF)
    ia32_WriteOpcode(opcode >> 16, (opcode >> 8) & 0xFF, opcode & 0xFF);
  else if (opcode > 0xFF)
    ia32_WriteOpcode(opcode >> 8, opcode & 0xFF);
  else
    ia32_WriteOpcode(opcode);
}

void IA32OpWriter::ia32_RegMem(int opcode, int mod, int reg, int rm) {
  ia32_WritePackedOpcode(opcode);
  ia32_WriteModRM(mod, reg, rm);
}

void IA32OpWriter::ia32_RegMem(int opcode, int mod, int reg, int rm,
                               int disp) {
  ia32_RegMem(opcode, mod, reg, rm);
  ia32_WriteDisplacement(mod, disp);
}

void IA32OpWriter::ia32_RegMemSIB(int opcode, int mod, int reg, int rm,
                                  int scale, int index, int base) {
  QASSERT_TEXT(rm == 4, "rm == 4");
  ia32_RegMem(opcode, mod, reg, rm);
  ia32_WriteSIB(scale, index, base);
}

void IA32OpWriter::ia32_RegMemSIB(int opcode, int mod, int reg, int rm,
                                  int scale, int index, int base, int disp) {
  ia32_RegMemSIB(opcode, mod, reg, rm, scale, index, base);
  ia32_WriteDisplacement(mod, disp);
}

// ESP as a base can only be named through a SIB byte with no index.
void IA32OpWriter::ia32_X87Mem(int opcode, int mod, int group, int rm) {
  ia32_RegMem(opcode, mod, group, rm);
  if (rm == kESP) ia32_WriteSIB(0, 4, 4);
}

// ---------------------------------------------------------------- fixed

#define QUORL_IA32_DEFINE_FIXED(name, opcode, text) \
  void IA32OpWriter::name() { ia32_WritePackedOpcode(opcode); }
QUORL_IA32_FIXED_OPERATIONS(QUORL_IA32_DEFINE_FIXED)
#undef QUORL_IA32_DEFINE_FIXED

// ---------------------------------------------------------------- immediates

void IA32OpWriter::ia32_Immediate32Group(int group, int mod, int rm, int imm) {
  QASSERT_TEXT(
      mod == kModRegister || (mod == kModIndirect && rm != kESP && rm != kEBP),
      "immediate operand without displacement");
  ia32_RegMem(0x81, mod, group, rm);
  ia32_Write32(imm);
}

void IA32OpWriter::ia32_Immediate8Group(int opcode, int group, int mod, int rm,
                                        int imm8) {
  QASSERT_TEXT(
      mod == kModRegister || (mod == kModIndirect && rm != kESP && rm != kEBP),
      "immediate operand without displacement");
  QASSERT_TEXT(imm8 >= -128 && imm8 <= 127, "imm8 >= -128 && imm8 <= 127");
  ia32_RegMem(opcode, mod, group, rm);
  ia32_Write8(imm8 & 0xFF);
}

void IA32OpWriter::ia32_add_imm32(int mod, int rm, int imm) {
  ia32_Immediate32Group(0, mod, rm, imm);
}
void IA32OpWriter::ia32_and_imm32(int mod, int rm, int imm) {
  ia32_Immediate32Group(4, mod, rm, imm);
}
void IA32OpWriter::ia32_sbb_imm32(int mod, int rm, int imm) {
  ia32_Immediate32Group(3, mod, rm, imm);
}
void IA32OpWriter::ia32_sub_imm32(int mod, int rm, int imm) {
  ia32_Immediate32Group(5, mod, rm, imm);
}
void IA32OpWriter::ia32_cmp_imm32(int mod, int rm, int imm) {
  ia32_Immediate32Group(7, mod, rm, imm);
}
void IA32OpWriter::ia32_add_imm8_se(int mod, int rm, int imm8) {
  ia32_Immediate8Group(0x83, 0, mod, rm, imm8);
}
void IA32OpWriter::ia32_and_imm8_se(int mod, int rm, int imm8) {
  ia32_Immediate8Group(0x83, 4, mod, rm, imm8);
}
void IA32OpWriter::ia32_sub_imm8_se(int mod, int rm, int imm8) {
  ia32_Immediate8Group(0x83, 5, mod, rm, imm8);
}
void IA32OpWriter::ia32_cmp_imm8_se(int mod, int rm, int imm8) {
  ia32_Immediate8Group(0x83, 7, mod, rm, imm8);
}
void IA32OpWriter::ia32_cmp_imm8(int mod, int rm, int imm8) {
  ia32_Immediate8Group(0x80, 7, mod, rm, imm8);
}

// ---------------------------------------------------------------- moves, stack

void IA32OpWriter::ia32_mov_imm32(int reg, int imm) {
  ia32_WriteRegisterOpcode(0xB8, reg);
  ia32_Write32(imm);
}

void IA32OpWriter::ia32_push(int reg) { ia32_WriteRegisterOpcode(0x50, reg); }
void IA32OpWriter::ia32_pop(int reg) { ia32_WriteRegisterOpcode(0x58, reg); }

void IA32OpWriter::ia32_push(int mod, int rm, int disp) {
  ia32_RegMem(0xFF, mod, 6, rm, disp);
}

void IA32OpWriter::ia32_pop(int mod, int rm, int disp) {
  ia32_RegMem(0x8F, mod, 0, rm, disp);
}

void IA32OpWriter::ia32_push_imm32(int imm) {
  ia32_WriteOpcode(0x68);
  ia32_Write32(imm);
}

// ---------------------------------------------------------------- shifts

void IA32OpWriter::ia32_sal_cl(int mod, int rm) { ia32_RegMem(0xD3, mod, 4, rm); }
void IA32OpWriter::ia32_sar_cl(int mod, int rm) { ia32_RegMem(0xD3, mod, 7, rm); }

void IA32OpWriter::ia32_sal_imm8(int mod, int rm, int count) {
  ia32_RegMem(0xC1, mod, 4, rm);
  ia32_Write8(count & 0xFF);
}

void IA32OpWriter::ia32_sar_imm8(int mod, int rm, int count) {
  ia32_RegMem(0xC1, mod, 7, rm);
  ia32_Write8(count & 0xFF);
}

// ---------------------------------------------------------------- branches

void IA32OpWriter::ia32_Branch32(int opcode, int disp) {
  ia32_WritePackedOpcode(opcode);
  ia32_Write32(disp);
}

void IA32OpWriter::ia32_jmp_rel(int disp) { ia32_Branch32(0xE9, disp); }
void IA32OpWriter::ia32_je(int disp) { ia32_Branch32(0x0F84, disp); }
void IA32OpWriter::ia32_jne(int disp) { ia32_Branch32(0x0F85, disp); }
void IA32OpWriter::ia32_jnz(int disp) { ia32_Branch32(0x0F85, disp); }
void IA32OpWriter::ia32_jb(int disp) { ia32_Branch32(0x0F82, disp); }
void IA32OpWriter::ia32_jl(int disp) { ia32_Branch32(0x0F8C, disp); }
void IA32OpWriter::ia32_jle(int disp) { ia32_Branch32(0x0F8E, disp); }
void IA32OpWriter::ia32_jg(int disp) { ia32_Branch32(0x0F8F, disp); }
void IA32OpWriter::ia32_jge(int disp) { ia32_Branch32(0x0F8D, disp); }
void IA32OpWriter::ia32_ja(int disp) { ia32_Branch32(0x0F87, disp); }
void IA32OpWriter::ia32_jae(int disp) { ia32_Branch32(0x0F83, disp); }
void IA32OpWriter::ia32_jbe(int disp) { ia32_Branch32(0x0F86, disp); }
void IA32OpWriter::ia32_jns(int disp) { ia32_Branch32(0x0F89, disp); }
void IA32OpWriter::ia32_call_disp32(int disp) { ia32_Branch32(0xE8, disp); }

void IA32OpWriter::ia32_jmp_abs(int mod, int rm, int disp) {
  ia32_RegMem(0xFF, mod, 4, rm, disp);
}

void IA32OpWriter::ia32_loop(int disp8) {
  QASSERT_TEXT(disp8 >= -128 and disp8 <= 127, "disp8 >= -128 and disp8 <= 127");
  ia32_WriteOpcode(0xE2);
  ia32_Write8(disp8 & 0xFF);
}

// ---------------------------------------------------------------- misc

void IA32OpWriter::ia32_bswap(int reg) {
  ia32_WriteOpcode(0x0F);
  ia32_WriteRegisterOpcode(0xC8, reg);
}

void IA32OpWriter::ia32_dec(int reg) { ia32_WriteRegisterOpcode(0x48, reg); }
void IA32OpWriter::ia32_xchg(int reg) { ia32_WriteRegisterOpcode(0x90, reg); }

void IA32OpWriter::ia32_xchg_swap8(int rm) {
  QASSERT_TEXT(rm < 4, "rm < 4");
  ia32_WriteOpcode(0x86);
  ia32_WriteModRM(kModRegister, rm | 4, rm);
}

void IA32OpWriter::ia32_or_imm16(int mod, int rm, int scale, int index,
                                 int base, int imm16) {
  ia32_WriteOpcode(0x66, 0x81);
  ia32_WriteModRM(mod, 1, rm);
  ia32_WriteSIB(scale, index, base);
  ia32_Write16(imm16);
}

// ---------------------------------------------------------------- buffer

IA32OpBufWriter::IA32OpBufWriter(unsigned int size)
    : mBuffer(new unsigned char[size ? size : 1]), mCursor(mBuffer),
      mLimit(mBuffer + size) {}

IA32OpBufWriter::~IA32OpBufWriter() { delete[] mBuffer; }

void IA32OpBufWriter::ia32_BufferFullError() {
  QFAIL("IA32OpWriter buffer full");
}

void IA32OpBufWriter::ia32_Write8(int value) {
  if (mCursor + 1 > mLimit) ia32_BufferFullError();
  *mCursor++ = static_cast<unsigned char>(value);
}

void IA32OpBufWriter::ia32_Write16(int value) {
  if (mCursor + 2 > mLimit) ia32_BufferFullError();
  for (int i = 0; i < 2; i++) *mCursor++ = static_cast<unsigned char>(value >> (8 * i));
}

void IA32OpBufWriter::ia32_Write32(int value) {
  if (mCursor + 4 > mLimit) ia32_BufferFullError();
  for (int i = 0; i < 4; i++) *mCursor++ = static_cast<unsigned char>(value >> (8 * i));
}
