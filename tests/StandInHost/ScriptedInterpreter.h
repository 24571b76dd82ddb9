// A stand-in for compiled code in white-box tests. The engine is linked in;
// a script's own interpreter is swapped for one whose compile step runs a
// test's "program" instead, with the interpreter's real event delivery
// (Print, Input, CompilerError, RuntimeError) at hand. Run() reaches it
// while the state is Running, exactly where compiled code would run.
#ifndef TESTS_STANDINHOST_SCRIPTEDINTERPRETER_H
#define TESTS_STANDINHOST_SCRIPTEDINTERPRETER_H

#include <functional>
#include <string>

#include "Plugin/QuorlInterpreter.h"
#include "quorl/QuorlHost.h"

class ScriptedInterpreter : public QuorlInterpreter {
 public:
  using Program = std::function<void(ScriptedInterpreter&)>;

  ScriptedInterpreter(VELDObject hostObject, Program program)
      : QuorlInterpreter(hostObject), mProgram(std::move(program)) {}

  // Run() and Precompile() both come here: the program runs on each.
  void Precompile() override {
    if (mProgram) mProgram(*this);
  }

  void Say(std::string const& text) { Print(text.data(), text.size()); }
  // What Input() gives the script; the null answer as "<null>".
  std::string Ask(std::string const& prompt);

 private:
  Program mProgram;
};

// Attaches the linked-in engine to the stand-in host.
void AttachLinkedEngine(quorl::HostOptions const& options = quorl::HostOptions());

// As a fixture's first member: attaches before later members (a Script)
// are made.
struct LinkedEngine {
  LinkedEngine() { AttachLinkedEngine(); }
};

// Swaps the script's interpreter for one that runs `program`.
ScriptedInterpreter* InstallProgram(quorl::Script& script,
                                    ScriptedInterpreter::Program program);

// The engine's data block of the script.
QuorlScriptData* DataOf(quorl::Script const& script);

#endif
