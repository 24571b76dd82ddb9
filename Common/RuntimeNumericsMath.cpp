// The math wrappers of the script library. Most hand the value to the C
// library; the inverse cosine and sine check their domain first, so that an
// argument outside it gives NaN without raising the C library's error.
#include <math.h>

#include "Common/RuntimeNumerics.h"

namespace {

// NaN fails both comparisons and so counts as outside.
bool InUnitRange(double x) { return x >= -1 && x <= 1; }

}  // namespace

double NaN() { return nan(""); }

double RuntimeACos(double x) { return InUnitRange(x) ? acos(x) : NaN(); }
double RuntimeASin(double x) { return InUnitRange(x) ? asin(x) : NaN(); }
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

double RuntimeAbs(double x) { return x < 0 ? -x : x; }

double RuntimeSign(double x) {
  if (x < 0) return -1;
  return x > 0 ? 1 : 0;
}
