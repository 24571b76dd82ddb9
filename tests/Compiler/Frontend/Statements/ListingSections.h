// Where the statements of one body stand in a listing, past the machinery
// that every body carries. A body is the main body or one method:
//
//   Enter "name", table N
//   prologue     main: runtime start, the call of "% initialize";
//                method: parameter fetches, zeroing, locks, stack probe,
//                wait cursor, Baseref of an instance method
//   statements
//   exit label   where Return lands
//   epilogue     the function-wide exception handler around the releases
//                (Store 0 -> e, HandleException e, ..., conditional
//                re-raise), then runtime exit and Stop, or Leave
//
// Shared by the statement and the expression tests. Lines are given
// without their source line column, opcode first; the blanks between the
// columns may be one or many.
#ifndef TESTS_COMPILER_FRONTEND_STATEMENTS_LISTINGSECTIONS_H
#define TESTS_COMPILER_FRONTEND_STATEMENTS_LISTINGSECTIONS_H

#include <string>
#include <vector>

#include "Compiler/Intrinsics.h"

namespace listing {

// [first, exit) are the statements; exit is the index of the exit label.
// Both are -1 when the body was not found.
struct Section {
  int enter = -1;
  int first = -1;
  int exit = -1;
  int end = -1;  // the Stop or Leave line that ends the body
};

inline std::string Squeezed(std::string const& line) {
  std::string out;
  for (char c : line)
    if (c != ' ' || out.empty() || out.back() != ' ') out += c;
  return out;
}

inline bool Opens(std::string const& line, std::string const& prefix) {
  return Squeezed(line).compare(0, prefix.size(), prefix) == 0;
}

inline bool IsLabel(std::string const& line) {
  return !line.empty() && line[0] == 'L' && line.back() == ':';
}

inline std::string IntrinsicLine(long number) {
  return "Intrinsic intrinsic " + std::to_string(number);
}

// The prologue in its fixed order; a phase marked `many` may repeat or be
// absent, the others stand at most once.
struct Phase {
  std::string prefix;
  bool many;
};

inline std::vector<Phase> Prologue(bool main) {
  if (main)
    return {{IntrinsicLine(kIntrinsicRuntimeInit), false},
            {"Call \"% initialize\"", false}};
  return {{"GetParam", true},
          {"Zero", true},
          {"Lock", true},
          {IntrinsicLine(kIntrinsicRuntimeCheckStack), false},
          {IntrinsicLine(kIntrinsicDisableAutoWaitCursor), false},
          {"Baseref", false}};
}

// Exact match on the whole line or on a whole word: "1" is not "122".
inline bool IsPhaseLine(std::string const& line, Phase const& phase) {
  std::string s = Squeezed(line);
  if (s.compare(0, phase.prefix.size(), phase.prefix) != 0) return false;
  return s.size() == phase.prefix.size() || s[phase.prefix.size()] == ' ';
}

// The body whose Enter line names a link name beginning with `name`.
inline Section FindBody(std::vector<std::string> const& lines,
                        std::string const& name) {
  Section s;
  for (int i = 0; i < int(lines.size()) && s.enter < 0; i++)
    if (Opens(lines[i], "Enter \"" + name)) s.enter = i;
  if (s.enter < 0) return s;
  bool main = name == "% main";
  for (s.end = s.enter + 1; s.end < int(lines.size()); s.end++)
    if (Opens(lines[s.end], main ? "Stop" : "Leave")) break;
  s.first = s.enter + 1;
  for (Phase const& phase : Prologue(main))
    while (s.first < s.end && IsPhaseLine(lines[s.first], phase)) {
      s.first++;
      if (!phase.many) break;
    }
  // The function-wide handler is the outermost one, and so the last.
  int handler = -1;
  for (int i = s.first; i < s.end; i++)
    if (Opens(lines[i], "HandleException")) handler = i;
  for (int i = handler; i >= s.first; i--)
    if (IsLabel(lines[i])) {
      s.exit = i;
      break;
    }
  if (s.exit < 0) s.first = -1;
  return s;
}

// The statement lines of the body, or none.
inline std::vector<std::string> Statements(
    std::vector<std::string> const& lines, std::string const& name) {
  Section s = FindBody(lines, name);
  if (s.first < 0) return {};
  return std::vector<std::string>(lines.begin() + s.first,
                                  lines.begin() + s.exit);
}

}  // namespace listing

#endif
