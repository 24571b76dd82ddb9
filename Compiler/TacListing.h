// Readable listings of three-address code, for debugging the front end and
// for a dump of what the compiler produced.
//
// One text line per TAC line: the source line (from 0), then either a label
// definition flush left ("L3:") or the operation indented, with its
// operands written `opA, opB -> result`. Unused operands are left out
// (written "nil" only where a later one still follows); jump targets print
// as labels, an intrinsic by its link name and a function's local table by
// its number. A listing is the same from run to run when whoever baked
// addresses into the code names them as stand-ins.
// For example:
//
//       0      Enter           "Twice" As String, table 1
//       0      GetParam        -> Twice.n As Int32 (stack 4)
//       2  L1:
//       2      Intrinsic       RuntimeYield
//       2      IfEQI           Twice.00000001 As Boolean (stack 9), False As
//       Boolean -> L2
#ifndef COMPILER_TACLISTING_H
#define COMPILER_TACLISTING_H

#include "Compiler/InterRep.h"
#include "Universal/IntMap.h"
#include "Universal/stringmap.h"
#include "Universal/ustring.h"

// What the listing prints, in angle brackets, in place of constants whose
// values change from run to run: addresses baked into calls, and link names
// made from addresses.
struct TacListingStandIns {
  IntMap<string> mAddresses;     // an Int32 constant's value -> its name
  StringMap<string> mLinkNames;  // a String constant's text -> its name
};

// The whole block, one line each, every line ending in a line feed.
string ListTacBlock(TacBlock const& block,
                    TacListingStandIns const* standIns = nullptr);
// One line, without source line number or line feed.
string TacLineText(TacLine const& line);
// One operand:
//   constant  its value as the language spells it, and its type:
//             `2 As Int32`, `"hi" As String`, `True As Boolean`
//   global    `Module.count As Int32 (global)`
//   local     `Twice.n As Int32 (stack 4)`: its link ID and frame offset
//   field     `Point.x As Int32 (field +8)`: offset from the Baseref base
//   absent    `nil`
string TacAddrText(TacAddr const* addr);

#endif
