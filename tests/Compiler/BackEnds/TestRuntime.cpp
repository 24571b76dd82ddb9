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

i64 MulSInt64(i64 a, i64 b) { return (i64)((u64)a * (u64)b); }
u64 MulUInt64(u64 a, u64 b) { return a * b; }
i64 DivSInt64(i64 a, i64 b) { return b ? a / b : 0; }
u64 DivUInt64(u64 a, u64 b) { return b ? a / b : 0; }
i64 ModSInt64(i64 a, i64 b) { return b ? a % b : a; }
u64 ModUInt64(u64 a, u64 b) { return b ? a % b : a; }
i64 ShiftLeftInt64(i64 a, long n) { return (i64)((u64)a << n); }
i64 ShiftRightInt64(i64 a, long n) { return a >> n; }
i64 MulCurrency(i64 a, i64 b) { return a * b / 10000; }
i64 DivCurrency(i64 a, i64 b) { return b ? a * 10000 / b : 0; }
double Pow(double a, double b) { return pow(a, b); }

double SInt32ToReal64(int32_t v) { return v; }
double UInt32ToReal64(uint32_t v) { return (double)(u64)v; }
double SInt64ToReal64(i64 v) { return (double)v; }
double UInt64ToReal64(u64 v) { return (double)v; }
i64 SInt32ToCurrency(int32_t v) { return (i64)v * 10000; }
i64 UInt32ToCurrency(uint32_t v) { return (i64)v * 10000; }
i64 SInt64ToCurrency(i64 v) { return (i64)((u64)v * 10000); }
i64 UInt64ToCurrency(u64 v) { return (i64)(v * 10000); }
int32_t Real32ToSInt32(float v) { return (int32_t)v; }
uint32_t Real32ToUInt32(float v) { return (uint32_t)(i64)v; }
i64 Real32ToSInt64(float v) { return (i64)v; }
u64 Real32ToUInt64(float v) { return (u64)v; }
i64 Real32ToCurrency(float v) { return (i64)round(v * 10000.0); }
int32_t Real64ToSInt32(double v) { return (int32_t)v; }
uint32_t Real64ToUInt32(double v) { return (uint32_t)(i64)v; }
i64 Real64ToSInt64(double v) { return (i64)v; }
u64 Real64ToUInt64(double v) { return (u64)v; }
i64 Real64ToCurrency(double v) { return (i64)round(v * 10000.0); }
int32_t CurrencyToSInt32(i64 v) { return (int32_t)(v / 10000); }
uint32_t CurrencyToUInt32(i64 v) { return (uint32_t)(v / 10000); }
i64 CurrencyToSInt64(i64 v) { return v / 10000; }
u64 CurrencyToUInt64(i64 v) { return (u64)(v / 10000); }
double CurrencyToReal64(i64 v) { return (double)v / 10000.0; }

void LockString(stringStorage* s) { LockStringStorage(s); }
void UnlockString(stringStorage* s) { UnlockStringStorage(s); }
void LockUnlockStrings(stringStorage* fresh, stringStorage* old) {
  LockStringStorage(fresh);
  UnlockStringStorage(old);
}
void LockUnlockObjects(RuntimeObject* fresh, RuntimeObject* old) {
  if (fresh == old) return;
  RuntimeLockObject(fresh);
  RuntimeUnlockObject(old);
}

}  // namespace

std::map<std::string, void*>& TestRuntimeTable() {
  static std::map<std::string, void*> table = {
#define QUORL_ENTRY(name, fn) {name, reinterpret_cast<void*>(&fn)},
      QUORL_ENTRY("RuntimeMulSInt64", MulSInt64)
      QUORL_ENTRY("RuntimeMulUInt64", MulUInt64)
      QUORL_ENTRY("RuntimeDivSInt64", DivSInt64)
      QUORL_ENTRY("RuntimeDivUInt64", DivUInt64)
      QUORL_ENTRY("RuntimeModSInt64", ModSInt64)
      QUORL_ENTRY("RuntimeModUInt64", ModUInt64)
      QUORL_ENTRY("RuntimeShiftLeftInt64", ShiftLeftInt64)
      QUORL_ENTRY("RuntimeShiftRightInt64", ShiftRightInt64)
      QUORL_ENTRY("RuntimeMulCurrency", MulCurrency)
      QUORL_ENTRY("RuntimeDivCurrency", DivCurrency)
      QUORL_ENTRY("RuntimePow", Pow)
      QUORL_ENTRY("RuntimeCvtSInt32ToReal64", SInt32ToReal64)
      QUORL_ENTRY("RuntimeCvtUInt32ToReal64", UInt32ToReal64)
      QUORL_ENTRY("RuntimeCvtSInt64ToReal64", SInt64ToReal64)
      QUORL_ENTRY("RuntimeCvtUInt64ToReal64", UInt64ToReal64)
      QUORL_ENTRY("RuntimeCvtSInt32ToCurrency", SInt32ToCurrency)
      QUORL_ENTRY("RuntimeCvtUInt32ToCurrency", UInt32ToCurrency)
      QUORL_ENTRY("RuntimeCvtSInt64ToCurrency", SInt64ToCurrency)
      QUORL_ENTRY("RuntimeCvtUInt64ToCurrency", UInt64ToCurrency)
      QUORL_ENTRY("RuntimeCvtReal32ToSInt32", Real32ToSInt32)
      QUORL_ENTRY("RuntimeCvtReal32ToUInt32", Real32ToUInt32)
      QUORL_ENTRY("RuntimeCvtReal32ToSInt64", Real32ToSInt64)
      QUORL_ENTRY("RuntimeCvtReal32ToUInt64", Real32ToUInt64)
      QUORL_ENTRY("RuntimeCvtReal32ToCurrency", Real32ToCurrency)
      QUORL_ENTRY("RuntimeCvtReal64ToSInt32", Real64ToSInt32)
      QUORL_ENTRY("RuntimeCvtReal64ToUInt32", Real64ToUInt32)
      QUORL_ENTRY("RuntimeCvtReal64ToSInt64", Real64ToSInt64)
      QUORL_ENTRY("RuntimeCvtReal64ToUInt64", Real64ToUInt64)
      QUORL_ENTRY("RuntimeCvtReal64ToCurrency", Real64ToCurrency)
      QUORL_ENTRY("RuntimeCvtCurrencyToSInt32", CurrencyToSInt32)
      QUORL_ENTRY("RuntimeCvtCurrencyToUInt32", CurrencyToUInt32)
      QUORL_ENTRY("RuntimeCvtCurrencyToSInt64", CurrencyToSInt64)
      QUORL_ENTRY("RuntimeCvtCurrencyToUInt64", CurrencyToUInt64)
      QUORL_ENTRY("RuntimeCvtCurrencyToReal64", CurrencyToReal64)
      QUORL_ENTRY("RuntimeLockString", LockString)
      QUORL_ENTRY("RuntimeUnlockString", UnlockString)
      QUORL_ENTRY("RuntimeLockUnlockStrings", LockUnlockStrings)
      QUORL_ENTRY("RuntimeLockObject", RuntimeLockObject)
      QUORL_ENTRY("RuntimeUnlockObject", RuntimeUnlockObject)
      QUORL_ENTRY("RuntimeLockUnlockObjects", LockUnlockObjects)
      QUORL_ENTRY("RuntimeRaiseException", RuntimeRaiseException)
      QUORL_ENTRY("RuntimeReraiseException", RuntimeReraiseException)
#undef QUORL_ENTRY
  };
  return table;
}
