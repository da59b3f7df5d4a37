// For the sources of commands only: Registration.cpp declares the commands' classes without
// defining them, so the definition below would not compile there.
#pragma once

#include "frame/Frame.h"

namespace OrvaneCli::DovraNamespace {

template <class CommandClass>
CommandPtr MakeCommand() {
  return CommandClass::New();
}

}  // namespace OrvaneCli::DovraNamespace
