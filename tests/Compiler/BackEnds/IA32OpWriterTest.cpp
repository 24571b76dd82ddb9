// Every form the instruction writer offers, checked byte for byte against
// the system assembler (`as --32`, Intel syntax) on the same instruction.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "Compiler/BackEnds/IA-32/CGIA32.h"
#include "Compiler/BackEnds/IA-32/IA32OpWriter.h"
#include "tests/Compiler/BackEnds/ReferenceAssembler.h"
#include "tests/Compiler/CompilerTestSupport.h"

namespace {

class Recorder : public IA32OpBufWriter {
 public:
  Recorder() : IA32OpBufWriter(64) {}
  Bytes Take() {
    Bytes bytes(mBuffer, mCursor);
    mCursor = mBuffer;
    return bytes;
  }
};

// An operand shape: which overload (plain, displaced, SIB, displaced SIB)
// and its fields.
struct Shape {
  int kind;
  int mod, reg, rm, scale, index, base, disp;
};

char const* const kRegs32[] = {"eax", "ecx", "edx", "ebx", "esp", "ebp", "esi", "edi"};
char const* const kRegs16[] = {"ax", "cx", "dx", "bx", "sp", "bp", "si", "di"};
char const* const kRegs8[] = {"al", "cl", "dl", "bl", "ah", "ch", "dh", "bh"};

std::string Number(int value) {
  char text[32];
  snprintf(text, sizeof text, value < 0 ? "-0x%x" : "0x%x",
           value < 0 ? -value : value);
  return text;
}

std::string Register(std::string const& size, int reg, bool sse) {
  if (sse || size == "64" || size == "128") return "xmm" + std::to_string(reg);
  if (size == "16") return kRegs16[reg];
  if (size == "8") return kRegs8[reg];
  return kRegs32[reg];
}

std::string Memory(std::string const& size, Shape const& s, bool sse) {
  if (s.kind == 0 && s.mod == 3) return Register(size, s.rm, sse);
  std::string ptr = size == "32"    ? "DWORD PTR "
                    : size == "16"  ? "WORD PTR "
                    : size == "8"   ? "BYTE PTR "
                    : size == "64"  ? "QWORD PTR "
                    : size == "128" ? "XMMWORD PTR "
                                    : "";
  if (s.kind == 1 && s.mod == 0) return ptr + "[" + Number(s.disp) + "]";
  std::string address = kRegs32[s.kind >= 2 ? s.base : s.rm];
  if (s.kind >= 2 && s.index != 4)
    address += std::string("+") + kRegs32[s.index] + "*" +
               std::to_string(1 << s.scale);
  if ((s.kind == 1 || s.kind == 3) && s.disp >= 0) address += "+";
  if (s.kind == 1 || s.kind == 3) address += Number(s.disp);
  return ptr + "[" + address + "]";
}

// Fills the placeholders of an operation's text for one shape.
std::string Instruction(std::string text, Shape const& s, bool sse) {
  static char const* const kSizes[] = {"128", "64", "32", "16", "8", ""};
  for (char const* size : kSizes) {
    std::string mark = std::string("%m") + size;
    size_t at;
    while ((at = text.find(mark)) != std::string::npos &&
           (size[0] || at + 2 == text.size() || !isdigit(text[at + 2])))
      text.replace(at, mark.size(), Memory(size, s, sse));
  }
  for (char const* size : kSizes) {
    std::string mark = std::string("%r") + size;
    size_t at;
    if (size[0] && (at = text.find(mark)) != std::string::npos)
      text.replace(at, mark.size(), Register(size, s.reg, false));
  }
  size_t at = text.find("%x");
  if (at != std::string::npos) text.replace(at, 2, Register("", s.reg, true));
  if ((s.kind == 1 || s.kind == 3) && s.mod == 1) text = "{disp8} " + text;
  if ((s.kind == 1 || s.kind == 3) && s.mod == 2) text = "{disp32} " + text;
  return text;
}

struct Case {
  std::string name;
  std::string text;
  Bytes bytes;
};

class IA32OpWriterReference : public testing::Test {
 protected:
  void Add(std::string const& name, std::string const& text) {
    mCases.push_back({name, text, mWriter.Take()});
  }
  void AddShapes(std::string const& name, std::string const& text,
                 std::vector<Shape> const& shapes, bool sse,
                 std::function<void(Recorder&, Shape const&)> emit) {
    for (Shape const& s : shapes) {
      emit(mWriter, s);
      Add(name, Instruction(text, s, sse));
    }
  }
  void Verify() {
    std::vector<std::string> lines;
    for (Case const& c : mCases) lines.push_back(c.text);
    std::string error;
    std::vector<Bytes> reference = AssembleLines(lines, &error);
    ASSERT_EQ(lines.size(), reference.size()) << error;
    for (size_t i = 0; i < mCases.size(); i++)
      EXPECT_EQ(HexBytes(reference[i]), HexBytes(mCases[i].bytes))
          << mCases[i].name << ": " << mCases[i].text;
  }

  Recorder mWriter;
  std::vector<Case> mCases;
};

std::vector<Shape> const kRegMemShapes = {
    {0, 3, 1, 3, 0, 0, 0, 0},          {0, 0, 2, 6, 0, 0, 0, 0},
    {1, 1, 7, 5, 0, 0, 0, -128},       {1, 2, 0, 1, 0, 0, 0, 0x1234},
    {1, 2, 3, 5, 0, 0, 0, -129},       {1, 0, 1, 5, 0, 0, 0, 0x12345678},
    {2, 0, 2, 4, 2, 1, 0, 0},          {3, 1, 6, 4, 0, 4, 4, 8},
    {3, 2, 5, 4, 3, 7, 3, 0x100},
};

std::vector<Shape> WithoutKinds(std::vector<Shape> shapes, int kind,
                                int mod = -1) {
  std::vector<Shape> kept;
  for (Shape const& s : shapes)
    if (s.kind != kind && !(mod >= 0 && s.mod == mod && s.kind == 0))
      kept.push_back(s);
  return kept;
}

// (mod, rm) and (mod, rm, disp) shapes, the register in `rm`.
std::vector<Shape> const kGroupShapes = {
    {0, 3, 0, 2, 0, 0, 0, 0},     {0, 0, 0, 6, 0, 0, 0, 0},
    {1, 1, 0, 5, 0, 0, 0, -8},    {1, 2, 0, 0, 0, 0, 0, 0x400},
    {1, 0, 0, 5, 0, 0, 0, 0x12345678},
};

}  // namespace

TEST_F(IA32OpWriterReference, RegisterAndMemoryFamilies) {
#define QUORL_CHECK_SHAPES(name, opcode, text)                                \
  AddShapes(#name, text,                                                      \
            std::string(#name) == "ia32_lea" ? WithoutKinds(kRegMemShapes, 9, 3) \
                                             : kRegMemShapes,                 \
            false, [](Recorder& w, Shape const& s) {                          \
              if (s.kind == 0) w.name(s.mod, s.reg, s.rm);                    \
              if (s.kind == 1) w.name(s.mod, s.reg, s.rm, s.disp);            \
              if (s.kind == 2) w.name(s.mod, s.reg, s.rm, s.scale, s.index, s.base); \
              if (s.kind == 3)                                                \
                w.name(s.mod, s.reg, s.rm, s.scale, s.index, s.base, s.disp); \
            });
  QUORL_IA32_REG_MEM_OPERATIONS(QUORL_CHECK_SHAPES)
#undef QUORL_CHECK_SHAPES
  Verify();
}

TEST_F(IA32OpWriterReference, SSEFamilies) {
#define QUORL_CHECK_SSE(name, opcode, text)                                   \
  AddShapes(#name, text, WithoutKinds(kRegMemShapes, 3), true,                \
            [](Recorder& w, Shape const& s) {                                 \
              if (s.kind == 0) w.name(s.mod, s.reg, s.rm);                    \
              if (s.kind == 1) w.name(s.mod, s.reg, s.rm, s.disp);            \
              if (s.kind == 2) w.name(s.mod, s.reg, s.rm, s.scale, s.index, s.base); \
            });
  QUORL_IA32_SSE_OPERATIONS(QUORL_CHECK_SSE)
#undef QUORL_CHECK_SSE
  Verify();
}

TEST_F(IA32OpWriterReference, GroupAndX87Families) {
#define QUORL_CHECK_GROUP(name, opcode, group, text)                          \
  AddShapes(#name, text, kGroupShapes, false, [](Recorder& w, Shape const& s) { \
    if (s.kind == 0) w.name(s.mod, s.rm);                                     \
    if (s.kind == 1) w.name(s.mod, s.rm, s.disp);                             \
  });
  QUORL_IA32_GROUP_OPERATIONS(QUORL_CHECK_GROUP)
#undef QUORL_CHECK_GROUP
  // The x87 operations name memory only; ESP gets its SIB byte unasked.
  std::vector<Shape> x87Shapes = WithoutKinds(kGroupShapes, 9, 3);
  x87Shapes.push_back({0, 0, 0, 4, 0, 4, 4, 0});
#define QUORL_CHECK_X87(name, opcode, group, text)                            \
  AddShapes(#name, text, x87Shapes, false, [](Recorder& w, Shape const& s) {  \
    if (s.kind == 0) w.name(s.mod, s.rm);                                     \
    if (s.kind == 1) w.name(s.mod, s.rm, s.disp);                             \
  });
  QUORL_IA32_X87_MEMORY_OPERATIONS(QUORL_CHECK_X87)
#undef QUORL_CHECK_X87
#define QUORL_CHECK_FIXED(name, opcode, text) \
  mWriter.name();                            \
  Add(#name, text);
  QUORL_IA32_FIXED_OPERATIONS(QUORL_CHECK_FIXED)
#undef QUORL_CHECK_FIXED
  Verify();
}

// Immediates avoid the short forms the assembler would prefer (EAX forms,
// one-byte immediates, shifts by one).
TEST_F(IA32OpWriterReference, ImmediatesStackShiftsBranchesAndTheRest) {
  mWriter.ia32_add_imm32(3, 1, 0x12345678);  Add("add_imm32", "add ecx, 0x12345678");
  mWriter.ia32_and_imm32(3, 2, 0xFF00);      Add("and_imm32", "and edx, 0xff00");
  mWriter.ia32_cmp_imm32(3, 3, 0x4000);      Add("cmp_imm32", "cmp ebx, 0x4000");
  mWriter.ia32_sbb_imm32(3, 6, 0x1000);      Add("sbb_imm32", "sbb esi, 0x1000");
  mWriter.ia32_sub_imm32(3, 4, 0x100);       Add("sub_imm32", "sub esp, 0x100");
  mWriter.ia32_add_imm8_se(3, 2, -5);        Add("add_imm8_se", "add edx, -5");
  mWriter.ia32_and_imm8_se(3, 1, 1);         Add("and_imm8_se", "and ecx, 1");
  mWriter.ia32_cmp_imm8_se(3, 7, 0);         Add("cmp_imm8_se", "cmp edi, 0");
  mWriter.ia32_sub_imm8_se(3, 4, 16);        Add("sub_imm8_se", "sub esp, 16");
  mWriter.ia32_cmp_imm8(3, 1, 7);            Add("cmp_imm8", "cmp cl, 7");
  mWriter.ia32_mov_imm32(3, 0x12345678);     Add("mov_imm32", "mov ebx, 0x12345678");
  mWriter.ia32_push(5);                      Add("push", "push ebp");
  mWriter.ia32_pop(7);                       Add("pop", "pop edi");
  mWriter.ia32_push(1, 5, 8);                Add("push mem", "{disp8} push DWORD PTR [ebp+8]");
  mWriter.ia32_pop(2, 0, 0x100);             Add("pop mem", "{disp32} pop DWORD PTR [eax+0x100]");
  mWriter.ia32_push_imm32(0x12345678);       Add("push_imm32", "push 0x12345678");
  mWriter.ia32_sal_cl(3, 1);                 Add("sal_cl", "sal ecx, cl");
  mWriter.ia32_sar_cl(3, 2);                 Add("sar_cl", "sar edx, cl");
  mWriter.ia32_sal_imm8(3, 3, 5);            Add("sal_imm8", "sal ebx, 5");
  mWriter.ia32_sar_imm8(3, 6, 31);           Add("sar_imm8", "sar esi, 31");
  mWriter.ia32_jmp_rel(0x100);               Add("jmp_rel", "{disp32} jmp .+5+0x100");
  mWriter.ia32_je(-0x20);                    Add("je", "{disp32} je .+6-0x20");
  mWriter.ia32_jne(8);                       Add("jne", "{disp32} jne .+6+8");
  mWriter.ia32_jnz(9);                       Add("jnz", "{disp32} jnz .+6+9");
  mWriter.ia32_jb(0x1000);                   Add("jb", "{disp32} jb .+6+0x1000");
  mWriter.ia32_jl(2);                        Add("jl", "{disp32} jl .+6+2");
  mWriter.ia32_jle(-2);                      Add("jle", "{disp32} jle .+6-2");
  mWriter.ia32_call_disp32(0x100);           Add("call_disp32", "call .+5+0x100");
  mWriter.ia32_jmp_abs(1, 5, 8);             Add("jmp_abs", "{disp8} jmp DWORD PTR [ebp+8]");
  mWriter.ia32_loop(-10);                    Add("loop", "loop .+2-10");
  mWriter.ia32_bswap(3);                     Add("bswap", "bswap ebx");
  mWriter.ia32_dec(1);                       Add("dec", "dec ecx");
  mWriter.ia32_xchg(2);                      Add("xchg", "xchg edx, eax");
  mWriter.ia32_xchg_swap8(0);                Add("xchg_swap8", "xchg al, ah");
  mWriter.ia32_or_imm16(0, 4, 0, 0, 4, 0x1234);
  Add("or_imm16", "or WORD PTR [esp+eax*1], 0x1234");
  Verify();
}

TEST(IA32OpWriterTest, FieldsAreChecked) {
  Recorder w;
  EXPECT_ASSERTION(w.ia32_xchg_swap8(4), "");
  EXPECT_ASSERTION(w.ia32_WriteDisplacement(1, 128), "");
  EXPECT_ASSERTION(w.ia32_WriteDisplacement(3, 0), "");
  EXPECT_ASSERTION(w.ia32_WriteModRM(4, 0, 0), "");
  EXPECT_ASSERTION(w.ia32_WriteRegisterOpcode(0x51, 1), "");
  EXPECT_ASSERTION(w.ia32_loop(-129), "");
  EXPECT_ASSERTION(w.ia32_WriteOpcode(256), "");
  EXPECT_EQ(1, CGIA32::ModDisp(-128));
  EXPECT_EQ(2, CGIA32::ModDisp(-129));
  EXPECT_EQ(2, CGIA32::ModDisp(128));
}

TEST(IA32OpWriterTest, AFixedBufferNeverGrows) {
  IA32OpBufWriter three(3);
  three.ia32_Write8(1);
  three.ia32_Write8(2);
  three.ia32_Write8(3);
  EXPECT_EQ(3u, three.Length());
  EXPECT_ASSERTION(three.ia32_Write8(4), "IA32OpWriter buffer full");
  IA32OpBufWriter other(3);
  other.ia32_Write8(1);
  other.ia32_Write16(2);  // exactly the room left
  EXPECT_EQ(3u, other.Length());
  IA32OpBufWriter two(3);
  two.ia32_Write16(1);
  EXPECT_ASSERTION(two.ia32_Write16(2), "IA32OpWriter buffer full");
  IA32OpBufWriter fresh(3);
  EXPECT_ASSERTION(fresh.ia32_Write32(0), "IA32OpWriter buffer full");
}
