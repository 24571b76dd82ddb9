#include "QuorlRunner/ScriptText.h"

#include <cerrno>
#include <cstring>

#include "QuorlRunner/CommandLine.h"

namespace quorl {
namespace runner {

// A directory opens for reading on this system, and fails only at the first
// read; both faults end up here.
bool ReadStream(std::FILE* stream, std::string& text, std::string& error) {
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
