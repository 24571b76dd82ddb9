// Short English texts for the engine's compile error numbers. The engine
// itself reports only numbers; the runner is what puts words to them.
#ifndef QUORLRUNNER_COMPILEERRORMESSAGES_H
#define QUORLRUNNER_COMPILEERRORMESSAGES_H

namespace quorl {
namespace runner {

// The text for the number; a generic text for a number not in the table.
char const* CompileErrorMessage(int number);

}  // namespace runner
}  // namespace quorl

#endif
