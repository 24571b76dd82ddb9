// Every operation the instruction writer offers, in one operand shape, and
// every operand shape on one operation, checked byte for byte against the
// system assembler (`as --32`, Intel syntax) on the same instruction.
#include <gtest/gtest.h>
#include <string.h>

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

// An operation's text from its list, with the reg field EDX (or its
// narrower or SSE name) and r/m [ebp-0x80] as a one-byte displacement.
std::string Fill(std::string text) {
  static char const* const kMarks[][2] = {
      {"%m128", "XMMWORD PTR [ebp-0x80]"}, {"%m64", "QWORD PTR [ebp-0x80]"},
      {"%m32", "DWORD PTR [ebp-0x80]"},    {"%m16", "WORD PTR [ebp-0x80]"},
      {"%m8", "BYTE PTR [ebp-0x80]"},      {"%m", "[ebp-0x80]"},
      {"%r32", "edx"}, {"%r16", "dx"}, {"%r8", "dl"}, {"%x", "xmm2"}};
  for (auto const& mark : kMarks)
    for (size_t at; (at = text.find(mark[0])) != std::string::npos;)
      text.replace(at, strlen(mark[0]), mark[1]);
  return "{disp8} " + text;
}

}  // namespace

// Immediates avoid the short forms the assembler would prefer (EAX forms,
// one-byte immediates, shifts by one).
TEST(IA32OpWriterTest, EveryFormMatchesTheAssembler) {
  Recorder w;
  std::vector<std::string> texts;
  std::vector<Bytes> written;
  auto add = [&](std::string const& text) {
    texts.push_back(text);
    written.push_back(w.Take());
  };
#define QUORL_CHECK_REG_MEM(name, opcode, text) w.name(1, 2, 5, -128); add(Fill(text));
  QUORL_IA32_REG_MEM_OPERATIONS(QUORL_CHECK_REG_MEM)
  QUORL_IA32_SSE_OPERATIONS(QUORL_CHECK_REG_MEM)
#undef QUORL_CHECK_REG_MEM
#define QUORL_CHECK_GROUP(name, opcode, group, text) w.name(1, 5, -128); add(Fill(text));
  QUORL_IA32_GROUP_OPERATIONS(QUORL_CHECK_GROUP)
  QUORL_IA32_X87_MEMORY_OPERATIONS(QUORL_CHECK_GROUP)
#undef QUORL_CHECK_GROUP
#define QUORL_CHECK_FIXED(name, opcode, text) w.name(); add(text);
  QUORL_IA32_FIXED_OPERATIONS(QUORL_CHECK_FIXED)
#undef QUORL_CHECK_FIXED
  // The operand shapes, on one operation of each family.
  w.ia32_mov(3, 1, 3);                  add("{load} mov ecx, ebx");
  w.ia32_mov(0, 2, 6);                  add("mov edx, DWORD PTR [esi]");
  w.ia32_mov(2, 3, 5, -129);            add("{disp32} mov ebx, DWORD PTR [ebp-0x81]");
  w.ia32_mov(0, 1, 5, 0x12345678);      add("mov ecx, DWORD PTR [0x12345678]");
  w.ia32_mov(0, 2, 4, 2, 1, 0);         add("mov edx, DWORD PTR [eax+ecx*4]");
  w.ia32_mov(1, 6, 4, 0, 4, 4, 8);      add("{disp8} mov esi, DWORD PTR [esp+8]");
  w.ia32_mov(2, 5, 4, 3, 7, 3, 0x100);  add("{disp32} mov ebp, DWORD PTR [ebx+edi*8+0x100]");
  w.ia32_movsd(0, 1, 4, 2, 1, 0);       add("movsd xmm1, QWORD PTR [eax+ecx*4]");
  w.ia32_neg(3, 2);                     add("neg edx");
  w.ia32_sete(3, 1);                    add("sete cl");
  w.ia32_fld64(0, 4);                   add("fld QWORD PTR [esp]");  // SIB unasked
  w.ia32_add_imm32(3, 1, 0x12345678);   add("add ecx, 0x12345678");
  w.ia32_and_imm32(3, 2, 0xFF00);       add("and edx, 0xff00");
  w.ia32_cmp_imm32(3, 3, 0x4000);       add("cmp ebx, 0x4000");
  w.ia32_sbb_imm32(3, 6, 0x1000);       add("sbb esi, 0x1000");
  w.ia32_sub_imm32(3, 4, 0x100);        add("sub esp, 0x100");
  w.ia32_add_imm8_se(3, 2, -5);         add("add edx, -5");
  w.ia32_and_imm8_se(3, 1, 1);          add("and ecx, 1");
  w.ia32_cmp_imm8_se(3, 7, 0);          add("cmp edi, 0");
  w.ia32_sub_imm8_se(3, 4, 16);         add("sub esp, 16");
  w.ia32_cmp_imm8(3, 1, 7);             add("cmp cl, 7");
  w.ia32_mov_imm32(3, 0x12345678);      add("mov ebx, 0x12345678");
  w.ia32_push(5);                       add("push ebp");
  w.ia32_pop(7);                        add("pop edi");
  w.ia32_push(1, 5, 8);                 add("{disp8} push DWORD PTR [ebp+8]");
  w.ia32_pop(2, 0, 0x100);              add("{disp32} pop DWORD PTR [eax+0x100]");
  w.ia32_push_imm32(0x12345678);        add("push 0x12345678");
  w.ia32_sal_cl(3, 1);                  add("sal ecx, cl");
  w.ia32_sar_cl(3, 2);                  add("sar edx, cl");
  w.ia32_sal_imm8(3, 3, 5);             add("sal ebx, 5");
  w.ia32_sar_imm8(3, 6, 31);            add("sar esi, 31");
  w.ia32_jmp_rel(0x100);                add("{disp32} jmp .+5+0x100");
  w.ia32_je(-0x20);                     add("{disp32} je .+6-0x20");
  w.ia32_jne(8);                        add("{disp32} jne .+6+8");
  w.ia32_jb(0x1000);                    add("{disp32} jb .+6+0x1000");
  w.ia32_jl(2);                         add("{disp32} jl .+6+2");
  w.ia32_jle(-2);                       add("{disp32} jle .+6-2");
  w.ia32_jg(4);                         add("{disp32} jg .+6+4");
  w.ia32_jge(-4);                       add("{disp32} jge .+6-4");
  w.ia32_ja(0x80);                      add("{disp32} ja .+6+0x80");
  w.ia32_jae(-0x80);                    add("{disp32} jae .+6-0x80");
  w.ia32_jbe(6);                        add("{disp32} jbe .+6+6");
  w.ia32_jns(0x200);                    add("{disp32} jns .+6+0x200");
  w.ia32_cvtsi2sd(3, 1, 2);             add("cvtsi2sd xmm1, edx");
  w.ia32_ucomisd(3, 0, 7);              add("ucomisd xmm0, xmm7");
  w.ia32_call_disp32(0x100);            add("call .+5+0x100");
  w.ia32_jmp_abs(1, 5, 8);              add("{disp8} jmp DWORD PTR [ebp+8]");
  w.ia32_loop(-10);                     add("loop .+2-10");
  w.ia32_bswap(3);                      add("bswap ebx");
  w.ia32_dec(1);                        add("dec ecx");
  w.ia32_xchg(2);                       add("xchg edx, eax");
  w.ia32_xchg_swap8(0);                 add("xchg al, ah");
  w.ia32_or_imm16(0, 4, 0, 0, 4, 0x1234);  add("or WORD PTR [esp+eax*1], 0x1234");
  std::string error;
  std::vector<Bytes> reference = AssembleLines(texts, &error);
  ASSERT_EQ(texts.size(), reference.size()) << error;
  for (size_t i = 0; i < texts.size(); i++)
    EXPECT_EQ(HexBytes(reference[i]), HexBytes(written[i])) << texts[i];
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
  three.ia32_Write16(2);  // exactly the room left
  EXPECT_EQ(3u, three.Length());
  EXPECT_ASSERTION(three.ia32_Write8(4), "IA32OpWriter buffer full");
  IA32OpBufWriter two(3);
  two.ia32_Write16(1);
  EXPECT_ASSERTION(two.ia32_Write16(2), "IA32OpWriter buffer full");
  IA32OpBufWriter fresh(3);
  EXPECT_ASSERTION(fresh.ia32_Write32(0), "IA32OpWriter buffer full");
}
