// Code memory from the system's page mapper. Each buffer gets a mapping of
// its own with a small header in front that remembers the mapping's size,
// so that FreeMemory needs nothing but the buffer.
#include "Compiler/BackEnds/Minilinker/ExecutableDataBlock.h"

#include <sys/mman.h>
#include <unistd.h>

#include "Common/ObjectModel/RuntimeExceptionFoundation.h"
#include "Universal/Assertion.h"

namespace {

// The header keeps the code 16-byte aligned.
enum { kMappingHeader = 16 };

// Counts the mappings alive, for leak checks; changed only by
// AllocMemory and FreeMemory, never reset.
long sLiveMappings;

unsigned char* MappingOf(unsigned char* buffer) {
  return buffer - kMappingHeader;
}

size_t MappingSize(unsigned char* buffer) {
  return *reinterpret_cast<size_t*>(MappingOf(buffer));
}

}  // namespace

ExecutableDataBlock::ExecutableDataBlock(unsigned char bigEndian)
    : DataBlock(bigEndian), mExecutable(false) {}

// The base destructor could only reach the base FreeMemory.
ExecutableDataBlock::~ExecutableDataBlock() { ReleaseBuffer(); }

unsigned char* ExecutableDataBlock::AllocMemory(unsigned int size) {
  QASSERT_TEXT(!mExecutable, "sealed code must not grow");
  size_t mapped = size + kMappingHeader;
  void* base = mmap(nullptr, mapped, PROT_READ | PROT_WRITE,
                    MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (base == MAP_FAILED) return nullptr;
  *static_cast<size_t*>(base) = mapped;
  sLiveMappings++;
  return static_cast<unsigned char*>(base) + kMappingHeader;
}

void ExecutableDataBlock::FreeMemory(unsigned char* buffer) {
  if (!buffer) return;
  ForgetHandlerSearches();
  munmap(MappingOf(buffer), MappingSize(buffer));
  sLiveMappings--;
}

void ExecutableDataBlock::MakeExecutable() {
  if (mExecutable || !mBuffer) {
    mExecutable = true;
    return;
  }
  int result = mprotect(MappingOf(mBuffer), MappingSize(mBuffer),
                        PROT_READ | PROT_EXEC);
  QASSERT_TEXT(result == 0, "mprotect");
  mExecutable = true;
}

long ExecutableDataBlock::LiveMappings() { return sLiveMappings; }
