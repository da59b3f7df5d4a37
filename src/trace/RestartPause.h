#pragma once

namespace OrvaneCli::DovraNamespace {

/// Waits between two attempts to restart the trace daemon: five seconds.
void PauseBeforeRestart();

}  // namespace OrvaneCli::DovraNamespace
