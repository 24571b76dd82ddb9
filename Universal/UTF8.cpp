// UTF-8 coding and walking. Nothing here validates: the lead byte decides how
// long a sequence is, which keeps malformed text from stalling a walk.
#include "Universal/Encodings.h"

int UTF8SequenceLength(unsigned char lead) {
  if (lead >= 0xF0 && lead <= 0xF7) return 4;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xC0 && lead <= 0xDF) return 2;
  return 1;
}

void AdvanceUTF8(unsigned char** p, unsigned char const* limit, int n) {
  for (; n > 0 && *p < limit; n--) {
    *p += UTF8SequenceLength(**p);
    if (*p > limit) *p = const_cast<unsigned char*>(limit);
  }
}

// Steps back over continuation bytes (10xxxxxx) to the previous lead byte.
void BackupUTF8(unsigned char** p, unsigned char const* limit, int n) {
  for (; n > 0 && *p > limit; n--) {
    (*p)--;
    while (*p > limit && (**p & 0xC0) == 0x80) (*p)--;
  }
}

int UTF8Encode(unsigned long code, unsigned char* out) {
  int count;
  if (code < 0x80) {
    out[0] = static_cast<unsigned char>(code);
    count = 1;
  } else if (code < 0x800) {
    out[0] = static_cast<unsigned char>(0xC0 | (code >> 6));
    out[1] = static_cast<unsigned char>(0x80 | (code & 0x3F));
    count = 2;
  } else if (code < 0x10000) {
    out[0] = static_cast<unsigned char>(0xE0 | (code >> 12));
    out[1] = static_cast<unsigned char>(0x80 | ((code >> 6) & 0x3F));
    out[2] = static_cast<unsigned char>(0x80 | (code & 0x3F));
    count = 3;
  } else if (code < 0x200000) {
    out[0] = static_cast<unsigned char>(0xF0 | (code >> 18));
    out[1] = static_cast<unsigned char>(0x80 | ((code >> 12) & 0x3F));
    out[2] = static_cast<unsigned char>(0x80 | ((code >> 6) & 0x3F));
    out[3] = static_cast<unsigned char>(0x80 | (code & 0x3F));
    count = 4;
  } else {
    count = 0;
  }
  out[count] = 0;
  return count;
}

unsigned long UTF8Decode(unsigned char const* p) {
  int length = UTF8SequenceLength(p[0]);
  static unsigned char const kLeadMask[5] = {0, 0xFF, 0x1F, 0x0F, 0x07};
  unsigned long code = p[0] & kLeadMask[length];
  for (int i = 1; i < length; i++) code = (code << 6) | (p[i] & 0x3F);
  return code;
}

unsigned long UTF8DecodeAndAdvance(unsigned char** p) {
  unsigned long code = UTF8Decode(*p);
  *p += UTF8SequenceLength(**p);
  return code;
}

bool UnicodeCharIsWhitespace(unsigned long code) {
  if (code >= 9 && code <= 13) return true;
  if (code >= 0x2000 && code <= 0x200A) return true;
  switch (code) {
    case 32:
    case 133:
    case 160:
    case 5760:
    case 6158:
    case 8232:
    case 8233:
    case 0x202F:
    case 0x205F:
    case 0x3000:
      return true;
    default:
      return false;
  }
}
