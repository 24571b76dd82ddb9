// Every runtime name of the library table that the host serves resolves;
// the ones that wait for the array runtime do not yet.
#include "LibraryTestSupport.h"

TEST(HostServesRuntimeLibrary, ServesTheLibraryAndRuntimeEntryPoints) {
  for (char const* name :
       {"RuntimeAbs", "RuntimeACos", "StringDBCSAsc", "StringAsc",
        "RuntimeASin", "RuntimeATan", "RuntimeATan2", "RuntimeBin",
        "BitwiseAnd", "BitwiseOr", "BitwiseXor", "runCDbl", "RuntimeCeil",
        "StringDBCSChr", "StringChr", "RuntimeCMY", "RuntimeCos",
        "StringCountFields", "runCStr", "RuntimeExp", "RuntimeFloor",
        "StringFormat", "RuntimeHex", "RuntimeHSV", "StringInStr",
        "StringInStrB", "StringExtendsInStr", "StringExtendsInStrB",
        "StringDBCSLeft", "StringLeft", "StringDBCSLen", "StringLen",
        "RuntimeLog", "StringLCase", "runLTrim", "RuntimeMicroseconds",
        "StringDBCSMid3", "StringDBCSMid2", "StringMid3", "StringMid2",
        "StringNthField", "RuntimeOct", "RuntimePow", "StringReplace",
        "StringReplaceAll", "StringReplaceB", "StringReplaceAllB",
        "RuntimeRGB", "StringDBCSRight", "StringRight", "rnd", "RuntimeRound",
        "runRTrim", "RuntimeSign", "RuntimeSin", "RuntimeSqrt",
        "StringStrDouble", "StringStrCompare", "RuntimeTan", "RuntimeTicks",
        "StringTitleCase", "runTrim", "StringUCase", "StringVal",
        // the engine runtime's own entry points
        "RuntimeLockString", "RuntimeUnlockString", "RuntimeLockUnlockStrings",
        "RuntimeAddString", "RuntimeStringCompare", "StringToCString",
        "StringToWString", "UnlockWString", "RuntimeGetStructureString",
        "readColorHue", "readColorYellow", "readColorRed"})
    EXPECT_NE(quorl::ResolveHostName(name), nullptr) << name;
}

TEST(HostServesRuntimeLibrary, ArrayFunctionsAreNotServedYet) {
  for (char const* name :
       {"StringSplit", "StringJoin", "RuntimeMax", "RuntimeMin"})
    EXPECT_EQ(quorl::ResolveHostName(name), nullptr) << name;
}

int Replacement() { return 7; }

TEST(HostServesRuntimeLibrary, ALaterRegistrationReplacesAnEntry) {
  quorl::RegisterHostFunction("StringLen", reinterpret_cast<void*>(&Replacement));
  EXPECT_EQ(quorl::ResolveHostName("StringLen"),
            reinterpret_cast<void*>(&Replacement));
}

TEST(HostServesRuntimeLibrary, PluginSeesTheLibraryThroughItsResolver) {
  static VELDResolver sResolver;
  quorl::Attach([](VELDResolver resolver) { sResolver = resolver; });
  ASSERT_NE(sResolver, nullptr);
  EXPECT_EQ(sResolver("StringDBCSLeft"),
            quorl::ResolveHostName("StringDBCSLeft"));
  EXPECT_NE(sResolver("RuntimeAddString"), nullptr);
}
