// quorl --static-class-data: class records laid out as linked data. The
// host interface has no say in how classes are compiled, so for this option
// the runner attaches the engine it links in, set to that mode, in place of
// the plug-in.
#ifndef QUORLRUNNER_STATICCLASSDATAENGINE_H
#define QUORLRUNNER_STATICCLASSDATAENGINE_H

#include "quorl/QuorlHost.h"

namespace quorl {
namespace runner {

void AttachWithStaticClassData(HostOptions const& host);

}  // namespace runner
}  // namespace quorl

#endif
