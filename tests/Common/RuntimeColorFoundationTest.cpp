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

