// Every instruction the PowerPC writer offers, checked word for word
// against the cross assembler on the same instruction. Registers and
// immediates are chosen so that every field holds a distinct, non-zero
// value, and negative displacements show that they are masked, not
// sign-smeared into the neighbouring fields.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Compiler/BackEnds/PowerPC/PPCOpWriter.h"
#include "tests/Compiler/BackEnds/PowerPC/PPCReferenceAssembler.h"
#include "tests/Compiler/CompilerTestSupport.h"

namespace {

class Recorder : public PPCOpBufWriter {
 public:
  Recorder() : PPCOpBufWriter(4) {}
  unsigned long Take() {
    unsigned long word = Get32(0);
    Reset();
    return word;
  }
};

}  // namespace

TEST(PPCOpWriterTest, EveryInstructionMatchesTheAssembler) {
  Recorder w;
  std::vector<std::string> texts;
  Words written;
  auto add = [&](std::string const& text) {
    texts.push_back(text);
    written.push_back(w.Take());
  };
  // D form
  w.ppc_lbz(5, -8, 6);           add("lbz 5, -8(6)");
  w.ppc_lhz(7, 0x7ffe, 1);       add("lhz 7, 0x7ffe(1)");
  w.ppc_lwz(31, -32768, 30);     add("lwz 31, -32768(30)");
  w.ppc_lfd(14, 24, 1);          add("lfd 14, 24(1)");
  w.ppc_lfs(2, -4, 9);           add("lfs 2, -4(9)");
  w.ppc_lmw(13, -76, 1);         add("lmw 13, -76(1)");
  w.ppc_stb(3, 1, 4);            add("stb 3, 1(4)");
  w.ppc_sth(10, -2, 11);         add("sth 10, -2(11)");
  w.ppc_stw(0, 8, 1);            add("stw 0, 8(1)");
  w.ppc_stwu(1, -96, 1);         add("stwu 1, -96(1)");
  w.ppc_stfd(31, -8, 12);        add("stfd 31, -8(12)");
  w.ppc_stfs(1, 16, 5);          add("stfs 1, 16(5)");
  w.ppc_stmw(20, -48, 1);        add("stmw 20, -48(1)");
  w.ppc_la(4, 56, 1);            add("la 4, 56(1)");
  w.ppc_addi(3, 4, -1);          add("addi 3, 4, -1");
  w.ppc_addis(5, 6, 0x1234);     add("addis 5, 6, 0x1234");
  w.ppc_mulli(7, 8, -3);         add("mulli 7, 8, -3");
  w.ppc_subfic(9, 10, 0);        add("subfic 9, 10, 0");
  w.ppc_cmpwi(1, 4, -7);         add("cmpwi 1, 4, -7");
  w.ppc_li(11, -300);            add("li 11, -300");
  w.ppc_lis(12, -2);             add("lis 12, -2");
  w.ppc_ori(3, 4, 0xffff);       add("ori 3, 4, 0xffff");
  w.ppc_oris(5, 6, 0x8000);      add("oris 5, 6, 0x8000");
  w.ppc_xori(7, 8, 1);           add("xori 7, 8, 1");
  w.ppc_xoris(9, 10, 0x4321);    add("xoris 9, 10, 0x4321");
  w.ppc_noop();                  add("nop");
  // X form
  w.ppc_and(3, 4, 5);            add("and 3, 4, 5");
  w.ppc_or(6, 7, 8);             add("or 6, 7, 8");
  w.ppc_or_rc(9, 10, 11);        add("or. 9, 10, 11");
  w.ppc_xor(12, 13, 14);         add("xor 12, 13, 14");
  w.ppc_slw(3, 4, 5);            add("slw 3, 4, 5");
  w.ppc_srw(6, 7, 8);            add("srw 6, 7, 8");
  w.ppc_sraw(9, 10, 11);         add("sraw 9, 10, 11");
  w.ppc_srawi(3, 4, 31);         add("srawi 3, 4, 31");
  w.ppc_mr(5, 6);                add("mr 5, 6");
  w.ppc_extsb(7, 8);             add("extsb 7, 8");
  w.ppc_extsh(9, 10);            add("extsh 9, 10");
  w.ppc_cntlzw(11, 12);          add("cntlzw 11, 12");
  w.ppc_cmpw(1, 3, 4);           add("cmpw 1, 3, 4");
  w.ppc_cmpl(7, 5, 6);           add("cmplw 7, 5, 6");
  w.ppc_fcmpu(1, 2, 3);          add("fcmpu 1, 2, 3");
  w.ppc_fcmpo(6, 4, 5);          add("fcmpo 6, 4, 5");
  w.ppc_mflr(0);                 add("mflr 0");
  w.ppc_mtlr(12);                add("mtlr 12");
  w.ppc_mtctr(11);               add("mtctr 11");
  w.ppc_mfcr(3);                 add("mfcr 3");
  w.ppc_mtcr(4);                 add("mtcr 4");
  w.ppc_lbzx(3, 4, 5);           add("lbzx 3, 4, 5");
  w.ppc_lhzx(6, 7, 8);           add("lhzx 6, 7, 8");
  w.ppc_lwzx(9, 10, 11);         add("lwzx 9, 10, 11");
  w.ppc_lwzux(12, 13, 14);       add("lwzux 12, 13, 14");
  w.ppc_lhbrx(3, 4, 5);          add("lhbrx 3, 4, 5");
  w.ppc_lwbrx(6, 7, 8);          add("lwbrx 6, 7, 8");
  w.ppc_lfdx(1, 4, 5);           add("lfdx 1, 4, 5");
  w.ppc_lfsx(2, 6, 7);           add("lfsx 2, 6, 7");
  w.ppc_stbx(3, 4, 5);           add("stbx 3, 4, 5");
  w.ppc_sthx(6, 7, 8);           add("sthx 6, 7, 8");
  w.ppc_stwx(9, 10, 11);         add("stwx 9, 10, 11");
  w.ppc_stwux(1, 1, 12);         add("stwux 1, 1, 12");
  w.ppc_stfdx(13, 3, 4);         add("stfdx 13, 3, 4");
  w.ppc_stfsx(14, 5, 6);         add("stfsx 14, 5, 6");
  w.ppc_tw(4, 3, 5);             add("tw 4, 3, 5");
  w.ppc_trap();                  add("trap");
  w.ppc_fctiw(1, 2);             add("fctiw 1, 2");
  w.ppc_fctiwz(3, 4);            add("fctiwz 3, 4");
  w.ppc_fmr(5, 6);               add("fmr 5, 6");
  w.ppc_fneg(7, 8);              add("fneg 7, 8");
  w.ppc_frsp(9, 10);             add("frsp 9, 10");
  // XO form
  w.ppc_add(3, 4, 5);            add("add 3, 4, 5");
  w.ppc_addc(6, 7, 8);           add("addc 6, 7, 8");
  w.ppc_adde(9, 10, 11);         add("adde 9, 10, 11");
  w.ppc_subf(12, 13, 14);        add("subf 12, 13, 14");
  w.ppc_subfc(3, 4, 5);          add("subfc 3, 4, 5");
  w.ppc_subfe(6, 7, 8);          add("subfe 6, 7, 8");
  w.ppc_subfze(9, 10);           add("subfze 9, 10");
  w.ppc_neg(11, 12);             add("neg 11, 12");
  w.ppc_mullw(3, 4, 5);          add("mullw 3, 4, 5");
  w.ppc_mulhwu(6, 7, 8);         add("mulhwu 6, 7, 8");
  w.ppc_divw(9, 10, 11);         add("divw 9, 10, 11");
  w.ppc_divwu(12, 13, 14);       add("divwu 12, 13, 14");
  // M form
  w.ppc_rlwinm(3, 4, 5, 6, 7);   add("rlwinm 3, 4, 5, 6, 7");
  w.ppc_slwi(8, 9, 3);           add("slwi 8, 9, 3");
  w.ppc_srwi(10, 11, 31);        add("srwi 10, 11, 31");
  w.ppc_clrrwi(12, 13, 2);       add("clrrwi 12, 13, 2");
  // A form
  w.ppc_fadd(1, 2, 3);           add("fadd 1, 2, 3");
  w.ppc_fsub(4, 5, 6);           add("fsub 4, 5, 6");
  w.ppc_fmul(7, 8, 9);           add("fmul 7, 8, 9");
  w.ppc_fdiv(10, 11, 12);        add("fdiv 10, 11, 12");
  w.ppc_fsel(13, 14, 15, 16);    add("fsel 13, 14, 15, 16");
  // branches
  w.ppc_bc(kBranchIfTrue, 6, 0x7ffc);   add("bc 12, 6, .+0x7ffc");
  w.ppc_bc(kBranchIfFalse, 2, -8);      add("bc 4, 2, .-8");
  w.ppc_bdnz(-0x8000);                  add("bdnz .-0x8000");
  w.ppc_b(0x1fffffc);                   add("b .+0x1fffffc");
  w.ppc_b(-0x2000000);                  add("b .-0x2000000");
  w.ppc_ba(0x100);                      add("ba 0x100");
  w.ppc_bl(16);                         add("bl .+16");
  w.ppc_bla(0x2000);                    add("bla 0x2000");
  w.ppc_blr();                          add("blr");
  w.ppc_bctr();                         add("bctr");
  w.ppc_bctrl();                        add("bctrl");
  w.ppc_bcctr(kBranchIfTrue, 0);        add("bcctr 12, 0");
  w.ppc_bcctrl(kBranchIfFalse, 5);      add("bcctrl 4, 5");
  w.ppc_crxor(6, 6, 6);                 add("crxor 6, 6, 6");
  w.ppc_creqv(6, 7, 8);                 add("creqv 6, 7, 8");
  std::string error;
  Words reference = AssemblePPC(texts, &error);
  ASSERT_EQ(texts.size(), reference.size()) << error;
  for (size_t i = 0; i < texts.size(); i++)
    EXPECT_EQ(HexWord(reference[i]), HexWord(written[i])) << texts[i];
}

// The disassembler reads the words back as the instructions meant: the
// sign of a displacement and the byte order survive the round trip.
TEST(PPCOpWriterTest, TheDisassemblerReadsTheWordsBack) {
  Recorder w;
  Words written;
  w.ppc_stwu(1, -64, 1);  written.push_back(w.Take());
  w.ppc_lwz(2, 20, 1);    written.push_back(w.Take());
  w.ppc_blr();            written.push_back(w.Take());
  std::vector<std::string> lines = DisassemblePPC(written);
  ASSERT_EQ(3u, lines.size());
  EXPECT_EQ("stwu r1,-64(r1)", lines[0]);
  EXPECT_EQ("lwz r2,20(r1)", lines[1]);
  EXPECT_EQ("blr", lines[2]);
}

TEST(PPCOpWriterTest, BufferAndFieldFaultsAreAssertions) {
  Recorder w;
  EXPECT_ASSERTION(w.ppc_slwi(3, 3, 32), "");
  EXPECT_ASSERTION(w.Get32(0), "");  // nothing written yet
  w.ppc_noop();
  EXPECT_ASSERTION(w.ppc_noop(), "PPCOpWriter buffer full");
  PPCOpBufWriter two(8);
  two.ppc_noop();
  two.ppc_noop();
  two.Set32(4, 0x12345678);
  EXPECT_EQ(0x12345678ul, two.Get32(4));
  EXPECT_EQ(0x12, two.Buffer()[4]);  // big-endian on any host
  EXPECT_ASSERTION(two.Get32(8), "");
}
