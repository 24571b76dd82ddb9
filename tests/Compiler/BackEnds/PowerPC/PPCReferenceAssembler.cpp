#include "tests/Compiler/BackEnds/PowerPC/PPCReferenceAssembler.h"

#include <stdio.h>
#include <stdlib.h>

#include <fstream>
#include <sstream>

#include "tests/Compiler/BackEnds/ReferenceAssembler.h"

std::string HexWord(unsigned long word) {
  char text[12];
  snprintf(text, sizeof text, "%08lx", word & 0xffffffff);
  return text;
}

Words AssemblePPC(std::vector<std::string> const& lines, std::string* error) {
  std::string dir = MakeScratchDir("quorl-ppc");
  std::ofstream source(dir + "/ref.s");
  source << ".text\n";
  for (std::string const& line : lines) source << line << "\n";
  source.close();
  std::string command = "cd " + dir +
                        " && powerpc-linux-gnu-as -a32 -mbig -o ref.o ref.s"
                        " 2> as.err"
                        " && powerpc-linux-gnu-objcopy -O binary -j .text"
                        " ref.o ref.bin";
  Words words;
  if (system(command.c_str()) != 0) {
    *error = ReadWholeFile(dir + "/as.err");
  } else {
    std::string code = ReadWholeFile(dir + "/ref.bin");
    for (size_t i = 0; i + 3 < code.size(); i += 4)
      words.push_back((unsigned long)(unsigned char)code[i] << 24 |
                      (unsigned char)code[i + 1] << 16 |
                      (unsigned char)code[i + 2] << 8 |
                      (unsigned char)code[i + 3]);
  }
  system(("rm -rf " + dir).c_str());
  return words;
}

std::vector<std::string> DisassemblePPC(Words const& words) {
  std::string dir = MakeScratchDir("quorl-ppc");
  std::ofstream out(dir + "/code.bin", std::ios::binary);
  for (unsigned long word : words) {
    char bytes[4] = {char(word >> 24), char(word >> 16), char(word >> 8),
                     char(word)};
    out.write(bytes, 4);
  }
  out.close();
  std::string command = "powerpc-linux-gnu-objdump -D -b binary -m powerpc"
                        " -EB " + dir + "/code.bin > " + dir + "/code.txt";
  std::vector<std::string> result;
  if (system(command.c_str()) == 0) {
    std::istringstream listing(ReadWholeFile(dir + "/code.txt"));
    std::string line;
    while (std::getline(listing, line)) {
      // "   4:\t80 a6 ff f8 \tlwz     r5,-8(r6)"
      size_t first = line.find('\t');
      if (first == std::string::npos || line.find(':') > first) continue;
      size_t second = line.find('\t', first + 1);
      if (second == std::string::npos) continue;
      std::string text, word;
      std::istringstream parts(line.substr(second + 1));
      while (parts >> word) text += (text.empty() ? "" : " ") + word;
      result.push_back(text);
    }
  }
  system(("rm -rf " + dir).c_str());
  return result;
}
