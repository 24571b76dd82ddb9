// Encoding names, the system encoding, and conversion between encodings by
// iconv.
#include <errno.h>
#include <iconv.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <string>

#include "Universal/Assertion.h"
#include "Universal/Encodings.h"

namespace {

// The most bytes one input byte can become: a byte of an 8-bit set in UTF-32.
const uint32_t kMostOutputBytesPerInputByte = 4;

struct EncodingName {
  unsigned long mTag;
  char const* mName;
};

EncodingName const kEncodingNames[] = {
    {0, "MAC"},           {7, "MACCYRILLIC"},  {29, "MACUK"},
    {256, "UTF16LE"},     {513, "ISO_8859-1"}, {514, "ISO_8859-2"},
    {515, "ISO_8859-3"},  {516, "ISO_8859-4"}, {517, "ISO_8859-5"},
    {518, "ISO_8859-6"},  {519, "ISO_8859-7"}, {520, "ISO_8859-8"},
    {521, "ISO_8859-9"},  {527, "ISO_8859-15:1998"},
    {1024, "CP437"},      {1029, "CP737"},     {1030, "CP775"},
    {1040, "CP850"},      {1041, "CP851"},     {1042, "CP852"},
    {1043, "CP855"},      {1044, "CP857"},     {1045, "CP860"},
    {1046, "CP861"},      {1047, "CP862"},     {1048, "CP863"},
    {1049, "CP864"},      {1050, "CP865"},     {1051, "CP866"},
    {1052, "CP869"},      {1053, "CP874"},     {1056, "CP932"},
    {1057, "CP936"},      {1058, "CP949"},     {1059, "CP950"},
    {1280, "CP1252"},     {1281, "CP1250"},    {1282, "CP1251"},
    {1283, "CP1253"},     {1284, "CP1254"},    {1285, "CP1255"},
    {1286, "CP1256"},     {1287, "CP1257"},    {1288, "CP1258"},
    {1296, "CP1361"},     {1536, "US-ASCII"},  {1585, "CP936"},
    {2080, "ISO-2022-JP"}, {2336, "EUCJP"},    {2561, "CP932"},
    {2562, "KOI8_R"},     {3073, "CP037"},     {3074, "CP037"},
    {kEncodingUTF8, "UTF8"}, {kEncodingUTF32, "UTF32"},
};

// Names people give encodings, beside the iconv names above, in the form
// NormalizedEncodingName makes of them.
EncodingName const kCommonEncodingNames[] = {
    {kEncodingASCII, "ASCII"},       {kEncodingUTF16, "UTF16"},
    {513, "LATIN1"},                 {513, "ISOLATIN1"},
    {0, "MACROMAN"},                 {1280, "WINDOWSLATIN1"},
    {1280, "WINDOWS1252"},           {2561, "SHIFTJIS"},
};

// Upper case without "-", "_", " " or ":": "ISO_8859-1" and "iso-8859-1"
// are one name.
std::string NormalizedEncodingName(char const* name, size_t length) {
  std::string normalized;
  for (size_t i = 0; i < length; i++) {
    char c = name[i];
    if (c == '-' || c == '_' || c == ' ' || c == ':') continue;
    normalized += (c >= 'a' && c <= 'z') ? char(c - 'a' + 'A') : c;
  }
  return normalized;
}

// What '?' and a code unit look like in the output: wide forms need the
// whole unit, not one byte.
unsigned long QuestionMarkWidth(unsigned long tag) {
  if (tag == kEncodingUTF16) return 2;
  if (tag == kEncodingUTF32) return 4;
  return 1;
}

// Text in a UTF-32 storage is in native order without a byte-order mark, as
// ConstructFromWString makes it; iconv's plain UTF-32 would prefix a mark.
char const* IconvTargetName(unsigned long tag) {
  if (tag == kEncodingUTF32) return "UTF32LE";
  return GetCodeNameFromEncoding(tag);
}

// Some names are spelled with "_" where this iconv knows only "-"
// ("KOI8_R"); the second spelling is tried before giving up.
iconv_t OpenConverter(char const* to, char const* from) {
  iconv_t cd = iconv_open(to, from);
  if (cd != (iconv_t)-1) return cd;
  char toDashed[64], fromDashed[64];
  snprintf(toDashed, sizeof toDashed, "%s", to);
  snprintf(fromDashed, sizeof fromDashed, "%s", from);
  for (char* p = toDashed; *p; p++)
    if (*p == '_') *p = '-';
  for (char* p = fromDashed; *p; p++)
    if (*p == '_') *p = '-';
  return iconv_open(toDashed, fromDashed);
}

// Runs the conversion into `out` (of *outLeft bytes). Returns false on a
// failure other than a byte that does not convert.
bool RunIconv(iconv_t cd, char* in, size_t inLeft, char** out, size_t* outLeft,
              unsigned long questionWidth) {
  while (inLeft > 0) {
    if (iconv(cd, &in, &inLeft, out, outLeft) != (size_t)-1) continue;
    if (errno != EINVAL && errno != EILSEQ) return false;
    if (*outLeft < questionWidth) return false;
    in++;
    inLeft--;
    memset(*out, 0, questionWidth);
    **out = '?';
    *out += questionWidth;
    *outLeft -= questionWidth;
  }
  return iconv(cd, nullptr, nullptr, out, outLeft) != (size_t)-1;
}

}  // namespace

bool IsWideUnicodeEncoding(unsigned long tag) {
  unsigned long base = tag & 0xFFFF;
  return tag != kEncodingUTF8 && base >= 0x100 && base <= 0x1FF;
}

char const* GetCodeNameFromEncoding(unsigned long tag) {
  if (tag == kEncodingUnknown) tag = GetSystemEncoding();
  for (EncodingName const& entry : kEncodingNames)
    if (entry.mTag == tag) return entry.mName;
  return nullptr;
}

unsigned long GetEncodingFromName(string const& name) {
  std::string wanted = NormalizedEncodingName(name.CString(), name.Length());
  if (wanted.empty()) return kEncodingUnknown;
  for (EncodingName const& entry : kCommonEncodingNames)
    if (wanted == entry.mName) return entry.mTag;
  for (EncodingName const& entry : kEncodingNames)
    if (wanted == NormalizedEncodingName(entry.mName, strlen(entry.mName)))
      return entry.mTag;
  return kEncodingUnknown;
}

// The answer for the font last asked about is kept; any other font is taken
// to be UTF-8, which is what every font is on this platform.
unsigned long GetEncodingFromFont(string const& fontName) {
  // Each thread keeps its own: scripts convert on several threads at once.
  static thread_local string sCachedFont;
  static thread_local unsigned long sCachedEncoding = kEncodingASCII;
  if (fontName.GetStringStorage() == sCachedFont.GetStringStorage())
    return sCachedEncoding;
  sCachedFont = fontName;
  sCachedEncoding = kEncodingUTF8;
  return sCachedEncoding;
}

unsigned long GetSystemEncoding() {
  static unsigned long sSystemEncoding = kEncodingUnknown;
  if (sSystemEncoding == kEncodingUnknown)
    sSystemEncoding = GetEncodingFromFont(string("System"));
  return sSystemEncoding;
}

unsigned long GetKeyboardEncoding() { return GetSystemEncoding(); }

// The output buffer holds four times the input, enough for any 8-bit text in
// UTF-32. The result is a fresh storage or, when iconv fails, the input
// itself; nil when the heap cannot hold the converted text.
stringStorage* ConvertTextUnix(stringStorage* input, unsigned long from,
                               unsigned long to) {
  char const* fromName = GetCodeNameFromEncoding(from);
  char const* toName = IconvTargetName(to == kEncodingUnknown
                                           ? GetSystemEncoding()
                                           : to);
  iconv_t cd = (fromName && toName) ? OpenConverter(toName, fromName)
                                    : (iconv_t)-1;
  if (cd == (iconv_t)-1 && ConvertsWithoutIconv(from, to))
    return ConvertWithoutIconv(input, from, to);
  if (cd == (iconv_t)-1) {
    LockStringStorage(input);
    return input;
  }
  uint32_t length = input ? input->mLength : 0;
  if (length > (kLongestStringLength - 1) / kMostOutputBytesPerInputByte) {
    iconv_close(cd);
    return nullptr;
  }
  size_t capacity = size_t(length) * kMostOutputBytesPerInputByte;
  char* buffer = static_cast<char*>(malloc(capacity + 1));
  if (!buffer) {
    iconv_close(cd);
    return nullptr;
  }
  char* out = buffer;
  size_t outLeft = capacity;
  bool ok = !input || RunIconv(cd, input->CString(), input->mLength, &out,
                               &outLeft, QuestionMarkWidth(to));
  iconv_close(cd);
  stringStorage* result = input;
  if (ok)
    result = TryNewStringStorage(buffer, static_cast<uint32_t>(out - buffer),
                                 static_cast<uint32_t>(to));
  else
    LockStringStorage(input);
  free(buffer);
  return result;
}

// A one-entry cache serves the common case of one string converted again and
// again (a key looked up repeatedly, a literal printed in a loop).
string ConvertEncoding(string const& s, unsigned long target) {
  unsigned long tag = s.Encoding();
  if (target == kEncodingUnknown || s.IsEmpty() || tag == kEncodingUnknown ||
      tag == target)
    return s;
  // The source's tag is remembered too: SetEncoding may retag a storage.
  // Each thread has its own cache, as scripts run on several at once.
  static thread_local string sLastSource;
  static thread_local string sLastResult;
  static thread_local unsigned long sLastSourceTag;
  if (s.GetStringStorage() == sLastSource.GetStringStorage() &&
      tag == sLastSourceTag && sLastResult.Encoding() == target &&
      !sLastResult.IsEmpty())
    return sLastResult;
  sLastSource = s;
  sLastSourceTag = tag;
  string result;
  if ((!IsWideUnicodeEncoding(target)) &&
      (tag == kEncodingASCII || s.ContainsOnlyASCII())) {
    result.AdoptReference(TryNewStringStorage(s.CString(), s.Length(),
                                              static_cast<uint32_t>(target)));
  } else {
    result.AdoptReference(
        ConvertTextUnix(s.GetStringStorage(), tag, target));
  }
  sLastResult = result;
  return result;
}

string ConvertToSystemEncoding(string const& s) {
  static unsigned long sSystemEncoding = GetSystemEncoding();
  return ConvertEncoding(s, sSystemEncoding);
}

unsigned long CommonEncoding(unsigned long a, unsigned long b, bool force) {
  if (a == b) return a;
  bool aSimple = a == kEncodingASCII || a == kEncodingUTF8;
  bool bSimple = b == kEncodingASCII || b == kEncodingUTF8;
  if (aSimple && bSimple) return kEncodingUTF8;
  unsigned long baseA = a & 0xFFFF, baseB = b & 0xFFFF;
  if (a == kEncodingASCII && !(baseB >= 0x100 && baseB <= 0x1FF)) return b;
  if (b == kEncodingASCII && !(baseA >= 0x100 && baseA <= 0x1FF)) return a;
  if (force) {
    if (a != kEncodingUTF16 && b != kEncodingUTF16) return kEncodingUTF8;
    if (a == kEncodingUTF8 || b == kEncodingUTF8) return kEncodingUTF8;
    return kEncodingUTF16;
  }
  return kEncodingUnknown;
}

unsigned long ConvertToSameEncoding(string* s1, string* s2) {
  QASSERT_TEXT(s1 && s2, "s1 and s2");
  if (s1->IsEmpty() && s2->IsEmpty()) return kEncodingASCII;
  if (s1->IsEmpty()) return s2->Encoding();
  if (s2->IsEmpty()) return s1->Encoding();
  unsigned long t1 = s1->Encoding(), t2 = s2->Encoding();
  if (t1 == t2) return t1;
  if (t1 == kEncodingUnknown || t2 == kEncodingUnknown) return kEncodingUnknown;
  unsigned long target = CommonEncoding(t1, t2, false);
  if (target == kEncodingUnknown) {
    bool oneIsUTF16 = t1 == kEncodingUTF16 || t2 == kEncodingUTF16;
    bool oneIsUTF8 = t1 == kEncodingUTF8 || t2 == kEncodingUTF8;
    target = (oneIsUTF16 && !oneIsUTF8) ? kEncodingUTF16 : kEncodingUTF8;
  }
  string* sides[2] = {s1, s2};
  for (string* side : sides) {
    if (side->Encoding() == target) continue;
    *side = ConvertEncoding(*side, target);
    if (side->IsEmpty()) return kEncodingUnknown;
  }
  return target;
}

void GetEncodingAttributes(unsigned long tag, int& base, int& variant,
                           int& format) {
  if (tag == kEncodingUTF8) {
    base = 256;
    variant = 0;
    format = 2;
    return;
  }
  base = static_cast<int>(tag);
  variant = 0;
  format = 0;
}
