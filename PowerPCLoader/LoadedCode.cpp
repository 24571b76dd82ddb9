#include "PowerPCLoader/LoadedCode.h"

#include <string.h>
#include <sys/mman.h>

#include "PowerPCLoader/CallBridges.h"

namespace ppcloader {
namespace {

// Room for the bridges behind the code.
unsigned long const kBridgeSpace = 256 * 1024;
unsigned long const kBranchReach = 0x2000000;

// What the compiler calls the glue of calls through a pointer, less the
// call's shape.
std::string const kPointerGluePrefix = "% call pointer ";
// What stands between a function's name and a call's shape when the call
// passes other words than the first call to it: each shape has its bridge.
std::string const kShapedCallInfix = "% shape ";

std::string FunctionNameOf(std::string const& linkName) {
  return linkName.substr(0, linkName.find(kShapedCallInfix));
}

unsigned char const* sCodeStart;
unsigned char const* sCodeEnd;
unsigned char const* sStubsEnd;
// The entry thunks' extents, by start.
std::map<unsigned char const*, unsigned char const*> sEntryThunks;
std::map<unsigned long, unsigned long> sLines;

unsigned long Get32(unsigned char const* p) {
  return static_cast<unsigned long>(p[0]) << 24 | p[1] << 16 | p[2] << 8 | p[3];
}

void Set32(unsigned char* p, unsigned long word) {
  p[0] = word >> 24;
  p[1] = word >> 16;
  p[2] = word >> 8;
  p[3] = word;
}

// The low 16 bits of an instruction word.
void SetHalf(unsigned char* p, unsigned long value) {
  Set32(p, (Get32(p) & 0xffff0000) | (value & 0xffff));
}

// The 24-bit displacement of a bl.
bool SetBranch(unsigned char* site, unsigned long target) {
  long displacement = static_cast<long>(target - reinterpret_cast<unsigned long>(site));
  if (displacement >= static_cast<long>(kBranchReach) ||
      displacement < -static_cast<long>(kBranchReach))
    return false;
  Set32(site, (Get32(site) & 0xfc000003) | (displacement & 0x03fffffc));
  return true;
}

// A bridge goes into the mapping word by word.
class MappingWriter : public PPCOpWriter {
 public:
  MappingWriter(unsigned char* at, unsigned char* limit)
      : mAt(at), mLimit(limit) {}
  void ppc_Write32(unsigned long word) override {
    if (mAt + 4 > mLimit) {
      mFull = true;
      return;
    }
    Set32(mAt, word);
    mAt += 4;
  }
  unsigned char* mAt;
  unsigned char* mLimit;
  bool mFull = false;
};

}  // namespace

bool IsGeneratedCode(void const* address) {
  unsigned char const* p = static_cast<unsigned char const*>(address);
  return p >= sCodeStart && p < sCodeEnd;
}

int LinkOffsetOf(void const* address) {
  unsigned char const* p = static_cast<unsigned char const*>(address);
  if (p < sCodeStart || p >= sStubsEnd) return kPlatformLinkOffset;
  auto thunk = sEntryThunks.upper_bound(p);
  if (thunk != sEntryThunks.begin() && p < (--thunk)->second)
    return kPlatformLinkOffset;
  return kGeneratedLinkOffset;
}

unsigned long SourceLineAt(void const* address) {
  if (!IsGeneratedCode(address)) return 0;
  unsigned long offset = static_cast<unsigned long>(
      static_cast<unsigned char const*>(address) - sCodeStart);
  auto after = sLines.upper_bound(offset);
  if (after == sLines.begin()) return 0;
  return (--after)->second + 1;
}

LoadedCode::~LoadedCode() {
  if (mMapping) munmap(mMapping, mMappingSize);
}

void* LoadedCode::Entry(std::string const& name) const {
  auto found = mEntries.find(name);
  return found == mEntries.end() ? nullptr : mMapping + found->second;
}

// Each variable aligned to its own size, then a word per static block
// that a global names, holding the block's address, then the blocks.
bool LoadedCode::LayOutGlobals(Module const& module) {
  unsigned long end = 0;
  for (auto const& global : module.globals) {
    unsigned long size = global.second ? global.second : 1;
    end = (end + size - 1) / size * size;
    mGlobalOffsets[global.first] = end;
    end += global.second;
  }
  end = (end + 3) & ~3ul;
  unsigned long slots = end;
  unsigned long staticStart = slots + 4 * module.staticBlocks.size();
  mStaticStart = staticStart;
  mGlobalData.assign(staticStart + module.staticData.size() + 8, 0);
  if (!module.staticData.empty())
    memcpy(mGlobalData.data() + staticStart, module.staticData.data(),
           module.staticData.size());
  for (size_t i = 0; i < module.staticBlocks.size(); i++) {
    unsigned long slot = slots + 4 * i;
    mGlobalOffsets[module.staticBlocks[i].first] = slot;
    Set32(mGlobalData.data() + slot,
          reinterpret_cast<unsigned long>(mGlobalData.data()) + staticStart +
              module.staticBlocks[i].second);
  }
  return true;
}

unsigned long LoadedCode::GlobalAddress(std::string const& name) const {
  auto found = mGlobalOffsets.find(name);
  if (found == mGlobalOffsets.end()) return 0;
  return reinterpret_cast<unsigned long>(mGlobalData.data()) + found->second;
}

// The literal's string, made on first use; a site that is not the low half
// of a pair holds one more reference of its own.
unsigned long LoadedCode::LiteralAddress(Name const& text, bool keepSite) {
  std::string key = std::to_string(text.encoding) + ":" + text.bytes;
  auto found = mLiterals.find(key);
  if (found == mLiterals.end()) {
    string literal;
    literal.ConstructFromBuffer(text.bytes.data(),
                                static_cast<unsigned int>(text.bytes.size()));
    literal.SetEncoding(text.encoding);
    found = mLiterals.emplace(key, literal).first;
  }
  if (keepSite) mSiteReferences.push_back(found->second);
  return reinterpret_cast<unsigned long>(found->second.GetStringStorage());
}

unsigned long LoadedCode::BridgeTo(std::string const& name, void* function,
                                   Module const& module, std::string* error) {
  auto found = mBridges.find(name);
  if (found != mBridges.end()) return found->second;
  auto shape = module.callShapes.find(name);
  std::string argumentShape = shape == module.callShapes.end() ? "" : shape->second;
  MappingWriter writer(mMapping + mStubEnd, mMapping + mMappingSize);
  // Behind the code lie the entry thunks, bridges and glues; of these only
  // a thunk's address is ever taken.
  bool written =
      function ? WriteCallBridge(writer, reinterpret_cast<unsigned long>(function),
                                 argumentShape)
               : WritePointerCallGlue(
                     writer, reinterpret_cast<unsigned long>(mMapping),
                     reinterpret_cast<unsigned long>(mMapping + module.code.size()),
                     reinterpret_cast<unsigned long>(mMapping + mMappingSize),
                     argumentShape);
  if (!written || writer.mFull) {
    *error = "no bridge for " + name + " (" + argumentShape + ")";
    return 0;
  }
  unsigned long address = reinterpret_cast<unsigned long>(mMapping + mStubEnd);
  mStubEnd = writer.mAt - mMapping;
  mBridges[name] = address;
  return address;
}

bool LoadedCode::PatchImport(Module const& module, ModuleImport const& import,
                             FunctionTable const& functions,
                             std::string* error) {
  unsigned char* site = mMapping + import.offset;
  std::string const& name = import.name.bytes;
  unsigned long address = 0;
  switch (import.type) {
    case kImportPPCBranch: {
      auto local = mEntries.find(name);
      if (local != mEntries.end() && import.library.empty()) {
        address = reinterpret_cast<unsigned long>(mMapping + local->second);
      } else if (name.compare(0, kPointerGluePrefix.size(), kPointerGluePrefix) == 0) {
        address = BridgeTo(name, nullptr, module, error);
      } else {
        auto outside = functions.find(FunctionNameOf(name));
        if (outside == functions.end() || !outside->second) {
          *error = "The function " + FunctionNameOf(name) + " could not be found.";
          return false;
        }
        address = BridgeTo(name, outside->second, module, error);
      }
      if (!address) return false;
      if (!SetBranch(site, address)) {
        *error = "a call out of the branch's reach";
        return false;
      }
      return true;
    }
    // A function's address may reach C as well as generated code: it is
    // the one C can call, and calls through pointers from generated code
    // go through the glue.
    case kImportPPCFunctionHigh:
    case kImportPPCFunctionLow:
      address = FunctionPointer(name, functions, error);
      if (!address) return false;
      SetHalf(site, import.type == kImportPPCFunctionHigh ? address >> 16
                                                           : address);
      return true;
    case kImportPPCGlobal:
      address = GlobalAddress(name);
      if (!address) {
        *error = "Could not find data: " + name;
        return false;
      }
      SetHalf(site, address >> 16);
      SetHalf(site + 4, address);
      return true;
    case kImportPPCStringHigh:
      SetHalf(site, LiteralAddress(import.name, true) >> 16);
      return true;
    case kImportPPCStringLow:
      SetHalf(site, LiteralAddress(import.name, false));
      return true;
    default:
      *error = "an import of kind " + std::to_string(import.type) +
               " has no place in a PowerPC module";
      return false;
  }
}

unsigned long LoadedCode::FunctionPointer(std::string const& name,
                                         FunctionTable const& functions,
                                         std::string* error) {
  auto local = mEntries.find(name);
  if (local == mEntries.end()) {
    auto outside = functions.find(name);
    if (outside == functions.end() || !outside->second) {
      *error = "The function " + name + " could not be found.";
      return 0;
    }
    return reinterpret_cast<unsigned long>(outside->second);
  }
  auto made = mEntryThunks.find(name);
  if (made != mEntryThunks.end()) return made->second;
  MappingWriter writer(mMapping + mStubEnd, mMapping + mMappingSize);
  WriteEntryThunk(writer, reinterpret_cast<unsigned long>(mMapping + local->second));
  if (writer.mFull) {
    *error = "no room for the entry thunks";
    return 0;
  }
  sEntryThunks[mMapping + mStubEnd] = writer.mAt;
  unsigned long address = reinterpret_cast<unsigned long>(mMapping + mStubEnd);
  mStubEnd = writer.mAt - mMapping;
  mEntryThunks[name] = address;
  return address;
}

// Static data holds absolute words.
bool LoadedCode::PatchStaticImport(ModuleImport const& import,
                                   FunctionTable const& functions,
                                   std::string* error) {
  unsigned long value = 0;
  switch (import.type) {
    case kImportStringLiteral:
      value = LiteralAddress(import.name, true);
      break;
    case kImportFunctionPtr:
      value = FunctionPointer(import.name.bytes, functions, error);
      if (!value) return false;
      break;
    case kImportGlobal32:
      value = GlobalAddress(import.name.bytes);
      if (!value) {
        *error = "Could not find data: " + import.name.bytes;
        return false;
      }
      break;
    default:
      *error = "an import of kind " + std::to_string(import.type) +
               " has no place in static data";
      return false;
  }
  if (mStaticStart + import.offset + 4 > mGlobalData.size()) {
    *error = "a static data import out of its block";
    return false;
  }
  Set32(mGlobalData.data() + mStaticStart + import.offset, value);
  return true;
}

bool LoadedCode::Link(Module const& module, FunctionTable const& functions,
                      std::string* error) {
  mMappingSize = (module.code.size() + kBridgeSpace + 4095) & ~4095ul;
  void* mapping = mmap(nullptr, mMappingSize, PROT_READ | PROT_WRITE | PROT_EXEC,
                       MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (mapping == MAP_FAILED) {
    *error = "no executable memory";
    return false;
  }
  mMapping = static_cast<unsigned char*>(mapping);
  memcpy(mMapping, module.code.data(), module.code.size());
  mStubEnd = (module.code.size() + 15) & ~15ul;
  mEntries = module.entries;
  LayOutGlobals(module);
  for (ModuleImport const& import : module.imports)
    if (!PatchImport(module, import, functions, error)) return false;
  for (ModuleImport const& import : module.staticImports)
    if (!PatchStaticImport(import, functions, error)) return false;
  sCodeStart = mMapping;
  sCodeEnd = mMapping + module.code.size();
  sStubsEnd = mMapping + mStubEnd;
  sLines = module.lines;
  __builtin___clear_cache(reinterpret_cast<char*>(mMapping),
                          reinterpret_cast<char*>(mMapping + mStubEnd));
  return true;
}

}  // namespace ppcloader
