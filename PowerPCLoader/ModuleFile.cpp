#include "PowerPCLoader/ModuleFile.h"

#include <fstream>
#include <iterator>

namespace ppcloader {
namespace {

unsigned long const kMagic = 0x51505043;  // "QPPC"
unsigned long const kVersion = 1;

// Big-endian words and counted names from a byte buffer; a read past the
// end sets the failure flag and gives zeros.
class Reader {
 public:
  explicit Reader(std::vector<unsigned char> const& bytes) : mBytes(bytes) {}
  bool Failed() const { return mFailed; }

  unsigned long Word() {
    if (mAt + 4 > mBytes.size()) {
      mFailed = true;
      return 0;
    }
    unsigned long value = static_cast<unsigned long>(mBytes[mAt]) << 24 |
                          mBytes[mAt + 1] << 16 | mBytes[mAt + 2] << 8 |
                          mBytes[mAt + 3];
    mAt += 4;
    return value;
  }

  std::vector<unsigned char> Bytes(unsigned long count) {
    if (mFailed || count > mBytes.size() - mAt) {
      mFailed = true;
      return {};
    }
    std::vector<unsigned char> out(mBytes.begin() + mAt,
                                   mBytes.begin() + mAt + count);
    mAt += count;
    return out;
  }

  Name ReadName() {
    Name name;
    name.encoding = Word();
    std::vector<unsigned char> bytes = Bytes(Word());
    name.bytes.assign(bytes.begin(), bytes.end());
    return name;
  }

  std::vector<ModuleImport> Imports() {
    std::vector<ModuleImport> imports;
    for (unsigned long n = Word(); n && !mFailed; n--) {
      ModuleImport import;
      import.type = Word();
      import.offset = Word();
      import.name = ReadName();
      import.library = ReadName().bytes;
      imports.push_back(import);
    }
    return imports;
  }

  std::vector<std::pair<std::string, unsigned long>> Offsets() {
    std::vector<std::pair<std::string, unsigned long>> pairs;
    for (unsigned long n = Word(); n && !mFailed; n--) {
      std::string name = ReadName().bytes;
      pairs.push_back({name, Word()});
    }
    return pairs;
  }

 private:
  std::vector<unsigned char> const& mBytes;
  unsigned long mAt = 0;
  bool mFailed = false;
};

}  // namespace

bool ReadModuleFile(std::string const& path, Module* module,
                    std::string* error) {
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    *error = "cannot read " + path;
    return false;
  }
  std::vector<unsigned char> bytes((std::istreambuf_iterator<char>(in)),
                                   std::istreambuf_iterator<char>());
  Reader reader(bytes);
  if (reader.Word() != kMagic || reader.Word() != kVersion) {
    *error = path + " is no PowerPC module of this version";
    return false;
  }
  module->code = reader.Bytes(reader.Word());
  for (auto const& entry : reader.Offsets()) module->entries[entry.first] = entry.second;
  module->imports = reader.Imports();
  module->globals = reader.Offsets();
  module->staticData = reader.Bytes(reader.Word());
  module->staticBlocks = reader.Offsets();
  module->staticImports = reader.Imports();
  for (unsigned long n = reader.Word(); n && !reader.Failed(); n--) {
    std::string name = reader.ReadName().bytes;
    module->callShapes[name] = reader.ReadName().bytes;
  }
  for (unsigned long n = reader.Word(); n && !reader.Failed(); n--) {
    unsigned long offset = reader.Word();
    module->lines[offset] = reader.Word();
  }
  if (reader.Failed()) *error = path + " is cut short";
  return !reader.Failed();
}

}  // namespace ppcloader
