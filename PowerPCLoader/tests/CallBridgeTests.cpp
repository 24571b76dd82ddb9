// The call bridges on the target: a caller written in the generated frame
// convention (with the instruction writer, as the generator writes) passes
// arguments of each shape through a bridge to a C function, which records
// what it received. Run under qemu-ppc by scripts/test-ppc.
#include <stdarg.h>
#include <stdio.h>
#include <string.h>
#include <sys/mman.h>

#include <functional>
#include <string>
#include <vector>

#include "PowerPCLoader/CallBridges.h"

namespace {

using namespace ppcloader;

// What a callee saw.
long long gWords[16];
double gDoubles[16];
int gFailures;

struct Triple {
  int x, y, z;
};

extern "C" {
int WordAndPair(int a, long long b) {
  gWords[0] = a;
  gWords[1] = b;
  return a + 1;
}
int ByValue(Triple t, int after) {
  gWords[0] = t.x;
  gWords[1] = t.y;
  gWords[2] = t.z;
  gWords[3] = after;
  return 5;
}
int TenWords(int a, int b, int c, int d, int e, int f, int g, int h, int i,
             int j) {
  int all[] = {a, b, c, d, e, f, g, h, i, j};
  for (int k = 0; k < 10; k++) gWords[k] = all[k];
  return 10;
}
int Counted(int count, ...) {
  va_list list;
  va_start(list, count);
  for (int k = 0; k < count; k++) gWords[k] = va_arg(list, int);
  va_end(list);
  return count;
}
double TenDoubles(double a, double b, double c, double d, double e, double f,
                  double g, double h, double i, int word, double j) {
  double all[] = {a, b, c, d, e, f, g, h, i, j};
  for (int k = 0; k < 10; k++) gDoubles[k] = all[k];
  gWords[0] = word;
  return a + j;
}
}

class Writer : public PPCOpWriter {
 public:
  explicit Writer(unsigned char* at) : mAt(at) {}
  void ppc_Write32(unsigned long word) override {
    mAt[0] = word >> 24;
    mAt[1] = word >> 16;
    mAt[2] = word >> 8;
    mAt[3] = word;
    mAt += 4;
  }
  unsigned char* mAt;
};

// One argument word or float as the generated caller places it.
struct Argument {
  bool isDouble;
  unsigned long word;
  double value;
};

unsigned char* sMemory;
unsigned long sResultWord;
double sResultDouble;

enum { kFrame = 256, kArgumentArea = 24 };

enum { kBridgeAt = 4096, kGeneratedAt = 5120, kThunkAt = 6144, kMemory = 8192 };

void LoadAddress(Writer& w, int reg, void const* address) {
  unsigned long value = reinterpret_cast<unsigned long>(address);
  w.ppc_lis(reg, static_cast<int>(value >> 16));
  w.ppc_ori(reg, reg, static_cast<int>(value & 0xffff));
}

// Writes a caller in the generated convention that calls what `writeCallee`
// put at kBridgeAt (with `pointer` in r12), runs the caller, and leaves r3
// and f1 in sResultWord and sResultDouble.
void CallThrough(std::function<bool(Writer&)> const& writeCallee,
                 void const* pointer, std::string const& shape,
                 std::vector<Argument> const& arguments) {
  Writer b(sMemory + kBridgeAt);
  if (!writeCallee(b)) {
    printf("FAIL %s: no bridge\n", shape.c_str());
    gFailures++;
    return;
  }
  Writer w(sMemory);
  w.ppc_mflr(0);
  w.ppc_stw(0, 8, 1);
  w.ppc_stwu(1, -kFrame, 1);
  int word = 0, floats = 0;
  for (Argument const& a : arguments) {
    if (a.isDouble) {
      unsigned long long bits;
      memcpy(&bits, &a.value, sizeof bits);
      for (int half = 0; half < 2; half++) {
        unsigned long part = half ? bits & 0xffffffff : bits >> 32;
        w.ppc_lis(0, part >> 16);
        w.ppc_ori(0, 0, part & 0xffff);
        w.ppc_stw(0, kArgumentArea + 4 * (word + half), 1);
      }
      if (floats < 13) w.ppc_lfd(1 + floats, kArgumentArea + 4 * word, 1);
      floats++;
      word += 2;
      continue;
    }
    int reg = word < 8 ? 3 + word : 0;
    w.ppc_lis(reg, a.word >> 16);
    w.ppc_ori(reg, reg, a.word & 0xffff);
    if (word >= 8) w.ppc_stw(0, kArgumentArea + 4 * word, 1);
    word++;
  }
  LoadAddress(w, 12, pointer);
  w.ppc_bl(static_cast<int>(sMemory + kBridgeAt - w.mAt));
  LoadAddress(w, 5, &sResultWord);
  w.ppc_stw(3, 0, 5);
  LoadAddress(w, 5, &sResultDouble);
  w.ppc_stfd(1, 0, 5);
  w.ppc_addi(1, 1, kFrame);
  w.ppc_lwz(0, 8, 1);
  w.ppc_mtlr(0);
  w.ppc_blr();
  __builtin___clear_cache(reinterpret_cast<char*>(sMemory),
                          reinterpret_cast<char*>(sMemory + kMemory));
  memset(gWords, 0, sizeof gWords);
  memset(gDoubles, 0, sizeof gDoubles);
  CallGeneratedCode(sMemory);
}

void CallThroughBridge(void* function, std::string const& shape,
                       std::vector<Argument> const& arguments) {
  CallThrough(
      [&](Writer& b) {
        return WriteCallBridge(b, reinterpret_cast<unsigned long>(function),
                               shape);
      },
      nullptr, shape, arguments);
}

// A generated function that records its argument registers r3 to r7 and
// f1, behind an entry thunk, called through the glue of pointer calls.
unsigned long gRegisters[5];

void CallGeneratedThroughThunk(std::string const& shape,
                               std::vector<Argument> const& arguments) {
  Writer g(sMemory + kGeneratedAt);
  LoadAddress(g, 11, gRegisters);
  for (int reg = 3; reg <= 7; reg++) g.ppc_stw(reg, 4 * (reg - 3), 11);
  LoadAddress(g, 11, gDoubles);
  g.ppc_stfd(1, 0, 11);
  g.ppc_blr();
  Writer t(sMemory + kThunkAt);
  WriteEntryThunk(t, reinterpret_cast<unsigned long>(sMemory + kGeneratedAt));
  memset(gRegisters, 0, sizeof gRegisters);
  CallThrough(
      [&](Writer& b) {
        return WritePointerCallGlue(
            b, reinterpret_cast<unsigned long>(sMemory + kGeneratedAt),
            reinterpret_cast<unsigned long>(sMemory + kThunkAt),
            reinterpret_cast<unsigned long>(sMemory + kMemory), shape);
      },
      sMemory + kThunkAt, shape, arguments);
}

void Expect(bool condition, std::string const& what) {
  if (condition) return;
  printf("FAIL %s\n", what.c_str());
  gFailures++;
}

Argument W(unsigned long word) { return {false, word, 0}; }
Argument D(double value) { return {true, 0, value}; }

}  // namespace

int main() {
  sMemory = static_cast<unsigned char*>(
      mmap(nullptr, kMemory, PROT_READ | PROT_WRITE | PROT_EXEC,
           MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
  // A 64-bit value after a word: r4:r5 here, an aligned pair r5:r6 there.
  CallThroughBridge((void*)&WordAndPair, "wl", {W(7), W(1), W(2)});
  Expect(gWords[0] == 7 && gWords[1] == 0x100000002ll && sResultWord == 8,
         "wl: a word and an aligned pair");
  // A structure's words are passed by reference on the other side.
  CallThroughBridge((void*)&ByValue, "s12.w", {W(11), W(12), W(13), W(14)});
  Expect(gWords[0] == 11 && gWords[1] == 12 && gWords[2] == 13 &&
             gWords[3] == 14 && sResultWord == 5,
         "s12.w: a structure by value");
  // Words past the eighth come from the caller's argument area.
  std::vector<Argument> ten;
  for (int k = 1; k <= 10; k++) ten.push_back(W(k * 3));
  CallThroughBridge((void*)&TenWords, "wwwwwwwwww", ten);
  bool same = sResultWord == 10;
  for (int k = 0; k < 10; k++) same = same && gWords[k] == (k + 1) * 3;
  Expect(same, "wwwwwwwwww: words past the registers");
  // A variable argument list reads what the registers carried.
  CallThroughBridge((void*)&Counted, "vwwww", {W(3), W(40), W(50), W(60)});
  Expect(sResultWord == 3 && gWords[0] == 40 && gWords[1] == 50 &&
             gWords[2] == 60,
         "vwwww: a variable argument list");
  // Floats past the eighth go to the stack there; a word after nine
  // doubles is the nineteenth word here and the first register there.
  std::vector<Argument> doubles;
  for (int k = 1; k <= 9; k++) doubles.push_back(D(k + 0.5));
  doubles.push_back(W(77));
  doubles.push_back(D(10.5));
  CallThroughBridge((void*)&TenDoubles, "dddddddddwd", doubles);
  same = gWords[0] == 77 && sResultDouble == 1.5 + 10.5;
  for (int k = 0; k < 10; k++) same = same && gDoubles[k] == k + 1.5;
  Expect(same, "dddddddddwd: floats past the platform's eight");
  // A delegate's target is generated code behind its entry thunk: the
  // arguments stay as the generated convention placed them (the double's
  // words only count; it comes in f1).
  CallGeneratedThroughThunk("dwl", {D(1.5), W(7), W(1), W(2)});
  Expect(gRegisters[2] == 7 && gRegisters[3] == 1 && gRegisters[4] == 2 &&
             gDoubles[0] == 1.5,
         "dwl: through the glue to a generated function's thunk");
  printf("%s: %d failures\n", gFailures ? "FAIL" : "call bridges pass", gFailures);
  return gFailures ? 1 : 0;
}
