// Low-level byte helpers: C and Pascal string primitives, number text, and
// fixed-width values as byte strings in network order. None of them depend on
// the C locale except where stated.
#ifndef UNIVERSAL_BYTEHELPERS_H
#define UNIVERSAL_BYTEHELPERS_H

#include "Universal/ustring.h"

// Case-insensitive byte comparison table: ASCII letters and the Macintosh
// Roman case pairs map to their upper-case form, everything else to itself.
extern unsigned char const upperMap[256];

// Length of a C string; 0 for null.
unsigned long ustrlen(char const* text);
// strcpy; returns dst.
char* ustrcpy(char* dst, char const* src);
// Appends src to the C string that *cursor points into and leaves *cursor on
// the new terminating NUL, so that successive calls chain cheaply.
void ustrcat(char** cursor, char const* src);
// ASCII-only upper case of one byte.
char utoupper(char c);
// Copies n bytes; the ranges may overlap.
void umemcpy(void* dst, void const* src, unsigned long n);
void umemzero(void* dst, unsigned long n);
void umemset(void* dst, int value, unsigned long n);
// memcmp, three-way.
int umemcmp(void const* a, void const* b, unsigned long n);
// Copies a Pascal string, length byte included.
void pstrcpy(unsigned char* dst, unsigned char const* src);

// C-string comparisons, -1, 0 or 1. Bytes compare as signed 8-bit values, in
// ustrcmpi after mapping through upperMap. With a common prefix the longer
// text is greater.
int ustrcmpi(char const* a, char const* b);
int ustrcmp(char const* a, char const* b);
// The same over counted byte ranges, which may hold NULs.
int ustrncmpi(char const* a, unsigned long lengthA, char const* b,
              unsigned long lengthB);
int ustrncmp(char const* a, unsigned long lengthA, char const* b,
             unsigned long lengthB);

// Decimal integer: skips blanks, takes an optional sign and digits, stops at
// the first other byte. No overflow check. The second form reads at most
// `length` bytes.
long uatol(char const* text);
long uatol(char const* text, int length);
// atof with the numeric locale "C" for the duration of the call.
double uatod(char const* text);

// Decimal text, tagged ASCII.
string ultoa(long value);
string ulltoa(long long value);
string uulltoa(unsigned long long value);
// "%e" with `exponent`, otherwise "%g"; infinities and NaN give "0".
string udtoa(double value, bool exponent);
// Always eight upper-case hexadecimal digits.
string ultohexa(unsigned long value);

// Four bytes, most significant first.
string FourCharCodeToString(unsigned long code);
unsigned long StringToFourCharCode(string const& text);

// Fixed-width values as byte strings, most significant byte first. Reading
// a string shorter than the width takes the missing bytes as zero.
string WriteShortAsBits(short value);
string WriteLongAsBits(long value);
short ReadShortAsBits(string const& bits);
long ReadLongAsBits(string const& bits);

#endif
