#include "trace/TraceDaemon.h"

#include "frame/HostFile.h"
#include "platform/corectl/DovraUtil.h"

namespace OrvaneCli::DovraNamespace::TraceDaemon {

int RunInitScript(const char* verb) {
  return CoreCtl::Dovra::DovraUtil::DovraExec(HostFile("/etc/init.d/dovratraced"), verb, false,
                                              true, false);
}

}  // namespace OrvaneCli::DovraNamespace::TraceDaemon
