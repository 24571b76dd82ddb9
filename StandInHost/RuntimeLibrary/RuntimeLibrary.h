// The script's standard library as the stand-in host serves it: string,
// number-text, math, time and colour functions, known to compiled scripts
// only by their runtime names.
#ifndef STANDINHOST_RUNTIMELIBRARY_RUNTIMELIBRARY_H
#define STANDINHOST_RUNTIMELIBRARY_RUNTIMELIBRARY_H

namespace quorl {
namespace standin {

// Puts every library function, and the engine runtime's string and colour
// entry points, into the host's name table. Called once, when the host
// builds that table; a name registered again later replaces the entry.
void RegisterRuntimeLibrary();

}  // namespace standin
}  // namespace quorl

#endif
