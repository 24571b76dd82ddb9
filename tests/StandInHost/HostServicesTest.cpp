// The host alone; small plug-in entries use the resolver as the engine does.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "Universal/ustring.h"
#include "quorl/QuorlHost.h"

namespace {

VELDResolver gResolver = nullptr;

template <class Proc>
Proc Operation(char const* name) {
  return reinterpret_cast<Proc>(gResolver ? gResolver(name) : quorl::ResolveHostName(name));
}
VELDObject NewInstance(char const* name) {
  return Operation<VELDnewInstanceProc>("VELDnewInstance")(name);
}
void Unlock(VELDObject object) { Operation<VELDUnlockObjectProc>("VELDUnlockObject")(object); }
void* ClassData(VELDObject object, VELDClassRef cls) {
  return Operation<VELDGetClassDataProc>("VELDGetClassData")(
      object, reinterpret_cast<VELDClassDefinition*>(cls));
}
std::string Text(VELDString text) { return std::string(text->CString(), text->mLength); }

TEST(HostResolver, AHookFailureIsThrownOnceThePluginCallReturns) {
  int yields = 0;
  quorl::HostOptions options;
  options.yieldHook = [&] { ++yields, throw std::runtime_error("time is up"); };
  EXPECT_THROW(quorl::Attach([](VELDResolver resolver) {
                 gResolver = resolver;
                 for (int i = 0; i < 3; ++i) Operation<VELDYieldToQuorlProc>("VELDYieldToQuorl")();
               }, options), std::runtime_error);
  EXPECT_EQ(yields, 3) << "the plug-in must have finished its own work";
}

void RaiseTwo(VELDResolver resolver) {
  gResolver = resolver;
  for (char const* name : {"NilObjectException", "OutOfBoundsException"}) {
    VELDObject exception = NewInstance(name);
    Operation<VELDRaiseExceptionProc>("VELDRaiseException")(exception);
    Unlock(exception);
  }
}

VELDClassDefinition gRunningClass = {}, gStillRunningClass = {};
void RaiseStillRunning(VELDResolver resolver) {
  gResolver = resolver;
  gRunningClass.mName = gStillRunningClass.mSuperName = "QuorlScriptAlreadyRunningException";
  gRunningClass.mSuperName = "RuntimeException";
  gStillRunningClass.mName = "StillRunningException";
  for (VELDClassDefinition* cls : {&gRunningClass, &gStillRunningClass})
    Operation<VELDRegisterClassProc>("VELDRegisterClass")(cls);
  VELDObject exception = NewInstance("StillRunningException");
  Operation<VELDRaiseExceptionProc>("VELDRaiseException")(exception);
  Unlock(exception);
}

// The class of the host exception a plug-in call ends with; "!" marks the
// embedder's ScriptAlreadyRunning.
std::string RaisedClass(void (*entry)(VELDResolver)) {
  try {
    quorl::Attach(entry);
  } catch (quorl::ScriptAlreadyRunning const& e) {
    return e.ClassName() + "!";
  } catch (quorl::HostException const& e) {
    return e.ClassName();
  }
  return "none";
}

TEST(HostResolver, ARaiseBecomesAHostExceptionOfTheFirstClassRaised) {
  long before = quorl::LiveObjectCount();
  EXPECT_EQ(RaisedClass(&RaiseTwo), "NilObjectException");
  EXPECT_EQ(quorl::LiveObjectCount(), before) << "raised objects leak";
  EXPECT_EQ(RaisedClass(&RaiseStillRunning), "StillRunningException!")
      << "a subclass of the already-running exception";
}

std::vector<std::string> gLog;

TEST(HostObjects, BuiltInExceptionsAreFoundWithoutRegardToCase) {
  for (char const* name : {"runtimeexception", "OUTOFBOUNDSEXCEPTION", "stackOverflowException",
                           "IllegalCastException", "TypeMismatchException", "OutOfMemoryException"}) {
    VELDObject object = NewInstance(name);
    EXPECT_TRUE(object && quorl::IsInstanceOf(object, "RuntimeException")) << name;
    if (object) Unlock(object);
  }
  EXPECT_EQ(NewInstance("NoSuchException"), nullptr);
  EXPECT_EQ(NewInstance(nullptr), nullptr);
}

TEST(HostObjects, ConstructionOrderAndOneZeroFilledBlockPerClass) {
  VELDClassRef base = quorl::DefineClass(quorl::HostClass("Base", 12)
          .SetConstructor([](VELDObject) { gLog.push_back("Base()"); })
          .SetDestructor([](VELDObject) { gLog.push_back("~Base"); }));
  VELDClassRef derived = quorl::DefineClass(quorl::HostClass("Derived", 4, "Base")
          .SetConstructor([](VELDObject) { gLog.push_back("Derived()"); })
          .SetDestructor([](VELDObject) { gLog.push_back("~Derived"); }));
  {
    quorl::Object object = quorl::Object::New("Derived");
    auto* baseData = static_cast<unsigned char*>(ClassData(object.Get(), base));
    auto* derivedData = static_cast<unsigned char*>(ClassData(object.Get(), derived));
    EXPECT_GE(derivedData - baseData, 12) << "the blocks overlap";
    for (int i = 0; i < 12; ++i) EXPECT_EQ(baseData[i], 0) << "byte " << i;
    for (int i = 0; i < 4; ++i) EXPECT_EQ(derivedData[i], 0) << "byte " << i;
    EXPECT_EQ(object.Data(), derivedData);
  }
  EXPECT_EQ(gLog, (std::vector<std::string>{"Base()", "Derived()", "~Derived", "~Base"}));
  quorl::Object plain = quorl::Object::New("Base");
  EXPECT_EQ(ClassData(plain.Get(), derived), nullptr);
}

int gDestructions = 0;
void SelfLockingDestructor(VELDObject object) {
  ++gDestructions;
  Operation<VELDLockObjectProc>("VELDLockObject")(object);
  Unlock(object);
}

TEST(HostObjects, TheLastUnlockDestroysOnceAndACycleOfSuperclassesDoesNotHang) {
  quorl::DefineClass(quorl::HostClass("Touchy").SetDestructor(&SelfLockingDestructor));
  long before = quorl::LiveObjectCount();
  VELDObject object = NewInstance("Touchy");
  Operation<VELDLockObjectProc>("VELDLockObject")(object);
  Unlock(object);
  EXPECT_EQ(gDestructions, 0);
  Unlock(object);
  EXPECT_EQ(gDestructions, 1);
  EXPECT_EQ(quorl::LiveObjectCount(), before);
  quorl::DefineClass(quorl::HostClass("Chicken", 4, "Egg"));
  quorl::DefineClass(quorl::HostClass("Egg", 4, "Chicken"));
  EXPECT_TRUE(quorl::IsInstanceOf(quorl::Object::New("Chicken").Get(), "Egg"));
}

TEST(HostStrings, BuildCopiesUntaggedAndConvertShares) {
  auto build = Operation<VELDBuildStringProc>("VELDBuildString");
  auto convert = Operation<VELDConvertStringProc>("VELDConvertString");
  char bytes[] = "Error found while compiling";
  VELDString text = build(bytes, sizeof bytes);
  bytes[0] = 'X';
  EXPECT_EQ(Text(text), std::string("Error found while compiling", 28));
  EXPECT_EQ(text->mRefCount, 1);
  EXPECT_EQ(text->mEncoding, kEncodingUnknown);
  EXPECT_EQ(build("abc", 0), nullptr);
  VELDString untagged = build("h\xC3\xA9", 3);
  VELDString retagged = convert(untagged, kEncodingUTF8);
  ASSERT_NE(retagged, untagged);
  EXPECT_EQ(Text(retagged), "h\xC3\xA9");
  EXPECT_EQ(untagged->mEncoding, kEncodingUnknown) << "the original must not change";
  EXPECT_EQ(convert(retagged, kEncodingUTF8), retagged);
  EXPECT_EQ(retagged->mRefCount, 2);
  char const units[] = {'h', 0, '\xE9', 0};
  VELDString utf16 = build(units, 4);
  utf16->mEncoding = kEncodingUTF16;
  VELDString converted = convert(utf16, kEncodingUTF8);
  EXPECT_EQ(Text(converted), "h\xC3\xA9");
  EXPECT_EQ(converted->mEncoding, kEncodingUTF8);
  EXPECT_EQ(convert(nullptr, kEncodingUTF8), nullptr);
}

std::string TakeText(VELDString text) {
  std::string result = Text(text);
  EXPECT_EQ(text->mRefCount, 1) << result;
  UnlockStringStorage(text);
  return result;
}
void Beep(VELDObject) {}
int Twice(VELDObject, int value) { return 2 * value; }
int GetCount(VELDObject, long) { return 0; }
void SetCount(VELDObject, long, int) {}

TEST(HostClassMembers, MembersAreReportedInOrderOnlyForTheirOwnClass) {
  VELDClassRef greeter = quorl::DefineClass(quorl::HostClass("Greeter", 8)
          .AddMethod(&Beep, "Sub Beep()")
          .AddMethod(&Twice, "Function Twice(x As Integer) As Integer")
          .AddProperty(reinterpret_cast<void*>(&GetCount), reinterpret_cast<void*>(&SetCount),
                       4, "Count As Integer"));
  auto getMethod = Operation<VELDGetClassMethodProc>("VELDGetClassMethod");
  void* entry = nullptr;
  VELDString declaration = nullptr;
  ASSERT_TRUE(getMethod(greeter, 1, &entry, &declaration));
  EXPECT_EQ(entry, reinterpret_cast<void*>(&Twice));
  EXPECT_EQ(TakeText(declaration), "Function Twice(Self As Object, x As Integer) As Integer");
  EXPECT_FALSE(getMethod(greeter, 2, &entry, &declaration) || getMethod(greeter, -1, &entry, &declaration));
  auto getProperty = Operation<VELDGetClassPropertyProc>("VELDGetClassProperty");
  void *getter = nullptr, *setter = nullptr;
  long parameter = 0;
  ASSERT_TRUE(getProperty(greeter, 0, &getter, &setter, &parameter, &declaration));
  EXPECT_EQ(getter, reinterpret_cast<void*>(&GetCount));
  EXPECT_EQ(setter, reinterpret_cast<void*>(&SetCount));
  EXPECT_EQ(parameter, 4);
  EXPECT_EQ(TakeText(declaration), "Count As Integer");
  EXPECT_FALSE(getProperty(greeter, 1, &getter, &setter, &parameter, &declaration));
  VELDClassRef loud = quorl::DefineClass(
      quorl::HostClass("LoudGreeter", 0, "Greeter").AddMethod(&Beep, "Sub Shout()"));
  EXPECT_EQ(Operation<VELDCountClassMethodsProc>("VELDCountClassMethods")(loud), 1);
  EXPECT_EQ(Operation<VELDCountClassPropertiesProc>("VELDCountClassProperties")(loud), 0);
}

}  // namespace
