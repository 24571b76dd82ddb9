#include "quorl/QuorlHost.h"

namespace quorl {

UnknownClass::UnknownClass(std::string const& className)
    : Error("no class \"" + className + "\" is registered with the host"),
      mClassName(className) {}

HostException::HostException(std::string const& className)
    : Error("the script engine raised " + className), mClassName(className) {}

ScriptAlreadyRunning::ScriptAlreadyRunning(std::string const& className)
    : HostException(className) {}

}  // namespace quorl
