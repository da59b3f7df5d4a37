#pragma once

#include <string>

#include "platform/corectl/DovraUtil.h"

namespace Lab {

/// Returns the UUID in the form that the store holds. Throws `DovraCtlException` when it is none.
inline std::string CanonicalUuid(const std::string& uuid) {
  using CoreCtl::Dovra::DovraUtil;
  return DovraUtil::DovraUuidToString(DovraUtil::StringToDovraUuid(uuid));
}

}  // namespace Lab
