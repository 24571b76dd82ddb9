// The cross assembler and disassembler as references for the words the
// PowerPC back end writes.
#ifndef TESTS_COMPILER_BACKENDS_POWERPC_PPCREFERENCEASSEMBLER_H
#define TESTS_COMPILER_BACKENDS_POWERPC_PPCREFERENCEASSEMBLER_H

#include <string>
#include <vector>

typedef std::vector<unsigned long> Words;

// Assembles one instruction per line (32-bit PowerPC, big-endian) and
// returns its words in order; empty when the assembler failed, with its
// complaint in *error.
Words AssemblePPC(std::vector<std::string> const& lines, std::string* error);
// Disassembles big-endian words into "mnemonic operands" lines, one per
// word, spacing collapsed.
std::vector<std::string> DisassemblePPC(Words const& words);
std::string HexWord(unsigned long word);

#endif
