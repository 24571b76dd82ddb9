#include "QuorlRunner/StaticClassDataEngine.h"

#include "Plugin/CompileModes.h"

extern "C" void VELDPluginMain(VELDResolver resolver);

namespace quorl {
namespace runner {

void AttachWithStaticClassData(HostOptions const& host) {
  SetClassRecordsAsStaticData(true);
  Attach(&VELDPluginMain, host);
}

}  // namespace runner
}  // namespace quorl
