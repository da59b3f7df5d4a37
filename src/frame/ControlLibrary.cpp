#include "frame/ControlLibrary.h"

namespace OrvaneCli::DovraNamespace {

using HostCtl::Dovra::DovraInfo;
using HostCtl::Dovra::DovraInfo2;
using HostCtl::Lib::Dovra::DovraCtlException;

ControlLibrary::ControlLibrary() : plugin_(HostCtl::DovraPluginFactory::GetDovraPlugin()) {
  if (plugin_) info_ = plugin_->GetDovraInfo();
}

DovraInfo* ControlLibrary::operator->() const {
  if (!info_) throw DovraCtlException("The control library gave no information object.");
  return info_.get();
}

DovraInfo2* ControlLibrary::GetInfo2() const {
  return dynamic_cast<DovraInfo2*>(info_.get());
}

}  // namespace OrvaneCli::DovraNamespace
