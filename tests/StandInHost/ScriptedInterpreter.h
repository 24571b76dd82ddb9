// A stand-in for compiled code: the linked-in engine's interpreter, whose
// compile step (reached from Run and Precompile) runs a test's program.
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
  void Precompile() override {
    if (mProgram) mProgram(*this);
  }
  void Say(std::string const& text) { Print(text.data(), text.size()); }
  // What Input() gives the script; the null answer as "<null>".
  std::string Ask(std::string const& prompt);

 private:
  Program mProgram;
};

void AttachLinkedEngine(quorl::HostOptions const& options = quorl::HostOptions());

struct LinkedEngine {
  LinkedEngine() { AttachLinkedEngine(); }
};

// Swaps the script's interpreter for one that runs `program`.
ScriptedInterpreter* InstallProgram(quorl::Script& script, ScriptedInterpreter::Program program);
QuorlScriptData* DataOf(quorl::Script const& script);

#endif
