// The runtime library's functions by theme, each theme a list of the names
// the host serves and the addresses behind them. The functions themselves
// have internal linkage: compiled scripts reach them only by name, through
// the host's resolver.
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

LibraryEntries CharacterStringEntries();
LibraryEntries ByteStringEntries();
LibraryEntries CaseAndTrimEntries();
LibraryEntries FieldAndReplaceEntries();
LibraryEntries NumberTextEntries();
LibraryEntries FormatEntries();
LibraryEntries MathEntries();
LibraryEntries TimeAndRandomEntries();
// The engine runtime's own string and colour entry points.
LibraryEntries RuntimeFoundationEntries();

}  // namespace library
}  // namespace standin
}  // namespace quorl

#endif
