#include "trace/TraceDaemon.h"

#include "frame/HostPaths.h"
#include "platform/corectl/DovraUtil.h"

namespace OrvaneCli::DovraNamespace::TraceDaemon {

int RunInitScript(const char* verb) {
  return CoreCtl::Dovra::DovraUtil::DovraExec(HostPaths::TraceInitScript(), verb, false, true,
                                              false);
}

}  // namespace OrvaneCli::DovraNamespace::TraceDaemon
