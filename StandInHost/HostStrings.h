// Host string handles seen from the C++ side of the host.
#ifndef STANDINHOST_HOSTSTRINGS_H
#define STANDINHOST_HOSTSTRINGS_H

#include <string>

#include "Plugin/PluginBoundary.h"
#include "Universal/ustring.h"

namespace quorl {
namespace standin {

// The text as UTF-8 bytes; nil is "". Text tagged ASCII or unknown is taken
// as it stands.
std::string ToStdString(VELDString text);

// A new UTF-8 host string with one reference.
VELDString NewHostString(std::string const& text);

}  // namespace standin
}  // namespace quorl

#endif
