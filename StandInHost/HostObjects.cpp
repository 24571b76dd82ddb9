#include "StandInHost/HostObjects.h"

#include <stdint.h>
#include <stdlib.h>
#include <strings.h>

#include <atomic>
#include <map>

namespace quorl {
namespace standin {
namespace {

struct CaseInsensitiveLess {
  bool operator()(std::string const& a, std::string const& b) const {
    return strcasecmp(a.c_str(), b.c_str()) < 0;
  }
};
using HandlerTable = std::map<std::string, void*, CaseInsensitiveLess>;

// Only plain fields, so the header stays the first thing in the record.
struct ObjectRecord {
  VELDObjectHeader header;
  int32_t refCount;
  int32_t finalizing;
  unsigned char* data;
  HandlerTable* handlers;  // made on the first handler
  void* embedderData;
};

std::atomic<long> gLiveObjects{0};

ObjectRecord* Record(VELDObject object) {
  return reinterpret_cast<ObjectRecord*>(object);
}

void RunConstructors(VELDObject object) {
  for (VELDClassRef cls : ClassChain(object->mClass))
    if (cls->mConstructor) cls->mConstructor(object);
}

void RunDestructors(VELDObject object) {
  std::vector<VELDClassRef> chain = ClassChain(object->mClass);
  for (auto it = chain.rbegin(); it != chain.rend(); ++it)
    if ((*it)->mDestructor) (*it)->mDestructor(object);
}

void FreeObject(ObjectRecord* record) {
  delete record->handlers;
  free(record->data);
  free(record);
  --gLiveObjects;
}

}  // namespace

VELDObject NewObject(VELDClassRef cls) {
  if (!cls) return nullptr;
  auto* record = static_cast<ObjectRecord*>(calloc(1, sizeof(ObjectRecord)));
  uint32_t size = InstanceDataSize(cls);
  record->data = static_cast<unsigned char*>(calloc(1, size ? size : 1));
  record->header.mClass = cls;
  record->refCount = 1;
  ++gLiveObjects;
  VELDObject object = &record->header;
  RunConstructors(object);
  return object;
}

void LockObject(VELDObject object) {
  if (object) ++Record(object)->refCount;
}

// A destructor may lock and unlock its own object; the finalizing flag keeps
// that from starting a second destruction.
void UnlockObject(VELDObject object) {
  if (!object) return;
  ObjectRecord* record = Record(object);
  if (--record->refCount > 0 || record->finalizing) return;
  record->finalizing = 1;
  RunDestructors(object);
  FreeObject(record);
}

long ReferenceCount(VELDObject object) {
  return object ? Record(object)->refCount : 0;
}

long LiveObjects() { return gLiveObjects; }

void* ClassData(VELDObject object, VELDClassRef cls) {
  if (!object || !cls) return nullptr;
  for (VELDClassRef c : ClassChain(object->mClass))
    if (c == cls) return Record(object)->data + DataOffset(cls);
  return nullptr;
}

void* EventHandler(VELDObject object, char const* declaration) {
  if (!object || !declaration || !Record(object)->handlers) return nullptr;
  HandlerTable const& table = *Record(object)->handlers;
  auto found = table.find(declaration);
  return found == table.end() ? nullptr : found->second;
}

void SetEventHandler(VELDObject object, char const* declaration,
                     void* handler) {
  if (!object || !declaration) return;
  ObjectRecord* record = Record(object);
  if (!handler) {
    if (record->handlers) record->handlers->erase(declaration);
    return;
  }
  if (!record->handlers) record->handlers = new HandlerTable;
  (*record->handlers)[declaration] = handler;
}

void* EmbedderData(VELDObject object) {
  return object ? Record(object)->embedderData : nullptr;
}

void SetEmbedderData(VELDObject object, void* data) {
  if (object) Record(object)->embedderData = data;
}

}  // namespace standin
}  // namespace quorl
