#include "PowerPCLoader/CallBridges.h"

#include <vector>

namespace ppcloader {
namespace {

enum {
  kR0 = 0,
  kSP = 1,
  kR12 = 12,
  kFirstGPR = 3,
  kLastGPR = 10,
  kLastSysVFPR = 8,
  kLastOwnFPR = 13,
  kOwnArgumentArea = 24,      // in the generated caller's frame
  kOwnSavedLink = 8,
  kSysVArgumentArea = 8,      // in the bridge's frame
  kArgumentRegisterWords = 8,
  kFloatFlagBit = 6,
};

// The layout being built: next System V register and stack offset.
struct Layout {
  int gpr = kFirstGPR;
  int fpr = 1;
  int stack = kSysVArgumentArea;
  bool floatsInRegisters = false;
};

class BridgeWriter {
 public:
  BridgeWriter(PPCOpWriter& w, int frame, int saveArea, int copyArea)
      : w(w), mFrame(frame), mSaveArea(saveArea), mCopyArea(copyArea) {}

  // Word `word` of the generated side into register `reg`.
  void LoadWord(int reg, unsigned long word) {
    if (word < kArgumentRegisterWords)
      w.ppc_lwz(reg, mSaveArea + 4 * static_cast<int>(word), kSP);
    else
      w.ppc_lwz(reg, mFrame + kOwnArgumentArea + 4 * static_cast<int>(word), kSP);
  }

  void PassWord(unsigned long word, Layout& out) {
    if (out.gpr <= kLastGPR) {
      LoadWord(out.gpr++, word);
    } else {
      LoadWord(kR0, word);
      w.ppc_stw(kR0, out.stack, kSP);
      out.stack += 4;
    }
  }

  void PassPair(unsigned long word, Layout& out) {
    if ((out.gpr - kFirstGPR) % 2) out.gpr++;
    if (out.gpr + 1 <= kLastGPR) {
      LoadWord(out.gpr++, word);
      LoadWord(out.gpr++, word + 1);
      return;
    }
    out.gpr = kLastGPR + 1;
    out.stack = (out.stack + 7) & ~7;
    for (int k = 0; k < 2; k++) {
      LoadWord(kR0, word + k);
      w.ppc_stw(kR0, out.stack, kSP);
      out.stack += 4;
    }
  }

  // The k-th float: in f(k+1) on both sides while both have registers.
  void PassFloat(unsigned long word, unsigned long k, bool single,
                 Layout& out) {
    int source = 1 + static_cast<int>(k);
    if (source > kLastOwnFPR) {
      source = 0;
      int at = mFrame + kOwnArgumentArea + 4 * static_cast<int>(word);
      if (single)
        w.ppc_lfs(source, at, kSP);
      else
        w.ppc_lfd(source, at, kSP);
    }
    if (out.fpr <= kLastSysVFPR) {
      if (source != out.fpr) w.ppc_fmr(out.fpr, source);
      out.fpr++;
      out.floatsInRegisters = true;
      return;
    }
    out.stack = (out.stack + 7) & ~7;
    w.ppc_stfd(source, out.stack, kSP);
    out.stack += 8;
  }

  // A structure's words are copied into the bridge's frame and passed by
  // reference.
  void PassStructure(unsigned long word, unsigned long words, Layout& out) {
    for (unsigned long k = 0; k < words; k++) {
      LoadWord(kR0, word + k);
      w.ppc_stw(kR0, mCopyArea + 4 * static_cast<int>(k + mCopied), kSP);
    }
    int address = out.gpr <= kLastGPR ? out.gpr++ : kR12;
    w.ppc_addi(address, kSP, mCopyArea + 4 * static_cast<int>(mCopied));
    if (address == kR12) {
      w.ppc_stw(kR12, out.stack, kSP);
      out.stack += 4;
    }
    mCopied += words;
  }

 private:
  PPCOpWriter& w;
  int mFrame;
  int mSaveArea;
  int mCopyArea;
  unsigned long mCopied = 0;
};

// One letter per argument; a structure is "s", its size and ".".
struct Argument {
  char kind;
  unsigned long words;
};

bool ParseShape(std::string const& shape, bool* varargs,
                std::vector<Argument>* arguments) {
  size_t i = 0;
  *varargs = !shape.empty() && shape[0] == 'v';
  if (*varargs) i++;
  while (i < shape.size()) {
    char kind = shape[i++];
    if (kind == 'w' || kind == 'f') {
      arguments->push_back({kind, 1});
    } else if (kind == 'l' || kind == 'd') {
      arguments->push_back({kind, 2});
    } else if (kind == 's') {
      size_t dot = shape.find('.', i);
      if (dot == std::string::npos) return false;
      unsigned long bytes = std::stoul(shape.substr(i, dot - i));
      arguments->push_back({kind, (bytes + 3) / 4});
      i = dot + 1;
    } else {
      return false;
    }
  }
  return true;
}

}  // namespace

// With `throughR12` the target is not known but comes in r12.
static bool WriteBridge(PPCOpWriter& w, unsigned long target, bool throughR12,
                        std::string const& shape) {
  bool varargs;
  std::vector<Argument> arguments;
  if (!ParseShape(shape, &varargs, &arguments)) return false;
  unsigned long words = 0, structWords = 0;
  for (Argument const& a : arguments) {
    words += a.words;
    if (a.kind == 's') structWords += a.words;
  }
  // Outgoing area (at most every word, 8-aligned twice over), the saved
  // argument registers, the structure copies.
  int outgoing = static_cast<int>(8 * words + 16);
  int saveArea = kSysVArgumentArea + outgoing;
  int copyArea = saveArea + 4 * kArgumentRegisterWords + 4;
  int savedTarget = copyArea - 4;
  int frame = (copyArea + 4 * static_cast<int>(structWords) + 15) & ~15;

  w.ppc_mflr(kR0);
  w.ppc_stw(kR0, kOwnSavedLink, kSP);
  w.ppc_stwu(kSP, -frame, kSP);
  // The C callee keeps its return address at 4, so the word at 8, where
  // the raiser looks for one, would still hold whatever an earlier frame
  // at this address left there: often a return address into a script
  // function that has since returned, whose handler would then take the
  // exception in a frame that no longer exists.
  w.ppc_li(kR0, 0);
  w.ppc_stw(kR0, kOwnSavedLink, kSP);
  for (int reg = kFirstGPR; reg <= kLastGPR; reg++)
    w.ppc_stw(reg, saveArea + 4 * (reg - kFirstGPR), kSP);
  if (throughR12) w.ppc_stw(kR12, savedTarget, kSP);
  BridgeWriter bridge(w, frame, saveArea, copyArea);
  Layout out;
  unsigned long word = 0, floats = 0;
  for (Argument const& a : arguments) {
    if (a.kind == 'w')
      bridge.PassWord(word, out);
    else if (a.kind == 'l')
      bridge.PassPair(word, out);
    else if (a.kind == 's')
      bridge.PassStructure(word, a.words, out);
    else
      bridge.PassFloat(word, floats++, a.kind == 'f', out);
    word += a.words;
  }
  if (throughR12) {
    w.ppc_lwz(kR12, savedTarget, kSP);
  } else {
    w.ppc_lis(kR12, static_cast<int>(target >> 16));
    w.ppc_ori(kR12, kR12, static_cast<int>(target & 0xffff));
  }
  w.ppc_mtctr(kR12);
  if (out.floatsInRegisters)
    w.ppc_creqv(kFloatFlagBit, kFloatFlagBit, kFloatFlagBit);
  else
    w.ppc_crxor(kFloatFlagBit, kFloatFlagBit, kFloatFlagBit);
  w.ppc_bctrl();
  w.ppc_addi(kSP, kSP, frame);
  w.ppc_lwz(kR0, kOwnSavedLink, kSP);
  w.ppc_mtlr(kR0);
  w.ppc_blr();
  return true;
}

bool WriteCallBridge(PPCOpWriter& w, unsigned long target,
                     std::string const& shape) {
  return WriteBridge(w, target, false, shape);
}

// Where an entry thunk keeps the halves of its entry: its "lis r12" and
// "ori r12, r12" (see WriteEntryThunk).
enum { kThunkEntryHigh = 16, kThunkEntryLow = 20 };

// Condition field 0 is free to use: it is volatile across calls. The
// caller's return address goes where the raiser looks for it. A pointer to
// an entry thunk (behind the code, before `stubEnd`) is followed to the
// entry itself: the thunk would return by the word at 4, where the raiser
// does not redirect a return, and would hide arguments on the stack.
bool WritePointerCallGlue(PPCOpWriter& w, unsigned long codeStart,
                          unsigned long codeEnd, unsigned long stubEnd,
                          std::string const& shape) {
  w.ppc_mflr(kR0);
  w.ppc_stw(kR0, kOwnSavedLink, kSP);
  w.ppc_lis(kR0, static_cast<int>(codeStart >> 16));
  w.ppc_ori(kR0, kR0, static_cast<int>(codeStart & 0xffff));
  w.ppc_cmpl(0, kR12, kR0);
  w.ppc_bc(kBranchIfTrue, kConditionLT, 72);  // to the bridge
  w.ppc_lis(kR0, static_cast<int>(codeEnd >> 16));
  w.ppc_ori(kR0, kR0, static_cast<int>(codeEnd & 0xffff));
  w.ppc_cmpl(0, kR12, kR0);
  w.ppc_bc(kBranchIfFalse, kConditionLT, 12);  // to the thunk test
  w.ppc_mtctr(kR12);
  w.ppc_bctr();
  w.ppc_lis(kR0, static_cast<int>(stubEnd >> 16));
  w.ppc_ori(kR0, kR0, static_cast<int>(stubEnd & 0xffff));
  w.ppc_cmpl(0, kR12, kR0);
  w.ppc_bc(kBranchIfFalse, kConditionLT, 32);  // to the bridge
  w.ppc_lwz(kR0, kThunkEntryHigh, kR12);
  w.ppc_rlwinm(kR0, kR0, 16, 0, 15);
  w.ppc_lwz(kR12, kThunkEntryLow, kR12);
  w.ppc_rlwinm(kR12, kR12, 0, 16, 31);
  w.ppc_or(kR12, kR0, kR12);
  w.ppc_mtctr(kR12);
  w.ppc_bctr();
  return WriteBridge(w, 0, true, shape);
}

enum { kEntryThunkFrame = 64, kSysVSavedLink = 4, kSavedBase = 20 };

void WriteEntryThunk(PPCOpWriter& w, unsigned long entry) {
  w.ppc_mflr(kR0);
  w.ppc_stw(kR0, kSysVSavedLink, kSP);
  w.ppc_stwu(kSP, -kEntryThunkFrame, kSP);
  w.ppc_stw(2, kSavedBase, kSP);
  w.ppc_lis(kR12, static_cast<int>(entry >> 16));
  w.ppc_ori(kR12, kR12, static_cast<int>(entry & 0xffff));
  w.ppc_mtctr(kR12);
  w.ppc_bctrl();
  w.ppc_lwz(kR0, kEntryThunkFrame + kSysVSavedLink, kSP);
  w.ppc_mtlr(kR0);
  w.ppc_addi(kSP, kSP, kEntryThunkFrame);
  w.ppc_blr();
}

// The frame is large enough for the callee's linkage area and argument
// area; r2 is kept where generated code reloads it from.
asm(R"(
  .text
  .globl CallGeneratedCode
  .type CallGeneratedCode, @function
CallGeneratedCode:
  mflr 0
  stw 0, 4(1)
  stwu 1, -96(1)
  stw 2, 20(1)
  mtctr 3
  bctrl
  lwz 0, 100(1)
  mtlr 0
  addi 1, 1, 96
  blr
  .size CallGeneratedCode, .-CallGeneratedCode
)");

}  // namespace ppcloader
