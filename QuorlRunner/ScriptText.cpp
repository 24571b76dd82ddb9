#include "QuorlRunner/ScriptText.h"

#include <cerrno>
#include <cstring>

#include <sys/stat.h>

#include "QuorlRunner/CommandLine.h"

namespace quorl {
namespace runner {

namespace {

// A regular file is read into exactly as much room as it takes: the text
// then holds no more memory than the file, however big it is.
void ReserveRestOfFile(std::FILE* stream, std::string& text) {
  struct stat status;
  if (fstat(fileno(stream), &status) != 0 || !S_ISREG(status.st_mode)) return;
  long start = std::ftell(stream);
  if (start >= 0 && status.st_size > start)
    text.reserve(text.size() + static_cast<size_t>(status.st_size - start));
}

}  // namespace

// A directory opens for reading on this system, and fails only at the first
// read; both faults end up here.
bool ReadStream(std::FILE* stream, std::string& text, std::string& error) {
  ReserveRestOfFile(stream, text);
  char buffer[65536];
  size_t count;
  while ((count = std::fread(buffer, 1, sizeof buffer, stream)) > 0)
    text.append(buffer, count);
  if (std::ferror(stream)) {
    error = std::strerror(errno);
    return false;
  }
  return true;
}

bool ReadScriptText(std::string const& file, std::string& text,
                    std::string& error) {
  if (file == kStandardInputOperand) return ReadStream(stdin, text, error);
  std::FILE* stream = std::fopen(file.c_str(), "rb");
  if (!stream) {
    error = std::strerror(errno);
    return false;
  }
  bool ok = ReadStream(stream, text, error);
  std::fclose(stream);
  return ok;
}

}  // namespace runner
}  // namespace quorl
