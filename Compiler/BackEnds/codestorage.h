// Containers between back end and linker: blocks of raw target bytes, the
// imports that the linker must fill in, and the module that holds a whole
// compilation's output.
//
// Byte order is a property of each block, chosen from the target processor
// and never from the machine the compiler runs on: Set16/Set32 write byte by
// byte, so one code path serves both targets on any host.
#ifndef COMPILER_BACKENDS_CODESTORAGE_H
#define COMPILER_BACKENDS_CODESTORAGE_H

#include "Compiler/DebuggerSymbols.h"
#include "Compiler/SmartRef.h"
#include "Universal/SimpleVector.h"
#include "Universal/stringmap.h"
#include "Universal/ustring.h"

class FunctionBlock;
class StaticDataBlock;
class UnitSymbolTable;

// The target processor families a back end names.
enum {
  kProcessorFamilyPowerPC = 1,
  kProcessorFamilyIA32 = 2,
};

// Bytes in a target's order. Storage comes from AllocMemory, so that a
// subclass can place the same bytes in executable memory; such a subclass
// must release its buffer in its own destructor (ReleaseBuffer), since the
// base destructor can only reach the base FreeMemory.
class DataBlock {
 public:
  explicit DataBlock(unsigned char bigEndian);
  // A copy of the bytes, in the byte order of the machine running this.
  DataBlock(void const* bytes, unsigned int length);
  virtual ~DataBlock();

  virtual void Append(Ref<DataBlock> other);
  virtual void Append(FunctionBlock* other);
  virtual void Append(StaticDataBlock* other);
  virtual void Append(char const* bytes, unsigned int length);
  virtual unsigned char* AllocMemory(unsigned int size);
  virtual void FreeMemory(unsigned char* buffer);

  unsigned int Length() const { return mCodeLen; }
  unsigned char* Buffer() const { return mBuffer; }
  unsigned int Capacity() const { return mCapacity; }
  bool IsBigEndian() const { return mBigEndian != 0; }

  // Exactly n bytes in use and reserved; bytes gained are zero.
  void SetLength(unsigned int n);
  // Reserves exactly n bytes; a smaller n cuts the contents.
  void ResizeBuffer(unsigned int n);

  // A code generator appends a byte at a time: the common case, room left,
  // stands here.
  void Append8(unsigned int value) {
    if (mCodeLen < mCapacity)
      mBuffer[mCodeLen++] = static_cast<unsigned char>(value);
    else
      AppendGrowing8(value);
  }
  void Append16(unsigned int value);
  void Append32(unsigned int value);
  // Writes past the capacity are dropped without a word: patching a stale
  // offset must never corrupt memory.
  void Set8(unsigned int offset, unsigned int value);
  void Set16(unsigned int offset, unsigned int value);
  void Set32(unsigned int offset, unsigned int value);
  // Reads past the capacity give 0.
  unsigned int Get8(unsigned int offset) const;
  unsigned int Get16(unsigned int offset) const;
  unsigned int Get32(unsigned int offset) const;

  // A new block holding a copy of the range, same byte order.
  Ref<DataBlock> Get(unsigned int offset, unsigned int length) const;
  // Replaces `length` bytes at `offset` by the bytes of `replacement`.
  void Set(unsigned int offset, unsigned int length,
           Ref<DataBlock> replacement);

 protected:
  // Frees the buffer through the most derived FreeMemory; for destructors.
  void ReleaseBuffer();
  // Room for n more bytes, growing by at least half the capacity.
  void GrowBy(unsigned int n);
  void AppendBytes(unsigned char const* bytes, unsigned int length);
  void AppendGrowing8(unsigned int value);

  unsigned char* mBuffer;
  unsigned int mCapacity;
  unsigned int mCodeLen;
  unsigned char mBigEndian;

 private:
  DataBlock(DataBlock const&) = delete;
  DataBlock& operator=(DataBlock const&) = delete;
};

// A place in a block that only the linker can finish.
class Import {
 public:
  enum Type {
    kImportPPCBranch = 0,
    kImportCall32 = 1,
    kImportPPCGlobal = 2,
    kImportGlobal32 = 3,
    kImportPPCFunctionLow = 4,
    kImportPPCFunctionHigh = 5,
    kImportPPCFunctionOffset = 6,
    kImportFunctionPtr = 7,
    kImportUnused8 = 8,
    kImportPPCStringHigh = 9,
    kImportPPCStringLow = 10,
    kImportStringLiteral = 11,
    kImportPICBaseAnchor = 12,
    kImportPICHigh = 13,
    kImportPICLow = 14,
  };

  Import() : mType(kImportCall32), mOffset(0) {}
  Import(Type type, string const& name, string const& library,
         unsigned int offset)
      : mType(type), mName(name), mSourceLibrary(library), mOffset(offset) {}

  bool IsRelativeBranch() const;
  bool IsCodePtr() const;
  bool IsStringLiteral() const;

  Type mType;
  string mName;           // what is referred to
  string mSourceLibrary;  // empty for everything in this program
  unsigned int mOffset;   // of the patch field from the block's start
};

// A block with a link name and imports.
class LinkableDataBlock : public DataBlock {
 public:
  explicit LinkableDataBlock(unsigned char bigEndian) : DataBlock(bigEndian) {}

  // An import at Length() + offsetFromEnd.
  void MarkImport(Import::Type type, string const& imported,
                  string const& library, int offsetFromEnd);
  void MarkImport(Import::Type type, string const& imported,
                  int offsetFromEnd);
  void MarkImportAbsolute(Import::Type type, string const& imported,
                          string const& library, unsigned int offset);
  void MarkImportAbsolute(Import::Type type, string const& imported,
                          unsigned int offset);

  SimpleVector<Import> mImports;
  string mName;

 protected:
  // Appends the other's bytes, with its imports moved by this length.
  void AppendLinkable(LinkableDataBlock const* other);
};

// One record of a line table.
struct cotlis {
  unsigned int offset;
  unsigned int line;
};

// Code offsets to source lines, ascending by offset.
class CodeOffsetToLineIndex {
 public:
  // Nothing when the last record already has the line.
  void AddEntry(unsigned int offset, unsigned int line);
  // The last record at or below the offset.
  bool LookupLine(unsigned int offset, int* line) const;
  // The first record of exactly that line.
  bool LookupOffset(unsigned int line, unsigned int* offset) const;
  void Adjust(int delta);
  CodeOffsetToLineIndex Clone() const { return *this; }

  SimpleVector<cotlis> mIndex;
  string mSourceName;
};

// The code of one function. Raw bytes must not enter without their
// imports, so appending a plain block is refused.
class FunctionBlock : public LinkableDataBlock {
 public:
  explicit FunctionBlock(unsigned char bigEndian)
      : LinkableDataBlock(bigEndian), mParameterSpace(0) {}

  using DataBlock::Append;
  void Append(Ref<DataBlock> other) override;
  void Append(FunctionBlock* other) override;
  FunctionBlock* Clone() const;

  CodeOffsetToLineIndex mLineTable;
  unsigned int mParameterSpace;
};

// Static data: class records, vtables, tables of strings.
class StaticDataBlock : public LinkableDataBlock {
 public:
  explicit StaticDataBlock(unsigned char bigEndian)
      : LinkableDataBlock(bigEndian) {}

  using DataBlock::Append;
  void Append(StaticDataBlock* other) override;
  StaticDataBlock* Clone() const;
};

// A resource for a built application; the in-memory path leaves the list
// empty.
struct BuildResource {
  string mName;
  long mType;
  string mPath;
  string mData;
};

// Everything one compilation produced. Owns its blocks.
class CodeModule {
 public:
  CodeModule();
  virtual ~CodeModule();

  // Blocks in the byte order of mProcessorFamily; the caller puts the raw
  // pointers into mFunctions or mStaticData.
  FunctionBlock* MakeFunctionBlock();
  StaticDataBlock* MakeStaticDataBlock();
  Ref<DataBlock> MakeDataBlock();
  void SetManifestSymbols(UnitSymbolTable* symbols);
  // Keeps the text and its MD5 digest.
  void SetManifestSource(string const& source);

  UnitSymbolTable* mManifestSymbols;
  string mManifestSource;
  string mManifestDigest;
  string mSourceName;
  long mProcessorFamily;
  SimpleVector<FunctionBlock*> mFunctions;
  SimpleVector<StaticDataBlock*> mStaticData;
  StringMap<unsigned int> mGlobals;  // name and storage size
  SimpleVector<BuildResource> mResources;
  StringSet mRequiredFrameworks;
  StringSet mRequiredSymbols;
  StringMap<string> mInitializers;
  StringMap<string> mFinalizers;
  StringMap<string> mDependencies;
  // Filled only when the compilation is asked for debug data.
  DebuggerCodeModuleData mDebugData;

 private:
  unsigned char BigEndian() const;
  CodeModule(CodeModule const&) = delete;
  CodeModule& operator=(CodeModule const&) = delete;
};

#endif
