// Linearity by count: a function's string work (bytes allocated, copied and
// walked) measured at a size n and at 16n must stay within a few times the
// bytes it reads and writes, and must not grow faster than they do.
#ifndef TESTS_UNIVERSAL_STRINGWORKTESTING_H
#define TESTS_UNIVERSAL_STRINGWORKTESTING_H

#include <gtest/gtest.h>

#include "Universal/StringWorkCounters.h"

// What one measured call did, and the bytes of its input and output.
struct MeasuredWork {
  double work;
  double bytes;
};

// The counts of `call` alone; its input is built before.
template <class Call>
double StringWorkOf(Call call) {
  ResetStringWork();
  call();
  StringWorkCounts counts = CurrentStringWork();
  return static_cast<double>(counts.allocatedBytes + counts.copiedBytes +
                             counts.scannedBytes);
}

// `measure(n)` builds an input of about n bytes and returns the work of the
// call on it with the bytes read and written.
template <class Measure>
void ExpectLinearWork(char const* what, Measure measure,
                      unsigned long n = 2000) {
  const double kMostWorkPerByte = 8;
  const double kLeeway = 1.25;
  MeasuredWork small = measure(n), large = measure(16 * n);
  double perByteSmall = small.work / small.bytes;
  double perByteLarge = large.work / large.bytes;
  EXPECT_LE(perByteLarge, kMostWorkPerByte) << what;
  EXPECT_LE(perByteLarge, perByteSmall * kLeeway + 0.05) << what;
}

#endif
