#include "tests/Compiler/BackEnds/ReferenceAssembler.h"

#include <stdio.h>
#include <stdlib.h>
#include <unistd.h>

#include <fstream>
#include <map>
#include <sstream>

std::string MakeScratchDir(char const* prefix) {
  std::string pattern = std::string("/tmp/") + prefix + "-XXXXXX";
  char* dir = mkdtemp(&pattern[0]);
  return dir ? dir : "/tmp";
}

std::string ReadWholeFile(std::string const& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

std::string HexBytes(Bytes const& bytes) {
  std::string out;
  char pair[4];
  for (unsigned char b : bytes) {
    snprintf(pair, sizeof pair, "%02x", b);
    if (!out.empty()) out += ' ';
    out += pair;
  }
  return out;
}

// Each line gets a label before it; the label offsets cut the section.
std::vector<Bytes> AssembleLines(std::vector<std::string> const& lines,
                                 std::string* error) {
  std::string dir = MakeScratchDir("quorl-ref");
  std::ofstream source(dir + "/ref.s");
  source << ".intel_syntax noprefix\n.text\n";
  for (size_t i = 0; i < lines.size(); i++)
    source << "q" << i << ":\n" << lines[i] << "\n";
  source << "q" << lines.size() << ":\n";
  source.close();
  std::string command = "cd " + dir +
                        " && as --32 -o ref.o ref.s 2> as.err"
                        " && objcopy -O binary -j .text ref.o ref.bin"
                        " && nm ref.o > ref.nm";
  if (system(command.c_str()) != 0) {
    *error = ReadWholeFile(dir + "/as.err");
    return {};
  }
  std::map<size_t, unsigned long> offsets;
  std::istringstream symbols(ReadWholeFile(dir + "/ref.nm"));
  std::string address, kind, name;
  while (symbols >> address >> kind >> name)
    if (name.size() > 1 && name[0] == 'q')
      offsets[std::stoul(name.substr(1))] = std::stoul(address, nullptr, 16);
  std::string code = ReadWholeFile(dir + "/ref.bin");
  std::vector<Bytes> result;
  for (size_t i = 0; i < lines.size(); i++)
    result.push_back(Bytes(code.begin() + offsets[i],
                           code.begin() + offsets[i + 1]));
  system(("rm -rf " + dir).c_str());
  return result;
}

std::vector<std::string> Disassemble(Bytes const& code) {
  std::string dir = MakeScratchDir("quorl-ref");
  std::ofstream out(dir + "/code.bin", std::ios::binary);
  out.write(reinterpret_cast<char const*>(code.data()), code.size());
  out.close();
  std::string command = "objdump -D -b binary -m i386 -M intel " + dir +
                        "/code.bin > " + dir + "/code.txt";
  std::vector<std::string> result;
  if (system(command.c_str()) != 0) return result;
  std::istringstream listing(ReadWholeFile(dir + "/code.txt"));
  std::string line;
  while (std::getline(listing, line)) {
    // "   4:\t8b 45 80             \tmov    eax,DWORD PTR [ebp-0x80]"
    size_t first = line.find('\t');
    if (first == std::string::npos || line.find(':') > first) continue;
    size_t second = line.find('\t', first + 1);
    if (second == std::string::npos) continue;  // a continuation of bytes
    std::string text, word;
    std::istringstream words(line.substr(second + 1));
    while (words >> word) text += (text.empty() ? "" : " ") + word;
    result.push_back(text);
  }
  system(("rm -rf " + dir).c_str());
  return result;
}
