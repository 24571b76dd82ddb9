// The system's own assembler and disassembler as references for the bytes
// the back end writes.
#ifndef TESTS_COMPILER_BACKENDS_REFERENCEASSEMBLER_H
#define TESTS_COMPILER_BACKENDS_REFERENCEASSEMBLER_H

#include <string>
#include <vector>

typedef std::vector<unsigned char> Bytes;

// Assembles each line (Intel syntax, 32-bit) on its own and returns the
// bytes of each, in order; an empty vector when the assembler failed, with
// its complaint in *error.
std::vector<Bytes> AssembleLines(std::vector<std::string> const& lines,
                                 std::string* error);
// Disassembles raw 32-bit code into "mnemonic operands" lines (Intel
// syntax, spacing collapsed), one per instruction.
std::vector<std::string> Disassemble(Bytes const& code);
// Hex pairs separated by blanks.
std::string HexBytes(Bytes const& bytes);

// A fresh scratch folder under /tmp whose name starts with `prefix`, for the
// reference tools' files; /tmp itself when none can be made.
std::string MakeScratchDir(char const* prefix);
// The whole of a file, empty when it cannot be read.
std::string ReadWholeFile(std::string const& path);

#endif
