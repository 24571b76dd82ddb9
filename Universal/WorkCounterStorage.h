// Where the work counters live: in the static thread storage, so that a
// count in a loaded library costs an addition and not a call to find the
// thread's block. AddressSanitizer cannot start a thread in a process that
// loaded a library using the static thread storage, so the sanitized build
// does without it.
#ifndef UNIVERSAL_WORKCOUNTERSTORAGE_H
#define UNIVERSAL_WORKCOUNTERSTORAGE_H

#ifdef QUORL_SANITIZE
#define QUORL_WORK_COUNTER_TLS
#else
#define QUORL_WORK_COUNTER_TLS __attribute__((tls_model("initial-exec")))
#endif

#endif
