// The resolver: bound types, link names, vtable slots, property storage,
// structure sizes, and its silence on what it cannot resolve.
#include <gtest/gtest.h>

#include "MinerTestSupport.h"

namespace {

// Three levels of classes with overrides, new methods, properties, events.
char const kShapes[] =
    "Module Shapes\n"
    "  Structure Tiny\n    a As Int8\n    b As Int16\n  End Structure\n"
    "  Class Base\n    Dim flag As Boolean\n    Dim size As Int32\n"
    "    Event Moved(x As Int32)\n    Sub F(x As Int32)\n    End Sub\n"
    "    Sub G()\n    End Sub\n    Private Sub P()\n    End Sub\n  End Class\n"
    "  Class Middle\n    Inherits Base\n    Dim t As Tiny\n    Dim u As Tiny\n"
    "    Event Resized()\n    Sub G()\n    End Sub\n    Sub H()\n    End Sub\n"
    "    Sub P()\n    End Sub\n  End Class\n"
    "  Class Leaf\n    Inherits Middle\n"
    "    Property Area As Double\n      Get\n      End Get\n    End Property\n"
    "    Dim d As Double\n    Sub F(x As Int32)\n    End Sub\n"
    "    Sub F(ByRef x As Int32)\n    End Sub\n"
    "    Function K() As String\n    End Function\n  End Class\n"
    "End Module\n";

class ResolverTest : public testing::Test {
 protected:
  ResolverTest() : mProgram(kShapes) {}
  ClassSymbol* Class(char const* name) {
    return static_cast<ClassSymbol*>(
        mProgram.mGlobal->LookupModule("Shapes")->LookupType(name));
  }
  MethodSymbol* Own(ClassSymbol* c, char const* name, unsigned long index = 0) {
    std::vector<MethodSymbol*> own;
    MethodSymbolIterator it = c->IterateMethods();
    while (it.Next())
      if (it.Value()->Name() == name) own.push_back(it.Value());
    return index < own.size() ? own[index] : nullptr;
  }
  ScannedProgram mProgram;
};

TEST_F(ResolverTest, OverridesKeepTheirSlotsAndNewMethodsExtendTheVtable) {
  ClassSymbol* base = Class("Base");
  ClassSymbol* middle = Class("Middle");
  ClassSymbol* leaf = Class("Leaf");
  ASSERT_TRUE(base && middle && leaf);
  EXPECT_EQ(0u, Own(base, "F")->GetDispatchID());
  EXPECT_EQ(1u, Own(base, "G")->GetDispatchID());
  EXPECT_EQ(2u, base->mVirtualMethodCount);
  EXPECT_EQ(1u, Own(middle, "G")->GetDispatchID());  // overrides
  EXPECT_EQ(2u, Own(middle, "H")->GetDispatchID());  // the next slot
  // Base's P is private: Middle's P is new, and virtual.
  EXPECT_EQ(MethodSymbol::Virtual, Own(middle, "P")->GetDispatchMethod());
  EXPECT_EQ(3u, Own(middle, "P")->GetDispatchID());
  EXPECT_EQ(4u, middle->mVirtualMethodCount);
  EXPECT_EQ(0u, Own(leaf, "F", 0)->GetDispatchID());
  EXPECT_EQ(4u, Own(leaf, "F", 1)->GetDispatchID());  // ByRef: no override
  EXPECT_EQ(5u, Own(leaf, "K")->GetDispatchID());
  EXPECT_EQ(6u, leaf->mVirtualMethodCount);
  // The lookup lists an overridden method once, with the child's symbol.
  MethodList g = leaf->LookupMethods("G", kAllMethods);
  ASSERT_TRUE(g && g->size() == 1u);
  EXPECT_EQ(Own(middle, "G"), (*g)[0]);
  EXPECT_EQ(2u, leaf->LookupMethods("f", kAllMethods)->size());
  EXPECT_EQ(1u, middle->LookupMethods("P", kAllMethods)->size());
}

TEST_F(ResolverTest, PropertiesAndEventsContinueTheParentsNumbering) {
  ClassSymbol* base = Class("Base");
  ClassSymbol* middle = Class("Middle");
  ClassSymbol* leaf = Class("Leaf");
  EXPECT_EQ(0u, base->LookupProperty("flag")->GetStorageOffset());
  EXPECT_EQ(4u, base->LookupProperty("size")->GetStorageOffset());
  EXPECT_EQ(8u, base->mStorageSize);
  // A 3-byte structure member aligns on 3.
  EXPECT_EQ(3u, Class("Middle")->LookupProperty("t")->GetType().StorageSize());
  EXPECT_EQ(9u, middle->LookupProperty("t")->GetStorageOffset());
  EXPECT_EQ(12u, middle->LookupProperty("u")->GetStorageOffset());
  EXPECT_EQ(15u, middle->mStorageSize);
  EXPECT_EQ(2, middle->LookupProperty("t")->GetPropertyIndex());
  PropertySymbol* area = leaf->LookupProperty("Area");
  EXPECT_EQ(4, area->GetPropertyIndex());
  EXPECT_EQ(0u, area->GetStorageOffset());  // computed: no storage
  EXPECT_EQ(16u, leaf->LookupProperty("d")->GetStorageOffset());
  EXPECT_EQ(24u, leaf->mStorageSize);
  EXPECT_EQ(6u, leaf->mPropertyCount);
  EXPECT_EQ(0u, base->LookupEvent("Moved")->GetDispatchID());
  EXPECT_EQ(1u, middle->LookupEvent("Resized")->GetDispatchID());
  EXPECT_EQ(2u, middle->mEventCount);
}

TEST_F(ResolverTest, LinkNamesFollowTheManglingRules) {
  ClassSymbol* leaf = Class("Leaf");
  EXPECT_EQ("Shapes.Leaf", Std(leaf->mLinkName));
  EXPECT_EQ("Shapes.Leaf.F%%o<Shapes.Leaf>i4", Std(Own(leaf, "F", 0)->GetLinkID()));
  EXPECT_EQ("Shapes.Leaf.F%%o<Shapes.Leaf>&i4",
            Std(Own(leaf, "F", 1)->GetLinkID()));
  EXPECT_EQ("Shapes.Leaf.K%s%o<Shapes.Leaf>", Std(Own(leaf, "K")->GetLinkID()));
  EXPECT_EQ("Shapes.Leaf.__Lookup%x%", Std(Own(leaf, "__Lookup")->GetLinkID()));
  EXPECT_EQ("Shapes.Leaf.Area.Get%f8%o<Shapes.Leaf>i4",
            Std(Own(leaf, "Area.Get")->GetLinkID()));
  EXPECT_EQ("Shapes.Base.Moved", Std(Class("Base")->LookupEvent("Moved")->GetLinkID()));
  EXPECT_EQ("Shapes.Leaf.d", Std(leaf->LookupProperty("d")->GetLinkName()));
  EXPECT_EQ("Shapes", Std(mProgram.mGlobal->LookupModule("Shapes")->mLinkName));
}

TEST(Resolver, StructureSizesArePacked) {
  ScannedProgram program(
      "Module M\n"
      " Structure S\n"
      "  a As Int8\n  b As Int32\n  f(3) As Int32\n  s(2) As String * 10\n"
      "  t As String * 10\n  u As String\n  inner As Inner\n  me2 As S\n"
      " End Structure\n"
      " Structure Inner\n  x As Double\n End Structure\n"
      "End Module\n");
  ModuleSymbol* m = program.mGlobal->LookupModule("M");
  StructureSymbol* s = static_cast<StructureSymbol*>(m->LookupType("S"));
  EXPECT_EQ(1u, s->LookupField("b")->mOffset);
  EXPECT_EQ(5u, s->LookupField("f")->mOffset);
  EXPECT_EQ(21u, s->LookupField("s")->mOffset);
  EXPECT_EQ(51u, s->LookupField("t")->mOffset);
  EXPECT_EQ(61u, s->LookupField("u")->mOffset);
  EXPECT_EQ(65u, s->LookupField("inner")->mOffset);
  EXPECT_EQ(73u, s->LookupField("me2")->mOffset);
  EXPECT_EQ(73u, s->GetStorageSize());  // the inner occurrence counts 0
  EXPECT_EQ("M.S.inner", Std(s->LookupField("inner")->mLinkName));
}

TEST(Resolver, ExtraBytesCyclesAndUnknownNamesStayQuiet) {
  ScannedProgram program(
      "Class Root\n Private Const _compiler_extrabytes = 8\n Dim x As Int32\n"
      "End Class\nClass A\n Inherits B\nEnd Class\nClass B\n Inherits A\n"
      "End Class\nClass C\n Inherits Nowhere\n Dim y As Mystery\n"
      " Sub F(m As Mystery)\n End Sub\nEnd Class\n"
      );
  ASSERT_TRUE(program.mGlobal);
  EXPECT_EQ(12u, program.Type<ClassSymbol>("Root")->mStorageSize);
  ClassSymbol* a = program.Type<ClassSymbol>("A");
  ClassSymbol* b = program.Type<ClassSymbol>("B");
  EXPECT_TRUE(a->GetParent() == nullptr || b->GetParent() == nullptr);
  ClassSymbol* c = program.Type<ClassSymbol>("C");
  EXPECT_EQ(nullptr, c->GetParent());
  EXPECT_EQ(kUnresolvedType, c->LookupProperty("y")->GetType().GetMainType());
  EXPECT_EQ(0u, c->mStorageSize);
  EXPECT_EQ("C.F%%o<C>?<Mystery>", Std(program.Method(c, "F")->GetLinkID()));
}

// Structures declared in classes: the class's members see them by their
// bare names, a subclass declared before its parent sees the parent's
// non-private ones, other code reaches them through the class, and an
// Inherits loop does not stop the search from ending.
TEST(Resolver, StructuresInClassesAreFoundThroughTheClass) {
  ScannedProgram program(
      "Module M\n"
      " Class Leaf\n  Inherits Shape\n  Dim e As Extent\n  Dim s As Secret\n"
      " End Class\n"
      " Class Shape\n  Protected Structure Extent\n   w As Int16\n"
      "  End Structure\n  Private Structure Secret\n   a As Int8\n"
      "  End Structure\n  Dim here As Secret\n"
      "  Sub Grow(by As Extent)\n  End Sub\n End Class\n"
      " Sub Outside(p As Shape.Extent)\n End Sub\n"
      "End Module\n"
      "Sub Far(p As M.Shape.Secret)\nEnd Sub\n"
      "Class A\n Inherits B\n Dim x As Lost\nEnd Class\n"
      "Class B\n Inherits A\nEnd Class\n");
  ASSERT_TRUE(program.mGlobal);
  EXPECT_NE(std::string::npos,
            program.mPrototype.find("Protected Structure Extent\nw As Int16"))
      << program.mPrototype;
  ModuleSymbol* m = program.mGlobal->LookupModule("M");
  ClassSymbol* shape = static_cast<ClassSymbol*>(m->LookupType("Shape"));
  ClassSymbol* leaf = static_cast<ClassSymbol*>(m->LookupType("Leaf"));
  TypeSymbol* extent = shape->LookupOwnType("Extent");
  TypeSymbol* secret = shape->LookupOwnType("Secret");
  ASSERT_TRUE(extent && secret);
  EXPECT_EQ(nullptr, m->LookupType("Extent"));
  EXPECT_EQ("M.Shape.Extent", Std(extent->mLinkName));
  EXPECT_EQ(2u, static_cast<StructureSymbol*>(extent)->GetStorageSize());
  EXPECT_EQ(extent, leaf->LookupProperty("e")->GetType().Declaration());
  EXPECT_EQ(kUnresolvedType, leaf->LookupProperty("s")->GetType().GetMainType());
  EXPECT_EQ(extent, leaf->LookupType("Extent"));
  EXPECT_EQ(nullptr, leaf->LookupType("Secret"));
  EXPECT_EQ(secret, shape->LookupProperty("here")->GetType().Declaration());
  EXPECT_EQ(1u, shape->mStorageSize);
  EXPECT_EQ("M.Shape.Grow%%o<M.Shape>t<M.Shape.Extent>",
            Std(program.Method(shape, "Grow")->GetLinkID()));
  EXPECT_EQ(extent, program.Method(m, "Outside")->GetParameter(0)->GetType().Declaration());
  EXPECT_EQ(secret, program.Method(program.mGlobal.get(), "Far")
                        ->GetParameter(0)->GetType().Declaration());
  EXPECT_EQ(kUnresolvedType, program.Type<ClassSymbol>("A")
                                 ->LookupProperty("x")->GetType().GetMainType());
}

}  // namespace
