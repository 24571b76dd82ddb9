// The module file a PowerPC loader reads, read back here by the same rules:
// every import lands on the instruction it patches, the list callers are
// linked in, and the call shapes travel with the code.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "Compiler/BackEnds/PowerPC/CGPPC.h"
#include "Compiler/BackEnds/PowerPC/PPCModuleFile.h"
#include "tests/Compiler/BackEnds/GeneratedCode.h"

namespace {

// Big-endian words and counted names, as the file has them.
class FileReader {
 public:
  explicit FileReader(DataBlock const& file) : mFile(file) {}
  unsigned long Word() {
    unsigned long word = mFile.Get32(mAt);
    mAt += 4;
    return word;
  }
  std::string Name() {
    Word();  // the encoding
    unsigned long length = Word();
    std::string text(reinterpret_cast<char const*>(mFile.Buffer()) + mAt, length);
    mAt += length;
    return text;
  }
  std::vector<unsigned char> Bytes(unsigned long length) {
    std::vector<unsigned char> bytes(mFile.Buffer() + mAt,
                                     mFile.Buffer() + mAt + length);
    mAt += length;
    return bytes;
  }
  bool AtEnd() const { return mAt == mFile.Length(); }

 private:
  DataBlock const& mFile;
  unsigned long mAt = 0;
};

struct FileImport {
  unsigned long type, offset;
  std::string name;
};

unsigned long CodeWord(std::vector<unsigned char> const& code, unsigned long at) {
  return (unsigned long)code[at] << 24 | code[at + 1] << 16 | code[at + 2] << 8 |
         code[at + 3];
}

}  // namespace

TEST(PPCModuleFileTest, ImportsLandOnTheirInstructions) {
  TacProgram p;
  long mainFrame = p.Frame("main");
  TacAddr const* text = p.Global("greeting", IRDataType(kStringType));
  p.Enter(kMainBodyFunctionName, mainFrame);
  p.Line(kTacStore, p.Text("hello"), nilTacAddr, text);
  p.Line(kTacPutParam, text);
  p.Line(kTacPutParam, p.Real64(1.5));
  p.Line(kTacCall, p.Text("Greet"));
  p.Line(kTacStop);
  long greetFrame = p.Frame("Greet");
  TacAddr const* who = p.Local(greetFrame, "who", IRDataType(kStringType));
  TacAddr const* how = p.Local(greetFrame, "how", IRDataType(kReal64Type));
  p.Enter("Greet", greetFrame);
  p.Params({who, how});
  p.Line(kTacLeave);
  CGPPC generator;
  CGPPCOptions options;
  options.mCodeModel = kCodeModelAbsolute;
  generator.Configure(options, IntrinsicFunctionNames());
  RecordingDelegate errors;
  generator.SetDelegate(&errors);
  Ref<CodeModule> module = generator.Generate("test", &p.mBlock, p.mTables);
  ASSERT_TRUE(module);
  module->mInitializers.AddEntry("Startup", "Greet");
  StringMapCase<string> shapes = generator.CallShapes();
  Ref<DataBlock> file = WritePPCModuleFile(module, shapes);
  ASSERT_TRUE(file);

  FileReader in(*file);
  EXPECT_EQ((unsigned long)kPPCModuleMagic, in.Word());
  EXPECT_EQ((unsigned long)kPPCModuleVersion, in.Word());
  std::vector<unsigned char> code = in.Bytes(in.Word());
  std::map<std::string, unsigned long> entries;
  for (unsigned long n = in.Word(); n; n--) {
    std::string name = in.Name();
    entries[name] = in.Word();
  }
  std::vector<FileImport> imports;
  for (unsigned long n = in.Word(); n; n--) {
    FileImport import;
    import.type = in.Word();
    import.offset = in.Word();
    import.name = in.Name();
    in.Name();  // library
    imports.push_back(import);
  }
  for (char const* name : {"% main", "Greet", "% initialize", "% finalize"})
    EXPECT_EQ(1u, entries.count(name)) << name;

  int callsToGreet = 0, stringHalves = 0, globalPairs = 0;
  for (FileImport const& import : imports) {
    ASSERT_LT(import.offset + 4, code.size() + 1);
    unsigned long word = CodeWord(code, import.offset);
    if (import.type == Import::kImportPPCBranch) {
      EXPECT_EQ(0x48000001ul, word) << import.name;  // bl, to be filled in
      if (import.name == "Greet") callsToGreet++;
    } else if (import.type == Import::kImportPPCStringHigh) {
      EXPECT_EQ(15ul, word >> 26);  // lis
      EXPECT_EQ(24ul, CodeWord(code, import.offset + 4) >> 26);  // ori
      stringHalves++;
    } else if (import.type == Import::kImportPPCGlobal) {
      EXPECT_EQ(15ul, word >> 26);
      EXPECT_EQ(24ul, CodeWord(code, import.offset + 4) >> 26);
      globalPairs++;
    }
  }
  EXPECT_EQ(2, callsToGreet);  // from the main body and from the initializer
  EXPECT_EQ(1, stringHalves);
  EXPECT_EQ(1, globalPairs);  // the argument comes from the register stored
  for (unsigned long n = in.Word(); n; n--) {  // globals
    EXPECT_EQ("greeting", in.Name());
    EXPECT_EQ(4ul, in.Word());
  }
  EXPECT_EQ(0ul, in.Word());  // no static data
  EXPECT_EQ(0ul, in.Word());
  EXPECT_EQ(0ul, in.Word());
  std::map<std::string, std::string> fileShapes;
  for (unsigned long n = in.Word(); n; n--) {
    std::string name = in.Name();
    fileShapes[name] = in.Name();
  }
  EXPECT_EQ("wd", fileShapes["Greet"]);
  for (unsigned long n = in.Word(); n; n--) in.Bytes(8);  // line records
  EXPECT_TRUE(in.AtEnd());
}
