#include "Compiler/BackEnds/MD5.h"

#include <string.h>

namespace {

// Per-round shift amounts and the sine-derived constants of the algorithm.
unsigned int const kShifts[64] = {
    7, 12, 17, 22, 7, 12, 17, 22, 7, 12, 17, 22, 7, 12, 17, 22,
    5, 9,  14, 20, 5, 9,  14, 20, 5, 9,  14, 20, 5, 9,  14, 20,
    4, 11, 16, 23, 4, 11, 16, 23, 4, 11, 16, 23, 4, 11, 16, 23,
    6, 10, 15, 21, 6, 10, 15, 21, 6, 10, 15, 21, 6, 10, 15, 21};

unsigned int const kSines[64] = {
    0xd76aa478, 0xe8c7b756, 0x242070db, 0xc1bdceee, 0xf57c0faf, 0x4787c62a,
    0xa8304613, 0xfd469501, 0x698098d8, 0x8b44f7af, 0xffff5bb1, 0x895cd7be,
    0x6b901122, 0xfd987193, 0xa679438e, 0x49b40821, 0xf61e2562, 0xc040b340,
    0x265e5a51, 0xe9b6c7aa, 0xd62f105d, 0x02441453, 0xd8a1e681, 0xe7d3fbc8,
    0x21e1cde6, 0xc33707d6, 0xf4d50d87, 0x455a14ed, 0xa9e3e905, 0xfcefa3f8,
    0x676f02d9, 0x8d2a4c8a, 0xfffa3942, 0x8771f681, 0x6d9d6122, 0xfde5380c,
    0xa4beea44, 0x4bdecfa9, 0xf6bb4b60, 0xbebfbc70, 0x289b7ec6, 0xeaa127fa,
    0xd4ef3085, 0x04881d05, 0xd9d4d039, 0xe6db99e5, 0x1fa27cf8, 0xc4ac5665,
    0xf4292244, 0x432aff97, 0xab9423a7, 0xfc93a039, 0x655b59c3, 0x8f0ccc92,
    0xffeff47d, 0x85845dd1, 0x6fa87e4f, 0xfe2ce6e0, 0xa3014314, 0x4e0811a1,
    0xf7537e82, 0xbd3af235, 0x2ad7d2bb, 0xeb86d391};

unsigned int RotateLeft(unsigned int x, unsigned int n) {
  return (x << n) | (x >> (32 - n));
}

// One 64-byte block into the running state.
void Transform(unsigned int state[4], unsigned char const* block) {
  unsigned int w[16];
  for (int i = 0; i < 16; i++)
    w[i] = block[4 * i] | (block[4 * i + 1] << 8) | (block[4 * i + 2] << 16) |
           (unsigned(block[4 * i + 3]) << 24);
  unsigned int a = state[0], b = state[1], c = state[2], d = state[3];
  for (int i = 0; i < 64; i++) {
    unsigned int f, g;
    if (i < 16) {
      f = (b & c) | (~b & d);
      g = i;
    } else if (i < 32) {
      f = (d & b) | (~d & c);
      g = (5 * i + 1) % 16;
    } else if (i < 48) {
      f = b ^ c ^ d;
      g = (3 * i + 5) % 16;
    } else {
      f = c ^ (b | ~d);
      g = (7 * i) % 16;
    }
    unsigned int next = d;
    d = c;
    c = b;
    b = b + RotateLeft(a + f + kSines[i] + w[g], kShifts[i]);
    a = next;
  }
  state[0] += a;
  state[1] += b;
  state[2] += c;
  state[3] += d;
}

}  // namespace

void MD5(unsigned char* digest, unsigned char const* data,
         unsigned int length) {
  unsigned int state[4] = {0x67452301, 0xefcdab89, 0x98badcfe, 0x10325476};
  unsigned int whole = length / 64 * 64;
  for (unsigned int i = 0; i < whole; i += 64) Transform(state, data + i);
  // The tail, the 0x80 pad byte, zeros, and the bit length little-endian.
  unsigned char last[128];
  memset(last, 0, sizeof last);
  unsigned int rest = length - whole;
  if (rest) memcpy(last, data + whole, rest);
  last[rest] = 0x80;
  unsigned int tailBlocks = rest + 9 > 64 ? 2 : 1;
  unsigned long long bits = static_cast<unsigned long long>(length) * 8;
  for (int i = 0; i < 8; i++)
    last[tailBlocks * 64 - 8 + i] = static_cast<unsigned char>(bits >> (8 * i));
  for (unsigned int i = 0; i < tailBlocks; i++) Transform(state, last + 64 * i);
  for (int i = 0; i < 16; i++)
    digest[i] = static_cast<unsigned char>(state[i / 4] >> (8 * (i % 4)));
}
