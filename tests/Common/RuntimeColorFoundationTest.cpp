// Making colours from components and reading them back.
#include <gtest/gtest.h>

#include <math.h>

#include "Common/RuntimeColorFoundation.h"

TEST(RuntimeColorMaking, ClampsWrapsAndComplements) {
  EXPECT_EQ(RuntimeRGB(300, -5, 128), 0xFF0080ul);
  EXPECT_EQ(fRGB(1.0, 0.5, -1.0), 0xFF7F00ul) << "truncated toward zero";
  EXPECT_EQ(fRGB(NAN, 2.0, 1e300), 0x00FFFFul);
  EXPECT_EQ(RuntimeHSV(1.0, 1, 1), 0xFF0000ul) << "hue 1 wraps to red";
  EXPECT_EQ(RuntimeHSV(-0.2, 1, 1), 0xFF0000ul);
  EXPECT_EQ(RuntimeHSV(0.5, 0, 0.5), 0x7F7F7Ful) << "a grey";
  EXPECT_EQ(RuntimeCMY(1, 0, 0), 0x00FFFFul);
  EXPECT_DOUBLE_EQ(readColorHue(0xFF00FF), 5.0 / 6) << "negative hue wraps";
  EXPECT_DOUBLE_EQ(readColorSaturation(0x808080), 0);
}

// Every 17th level of each byte survives the trip through HSV and through
// CMY up to the truncation of a component, which may lose one step.
TEST(RuntimeColorReading, RoundTrips) {
  for (long r = 0; r < 256; r += 17)
    for (long g = 0; g < 256; g += 17)
      for (long b = 0; b < 256; b += 17) {
        unsigned long c = RuntimeRGB(r, g, b);
        unsigned long viaHSV = RuntimeHSV(readColorHue(c),
                                          readColorSaturation(c),
                                          readColorValue(c));
        unsigned long viaCMY = RuntimeCMY(readColorCyan(c),
                                          readColorMagenta(c),
                                          readColorYellow(c));
        for (auto read : {readColorRed, readColorGreen, readColorBlue}) {
          EXPECT_LE(labs(read(viaHSV) - read(c)), 1) << std::hex << c;
          EXPECT_LE(labs(read(viaCMY) - read(c)), 1) << std::hex << c;
        }
      }
}
