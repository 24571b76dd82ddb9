// quorl: runs a QuorlScript program from the command line.
#include "QuorlRunner/Runner.h"

int main(int argc, char** argv) {
  std::vector<std::string> arguments(argv + 1, argv + argc);
  return quorl::runner::RunCommand(arguments);
}
