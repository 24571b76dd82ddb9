#include "Common/RuntimeExternalFunctions.h"

#include <dlfcn.h>
#include <string.h>

#include "Universal/SimpleVector.h"

namespace {

// The names a call passes are the literals of its call site, so the same
// storages come back on every call: they are compared first, the text
// after, since a storage may be reused for other text by a later program.
struct Resolved {
  stringStorage* mName;
  stringStorage* mLibrary;
  string mNameText;
  string mLibraryText;
  void* mAddress;
};

SimpleVector<Resolved>& ResolvedOnThisThread() {
  thread_local SimpleVector<Resolved> resolved;
  return resolved;
}

char const* TextOf(stringStorage* text) { return text ? text->CString() : ""; }

bool Matches(Resolved const& entry, stringStorage* name,
             stringStorage* library) {
  return entry.mName == name && entry.mLibrary == library &&
         strcmp(entry.mNameText.CString(), TextOf(name)) == 0 &&
         strcmp(entry.mLibraryText.CString(), TextOf(library)) == 0;
}

void* OpenLibrary(char const* library) {
  if (void* handle = dlopen(library, RTLD_NOW | RTLD_GLOBAL)) return handle;
  if (strchr(library, '/') || strstr(library, ".so")) return nullptr;
  string prefixed = string("lib") + string(library) + string(".so");
  if (void* handle = dlopen(prefixed.CString(), RTLD_NOW | RTLD_GLOBAL))
    return handle;
  string suffixed = string(library) + string(".so");
  return dlopen(suffixed.CString(), RTLD_NOW | RTLD_GLOBAL);
}

void* Resolve(char const* name, char const* library) {
  if (!*name || !*library) return nullptr;
  void* handle = OpenLibrary(library);
  return handle ? dlsym(handle, name) : nullptr;
}

}  // namespace

void* LoadFunctionPointerFromLibrary(stringStorage* name,
                                     stringStorage* library) {
  SimpleVector<Resolved>& resolved = ResolvedOnThisThread();
  for (unsigned long i = 0; i < resolved.size(); i++)
    if (Matches(resolved[i], name, library)) return resolved[i].mAddress;
  void* address = Resolve(TextOf(name), TextOf(library));
  // A failure is not remembered: the library may appear later.
  if (address) {
    Resolved entry = {name, library, string(TextOf(name)),
                      string(TextOf(library)), address};
    resolved.push_back(entry);
  }
  return address;
}
