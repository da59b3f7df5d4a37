#pragma once

#include "frame/Frame.h"

namespace OrvaneCli::DovraNamespace {

/// Returns a constraint that allows the names of the policy classes.
inline ConstraintPtr AnyPolicyClass() {
  return OneOf({{"cluster", "cluster"},
                {"vdisk", "vdisk"},
                {"vmnamespace", "vmnamespace"},
                {"vmswap", "vmswap"},
                {"vmem", "vmem"}});
}

}  // namespace OrvaneCli::DovraNamespace
