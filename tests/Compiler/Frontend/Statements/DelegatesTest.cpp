// What AddressOf compiles to: one invoker stub per shape and kind, the
// words a delegate is made of, and a virtual method's code read from the
// object's vtable at the time the delegate is made.
#include <gtest/gtest.h>

#include "StatementTestSupport.h"

namespace {

char const kProgram[] =
    "Module Ops\n"
    " Delegate Function BinOp(a As Integer, b As Integer) As Integer\n"
    " Delegate Sub Tick()\n"
    " Function Add(a As Integer, b As Integer) As Integer\n  Return a\n End Function\n"
    " Function Mul(a As Integer, b As Integer) As Integer\n  Return b\n End Function\n"
    " Sub Nothing()\n End Sub\n"
    "End Module\n"
    "Class Shape\n"
    " Function Area(a As Integer, b As Integer) As Integer\n  Return 0\n End Function\n"
    " Function Edges(a As Integer, b As Integer) As Integer\n  Return 0\n End Function\n"
    "End Class\n"
    "Dim s As New Shape\n"
    "Dim f As Ops.BinOp = AddressOf Ops.Add\n"
    "f = AddressOf Ops.Mul\n"
    "f = AddressOf s.Edges\n"
    "Dim t As Ops.Tick = AddressOf Ops.Nothing\n";

TEST(Delegates, LikeShapesShareOneStubAndBoundMethodsHaveTheirOwn) {
  CompiledProgram p = CompileSource(kProgram);
  ASSERT_TRUE(p.errors.empty()) << p.Listing();
  EXPECT_EQ(1, p.Count("Enter \"Delegate.Invoke%i4%i4i4\""));
  EXPECT_EQ(1, p.Count("Enter \"Delegate.IM_Invoke%i4%i4i4\""));
  EXPECT_EQ(1, p.Count("Enter \"Delegate.Invoke%%\""));
  // The bound stub puts the object, read at 32, in front of the arguments.
  listing::Section bound = p.Body("Delegate.IM_Invoke%i4%i4i4");
  ASSERT_GE(bound.enter, 0) << p.Listing();
  EXPECT_TRUE(p.InOrder({", 28 As Int32 ->", ", 32 As Int32 ->", "PutParam",
                         "PutParam", "PutParam", "CallPtr"},
                        bound.enter))
      << p.Listing();
}

TEST(Delegates, ModuleMethodsHaveNoTargetAndVirtualOnesReadTheVtable) {
  CompiledProgram p = CompileSource(kProgram);
  ASSERT_TRUE(p.errors.empty()) << p.Listing();
  // Stub, function, target, signature, for the first AddressOf.
  EXPECT_TRUE(p.InOrder({"FuncPtr \"Ops.Add%i4%i4i4\"", "PutParam",
                         "PutParam", "PutParam 0 As Int32",
                         "PutParam \"( Int32, Int32 ) as Int32\"",
                         "RuntimeCreateDelegate"}))
      << p.Listing();
  // Edges is the second virtual method: the entry at 8 of the vtable.
  int edges = p.Find("Peek s As Shape (global), 0 As Int32");
  ASSERT_GE(edges, 0) << p.Listing();
  EXPECT_NE(std::string::npos, p.code[edges + 1].find(", 8 As Int32"));
  EXPECT_TRUE(p.InOrder({"PutParam \"()\"", "RuntimeCreateDelegate"}));
}

}  // namespace
