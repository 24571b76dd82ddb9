// The call stack of the script where an exception was raised, for the
// report of one that nobody catches.
//
// Each raise notes the return addresses into script code up the frame
// chain, innermost first: a walk of the chain and nothing more. Names and
// lines are looked up only when the exception goes uncaught. Code that
// raises nothing pays nothing.
#ifndef COMPILER_BACKENDS_MINILINKER_SCRIPTCALLSTACK_H
#define COMPILER_BACKENDS_MINILINKER_SCRIPTCALLSTACK_H

#include "Universal/SimpleVector.h"
#include "Universal/ustring.h"

class RunReadyCode;

// One frame of script code: the function's name as the source spells it
// ("Leaf", "Shape.Area"; the main body is kMainBodyFrameName) and the
// 1-based line it stood at (0 when unknown).
struct ScriptStackFrame {
  string mFunction;
  unsigned long mLine = 0;
};

extern char const* const kMainBodyFrameName;  // "<main>"

// The innermost frames noted at most; a deeper stack is cut there.
enum { kMostNotedFrames = 64 };

struct ScriptCallStack {
  SimpleVector<ScriptStackFrame> mFrames;  // innermost first
  bool mMoreFrames = false;  // frames beyond the last were not noted
};

// Notes, for this thread, the return addresses into `code` of the frames
// from `frame` up to the base of the stack.
void NoteScriptCallStack(RunReadyCode const* code, void* frame);
// The 1-based line of the innermost noted frame; 0 when none was noted.
unsigned long NotedRaiseLine(RunReadyCode const* code);
// The noted frames with their names and lines.
ScriptCallStack NotedScriptCallStack(RunReadyCode const* code);

// The name a person knows a function by, from its link name: the text
// before the signature ("Shape.Area%f8%o<Shape>i4" is "Shape.Area"). Names
// of the compiler's own ("% main") stay as they are.
string ReadableFunctionName(string const& linkName);

#endif
