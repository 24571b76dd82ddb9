// The names the host serves, and the intrinsics still missing (pinned).
#include "LibraryTestSupport.h"

#include <set>

#include "Common/ObjectModel/RuntimeObjectFoundation.h"
#include "Common/RuntimeColorFoundation.h"
#include "Common/RuntimeNumerics.h"
#include "Common/RuntimeStringFoundation.h"
#include "Compiler/Intrinsics.h"

namespace {

TEST(HostServesRuntimeLibrary, TheLibraryTableAndEnvironmentHooks) {
  for (char const* name :
       {"RuntimeCos", "RuntimeCMY", "RuntimeHSV", "RuntimeRGB", "RuntimeLockString",
        "RuntimeUnlockString", "RuntimeAddString", "RuntimeStringCompare", "StringToCString",
        "StringToWString", "UnlockWString", "RuntimeGetStructureString", "readColorHue",
        "readColorYellow", "readColorRed",
        // a script under "disableAutoWaitCursor" or "#pragma Debug" calls these
        "DisableAutoWaitCursor", "EnableAutoWaitCursor", "DebuggerHook"})
    EXPECT_NE(quorl::ResolveHostName(name), nullptr) << name;
  for (char const* name : {"StringSplit", "StringJoin", "RuntimeMax", "RuntimeMin"})
    EXPECT_EQ(quorl::ResolveHostName(name), nullptr) << name << ": waits for arrays";
}

int Replacement() { return 7; }

TEST(HostServesRuntimeLibrary, ALaterRegistrationReplacesAnEntry) {
  void* original = quorl::ResolveHostName("StringLen");
  quorl::RegisterHostFunction("StringLen", reinterpret_cast<void*>(&Replacement));
  EXPECT_EQ(quorl::ResolveHostName("StringLen"), reinterpret_cast<void*>(&Replacement));
  quorl::RegisterHostFunction("StringLen", original);
}

TEST(HostServesIntrinsics, OnlyTheRuntimeStillToComeIsMissing) {
  // Served by the plug-in itself, then the object model, variants, arrays and delegates.
  std::set<std::string> const expected = {
      "RuntimeInit", "RuntimeExit", "RuntimeRaiseException", "RuntimeReraiseException",
      "RemoteDebuggerStartup", "RuntimeCheckStack", "RuntimeNewObject", "RuntimeNewClass",
      "RuntimeRegisterClass", "RuntimeNewVtable", "RuntimeObjectIsa", "RuntimeCheckCast",
      "RuntimeLookupInterfaceVtable", "RuntimeLockObject", "RuntimeUnlockObject",
      "RuntimeLockUnlockObjects", "RuntimeNilObject",
      "RuntimeRaiseFunctionNotFoundException", "LoadFunctionPointerFromLibrary", "VarType",
      "RuntimeIsNumeric", "IsNull", "VariantHash", "VariantEqual", "VariantToInt32", "VariantToUInt32",
      "VariantToInt64", "VariantToUInt64", "VariantToColor", "VariantToSingle", "VariantToDouble",
      "VariantToObject", "VariantToString", "VariantToBoolean", "VariantToDate", "VariantToCurrency",
      "VariantCompare", "VariantAdd", "VariantSubtract", "VariantMultiply", "VariantDivide",
      "VariantIntegerDivide", "VariantModulo", "VariantNegate", "VariantPower", "VariantAnd",
      "VariantOr", "VariantNot", "Int32ToVariant", "UInt32ToVariant", "Int64ToVariant",
      "UInt64ToVariant", "ColorToVariant", "SingleToVariant", "DoubleToVariant", "CurrencyToVariant",
      "ObjectToVariant", "StringToVariant", "BooleanToVariant", "CreateArray",
      "RuntimeCreateArrayCastWrapper", "RuntimeCreateStructureArray", "RaiseOutOfBoundsException",
      "RuntimeCreateDelegate", "RuntimeDelegateIsA", "RuntimeCheckDelegateCast",
      "RuntimeCompareDelegates"};
  std::set<std::string> unserved;
  SimpleVector<string> const& names = IntrinsicFunctionNames();
  for (unsigned long i = 1; i < names.size(); i++)
    if (!quorl::ResolveHostName(names[i].CString())) unserved.insert(names[i].CString());
  for (std::string const& name : unserved) EXPECT_TRUE(expected.count(name)) << name << " is not served";
  for (std::string const& name : expected)
    EXPECT_TRUE(unserved.count(name)) << name << " is served now: unpin it";
}

TEST(HostServesIntrinsics, NamesLeadToTheEngineRuntimesFunctions) {
  std::pair<char const*, void*> rows[] = {
      {"RuntimeCvtCurrencyToReal64", (void*)&RuntimeCvtCurrencyToReal64},
      {"RuntimeLockUnlockStrings", (void*)&RuntimeLockUnlockStrings},
      {"readColorMagenta", (void*)&readColorMagenta},
      {"RuntimeSign", (void*)&RuntimeSign}, {"rnd", (void*)&rnd}};
  for (auto const& row : rows) EXPECT_EQ(quorl::ResolveHostName(row.first), row.second) << row.first;
}

TEST(HostServesIntrinsics, CallsThroughTheResolverUseTheCConvention) {
  EXPECT_EQ(Library<long long(long long, long long)>("RuntimeModSInt64")(-7, 0), 0);
  EXPECT_EQ(Library<long long(long long, long)>("RuntimeShiftLeftInt64")(3, 64), 3);
  EXPECT_EQ(Library<double(unsigned long long)>("RuntimeCvtUInt64ToReal64")(0xFFFFFFFFFFFFFFFFull),
            18446744073709551616.0);
  EXPECT_EQ(Library<long long(double)>("RuntimeCvtReal64ToCurrency")(-0.5), -5000);
  srnd(1);
  EXPECT_EQ(Library<double()>("rnd")(), 16807 / 1048576.0) << "Rnd follows the seed";
  EXPECT_EQ(Library<double()>("rnd")(), 687738 / 1048576.0);
}

}  // namespace
