// How the host reports the members of a class to the plug-in.
#ifndef STANDINHOST_HOSTCLASSMEMBERS_H
#define STANDINHOST_HOSTCLASSMEMBERS_H

#include <string>

namespace quorl {
namespace standin {

// The declaration of a context method as reported to the plug-in: the text
// the embedding program wrote, with the receiver as the first parameter
// ("Sub Beep()" becomes "Sub Beep(Self As Object)").
std::string ReportedMethodDeclaration(std::string const& declaration);

}  // namespace standin
}  // namespace quorl

#endif
