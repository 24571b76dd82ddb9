// The runtime library's functions by theme, each theme a list of the names
// the host serves and the addresses behind them. The host's own functions
// have internal linkage, and those of the engine runtime are served under
// their C names: compiled scripts reach both only by name, through the
// host's resolver.
#ifndef STANDINHOST_RUNTIMELIBRARY_LIBRARYENTRIES_H
#define STANDINHOST_RUNTIMELIBRARY_LIBRARYENTRIES_H

#include <vector>

namespace quorl {
namespace standin {
namespace library {

struct LibraryEntry {
  char const* name;
  void* address;
};
using LibraryEntries = std::vector<LibraryEntry>;

template <class Function>
LibraryEntry Entry(char const* name, Function* function) {
  return {name, reinterpret_cast<void*>(function)};
}

// An entry of a function with C linkage under its own name.
#define QUORL_SERVE(function) \
  ::quorl::standin::library::Entry(#function, &function)

LibraryEntries CharacterStringEntries();
LibraryEntries ByteStringEntries();
LibraryEntries TextEncodingEntries();
LibraryEntries CaseAndTrimEntries();
LibraryEntries FieldAndReplaceEntries();
LibraryEntries NumberTextEntries();
LibraryEntries FormatEntries();
LibraryEntries ClockEntries();
LibraryEntries EnvironmentHookEntries();
// Library functions whose bodies are the engine runtime's own: the math
// wrappers, the bitwise forms, Rnd and the colour makers and readers.
LibraryEntries RuntimeFoundationEntries();
// Every engine runtime function that generated code reaches by intrinsic
// number, under its link name.
LibraryEntries RuntimeIntrinsicEntries();

}  // namespace library
}  // namespace standin
}  // namespace quorl

#endif
