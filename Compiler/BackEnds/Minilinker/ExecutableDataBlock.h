// A data block whose buffer can become machine code. The buffer is mapped
// readable and writable while the linker writes and patches it, and is
// then sealed readable and executable; it is never writable and executable
// at once.
#ifndef COMPILER_BACKENDS_MINILINKER_EXECUTABLEDATABLOCK_H
#define COMPILER_BACKENDS_MINILINKER_EXECUTABLEDATABLOCK_H

#include "Compiler/BackEnds/codestorage.h"

class ExecutableDataBlock : public DataBlock {
 public:
  explicit ExecutableDataBlock(unsigned char bigEndian);
  ~ExecutableDataBlock() override;

  // Fresh pages of their own, readable and writable, for each buffer.
  unsigned char* AllocMemory(unsigned int size) override;
  void FreeMemory(unsigned char* buffer) override;

  // Seals the buffer: readable and executable, no longer writable. The
  // block must not grow or be patched afterwards.
  void MakeExecutable();
  bool IsExecutable() const { return mExecutable; }

  // Buffers mapped by all blocks of this class and not yet unmapped.
  static long LiveMappings();

 private:
  bool mExecutable;
};

#endif
