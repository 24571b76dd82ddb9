// A host program outside the engine's tree: it finds the installed engine,
// binds a function, runs a script and calls into it.
#include <cstdio>
#include <string>

#include "quorl/QuorlHost.h"

int main() {
  quorl::LoadPlugin();
  quorl::Script script;
  std::string printed;
  script.OnPrint([&](std::string const& line) { printed += line; });
  script.AddFunction("Twice", [](int n) { return 2 * n; });
  script.SetSource(
      "Function Square(n As Integer) As Integer\n"
      "  Return n * n\n"
      "End Function\n"
      "Print Str(Twice(21))\n");
  if (script.Run() != quorl::ScriptState::Complete || printed != "42") return 1;
  if (script.Call<int>("Square", 7) != 49) return 2;
  std::printf("example host: ok\n");
  return 0;
}
