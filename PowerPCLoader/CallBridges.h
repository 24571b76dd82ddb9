// Generated code calls with its own frame convention: the link register
// kept at 8 in the caller's frame, every argument word counted in r3 to
// r10 (floats too, which also go to f1 to f13), words beyond the eighth at
// 24(r1) upward. The platform's C code wants the System V convention:
// integer words packed in r3 to r10 with 64-bit values in aligned pairs,
// floats in f1 to f8 on their own, the rest from 8(r1), structures by
// reference, and for a variable argument list the float flag in CR bit 6.
//
// A bridge sits between the two for one C function and one argument shape
// (CGPPC::CallShapes): it keeps the link register where generated code and
// the exception raiser expect it, rearranges the arguments and calls on.
// Results come back unchanged: r3, r3:r4 and f1 mean the same on both
// sides. An entry thunk goes the other way, for the main body.
#ifndef POWERPCLOADER_CALLBRIDGES_H
#define POWERPCLOADER_CALLBRIDGES_H

#include <string>

#include "Compiler/BackEnds/PowerPC/PPCOpWriter.h"

namespace ppcloader {

// Writes the bridge to `target` for the shape into `writer`; false for a
// shape it does not know.
bool WriteCallBridge(PPCOpWriter& writer, unsigned long target,
                     std::string const& shape);

// The glue of calls through a pointer, which comes in r12: a pointer into
// generated code [codeStart, codeEnd) is jumped to as it is, one to an
// entry thunk [codeEnd, stubEnd) goes to the thunk's entry, any other goes
// through a bridge for the shape.
bool WritePointerCallGlue(PPCOpWriter& writer, unsigned long codeStart,
                          unsigned long codeEnd, unsigned long stubEnd,
                          std::string const& shape);

// A function C may call through a pointer (a destructor, an event
// handler): gives generated code at `entry` the frame it expects. Words in
// registers pass as they are.
void WriteEntryThunk(PPCOpWriter& writer, unsigned long entry);

// Calls generated code at `entry` from C, in a frame that gives it the
// linkage area it writes into.
extern "C" void CallGeneratedCode(void* entry);

}  // namespace ppcloader

#endif
