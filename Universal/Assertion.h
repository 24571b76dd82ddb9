// The one assertion routine. An assertion is a fault of the program, never of
// the user's script: it prints one line to standard output and ends the
// process with status 1. Script faults are numbered compile errors or script
// exceptions instead.
#ifndef UNIVERSAL_ASSERTION_H
#define UNIVERSAL_ASSERTION_H

// Builds "<message>\n<file> line <line>" (at most 1,024 bytes), prints it as
// "Assertion failed: %s\n" on standard output and calls exit(1). The
// expression text is handed over for the reader of the call site; it is not
// printed.
[[noreturn]] void xxxxxxx_printassertion(char const* message, char const* file,
                                         int line, char const* expression);

#define QASSERT_MESSAGE "failed assertion: \r"

// QASSERT(cond): the condition's own source text names the check.
#define QASSERT(cond)                                                         \
  ((cond) ? (void)0                                                           \
          : xxxxxxx_printassertion(QASSERT_MESSAGE, __FILE__, __LINE__, #cond))

// QASSERT_TEXT(cond, "text"): the check is known by a fixed text, as where a
// pointer is checked under the name of what it should hold ("sourceBuf").
#define QASSERT_TEXT(cond, text)                                              \
  ((cond) ? (void)0                                                           \
          : xxxxxxx_printassertion(QASSERT_MESSAGE, __FILE__, __LINE__, text))

// QFAIL("why"): an unconditional failure with an explanatory text appended to
// the message.
#define QFAIL(text)                                                           \
  xxxxxxx_printassertion(QASSERT_MESSAGE text, __FILE__, __LINE__, text)

#endif
