// The resolver, the host options and the way failures during a plug-in call
// come back to the embedding program. Small plug-in entries stand in for the
// engine and use the resolver they are given, as the engine does.
#include <gtest/gtest.h>

#include <stdexcept>

#include "quorl/QuorlHost.h"

namespace {

VELDResolver gResolver = nullptr;

template <class Proc>
Proc Operation(char const* name) {
  return reinterpret_cast<Proc>(gResolver(name));
}

void KeepResolver(VELDResolver resolver) { gResolver = resolver; }

TEST(HostResolver, ServesEveryOperationTheEngineUses) {
  quorl::Attach(&KeepResolver);
  for (char const* name :
       {"RegisterPluginVersion", "VELDRegisterClass", "VELDGetQuorlVersion",
        "VELDinRuntime", "VELDGetClassData", "VELDGetEventInstance",
        "VELDBuildString", "VELDSetStringEncoding", "VELDConvertString",
        "VELDGetStringEncoding", "VELDLockString", "VELDUnlockString",
        "VELDLockObject", "VELDUnlockObject", "VELDnewInstance",
        "VELDRaiseException", "VELDYieldToQuorl", "VELDCountClassMethods",
        "VELDGetClassMethod", "VELDCountClassProperties", "VELDGetClassProperty",
        "VELDGetStackLimit", "VELDSetStackLimit", "VELDInitStackChecker"})
    EXPECT_NE(gResolver(name), nullptr) << name;
}

TEST(HostResolver, UnknownAndWithheldNamesResolveToNull) {
  quorl::HostOptions options;
  options.withheld = {"VELDGetEventInstance", "VELDYieldToQuorl"};
  quorl::Attach(&KeepResolver, options);
  EXPECT_EQ(gResolver("VELDGetEventInstance"), nullptr);
  EXPECT_EQ(gResolver("VELDYieldToQuorl"), nullptr);
  EXPECT_NE(gResolver("VELDGetClassData"), nullptr);
  EXPECT_EQ(gResolver("VELDGraphicsDrawString"), nullptr);
  EXPECT_EQ(gResolver("veldnewinstance"), nullptr) << "C names keep their case";
  EXPECT_EQ(gResolver(nullptr), nullptr);
}

int FortyTwo() { return 42; }

TEST(HostResolver, RegisteredHostFunctionsJoinTheTable) {
  quorl::Attach(&KeepResolver);
  quorl::RegisterHostFunction("RuntimeAnswer", reinterpret_cast<void*>(&FortyTwo));
  auto answer = Operation<int (*)()>("RuntimeAnswer");
  ASSERT_NE(answer, nullptr);
  EXPECT_EQ(answer(), 42);
}

double gSeenVersion = 0;
int gSeenInRuntime = -1;
void RecordHost(VELDResolver resolver) {
  gResolver = resolver;
  Operation<VELDRegisterPluginVersionProc>("RegisterPluginVersion")(9);
  gSeenVersion = Operation<VELDGetQuorlVersionProc>("VELDGetQuorlVersion")();
  gSeenInRuntime = Operation<VELDinRuntimeProc>("VELDinRuntime")();
}

TEST(HostResolver, ThePluginSeesTheOptionsAtItsEntry) {
  quorl::Attach(&RecordHost);
  EXPECT_DOUBLE_EQ(gSeenVersion, 2007.04);
  EXPECT_EQ(gSeenInRuntime, 1);
  EXPECT_EQ(quorl::RegisteredPluginVersion(), 9);

  quorl::HostOptions old;
  old.version = 5.9;
  old.inRuntime = false;
  quorl::Attach(&RecordHost, old);
  EXPECT_DOUBLE_EQ(gSeenVersion, 5.9);
  EXPECT_EQ(gSeenInRuntime, 0);
}

void YieldThreeTimes(VELDResolver resolver) {
  gResolver = resolver;
  for (int i = 0; i < 3; ++i) Operation<VELDYieldToQuorlProc>("VELDYieldToQuorl")();
}

TEST(HostResolver, AHookFailureIsThrownOnceThePluginCallReturns) {
  int yields = 0;
  quorl::HostOptions options;
  options.yieldHook = [&] {
    ++yields;
    throw std::runtime_error("time is up");
  };
  EXPECT_THROW(quorl::Attach(&YieldThreeTimes, options), std::runtime_error);
  EXPECT_EQ(yields, 3) << "the plug-in must have finished its own work";
}

void RaiseTwo(VELDResolver resolver) {
  gResolver = resolver;
  auto make = Operation<VELDnewInstanceProc>("VELDnewInstance");
  auto raise = Operation<VELDRaiseExceptionProc>("VELDRaiseException");
  auto unlock = Operation<VELDUnlockObjectProc>("VELDUnlockObject");
  for (char const* name : {"NilObjectException", "OutOfBoundsException"}) {
    VELDObject exception = make(name);
    raise(exception);
    unlock(exception);
  }
}

TEST(HostResolver, ARaiseBecomesAHostExceptionOfTheFirstClassRaised) {
  long before = quorl::LiveObjectCount();
  try {
    quorl::Attach(&RaiseTwo);
    FAIL() << "no exception";
  } catch (quorl::ScriptAlreadyRunning const&) {
    FAIL() << "wrong kind of exception";
  } catch (quorl::HostException const& e) {
    EXPECT_EQ(e.ClassName(), "NilObjectException");
  }
  EXPECT_EQ(quorl::LiveObjectCount(), before) << "raised objects leak";
}

VELDClassDefinition gRunningClass = {};
VELDClassDefinition gStillRunningClass = {};

void RaiseStillRunning(VELDResolver resolver) {
  gResolver = resolver;
  gRunningClass.mName = "QuorlScriptAlreadyRunningException";
  gRunningClass.mSuperName = "RuntimeException";
  gStillRunningClass.mName = "StillRunningException";
  gStillRunningClass.mSuperName = "QuorlScriptAlreadyRunningException";
  auto registerClass = Operation<VELDRegisterClassProc>("VELDRegisterClass");
  registerClass(&gRunningClass);
  registerClass(&gStillRunningClass);
  VELDObject exception =
      Operation<VELDnewInstanceProc>("VELDnewInstance")("StillRunningException");
  Operation<VELDRaiseExceptionProc>("VELDRaiseException")(exception);
  Operation<VELDUnlockObjectProc>("VELDUnlockObject")(exception);
}

TEST(HostResolver, ASubclassOfAlreadyRunningBecomesScriptAlreadyRunning) {
  try {
    quorl::Attach(&RaiseStillRunning);
    FAIL() << "no exception";
  } catch (quorl::ScriptAlreadyRunning const& e) {
    EXPECT_EQ(e.ClassName(), "StillRunningException");
  }
}

TEST(HostResolver, LoadingAMissingPluginFailsCleanly) {
  EXPECT_THROW(quorl::LoadPlugin("/nonexistent/QuorlScriptPlugin.so"),
               quorl::LoadError);
  EXPECT_THROW(quorl::Attach(nullptr), quorl::LoadError);
}

}  // namespace
