// Text encodings: which encoding the sum of two strings has, conversion
// between encodings (through iconv), UTF-8 walking and coding, and Unicode
// case mapping.
//
// Tags are the Macintosh text encoding numbers (see ustring.h). A tag whose
// low 16 bits lie in 0x100..0x1FF belongs to the Unicode family (UTF-16,
// UTF-32, UTF-8); the family members other than UTF-8 cannot be treated as
// bytes of ASCII.
#ifndef UNIVERSAL_ENCODINGS_H
#define UNIVERSAL_ENCODINGS_H

#include "Universal/ustring.h"

// True for UTF-16 and UTF-32 tags and the other wide Unicode forms; false for
// UTF-8, ASCII, the 8-bit sets and the unknown tag.
bool IsWideUnicodeEncoding(unsigned long tag);

// The iconv name of a tag, or null when the tag is not known. 0xFFFF names
// the system encoding.
char const* GetCodeNameFromEncoding(unsigned long tag);

// The tag of an encoding named as iconv names it ("ISO_8859-1", "CP1252") or
// by a common name ("UTF-8", "Latin1", "MacRoman", "WindowsLatin1"), with
// case, "-", "_", ":" and spaces ignored; 0xFFFF when no encoding has that
// name. Where two tags share an iconv name, the first listed answers.
unsigned long GetEncodingFromName(string const& name);

// The system encoding, found once; UTF-8 on this platform.
unsigned long GetSystemEncoding();
unsigned long GetEncodingFromFont(string const& fontName);
unsigned long GetKeyboardEncoding();

// Converts a bare storage from one tag to another. Returns a storage with a
// reference for the caller: the converted text, or the input itself (with one
// more reference) when the conversion cannot be set up or fails; nil when the
// heap cannot hold the result. Bytes that do not convert each become one "?"
// and the conversion goes on.
stringStorage* ConvertTextUnix(stringStorage* input, unsigned long from,
                               unsigned long to);

// UTF-8 or ASCII to UTF-16, and UTF-16 to UTF-8, done here where iconv has
// no converter for them. ConvertWithoutIconv takes only the pairs that
// ConvertsWithoutIconv accepts; its result is as ConvertTextUnix's.
bool ConvertsWithoutIconv(unsigned long from, unsigned long to);
stringStorage* ConvertWithoutIconv(stringStorage* input, unsigned long from,
                                   unsigned long to);

// `s` in the target encoding; `s` itself when the target or the tag is
// unknown, when `s` is nil, or when it already has the target tag; nil when
// the heap cannot hold the converted text.
string ConvertEncoding(string const& s, unsigned long target);
string ConvertToSystemEncoding(string const& s);

// The tag for text that is the sum of text in `a` and in `b`; 0xFFFF when
// there is none. `force` settles for a Unicode form instead of giving up.
unsigned long CommonEncoding(unsigned long a, unsigned long b, bool force);

// Brings both strings to one encoding, converting each that differs, and
// returns that tag; 0xFFFF when no common tag exists or a conversion lost the
// text.
unsigned long ConvertToSameEncoding(string* s1, string* s2);

// UTF-8 gives base 256, variant 0, format 2; any other tag gives base = tag.
void GetEncodingAttributes(unsigned long tag, int& base, int& variant,
                           int& format);

// Moves *p forward (or back) over n code points, recognised by their lead
// bytes, never past `limit`.
void AdvanceUTF8(unsigned char** p, unsigned char const* limit, int n);
void BackupUTF8(unsigned char** p, unsigned char const* limit, int n);

// Writes one to four bytes and a NUL; returns the byte count, 0 (only the
// NUL) for a code point at or above 0x200000.
int UTF8Encode(unsigned long code, unsigned char* out);
// One code point; no validation, the lead byte decides the length.
unsigned long UTF8Decode(unsigned char const* p);
unsigned long UTF8DecodeAndAdvance(unsigned char** p);
// Byte length of the sequence that a lead byte starts.
int UTF8SequenceLength(unsigned char lead);

// Simple one-to-one Unicode case mapping in the Basic Multilingual Plane;
// anything without a pair is returned unchanged.
void InitCaseMaps();
unsigned long UnicodeCharToUpper(unsigned long code);
unsigned long UnicodeCharToLower(unsigned long code);
// True when the code point belongs to a case pair.
bool UnicodeCharHasCase(unsigned long code);
// 0 when equal (after upper-casing with `ignoreCase`), else -1 or 1.
int UnicodeCharCompare(unsigned long a, unsigned long b, bool ignoreCase);
bool UnicodeCharIsWhitespace(unsigned long code);

// Code point by code point; the first difference decides, then the shorter
// byte length is smaller.
int UTF8StringCompare(unsigned char const* a, unsigned long lengthA,
                      unsigned char const* b, unsigned long lengthB,
                      bool ignoreCase);
int UCS2StringCompare(unsigned short const* a, unsigned long countA,
                      unsigned short const* b, unsigned long countB,
                      bool ignoreCase);
// In place on 16-bit units.
void UCS2ToUpper(unsigned short* units, unsigned long count);
void UCS2ToLower(unsigned short* units, unsigned long count);
void UCS2Capitalize(unsigned short* units, unsigned long count);

// Case conversion of UTF-8 text into a new malloc'd buffer (release it with
// free). *out receives the buffer, *outLength the byte count; the text is
// NUL-terminated. Capitalising raises a letter at the start and after
// whitespace and lowers the others. Throws std::bad_alloc when the heap
// cannot hold the result.
void UTF8ToUpper(unsigned char const* text, unsigned long length,
                 unsigned char** out, unsigned long* outLength);
void UTF8ToLower(unsigned char const* text, unsigned long length,
                 unsigned char** out, unsigned long* outLength);
void UTF8Capitalize(unsigned char const* text, unsigned long length,
                    unsigned char** out, unsigned long* outLength);
// True when no code point of the text has a case.
bool UTF8IsCaseless(unsigned char const* text, unsigned long length);

#endif
