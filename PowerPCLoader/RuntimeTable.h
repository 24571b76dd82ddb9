// What a module may call outside itself: the engine's runtime table, with
// the stand-in host's library behind it, and the console in place of a
// host.
#ifndef POWERPCLOADER_RUNTIMETABLE_H
#define POWERPCLOADER_RUNTIMETABLE_H

#include <string>

#include "PowerPCLoader/LoadedCode.h"

namespace ppcloader {

FunctionTable MakeRuntimeTable();

// Where the console sends the script's output, and how many runtime errors
// it reported; the name is the script's, for the messages.
void ConnectConsole(std::string const& scriptName);
int RuntimeErrorCount();

}  // namespace ppcloader

#endif
