// The counts of string work; see the header.
#include "Universal/StringWorkCounters.h"

thread_local StringWorkCounts gStringWork QUORL_WORK_COUNTER_TLS;
