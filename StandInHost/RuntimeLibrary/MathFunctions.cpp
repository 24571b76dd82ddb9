// The math wrappers of the script library and the 64-bit bitwise forms.
//
// Sign is declared to give a Double, so the C entry returns one: -1, 1, or 0
// for zero and NaN. ACos and ASin give NaN outside -1..1 instead of
// touching the C library's error state; Abs leaves -0.0 and NaN as they are.
// Round takes halves away from zero.
#include <math.h>

#include "StandInHost/RuntimeLibrary/LibraryEntries.h"

namespace quorl {
namespace standin {
namespace library {
namespace {

double RuntimeAbs(double x) { return x < 0 ? -x : x; }

double RuntimeACos(double x) {
  return x >= -1 && x <= 1 ? acos(x) : nan("");
}

double RuntimeASin(double x) {
  return x >= -1 && x <= 1 ? asin(x) : nan("");
}

double RuntimeATan(double x) { return atan(x); }
double RuntimeATan2(double a, double b) { return atan2(a, b); }
double RuntimeCos(double x) { return cos(x); }
double RuntimeSin(double x) { return sin(x); }
double RuntimeTan(double x) { return tan(x); }
double RuntimeExp(double x) { return exp(x); }
double RuntimeLog(double x) { return log(x); }
double RuntimePow(double a, double b) { return pow(a, b); }
double RuntimeSqrt(double x) { return sqrt(x); }
double RuntimeCeil(double x) { return ceil(x); }
double RuntimeFloor(double x) { return floor(x); }
double RuntimeRound(double x) { return round(x); }

double RuntimeSign(double x) {
  if (x < 0) return -1;
  return x > 0 ? 1 : 0;
}

unsigned long long BitwiseAnd(unsigned long long a, unsigned long long b) {
  return a & b;
}

unsigned long long BitwiseOr(unsigned long long a, unsigned long long b) {
  return a | b;
}

unsigned long long BitwiseXor(unsigned long long a, unsigned long long b) {
  return a ^ b;
}

}  // namespace

LibraryEntries MathEntries() {
  return {
      Entry("RuntimeAbs", &RuntimeAbs),     Entry("RuntimeACos", &RuntimeACos),
      Entry("RuntimeASin", &RuntimeASin),   Entry("RuntimeATan", &RuntimeATan),
      Entry("RuntimeATan2", &RuntimeATan2), Entry("RuntimeCos", &RuntimeCos),
      Entry("RuntimeSin", &RuntimeSin),     Entry("RuntimeTan", &RuntimeTan),
      Entry("RuntimeExp", &RuntimeExp),     Entry("RuntimeLog", &RuntimeLog),
      Entry("RuntimePow", &RuntimePow),     Entry("RuntimeSqrt", &RuntimeSqrt),
      Entry("RuntimeCeil", &RuntimeCeil),   Entry("RuntimeFloor", &RuntimeFloor),
      Entry("RuntimeRound", &RuntimeRound), Entry("RuntimeSign", &RuntimeSign),
      Entry("BitwiseAnd", &BitwiseAnd),     Entry("BitwiseOr", &BitwiseOr),
      Entry("BitwiseXor", &BitwiseXor),
  };
}

}  // namespace library
}  // namespace standin
}  // namespace quorl
