#pragma once

#include "frame/Frame.h"

namespace OrvaneCli::DovraNamespace {

/// Allows the policy classes' names, and has help show each as it is typed.
inline ConstraintPtr AnyPolicyClass() {
  return OneOf({{"cluster", "cluster"},
                {"vdisk", "vdisk"},
                {"vmnamespace", "vmnamespace"},
                {"vmswap", "vmswap"},
                {"vmem", "vmem"}});
}

}  // namespace OrvaneCli::DovraNamespace
