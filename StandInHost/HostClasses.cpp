#include "StandInHost/HostClasses.h"

#include <strings.h>

namespace quorl {
namespace standin {
namespace {

// A class chain longer than this is a cycle of superclass names.
constexpr int kMaxChainDepth = 64;

struct ClassRegistry {
  std::vector<std::unique_ptr<VELDClassReference>> live;
  std::vector<std::unique_ptr<VELDClassReference>> retired;
};

ClassRegistry& Registry();

std::unique_ptr<VELDClassReference> BuiltInClass(char const* name,
                                                 char const* superName) {
  auto cls = std::make_unique<VELDClassReference>();
  cls->mName = name;
  cls->mSuperName = superName;
  return cls;
}

// The exception classes every host offers a script.
void AddBuiltInClasses(ClassRegistry& registry) {
  static char const* const kSubclasses[] = {
      "OutOfBoundsException", "StackOverflowException",
      "NilObjectException",   "IllegalCastException",
      "TypeMismatchException", "OutOfMemoryException",
      "FunctionNotFoundException"};
  registry.live.push_back(BuiltInClass("RuntimeException", ""));
  for (char const* name : kSubclasses)
    registry.live.push_back(BuiltInClass(name, "RuntimeException"));
}

ClassRegistry& Registry() {
  static ClassRegistry* registry = [] {
    auto* r = new ClassRegistry;
    AddBuiltInClasses(*r);
    return r;
  }();
  return *registry;
}

uint32_t Aligned(uint32_t size) { return (size + 7u) & ~7u; }

}  // namespace

void ResetClassRegistry() {
  ClassRegistry& registry = Registry();
  for (auto& cls : registry.live) registry.retired.push_back(std::move(cls));
  registry.live.clear();
  AddBuiltInClasses(registry);
}

VELDClassRef RegisterClassReference(std::unique_ptr<VELDClassReference> cls) {
  ClassRegistry& registry = Registry();
  for (auto& existing : registry.live) {
    if (strcasecmp(existing->mName.c_str(), cls->mName.c_str()) == 0) {
      registry.retired.push_back(std::move(existing));
      existing = std::move(cls);
      return existing.get();
    }
  }
  registry.live.push_back(std::move(cls));
  return registry.live.back().get();
}

VELDClassRef FindClass(char const* name) {
  if (!name) return nullptr;
  for (auto& cls : Registry().live)
    if (strcasecmp(cls->mName.c_str(), name) == 0) return cls.get();
  return nullptr;
}

VELDClassRef SuperclassOf(VELDClassRef cls) {
  if (!cls || cls->mSuperName.empty()) return nullptr;
  return FindClass(cls->mSuperName.c_str());
}

std::vector<VELDClassRef> ClassChain(VELDClassRef cls) {
  std::vector<VELDClassRef> chain;
  for (; cls && chain.size() < kMaxChainDepth; cls = SuperclassOf(cls))
    chain.insert(chain.begin(), cls);
  return chain;
}

bool DerivesFrom(VELDClassRef cls, char const* name) {
  for (VELDClassRef c : ClassChain(cls))
    if (strcasecmp(c->mName.c_str(), name) == 0) return true;
  return false;
}

uint32_t DataOffset(VELDClassRef cls) {
  uint32_t offset = 0;
  for (VELDClassRef c : ClassChain(cls)) {
    if (c == cls) break;
    offset += Aligned(c->mDataSize);
  }
  return offset;
}

uint32_t InstanceDataSize(VELDClassRef cls) {
  return cls ? DataOffset(cls) + Aligned(cls->mDataSize) : 0;
}

}  // namespace standin
}  // namespace quorl
