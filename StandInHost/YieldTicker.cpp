// One ticker thread per process, started at the first script that needs it
// and waiting, idle, while none runs. Its state is never freed: the thread
// may still wait on it while the process exits. A child process made by
// fork() has none of its parent's threads, so it starts a ticker of its
// own. Where no thread can be started (an address space used up), scripts
// run as before, with the hook called every many passes.
#include "StandInHost/YieldTicker.h"

#include <pthread.h>
#include <unistd.h>

#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <set>

#include "StandInHost/HostState.h"
#include "StandInHost/RuntimeLibrary/LibraryYields.h"

namespace quorl {
namespace standin {
namespace {

// The ticker needs next to no stack; a small one spares the address space
// of a 32-bit host.
size_t const kTickerStackSize = 1 << 20;

struct Ticker {
  std::mutex lock;
  std::condition_variable wake;
  std::multiset<VELDObject> running;
};

// The yield a library call takes: the engine's, where it offers one.
bool YieldNow() {
  QuorlEngineOperations const* engine = Host().engine;
  if (!engine || engine->mSize <= offsetof(QuorlEngineOperations, mYieldNow) ||
      !engine->mYieldNow)
    return false;
  return engine->mYieldNow() != 0;
}

bool EngineTakesRequests() {
  QuorlEngineOperations const* engine = Host().engine;
  return engine &&
         engine->mSize > offsetof(QuorlEngineOperations, mRequestYield) &&
         engine->mRequestYield;
}

void* Tick(void* argument) {
  Ticker* ticker = static_cast<Ticker*>(argument);
  std::unique_lock<std::mutex> hold(ticker->lock);
  for (;;) {
    ticker->wake.wait(hold, [ticker] { return !ticker->running.empty(); });
    ticker->wake.wait_for(hold, kYieldTick);
    library::gYieldTicks.fetch_add(1, std::memory_order_relaxed);
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
    library::SetLibraryYield(YieldNow);
    ticker = new Ticker;
    owner = getpid();
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, kTickerStackSize);
    pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
    pthread_t thread;
    pthread_create(&thread, &attributes, Tick, ticker);
    pthread_attr_destroy(&attributes);
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
