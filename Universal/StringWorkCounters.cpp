// The counts of string work; see the header.
#include "Universal/StringWorkCounters.h"

StringWorkCounts gStringWork;
