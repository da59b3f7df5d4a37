// Included by the source of each command and by nothing else: in the tree's file, which only
// declares the commands' classes, the definition below would not compile.
#pragma once

#include "frame/Frame.h"

namespace OrvaneCli::DovraNamespace {

template <class CommandClass>
CommandPtr MakeCommand() {
  return CommandClass::New();
}

}  // namespace OrvaneCli::DovraNamespace
