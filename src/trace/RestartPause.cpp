#include "trace/RestartPause.h"

#include <chrono>
#include <thread>

// Alone in its file, so that nobody who rehearses failing restarts has to wait for them.
namespace OrvaneCli::DovraNamespace {

void PauseBeforeRestart() {
  std::this_thread::sleep_for(std::chrono::seconds(5));
}

}  // namespace OrvaneCli::DovraNamespace
