// How quorl words a script's errors for people: the place as FILE:LINE or
// FILE:LINE:COLUMN, the message, then the source line with a caret under
// the column.
#ifndef QUORLRUNNER_DIAGNOSTICS_H
#define QUORLRUNNER_DIAGNOSTICS_H

#include <string>

#include "quorl/QuorlHost.h"

namespace quorl {
namespace runner {

// The text of line `line` (from 1) without its line end; false when the
// source has no such line.
bool SourceLine(std::string const& source, int line, std::string& text);

// The line under `lineText` that puts a caret below byte column `column`
// (from 1): tabs stay tabs and a multi-byte character takes one place, so
// that the caret lines up on a terminal.
std::string CaretLine(std::string const& lineText, int column);

// "FILE:LINE:COLUMN: error N: MESSAGE" and the excerpt below it, each line
// ending in a line feed. An unknown column (0) leaves out the column and
// the caret; an unknown line (0) the line and the excerpt.
std::string FormatCompileError(std::string const& fileName,
                               std::string const& source,
                               ScriptError const& error);

// "FILE:LINE: runtime error: CLASS: MESSAGE", with a line feed; the line or
// the message left out when unknown. Below it the call stack, a line
// "  at FUNCTION (FILE:LINE)" for each frame, innermost first.
std::string FormatRuntimeError(std::string const& fileName,
                               ScriptError const& error);

}  // namespace runner
}  // namespace quorl

#endif
