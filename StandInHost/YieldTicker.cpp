// One ticker thread per process, started at the first script that needs it
// and waiting, idle, while none runs. Its state is never freed: the thread
// may still wait on it while the process exits. A child process made by
// fork() has none of its parent's threads, so it starts a ticker of its
// own.
#include "StandInHost/YieldTicker.h"

#include <unistd.h>

#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <set>
#include <thread>

#include "StandInHost/HostState.h"

namespace quorl {
namespace standin {
namespace {

struct Ticker {
  std::mutex lock;
  std::condition_variable wake;
  std::multiset<VELDObject> running;
};

bool EngineTakesRequests() {
  QuorlEngineOperations const* engine = Host().engine;
  return engine &&
         engine->mSize > offsetof(QuorlEngineOperations, mRequestYield) &&
         engine->mRequestYield;
}

void Tick(Ticker* ticker) {
  std::unique_lock<std::mutex> hold(ticker->lock);
  for (;;) {
    ticker->wake.wait(hold, [ticker] { return !ticker->running.empty(); });
    ticker->wake.wait_for(hold, kYieldTick);
    for (VELDObject instance : ticker->running)
      Host().engine->mRequestYield(instance);
  }
}

Ticker& ProcessTicker() {
  static std::mutex startLock;
  static Ticker* ticker = nullptr;
  static pid_t owner = 0;
  std::lock_guard<std::mutex> hold(startLock);
  if (!ticker || owner != getpid()) {
    ticker = new Ticker;
    owner = getpid();
    std::thread(Tick, ticker).detach();
  }
  return *ticker;
}

}  // namespace

YieldTicks::YieldTicks(VELDObject instance) {
  if (!instance || !Host().options.yieldHook || !EngineTakesRequests()) return;
  Ticker& ticker = ProcessTicker();
  std::lock_guard<std::mutex> hold(ticker.lock);
  ticker.running.insert(instance);
  mInstance = instance;
  ticker.wake.notify_one();
}

YieldTicks::~YieldTicks() {
  if (!mInstance) return;
  Ticker& ticker = ProcessTicker();
  std::lock_guard<std::mutex> hold(ticker.lock);
  ticker.running.erase(ticker.running.find(mInstance));
}

}  // namespace standin
}  // namespace quorl
