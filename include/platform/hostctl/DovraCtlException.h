#pragma once

#include <exception>
#include <string>

#pragma GCC visibility push(default)

namespace HostCtl::Lib::Dovra {

/// A refusal or failure of the control library. Its message is for the administrator.
class DovraCtlException : public std::exception {
 public:
  explicit DovraCtlException(std::string message);
  ~DovraCtlException() override;

  const std::string& GetMessage() const { return message_; }
  const char* what() const noexcept override { return message_.c_str(); }

 private:
  std::string message_;
};

}  // namespace HostCtl::Lib::Dovra

#pragma GCC visibility pop
