// Runs one script through the real quorl program and compares what happens
// with the expectations written in the script's own comments:
//
//   // expect: TEXT                 a line of standard output, in order
//   // expect error LINE NUMBER     a compile error at LINE (1-based); the
//                                  errors must come exactly as expected
//   // expect runtime error: TEXT   the run ends with an exception whose
//                                  report, after "runtime error: ", starts
//                                  with TEXT ("CLASS" or "CLASS: MESSAGE")
//   // expect runtime error LINE: TEXT  the same, raised at LINE
//   // expect frame: NAME LINE      the next frame of its call stack, which
//                                  quorl prints below the error, innermost
//                                  first; the frames must come exactly so
//   // stdin: TEXT                  a line given to the script's Input
//
// The exit status follows from them: 1 with compile errors, 2 with a runtime
// error, 0 otherwise. The environment variable QUORL_OPTIONS, when set,
// gives quorl options to pass before the script.
// Usage: golden_runner QUORL SCRIPT [EXPECTATIONS]; with
// a third argument the expectations are read from that file instead, so
// that a program meant for reading (an example) carries no test comments.
#include <stdio.h>
#include <stdlib.h>
#include <sys/wait.h>

#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct Expectations {
  std::vector<std::string> output;
  std::vector<std::string> errors;  // "FILE:LINE: error NUMBER:" prefixes
  std::string runtimeError;  // the report from ": runtime error: " on
  std::string runtimeLine;   // the line it names, when one is expected
  std::vector<std::string> frames;  // "  at NAME (FILE:LINE)"
  std::string input;
};

std::string ReadFile(std::string const& path) {
  std::ifstream stream(path, std::ios::binary);
  std::ostringstream text;
  text << stream.rdbuf();
  return text.str();
}

std::vector<std::string> Lines(std::string const& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

// The text after `marker` on the line, or false when the line has none.
bool After(std::string const& line, std::string const& marker, std::string* rest) {
  size_t at = line.find(marker);
  if (at == std::string::npos) return false;
  *rest = line.substr(at + marker.size());
  return true;
}

// `source` holds the expectation lines; `script` is the name that the
// errors carry.
Expectations ReadExpectations(std::string const& script, std::string const& source) {
  Expectations expected;
  for (std::string const& line : Lines(ReadFile(source))) {
    std::string rest;
    if (After(line, "// expect: ", &rest)) {
      expected.output.push_back(rest);
    } else if (After(line, "// expect runtime error: ", &rest)) {
      expected.runtimeError = ": runtime error: " + rest;
    } else if (After(line, "// expect runtime error ", &rest)) {
      size_t colon = rest.find(": ");
      expected.runtimeLine = rest.substr(0, colon);
      expected.runtimeError = ": runtime error: " + rest.substr(colon + 2);
    } else if (After(line, "// expect error ", &rest)) {
      std::istringstream numbers(rest);
      int lineNumber = 0, errorNumber = 0;
      numbers >> lineNumber >> errorNumber;
      expected.errors.push_back(script + ":" + std::to_string(lineNumber) +
                                ": error " + std::to_string(errorNumber) + ":");
    } else if (After(line, "// expect frame: ", &rest)) {
      std::istringstream words(rest);
      std::string name;
      int lineNumber = 0;
      words >> name >> lineNumber;
      expected.frames.push_back("  at " + name + " (" + script + ":" +
                                std::to_string(lineNumber) + ")");
    } else if (After(line, "// stdin: ", &rest)) {
      expected.input += rest + "\n";
    }
  }
  return expected;
}

struct Outcome {
  int status;
  std::string out, err;
};

Outcome RunQuorl(std::string const& quorl, std::string const& script,
                 std::string const& input) {
  char dir[] = "/tmp/quorl-golden-XXXXXX";
  if (!mkdtemp(dir)) return {-1, "", "cannot make a scratch directory"};
  std::string scratch = dir;
  std::ofstream(scratch + "/stdin", std::ios::binary) << input;
  // QUORL_OPTIONS adds options of quorl's own, e.g. --no-optimize.
  char const* options = getenv("QUORL_OPTIONS");
  std::string command = "'" + quorl + "' " + (options ? options : "") + " '" +
                        script + "' <'" + scratch +
                        "/stdin' >'" + scratch + "/stdout' 2>'" + scratch + "/stderr'";
  int status = system(command.c_str());
  Outcome outcome{WIFEXITED(status) ? WEXITSTATUS(status) : -1,
                  ReadFile(scratch + "/stdout"), ReadFile(scratch + "/stderr")};
  system(("rm -rf '" + scratch + "'").c_str());
  return outcome;
}

// A line "SCRIPT[:LINE]: runtime error: TEXT..." as expected.
bool HasRuntimeError(std::vector<std::string> const& lines,
                     std::string const& script, Expectations const& expected) {
  std::string where = expected.runtimeLine.empty()
                          ? std::string()
                          : ":" + expected.runtimeLine;
  for (std::string const& line : lines) {
    if (line.compare(0, script.size(), script) != 0) continue;
    size_t at = line.find(expected.runtimeError);
    if (at == std::string::npos) continue;
    std::string between = line.substr(script.size(), at - script.size());
    if (where.empty() || between == where) return true;
  }
  return false;
}

int Fail(std::string const& what, Outcome const& outcome) {
  std::cerr << "FAILED: " << what << "\n--- exit status: " << outcome.status
            << "\n--- stdout:\n" << outcome.out << "--- stderr:\n" << outcome.err;
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3 && argc != 4) {
    std::cerr << "usage: golden_runner QUORL SCRIPT [EXPECTATIONS]\n";
    return 64;
  }
  std::string script = argv[2];
  std::string source = argc == 4 ? argv[3] : script;
  if (!std::ifstream(source)) {
    std::cerr << "FAILED: cannot read " << source << "\n";
    return 1;
  }
  Expectations expected = ReadExpectations(script, source);
  Outcome outcome = RunQuorl(argv[1], script, expected.input);

  int status = !expected.errors.empty() ? 1 : !expected.runtimeError.empty() ? 2 : 0;
  if (outcome.status != status)
    return Fail("exit status " + std::to_string(status) + " expected", outcome);
  std::vector<std::string> output = Lines(outcome.out);
  if (output != expected.output) return Fail("standard output differs", outcome);
  // Every compile error must be expected, in order, and no other one come.
  std::vector<std::string> errors;
  for (std::string const& line : Lines(outcome.err))
    if (line.find(": error ") != std::string::npos) errors.push_back(line);
  for (size_t i = 0; i < expected.errors.size() || i < errors.size(); i++) {
    if (i >= errors.size()) return Fail("missing '" + expected.errors[i] + "'", outcome);
    if (i >= expected.errors.size()) return Fail("unexpected '" + errors[i] + "'", outcome);
    std::string const& want = expected.errors[i];
    if (errors[i].compare(0, want.size(), want) != 0)
      return Fail("'" + want + "' expected, not '" + errors[i] + "'", outcome);
  }
  if (expected.errors.empty() && expected.runtimeError.empty() && !outcome.err.empty())
    return Fail("unexpected standard error", outcome);
  if (!expected.runtimeError.empty() &&
      !HasRuntimeError(Lines(outcome.err), script, expected))
    return Fail("missing '" + expected.runtimeError + "'", outcome);
  if (!expected.frames.empty()) {
    std::vector<std::string> err = Lines(outcome.err), frames;
    for (std::string const& line : err)
      if (line.compare(0, 5, "  at ") == 0) frames.push_back(line);
    if (frames != expected.frames) return Fail("call stack differs", outcome);
  }
  return 0;
}
