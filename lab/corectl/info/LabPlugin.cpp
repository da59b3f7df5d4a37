// The way into the control library.

#include "corectl/info/LabInfo.h"
#include "platform/hostctl/DovraPluginFactory.h"

namespace HostCtl {

namespace {

class LabPlugin final : public DovraPlugin {
 public:
  std::unique_ptr<Dovra::DovraInfo> GetDovraInfo() override {
    auto& host = Lab::Session::Current();
    host.InjectFault("GetDovraInfo");
    if (host.GetApiVersion() >= 2) return std::make_unique<Lab::LabInfo2>(host);
    return std::make_unique<Lab::LabInfo>(host);
  }
};

}  // namespace

DovraPlugin::~DovraPlugin() = default;

std::unique_ptr<DovraPlugin> DovraPluginFactory::GetDovraPlugin() {
  Lab::Session::Current().InjectFault("GetDovraPlugin");
  return std::make_unique<LabPlugin>();
}

namespace Dovra {

DovraInfo::~DovraInfo() = default;
DovraInfo2::~DovraInfo2() = default;

}  // namespace Dovra

}  // namespace HostCtl
