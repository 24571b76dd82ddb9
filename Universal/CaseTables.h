// The Unicode case-pair tables and the maps that index them.
#ifndef UNIVERSAL_CASETABLES_H
#define UNIVERSAL_CASETABLES_H

#include "Universal/IntMap.h"

// Parallel arrays: sUpperTable[i] and sLowerTable[i] are one case pair.
extern unsigned long const kCaseTableSize;
extern unsigned short const sUpperTable[];
extern unsigned short const sLowerTable[];

// From a unit to its index in sUpperTable / sLowerTable; made by
// InitCaseMaps() (declared in Encodings.h) on first use.
extern IntMap<unsigned short>* sUpperMap;
extern IntMap<unsigned short>* sLowerMap;

#endif
