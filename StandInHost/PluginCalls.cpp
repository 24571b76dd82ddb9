#include "StandInHost/PluginCalls.h"

#include <utility>

#include "StandInHost/HostObjects.h"
#include "quorl/QuorlHost.h"

namespace quorl {
namespace standin {
namespace {

struct CallFailures {
  std::exception_ptr callback;
  VELDObject raised = nullptr;
};

// Each thread calls into the plug-in on its own.
thread_local CallFailures gCurrent;

[[noreturn]] void ThrowRaised(VELDObject raised) {
  std::string name = raised->mClass->mName;
  bool running = DerivesFrom(raised->mClass,
                             "QuorlScriptAlreadyRunningException");
  UnlockObject(raised);
  if (running) throw ScriptAlreadyRunning(name);
  throw HostException(name);
}

}  // namespace

void CallIntoPlugin(std::function<void()> const& call) {
  CallFailures outer = std::exchange(gCurrent, CallFailures());
  call();
  CallFailures mine = std::exchange(gCurrent, outer);
  if (mine.callback) {
    UnlockObject(mine.raised);
    std::rethrow_exception(mine.callback);
  }
  if (mine.raised) ThrowRaised(mine.raised);
}

void RecordRaisedException(VELDObject exception) {
  if (!exception || gCurrent.raised) return;
  LockObject(exception);
  gCurrent.raised = exception;
}

void RecordCallbackFailure(std::exception_ptr failure) {
  if (!gCurrent.callback) gCurrent.callback = std::move(failure);
}

bool CallbackFailed() { return static_cast<bool>(gCurrent.callback); }

}  // namespace standin
}  // namespace quorl
