// The exit statuses of quorl. Usage and input faults follow the values
// sysexits.h gives them, so that shell scripts can tell them apart.
#ifndef QUORLRUNNER_EXITSTATUS_H
#define QUORLRUNNER_EXITSTATUS_H

namespace quorl {
namespace runner {

enum ExitStatus {
  kExitCompleted = 0,
  kExitCompileErrors = 1,
  kExitRuntimeError = 2,
  kExitTimeLimit = 3,           // the script ran past --time-limit
  kExitUsage = 64,
  kExitUnreadableFile = 66,
  kExitEngineUnavailable = 69,  // no plug-in, or one that registers no class
  kExitHostFailure = 70,        // the engine raised an exception to the host
};

}  // namespace runner
}  // namespace quorl

#endif
