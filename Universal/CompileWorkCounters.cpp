// The counts of compile work; see the header.
#include "Universal/CompileWorkCounters.h"

thread_local CompileWorkCounts gCompileWork QUORL_WORK_COUNTER_TLS;
