// Calls from the embedding API into the plug-in. C++ exceptions must never
// travel through engine frames, so whatever goes wrong while engine code is
// on the stack is only recorded, and turned into a C++ exception once the
// call is back with the host. Each call keeps its own record, so a handler
// that calls into the same script gets the failures of its own call.
#ifndef STANDINHOST_PLUGINCALLS_H
#define STANDINHOST_PLUGINCALLS_H

#include <exception>
#include <functional>

#include "Plugin/PluginBoundary.h"

namespace quorl {
namespace standin {

// Runs `call`, then throws what was recorded during it: first an exception a
// handler or hook threw, else a raised host exception (ScriptAlreadyRunning
// for "QuorlScriptAlreadyRunningException" and its subclasses, HostException
// for any other class).
void CallIntoPlugin(std::function<void()> const& call);

// Keeps the exception object (locked) as the current call's raised
// exception. Only the first raise of a call counts.
void RecordRaisedException(VELDObject exception);

// Keeps an exception caught in a handler or hook. Only the first counts.
void RecordCallbackFailure(std::exception_ptr failure);

// True once a handler of the current call has failed: later events of the
// call are not delivered.
bool CallbackFailed();

}  // namespace standin
}  // namespace quorl

#endif
