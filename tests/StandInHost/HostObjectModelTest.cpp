// The host's object model, reached through the resolver as the plug-in
// reaches it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "quorl/QuorlHost.h"

namespace {

template <class Proc>
Proc Operation(char const* name) {
  return reinterpret_cast<Proc>(quorl::ResolveHostName(name));
}

VELDObject NewInstance(char const* name) {
  return Operation<VELDnewInstanceProc>("VELDnewInstance")(name);
}

void Unlock(VELDObject object) {
  Operation<VELDUnlockObjectProc>("VELDUnlockObject")(object);
}

void* ClassData(VELDObject object, VELDClassRef cls) {
  return Operation<VELDGetClassDataProc>("VELDGetClassData")(
      object, reinterpret_cast<VELDClassDefinition*>(cls));
}

std::vector<std::string> gLog;

struct TwoLevelClasses {
  VELDClassRef base = quorl::DefineClass(
      quorl::HostClass("Base", 12)
          .SetConstructor([](VELDObject) { gLog.push_back("Base()"); })
          .SetDestructor([](VELDObject) { gLog.push_back("~Base"); }));
  VELDClassRef derived = quorl::DefineClass(
      quorl::HostClass("Derived", 4, "Base")
          .SetConstructor([](VELDObject) { gLog.push_back("Derived()"); })
          .SetDestructor([](VELDObject) { gLog.push_back("~Derived"); }));
};

TEST(HostObjects, BuiltInExceptionsAreFoundWithoutRegardToCase) {
  for (char const* name :
       {"runtimeexception", "OUTOFBOUNDSEXCEPTION", "stackOverflowException",
        "NilObjectException", "IllegalCastException", "TypeMismatchException",
        "OutOfMemoryException"}) {
    VELDObject object = NewInstance(name);
    ASSERT_NE(object, nullptr) << name;
    EXPECT_TRUE(quorl::IsInstanceOf(object, "RuntimeException")) << name;
    Unlock(object);
  }
  EXPECT_EQ(NewInstance("NoSuchException"), nullptr);
  EXPECT_EQ(NewInstance(nullptr), nullptr);
}

TEST(HostObjects, ConstructorsRunBaseFirstAndDestructorsDerivedFirst) {
  TwoLevelClasses classes;
  gLog.clear();
  VELDObject object = NewInstance("Derived");
  Unlock(object);
  EXPECT_EQ(gLog, (std::vector<std::string>{"Base()", "Derived()", "~Derived",
                                            "~Base"}));
}

TEST(HostObjects, EachClassOfTheChainHasItsOwnZeroFilledBlock) {
  TwoLevelClasses classes;
  quorl::Object object = quorl::Object::New("Derived");
  auto* base = static_cast<unsigned char*>(ClassData(object.Get(), classes.base));
  auto* derived =
      static_cast<unsigned char*>(ClassData(object.Get(), classes.derived));
  ASSERT_NE(base, nullptr);
  ASSERT_NE(derived, nullptr);
  EXPECT_GE(derived - base, 12) << "the blocks overlap";
  for (int i = 0; i < 12; ++i) EXPECT_EQ(base[i], 0) << "byte " << i;
  for (int i = 0; i < 4; ++i) EXPECT_EQ(derived[i], 0) << "byte " << i;
  EXPECT_EQ(object.Data(), derived);
  quorl::Object plain = quorl::Object::New("Base");
  EXPECT_EQ(ClassData(plain.Get(), classes.derived), nullptr);
}

int gDestructions = 0;
void SelfLockingDestructor(VELDObject object) {
  ++gDestructions;
  Operation<VELDLockObjectProc>("VELDLockObject")(object);
  Unlock(object);
}

TEST(HostObjects, TheLastUnlockDestroysOnceAndFrees) {
  quorl::DefineClass(
      quorl::HostClass("Touchy").SetDestructor(&SelfLockingDestructor));
  long before = quorl::LiveObjectCount();
  VELDObject object = NewInstance("Touchy");
  Operation<VELDLockObjectProc>("VELDLockObject")(object);
  Unlock(object);
  EXPECT_EQ(gDestructions, 0);
  Unlock(object);
  EXPECT_EQ(gDestructions, 1);
  EXPECT_EQ(quorl::LiveObjectCount(), before);
}

TEST(HostObjects, ACycleOfSuperclassNamesDoesNotHang) {
  quorl::DefineClass(quorl::HostClass("Chicken", 4, "Egg"));
  quorl::DefineClass(quorl::HostClass("Egg", 4, "Chicken"));
  quorl::Object object = quorl::Object::New("Chicken");
  EXPECT_TRUE(quorl::IsInstanceOf(object.Get(), "Egg"));
}

}  // namespace
