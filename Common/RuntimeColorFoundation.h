// The colour functions that scripts reach by name: making a Color from RGB,
// HSV or CMY components, and reading components back. A Color is a 32-bit
// value 0x00RRGGBB.
#ifndef COMMON_RUNTIMECOLORFOUNDATION_H
#define COMMON_RUNTIMECOLORFOUNDATION_H

// Packs three components in 0 to 1, each scaled to a byte (truncated toward
// zero, clamped to 0..255).
unsigned long fRGB(double r, double g, double b);
// Hue, saturation and value, each in 0 to 1, of three components in 0 to 1.
void RGBtoHSV(double r, double g, double b, double* h, double* s, double* v);

extern "C" {

// Each component clamped to 0..255.
unsigned long RuntimeRGB(long r, long g, long b);
// A hue outside [0, 1) counts as 0 (red); saturation 0 gives a grey.
unsigned long RuntimeHSV(double h, double s, double v);
// The complement of each component, as fRGB.
unsigned long RuntimeCMY(double c, double m, double y);

long readColorRed(unsigned long color);
long readColorGreen(unsigned long color);
long readColorBlue(unsigned long color);
double readColorHue(unsigned long color);
double readColorSaturation(unsigned long color);
double readColorValue(unsigned long color);
double readColorCyan(unsigned long color);
double readColorMagenta(unsigned long color);
double readColorYellow(unsigned long color);

}  // extern "C"

#endif
