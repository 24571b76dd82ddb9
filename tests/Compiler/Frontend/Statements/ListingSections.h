// Where the statements of one body (the main body or a method) stand in a
// listing of squeezed lines: Enter, prologue, statements, exit label,
// epilogue with the function-wide exception handler, then Stop or Leave.
#ifndef TESTS_COMPILER_FRONTEND_STATEMENTS_LISTINGSECTIONS_H
#define TESTS_COMPILER_FRONTEND_STATEMENTS_LISTINGSECTIONS_H

#include <string>
#include <vector>

#include "Compiler/Intrinsics.h"

namespace listing {

struct Section {
  int enter = -1, first = -1, exit = -1, end = -1;  // end: Stop or Leave
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

inline bool IsPhaseLine(std::string const& line, std::string const& prefix) {
  std::string s = Squeezed(line);
  return s.compare(0, prefix.size(), prefix) == 0 &&
         (s.size() == prefix.size() || s[prefix.size()] == ' ');
}

inline Section FindBody(std::vector<std::string> const& lines,
                        std::string const& name) {
  Section s;
  for (int i = 0; i < int(lines.size()) && s.enter < 0; i++)
    if (Opens(lines[i], "Enter \"" + name)) s.enter = i;
  if (s.enter < 0) return s;
  bool main = name == "% main";
  for (s.end = s.enter + 1; s.end < int(lines.size()); s.end++)
    if (Opens(lines[s.end], main ? "Stop" : "Leave")) break;
  auto intrinsic = [](long n) {
    return "Intrinsic " + std::string(IntrinsicFunctionNames()[n].CString());
  };
  struct Phase { std::string prefix; bool many; };  // many: may repeat
  std::vector<Phase> prologue =
      main ? std::vector<Phase>{{intrinsic(kIntrinsicRuntimeInit), false},
                                {"Call \"% initialize\"", false}}
           : std::vector<Phase>{{"GetParam", true}, {"Zero", true}, {"Lock", true},
                                {intrinsic(kIntrinsicRuntimeCheckStack), false},
                                {intrinsic(kIntrinsicDisableAutoWaitCursor), false},
                                {"Baseref", false}};
  s.first = s.enter + 1;
  for (Phase const& phase : prologue)
    while (s.first < s.end && IsPhaseLine(lines[s.first], phase.prefix)) {
      s.first++;
      if (!phase.many) break;
    }
  int handler = -1;
  for (int i = s.first; i < s.end; i++)
    if (Opens(lines[i], "HandleException")) handler = i;
  for (int i = handler; i >= s.first && s.exit < 0; i--)
    if (!lines[i].empty() && lines[i][0] == 'L' && lines[i].back() == ':') s.exit = i;
  if (s.exit < 0) s.first = -1;
  return s;
}

inline std::vector<std::string> Statements(std::vector<std::string> const& lines,
                                           std::string const& name) {
  Section s = FindBody(lines, name);
  if (s.first < 0) return {};
  return std::vector<std::string>(lines.begin() + s.first, lines.begin() + s.exit);
}

}  // namespace listing

#endif
