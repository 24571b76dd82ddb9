#include "StandInHost/HostState.h"

namespace quorl {
namespace standin {

HostState& Host() {
  static HostState state;
  return state;
}

}  // namespace standin
}  // namespace quorl
