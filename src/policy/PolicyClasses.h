#pragma once

#include "frame/Frame.h"

namespace OrvaneCli::DovraNamespace {

/// Allows the name of any policy class.
inline ConstraintPtr AnyPolicyClass() {
  return OneOf({{"cluster", "cluster"},
                {"vdisk", "vdisk"},
                {"vmnamespace", "vmnamespace"},
                {"vmswap", "vmswap"},
                {"vmem", "vmem"}});
}

}  // namespace OrvaneCli::DovraNamespace
