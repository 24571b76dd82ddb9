// The compiler's state is process-wide (the compilation context, the
// lexer, the parser's value): one compilation at a time, on any thread.
// Whoever reads declarations or compiles holds this lock meanwhile.
#ifndef PLUGIN_COMPILELOCK_H
#define PLUGIN_COMPILELOCK_H

#include <mutex>

std::mutex& CompileLock();

#endif
