#include "Plugin/CompileLock.h"

std::mutex& CompileLock() {
  static std::mutex sLock;
  return sLock;
}
