// The runtime functions that generated code in these tests calls, under
// their link names. The numeric ones follow the runtime's rules (truncation
// toward zero, Currency scaled by 10,000); the real runtime library serves
// the same names in the product.
#include <math.h>
#include <stdint.h>

#include <map>
#include <string>

#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "tests/Compiler/BackEnds/GeneratedCode.h"

namespace {

typedef long long i64;
typedef unsigned long long u64;

}  // namespace

std::map<std::string, void*>& TestRuntimeTable() {
#define QUORL_ENTRY(name, result, params, body) \
  {"Runtime" name, reinterpret_cast<void*>(+[] params -> result { return body; })},
  static std::map<std::string, void*> table = {
      QUORL_ENTRY("MulSInt64", i64, (i64 a, i64 b), (i64)((u64)a * (u64)b))
      QUORL_ENTRY("MulUInt64", u64, (u64 a, u64 b), a * b)
      QUORL_ENTRY("DivSInt64", i64, (i64 a, i64 b), b ? a / b : 0)
      QUORL_ENTRY("DivUInt64", u64, (u64 a, u64 b), b ? a / b : 0)
      QUORL_ENTRY("ModSInt64", i64, (i64 a, i64 b), b ? a % b : a)
      QUORL_ENTRY("ModUInt64", u64, (u64 a, u64 b), b ? a % b : a)
      QUORL_ENTRY("ShiftLeftInt64", i64, (i64 a, long n), (i64)((u64)a << n))
      QUORL_ENTRY("ShiftRightInt64", i64, (i64 a, long n), a >> n)
      QUORL_ENTRY("MulCurrency", i64, (i64 a, i64 b), a * b / 10000)
      QUORL_ENTRY("DivCurrency", i64, (i64 a, i64 b), b ? a * 10000 / b : 0)
      QUORL_ENTRY("CvtSInt32ToReal64", double, (int32_t v), v)
      QUORL_ENTRY("CvtUInt32ToReal64", double, (uint32_t v), (double)(u64)v)
      QUORL_ENTRY("CvtSInt64ToReal64", double, (i64 v), (double)v)
      QUORL_ENTRY("CvtUInt64ToReal64", double, (u64 v), (double)v)
      QUORL_ENTRY("CvtSInt32ToCurrency", i64, (int32_t v), (i64)v * 10000)
      QUORL_ENTRY("CvtUInt32ToCurrency", i64, (uint32_t v), (i64)v * 10000)
      QUORL_ENTRY("CvtSInt64ToCurrency", i64, (i64 v), (i64)((u64)v * 10000))
      QUORL_ENTRY("CvtUInt64ToCurrency", i64, (u64 v), (i64)(v * 10000))
      QUORL_ENTRY("CvtReal32ToSInt32", int32_t, (float v), (int32_t)v)
      QUORL_ENTRY("CvtReal32ToUInt32", uint32_t, (float v), (uint32_t)(i64)v)
      QUORL_ENTRY("CvtReal32ToSInt64", i64, (float v), (i64)v)
      QUORL_ENTRY("CvtReal32ToUInt64", u64, (float v), (u64)v)
      QUORL_ENTRY("CvtReal32ToCurrency", i64, (float v), (i64)round(v * 10000.0))
      QUORL_ENTRY("CvtReal64ToSInt32", int32_t, (double v), (int32_t)v)
      QUORL_ENTRY("CvtReal64ToUInt32", uint32_t, (double v), (uint32_t)(i64)v)
      QUORL_ENTRY("CvtReal64ToSInt64", i64, (double v), (i64)v)
      QUORL_ENTRY("CvtReal64ToUInt64", u64, (double v), (u64)v)
      QUORL_ENTRY("CvtReal64ToCurrency", i64, (double v), (i64)round(v * 10000.0))
      QUORL_ENTRY("CvtCurrencyToSInt32", int32_t, (i64 v), (int32_t)(v / 10000))
      QUORL_ENTRY("CvtCurrencyToUInt32", uint32_t, (i64 v), (uint32_t)(v / 10000))
      QUORL_ENTRY("CvtCurrencyToSInt64", i64, (i64 v), v / 10000)
      QUORL_ENTRY("CvtCurrencyToUInt64", u64, (i64 v), (u64)(v / 10000))
      QUORL_ENTRY("CvtCurrencyToReal64", double, (i64 v), (double)v / 10000.0)
      {"RuntimeRaiseException", reinterpret_cast<void*>(&RuntimeRaiseException)},
      {"RuntimeReraiseException", reinterpret_cast<void*>(&RuntimeReraiseException)},
  };
#undef QUORL_ENTRY
  return table;
}
