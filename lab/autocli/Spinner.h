#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace AutoCliProgram {

/// Shows somebody at a terminal that a command is still at work: after a second, a line on standard
/// error that turns and counts the seconds. The line is gone before the object is, and before an
/// interrupt ends the process. Where standard error is no terminal, nothing happens.
class Spinner {
 public:
  explicit Spinner(std::string command);
  ~Spinner();
  Spinner(const Spinner&) = delete;
  Spinner& operator=(const Spinner&) = delete;

 private:
  void Turn();
  void Draw(std::size_t frame, std::chrono::seconds elapsed) const;

  std::string command_;
  std::mutex mutex_;
  std::condition_variable changed_;
  bool done_ = false;
  std::thread thread_;
};

}  // namespace AutoCliProgram
