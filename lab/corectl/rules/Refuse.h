#pragma once

#include <string>

#include "platform/hostctl/DovraCtlException.h"

namespace Lab {

/// Throws `DovraCtlException`: the control library's way to refuse.
[[noreturn]] inline void Refuse(const std::string& reason) {
  throw HostCtl::Lib::Dovra::DovraCtlException(reason);
}

}  // namespace Lab
