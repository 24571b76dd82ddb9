// The contract between the plug-in and its host.
//
// The host loads the plug-in, calls its one exported entry, VELDPluginMain,
// with a resolver, and from then on every contact is by name: the plug-in asks
// the resolver for the address of a host operation and calls it. This header
// gives the records the plug-in hands to the host (their layout is read by the
// host and must not change) and the C signatures of the host operations the
// engine uses. Any host, the stand-in host of this project included, serves
// these names with these signatures.
//
// All records are arrays of 32-bit words on the IA-32 target.
#ifndef PLUGIN_PLUGINBOUNDARY_H
#define PLUGIN_PLUGINBOUNDARY_H

#include <stdint.h>


extern "C" {

// The version number both sides agree on, in the class records and in
// "RegisterPluginVersion".
enum { kVELDPluginVersion = 9 };

// A host string handle is a stringStorage, in the format of
// Universal/ustring.h; the host sees it through that header.
struct stringStorage;
typedef stringStorage* VELDString;

// A host object. Its record starts with two words the contract fixes: a word
// of the host's own, then the object's class (the host's class reference).
// Everything after them belongs to the host.
struct VELDObjectHeader {
  void* mHostWord;
  struct VELDClassReference* mClass;
};
typedef VELDObjectHeader* VELDObject;
typedef struct VELDClassReference* VELDClassRef;

// Flag bit 4: safe in a program without a user interface.
enum { kVELDConsoleSafe = 4 };

// Property record, ten words. A getter or setter of -1 (kVELDDirectAccess)
// means the host reads or writes the instance data at the byte offset in
// mParameter; the parameter is also what a setter gets as its second argument.
struct VELDProperty {
  char const* mGroup;
  char const* mName;
  char const* mType;
  uint32_t mFlags;
  void* mGetter;
  void* mSetter;
  long mParameter;
  uint32_t mReserved[3];
};
#define kVELDDirectAccess ((void*)-1)

// Method record, four words. The function is called as
// function(instance, arguments...).
struct VELDMethodDefinition {
  void* mFunction;
  void* mSetterFunction;
  char const* mDeclaration;
  uint32_t mFlags;
};

// Event record, two words: the declaration, and a word the host owns. Code
// addresses an event by its record, so the order in a class is fixed.
struct VELDEvent {
  char const* mDeclaration;
  uint32_t mHostWord;
};

// Class record, 32 words; every word not named here is zero.
struct VELDClassDefinition {
  uint32_t mVersion;                 // 0
  char const* mName;                 // 1
  char const* mSuperName;            // 2
  uint32_t mDataSize;                // 3: size of the instance data
  uint32_t mReservedForSystem;       // 4
  void* mConstructor;                // 5: constructor(instance)
  void* mDestructor;                 // 6: destructor(instance)
  VELDProperty* mProperties;         // 7
  uint32_t mPropertyCount;           // 8
  VELDMethodDefinition* mMethods;    // 9
  uint32_t mMethodCount;             // 10
  VELDEvent* mEvents;                // 11
  uint32_t mEventCount;              // 12
  uint32_t mUnused13to19[7];         // 13..19
  uint32_t mFlags;                   // 20
  uint32_t mUnused21to31[11];        // 21..31
};

// The resolver the host hands to VELDPluginMain: the address of a host
// operation by name, or null for a name the host does not serve.
typedef void* (*VELDResolver)(char const* name);

// The one exported entry of the plug-in. A program that links the engine
// in (rather than loading the plug-in) hands this function to quorl::Attach.
typedef void (*VELDPluginMainProc)(VELDResolver resolver);
void VELDPluginMain(VELDResolver resolver);

// Signatures of the host operations the engine uses, by name.
typedef void (*VELDRegisterPluginVersionProc)(int version);
typedef void (*VELDRegisterClassProc)(VELDClassDefinition* cls);
typedef double (*VELDGetQuorlVersionProc)();
typedef int (*VELDinRuntimeProc)();
typedef void* (*VELDGetClassDataProc)(VELDObject object, VELDClassDefinition* cls);
// The handler of an event for this instance, or null when it has none.
typedef void* (*VELDGetEventInstanceProc)(VELDObject object, VELDEvent* event);
typedef VELDString (*VELDBuildStringProc)(void const* bytes, int length);
typedef void (*VELDSetStringEncodingProc)(VELDString text, uint32_t encoding);
typedef VELDString (*VELDConvertStringProc)(VELDString text, uint32_t encoding);
typedef uint32_t (*VELDGetStringEncodingProc)(VELDString text);
typedef void (*VELDLockStringProc)(VELDString text);
typedef void (*VELDUnlockStringProc)(VELDString text);
typedef void (*VELDLockObjectProc)(VELDObject object);
typedef void (*VELDUnlockObjectProc)(VELDObject object);
// An object of the named class (names compare without regard to case) with
// one reference, or null.
typedef VELDObject (*VELDnewInstanceProc)(char const* className);
// Raises the object as an exception in the host's running code. The call
// returns; the host delivers the exception once control is back with it.
typedef void (*VELDRaiseExceptionProc)(VELDObject exception);
typedef void (*VELDYieldToQuorlProc)();
// Non-zero (the default for a host without it) lets the engine optimize the
// scripts it compiles; zero keeps the code exactly as the source reads.
typedef int (*VELDOptimizeScriptsProc)();
typedef int (*VELDCountClassMethodsProc)(VELDClassRef cls);
// True when the item exists; the declaration comes with one reference.
typedef int (*VELDGetClassMethodProc)(VELDClassRef cls, int index, void** entry,
                                      VELDString* declaration);
typedef int (*VELDCountClassPropertiesProc)(VELDClassRef cls);
typedef int (*VELDGetClassPropertyProc)(VELDClassRef cls, int index,
                                        void** getter, void** setter,
                                        long* parameter, VELDString* declaration);
typedef unsigned long (*VELDGetStackLimitProc)();
typedef void (*VELDSetStackLimitProc)(unsigned long limit);
typedef void (*VELDInitStackCheckerProc)(unsigned long base);

// Event handlers are called with the instance first, then the event's
// parameters, as the host calls every instance function.
typedef VELDString (*QuorlInputHandler)(VELDObject instance, VELDString prompt);
typedef void (*QuorlPrintHandler)(VELDObject instance, VELDString message);
typedef void (*QuorlCompilerErrorHandler)(VELDObject instance, int line,
                                          int errorNumber, VELDString errorMsg);
typedef void (*QuorlRuntimeErrorHandler)(VELDObject instance, int line,
                                         VELDObject error);

// Instance functions of the QuorlScript class.
typedef void (*VELDInstanceProc)(VELDObject instance);
typedef void (*VELDStringSetterProc)(VELDObject instance, long parameter,
                                     VELDString value);
typedef void (*VELDObjectSetterProc)(VELDObject instance, long parameter,
                                     VELDObject value);
}

#endif
