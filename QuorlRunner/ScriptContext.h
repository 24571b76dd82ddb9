// The context object quorl gives every script: the arguments after the
// file, the environment, and a way to end with an exit status. The script
// calls its members as if they were global:
//
//   ArgCount                      how many arguments there are
//   Args(index As Integer)        one of them, from 0
//   Environment(name As String)   a variable of the environment; "" if unset
//   Quit(status As Integer)       ends the script with that exit status
#ifndef QUORLRUNNER_SCRIPTCONTEXT_H
#define QUORLRUNNER_SCRIPTCONTEXT_H

#include <string>
#include <vector>

#include "quorl/QuorlHost.h"

namespace quorl {
namespace runner {

// What the script's context holds and what it left behind. Lives as long
// as the script runs with it.
struct ContextState {
  std::vector<std::string> arguments;
  bool quit = false;
  int exitStatus = 0;
};

// Defines the context's class (an engine must be loaded) and makes the
// script run with an object of it that reads and writes `state`.
void GiveContext(Script& script, ContextState& state);

}  // namespace runner
}  // namespace quorl

#endif
