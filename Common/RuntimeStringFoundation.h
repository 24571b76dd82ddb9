// The string entry points that generated code and external declarations call
// by name. A script string is one word, a `stringStorage*`, nil for the empty
// string; its count changes only through these calls and the code generator's
// explicit locks.
//
// Ownership: every string these functions return carries one reference that
// the caller owns; string arguments are borrowed and keep their counts.
// Wide strings (wchar_t arrays made for external calls) are counted in a
// table of their own, since they have no header to hold a count.
#ifndef COMMON_RUNTIMESTRINGFOUNDATION_H
#define COMMON_RUNTIMESTRINGFOUNDATION_H

#include <stddef.h>

#include "Universal/ustring.h"

extern "C" {

// ---- reference counts and operators

// Nil is ignored.
void RuntimeLockString(stringStorage* text);
// Nil is ignored; the last reference frees the storage.
void RuntimeUnlockString(stringStorage* text);
// A string assignment: locks `newValue` before unlocking `oldValue`, so that
// `a = a` never frees the text it is about to keep. Equal words do nothing.
void RuntimeLockUnlockStrings(stringStorage* newValue, stringStorage* oldValue);
// The sum of two strings, brought to one encoding; with one side empty, the
// other side shared.
stringStorage* RuntimeAddString(stringStorage* a, stringStorage* b);
// The sum of `count` strings, the same as adding them two at a time from
// the left; pieces of one encoding are copied once into a storage of the
// final size.
stringStorage* RuntimeAddStrings(long count, ...);
// Three-way comparison, -1, 0 or 1, without regard to case: the language's
// rule for `=`, `<` and the others on strings.
long RuntimeStringCompare(stringStorage* a, stringStorage* b);

// ---- fixed-size string fields of structures

// The field's bytes less trailing NULs, untagged; nil when nothing is left.
stringStorage* RuntimeGetStructureString(void* base, long offset, long size);
// Copies the value's bytes into the field, cut to `size`, zero-filling the
// rest. Size 0 does nothing.
void RuntimeSetStructureString(void* base, long offset, long size,
                               stringStorage* value);
// All `size` bytes of a buffer as an untagged string.
stringStorage* RuntimeGetStructureContents(void* buffer, long size);
// The value as UTF-16 into the field, zero-filling the rest.
void RuntimeSetStructureWString(void* base, long offset, long size,
                                stringStorage* value);

// ---- conversions for external calls

// Views into the storage, valid as long as the storage; the shared empty
// text for nil.
unsigned char* StringToPString(stringStorage* text);
char* StringToCString(stringStorage* text);
// New strings, tagged ASCII as C and Pascal literals are.
stringStorage* StringFromPString(unsigned char* pascalText);
stringStorage* StringFromCString(char* text);
// Four bytes in Mac Roman, read most significant first; "????" for empty.
unsigned long StringToOSType(stringStorage* text);
stringStorage* StringFromOSType(unsigned long code);
// A string of the wide text up to its NUL.
stringStorage* StringFromWString(wchar_t* text);
// A new NUL-terminated wide array, one element per UTF-16 unit, counted
// once; release it with UnlockWString.
wchar_t* StringToWString(stringStorage* text);
// Counts of wide arrays made by StringToWString; nil and unknown pointers
// are ignored.
void LockWString(wchar_t* text);
void UnlockWString(wchar_t* text);
void SwapWStringLocks(wchar_t* newValue, wchar_t* oldValue);

// Core Foundation strings do not exist on this platform.
void LockCFString(void* text);
void UnlockCFString(void* text);
void SwapCFStringLocks(void* newValue, void* oldValue);
void* StringToCFString(stringStorage* text);
stringStorage* StringFromCFString(void* text);

}  // extern "C"

#endif
