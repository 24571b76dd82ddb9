// quorl_fuzz: compiles and runs generated and mutated programs through the
// real plug-in and reports every program that takes the host down.
//
// Programs run in batches inside a forked child, so that a crash ends only
// the child. Before each program the child writes its index to memory
// shared with the parent; when the child dies by a signal, exits with a
// failed assertion or stops making progress, the parent knows which
// program did it, reduces it line by line to a small program that fails
// the same way, saves both, and starts a new child after it.
//
// A compile error, a script exception and a normal end are all fine
// outcomes; so is a run the time limit stops. A signal, an assertion, a
// C++ exception out of Run() (the compiler out of memory), or a program
// that neither ends nor yields within the watchdog time are faults.
#include <alloca.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "quorl/QuorlHost.h"
#include "tests/fuzz/ProgramGenerator.h"

namespace {

struct Options {
  unsigned long count = 1000;
  unsigned long seed = 1;
  unsigned long first = 0;
  std::string corpus;
  std::string faults = "fuzz-faults";
  double timeLimit = 0.25;
  double watchdog = 120.0;
  unsigned long memoryMB = 1024;
  unsigned long batch = 200;
  bool quiet = false;
};

// What the parent learns of a program that went wrong.
struct Fault {
  std::string kind;  // "signal 11", "assertion", "hang", "C++ exception"
  bool operator==(Fault const& other) const { return kind == other.kind; }
};

// The child's progress, in memory both processes see.
struct Progress {
  volatile unsigned long current;
  volatile unsigned long long heartbeat;
};

int const kExitCleanly = 0;
int const kExitCppException = 3;
int const kReductionTrials = 300;
// A long campaign says how far it got this often, in programs.
unsigned long const kReportEvery = 10000;

// A script that declares C functions or reads and writes through a Ptr
// reaches the process's memory as C code does, and one that turns a
// runtime check off by pragma (bounds, nil objects, stack overflow, the
// yields of background tasks) has asked to go without it: a mutation of
// either may corrupt the heap or never stop by design, so such scripts are
// not mutated.
bool ReachesRawMemory(std::string const& text) {
  static std::regex const raw(
      "\\b(declare|ptr|(disable)?BoundsChecking|NilObjectChecking|"
      "StackOverflowChecking|(disable)?BackgroundTasks)\\b",
      std::regex::icase);
  return std::regex_search(text, raw);
}

std::vector<std::string> LoadCorpus(std::string const& folder) {
  std::vector<std::string> corpus;
  if (folder.empty()) return corpus;
  for (auto const& entry :
       std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.path().extension() != ".bas") continue;
    std::ifstream in(entry.path(), std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    if (!ReachesRawMemory(text.str())) corpus.push_back(text.str());
  }
  return corpus;
}

// Program `index` of the campaign: generated or mutated, half and half when
// there is a corpus, from a random source of its own.
std::string ProgramAt(Options const& options,
                      std::vector<std::string> const& corpus,
                      unsigned long index) {
  std::seed_seq seed{static_cast<unsigned>(options.seed),
                     static_cast<unsigned>(index),
                     static_cast<unsigned>(index >> 16 >> 16)};
  fuzz::Random random(seed);
  if (!corpus.empty() && (index & 1)) return fuzz::MutateProgram(random, corpus);
  return fuzz::GenerateProgram(random);
}

struct TimeLimitReached {};

// Runs one program in this process. Throws only what Run() lets out.
void RunProgram(std::string const& text, double timeLimit,
                Progress* progress) {
  auto deadline = std::chrono::steady_clock::now() +
                  std::chrono::duration<double>(timeLimit);
  quorl::SetYieldHook([deadline, progress] {
    if (progress) progress->heartbeat = progress->heartbeat + 1;
    if (std::chrono::steady_clock::now() >= deadline) throw TimeLimitReached();
  });
  quorl::Script script;
  script.OnPrint([](std::string const&) {});
  script.OnInput([](std::string const&) { return std::string(); });
  script.OnError([](quorl::ScriptError const&) {});
  script.SetSource(text);
  try {
    script.Run();
  } catch (TimeLimitReached const&) {
  }
}

// What of the stack is left untouched by ReserveStack: the frames already
// there and the kernel's guard gap.
rlim_t const kStackReserveMargin = 256 * 1024;

// Maps the main thread's stack to the depth the host lets scripts reach.
// The kernel grows it on demand, which an address-space limit already
// taken up by the heap would refuse: a deep recursion would then die of a
// signal before it reaches the host's stack limit, which it never does in
// a process without that limit.
__attribute__((noinline)) void ReserveStack() {
  rlimit stack;
  if (getrlimit(RLIMIT_STACK, &stack) != 0 || stack.rlim_cur == RLIM_INFINITY ||
      stack.rlim_cur <= kStackReserveMargin)
    return;
  size_t size = stack.rlim_cur - kStackReserveMargin;
  volatile char* bottom = static_cast<char*>(alloca(size));
  for (size_t at = 0; at < size; at += 4096) bottom[at] = 0;
}

// Also ends the child with its parent: a campaign stopped by its owner
// leaves no batch behind.
void LimitMemory(unsigned long megabytes) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  ReserveStack();
  rlimit limit;
  limit.rlim_cur = limit.rlim_max = rlim_t(megabytes) << 20;
  setrlimit(RLIMIT_AS, &limit);
}

// The child: programs [from, to), each announced before it starts.
[[noreturn]] void RunBatch(Options const& options,
                           std::vector<std::string> const& corpus,
                           unsigned long from, unsigned long to,
                           Progress* progress) {
  LimitMemory(options.memoryMB);
  for (unsigned long index = from; index < to; index++) {
    progress->current = index;
    progress->heartbeat = progress->heartbeat + 1;
    try {
      RunProgram(ProgramAt(options, corpus, index), options.timeLimit, progress);
    } catch (...) {
      _exit(kExitCppException);
    }
  }
  progress->current = to;
  _exit(kExitCleanly);
}

Fault FaultOfStatus(int status) {
  if (WIFSIGNALED(status)) return {"signal " + std::to_string(WTERMSIG(status))};
  if (WEXITSTATUS(status) == kExitCppException) return {"C++ exception"};
  return {"exit " + std::to_string(WEXITSTATUS(status))};
}

// Waits for the child, killing it when its heartbeat stops for longer than
// the watchdog allows. Answers true with `fault` unset for a clean end.
bool WaitForChild(pid_t child, Progress* progress, double watchdog,
                  Fault* fault) {
  auto lastBeat = std::chrono::steady_clock::now();
  unsigned long long beat = progress->heartbeat;
  for (;;) {
    int status = 0;
    pid_t done = waitpid(child, &status, WNOHANG);
    if (done == child) {
      if (WIFEXITED(status) && WEXITSTATUS(status) == kExitCleanly) return true;
      *fault = FaultOfStatus(status);
      return false;
    }
    auto now = std::chrono::steady_clock::now();
    if (progress->heartbeat != beat) {
      beat = progress->heartbeat;
      lastBeat = now;
    } else if (std::chrono::duration<double>(now - lastBeat).count() > watchdog) {
      kill(child, SIGKILL);
      waitpid(child, &status, 0);
      *fault = {"hang"};
      return false;
    }
    usleep(2000);
  }
}

Progress* SharedProgress() {
  void* memory = mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE,
                      MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  return static_cast<Progress*>(memory);
}

// One program alone in a child: how it ends.
bool RunAlone(Options const& options, std::string const& text, Fault* fault) {
  static Progress* progress = SharedProgress();
  progress->current = 0;
  progress->heartbeat = 0;
  std::fflush(nullptr);
  pid_t child = fork();
  if (child == 0) {
    LimitMemory(options.memoryMB);
    try {
      RunProgram(text, options.timeLimit, progress);
    } catch (...) {
      _exit(kExitCppException);
    }
    _exit(kExitCleanly);
  }
  return WaitForChild(child, progress, options.watchdog, fault);
}

// Drops runs of lines, halving the run length, while the program still
// fails the same way.
std::string Reduce(Options const& options, std::string const& text,
                   Fault const& fault) {
  std::vector<std::string> lines;
  std::stringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  auto joined = [](std::vector<std::string> const& parts) {
    std::string out;
    for (auto const& part : parts) out += part + "\n";
    return out;
  };
  int trials = 0;
  for (size_t run = lines.size() / 2; run >= 1 && trials < kReductionTrials;
       run /= 2) {
    for (size_t at = 0; at + run <= lines.size() && trials < kReductionTrials;) {
      std::vector<std::string> shorter(lines);
      shorter.erase(shorter.begin() + at, shorter.begin() + at + run);
      Fault again;
      trials++;
      if (!RunAlone(options, joined(shorter), &again) && again == fault)
        lines = shorter;
      else
        at += run;
    }
  }
  return joined(lines);
}

void Save(std::string const& path, std::string const& text) {
  std::ofstream(path, std::ios::binary) << text;
}

bool ReadNumber(char const* text, unsigned long* out) {
  char* end = nullptr;
  *out = std::strtoul(text, &end, 10);
  return end && *end == 0 && end != text;
}

int Usage() {
  std::cerr << "usage: quorl_fuzz [--count N] [--seed S] [--first I] "
               "[--corpus DIR] [--faults DIR] [--time-limit SECONDS] "
               "[--memory-mb M] [--batch B] [--quiet] [--show I]\n";
  return 64;
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  long show = -1;
  for (int k = 1; k < argc; k++) {
    std::string arg = argv[k];
    char const* value = k + 1 < argc ? argv[k + 1] : nullptr;
    unsigned long number = 0;
    bool numeric = value && ReadNumber(value, &number);
    if (arg == "--quiet") { options.quiet = true; continue; }
    if (!value) return Usage();
    k++;
    if (arg == "--corpus") options.corpus = value;
    else if (arg == "--faults") options.faults = value;
    else if (arg == "--time-limit") options.timeLimit = std::atof(value);
    else if (!numeric) return Usage();
    else if (arg == "--count") options.count = number;
    else if (arg == "--seed") options.seed = number;
    else if (arg == "--first") options.first = number;
    else if (arg == "--memory-mb") options.memoryMB = number;
    else if (arg == "--batch") options.batch = number ? number : 1;
    else if (arg == "--show") show = long(number);
    else return Usage();
  }
  std::vector<std::string> corpus = LoadCorpus(options.corpus);
  if (show >= 0) {
    std::cout << ProgramAt(options, corpus, show);
    return 0;
  }
  quorl::LoadPlugin();
  std::filesystem::create_directories(options.faults);
  Progress* progress = SharedProgress();
  auto started = std::chrono::steady_clock::now();
  unsigned long faults = 0, end = options.first + options.count;
  for (unsigned long from = options.first; from < end;) {
    unsigned long to = std::min(end, from + options.batch);
    progress->current = from;
    progress->heartbeat = 0;
    std::fflush(nullptr);
    pid_t child = fork();
    if (child == 0) RunBatch(options, corpus, from, to, progress);
    Fault fault;
    if (WaitForChild(child, progress, options.watchdog, &fault)) {
      if (!options.quiet && (to - options.first) / kReportEvery !=
                                (from - options.first) / kReportEvery)
        std::cout << to - options.first << " programs done, " << faults
                  << " faults" << std::endl;
      from = to;
      continue;
    }
    unsigned long index = progress->current;
    std::string text = ProgramAt(options, corpus, index);
    std::string base = options.faults + "/fault-" + std::to_string(options.seed) +
                       "-" + std::to_string(index);
    Save(base + ".bas", text);
    // A hang costs the watchdog's time at every trial: it is kept whole.
    if (fault.kind != "hang")
      Save(base + ".reduced.bas", Reduce(options, text, fault));
    std::cout << "program " << index << ": " << fault.kind << " -> " << base
              << ".bas" << std::endl;
    faults++;
    from = index + 1;
  }
  double seconds = std::chrono::duration<double>(
                       std::chrono::steady_clock::now() - started).count();
  if (!options.quiet || faults)
    std::cout << options.count << " programs from " << options.first
              << " (seed " << options.seed << ") in " << seconds << " s: "
              << faults << " faults" << std::endl;
  return faults ? 1 : 0;
}
