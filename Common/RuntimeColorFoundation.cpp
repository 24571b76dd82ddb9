// Color construction and component reading.
#include "Common/RuntimeColorFoundation.h"

#include <math.h>

namespace {

// Truncation happens in floating point, so that huge or NaN inputs clamp
// instead of overflowing the integer conversion.
unsigned long ComponentByte(double unit) {
  double scaled = trunc(unit * 255.0);
  if (!(scaled > 0)) return 0;
  if (scaled > 255) return 255;
  return static_cast<unsigned long>(scaled);
}

unsigned long ClampByte(long value) {
  if (value < 0) return 0;
  if (value > 255) return 255;
  return static_cast<unsigned long>(value);
}

unsigned long Pack(unsigned long r, unsigned long g, unsigned long b) {
  return r << 16 | g << 8 | b;
}

unsigned long ByteAt(unsigned long color, int shift) {
  return (color >> shift) & 255;
}

double UnitAt(unsigned long color, int shift) {
  return ByteAt(color, shift) / 255.0;
}

double Complement(unsigned long color, int shift) {
  return (~(color >> shift) & 255) / 255.0;
}

void ColorToHSV(unsigned long color, double* h, double* s, double* v) {
  RGBtoHSV(UnitAt(color, 16), UnitAt(color, 8), UnitAt(color, 0), h, s, v);
}

}  // namespace

unsigned long fRGB(double r, double g, double b) {
  return Pack(ComponentByte(r), ComponentByte(g), ComponentByte(b));
}

void RGBtoHSV(double r, double g, double b, double* h, double* s, double* v) {
  double max = fmax(r, fmax(g, b));
  double min = fmin(r, fmin(g, b));
  double delta = max - min;
  *v = max;
  *s = max != 0 ? delta / max : 0;
  if (*s == 0) {
    *h = 0;
    return;
  }
  if (r == max)
    *h = (g - b) / delta;
  else if (g == max)
    *h = (b - r) / delta + 2;
  else
    *h = (r - g) / delta + 4;
  *h = *h / 6;
  if (*h < 0) *h = *h + 1;
}

extern "C" {

unsigned long RuntimeRGB(long r, long g, long b) {
  return Pack(ClampByte(r), ClampByte(g), ClampByte(b));
}

// The hue circle is cut into six sectors; within each, one component is at
// full value, one at the floor `p`, and one rises (`t`) or falls (`q`).
unsigned long RuntimeHSV(double h, double s, double v) {
  if (s == 0) return ComponentByte(v) * 0x010101;
  if (!(h >= 0 && h < 1)) h = 0;
  h = h * 6;
  int i = static_cast<int>(trunc(h));
  double f = h - i;
  if (i > 5) return 0;
  double p = (1 - s) * v;
  double q = (1 - s * f) * v;
  double t = (1 - (1 - f) * s) * v;
  switch (i) {
    case 0: return fRGB(v, t, p);
    case 1: return fRGB(q, v, p);
    case 2: return fRGB(p, v, t);
    case 3: return fRGB(p, q, v);
    case 4: return fRGB(t, p, v);
    default: return fRGB(v, p, q);
  }
}

unsigned long RuntimeCMY(double c, double m, double y) {
  return fRGB(1 - c, 1 - m, 1 - y);
}

long readColorRed(unsigned long color) { return ByteAt(color, 16); }
long readColorGreen(unsigned long color) { return ByteAt(color, 8); }
long readColorBlue(unsigned long color) { return ByteAt(color, 0); }

double readColorHue(unsigned long color) {
  double h, s, v;
  ColorToHSV(color, &h, &s, &v);
  return h;
}

double readColorSaturation(unsigned long color) {
  double h, s, v;
  ColorToHSV(color, &h, &s, &v);
  return s;
}

double readColorValue(unsigned long color) {
  double h, s, v;
  ColorToHSV(color, &h, &s, &v);
  return v;
}

double readColorCyan(unsigned long color) { return Complement(color, 16); }
double readColorMagenta(unsigned long color) { return Complement(color, 8); }
double readColorYellow(unsigned long color) { return Complement(color, 0); }

}  // extern "C"
