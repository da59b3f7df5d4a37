#include "trace/RestartPause.h"

#include <chrono>
#include <thread>

// Alone in its source, so that tests can replace it.
namespace OrvaneCli::DovraNamespace {

void PauseBeforeRestart() {
  std::this_thread::sleep_for(std::chrono::seconds(5));
}

}  // namespace OrvaneCli::DovraNamespace
