// The runtime library's functions by theme, each theme a list of the names
// the host serves and the addresses behind them. The host's own functions
// have internal linkage, and those of the engine runtime are served under
// their C names: compiled scripts reach both only by name, through the
// host's resolver.
#ifndef STANDINHOST_RUNTIMELIBRARY_LIBRARYENTRIES_H
#define STANDINHOST_RUNTIMELIBRARY_LIBRARYENTRIES_H

#include <new>
#include <vector>

#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "StandInHost/RuntimeLibrary/LibraryYields.h"

namespace quorl {
namespace standin {
namespace library {

struct LibraryEntry {
  char const* name;
  void* address;
};
using LibraryEntries = std::vector<LibraryEntry>;

// Calls a library function for a script. A C++ container or string that
// cannot grow inside it must not unwind through the script's frames, which
// have no unwind tables: the failure becomes the script's
// OutOfMemoryException, raised once the C++ exception is gone. A yield the
// host has asked for is taken first, so that a script spending its time
// in the library yields on time.
template <auto function>
struct LibraryCall;
template <class Result, class... Arguments, Result (*function)(Arguments...)>
struct LibraryCall<function> {
  static Result Call(Arguments... arguments) {
    if (YieldIsDue() && YieldFromLibraryCall()) return Result();
    try {
      return function(arguments...);
    } catch (std::bad_alloc const&) {
    }
    RaiseOutOfMemoryException();
    return Result();
  }
};

// An entry of one of the host's own library functions, called through
// LibraryCall.
template <auto function>
LibraryEntry Entry(char const* name) {
  return {name, reinterpret_cast<void*>(&LibraryCall<function>::Call)};
}

// An entry of an engine runtime function with C linkage under its own
// name; the engine runtime allocates with the C heap and raises itself.
#define QUORL_SERVE(function) \
  ::quorl::standin::library::LibraryEntry{#function, \
                                          reinterpret_cast<void*>(&function)}

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
