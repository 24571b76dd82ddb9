// Reading the script's text from a file or from standard input.
#ifndef QUORLRUNNER_SCRIPTTEXT_H
#define QUORLRUNNER_SCRIPTTEXT_H

#include <cstdio>
#include <string>

namespace quorl {
namespace runner {

// Reads the whole stream. False with `error` set when reading fails.
bool ReadStream(std::FILE* stream, std::string& text, std::string& error);

// Reads the file, or standard input for "-". False with `error` set (the
// system's reason) when it cannot be opened or read.
bool ReadScriptText(std::string const& file, std::string& text,
                    std::string& error);

}  // namespace runner
}  // namespace quorl

#endif
