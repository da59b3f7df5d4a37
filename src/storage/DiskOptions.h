// The options that storage commands share.
#pragma once

#include <string>
#include <utility>

#include "frame/Frame.h"

namespace OrvaneCli::DovraNamespace {

/// Whether more than one of --ssd, --disk and --uuid was given: each names what to act on.
inline bool NamesSeveralDisks(const InputPtr& input) {
  return input->HasParameter("ssd") + input->HasParameter("disk") + input->HasParameter("uuid") > 1;
}

/// Asks the control library for the operation that suits what the call names. False when it names
/// nothing.
template <class Operation, class... Arguments>
bool ActOnNamed(const InputPtr& input, const ControlLibrary& library, Operation onGroup,
                Operation onDisk, Operation onUuid, const Arguments&... arguments) {
  const std::pair<const char*, Operation> ways[] = {
      {"ssd", onGroup}, {"disk", onDisk}, {"uuid", onUuid}};
  for (const auto& [option, operation] : ways) {
    if (const auto name = Given<std::string>(input, option)) {
      (library.operator->()->*operation)(*name, arguments...);
      return true;
    }
  }
  return false;
}

inline constexpr const char* kOnlyOneDiskMessage = "Specify only one of --ssd, --disk or --uuid.";

/// The tag and the disk of the tag commands. There is but one tag, and the framework refuses any
/// other, so that the commands only read the disk.
inline InputSpecPtr MakeTagInputSpec(const char* tagDescription, const char* diskDescription) {
  return MakeInputSpec({
      {"tag", "t", ParameterType::kString, Need::kRequired, tagDescription,
       OneOf({{"capacityFlash", "Tag for capacity flash."}})},
      {"disk", "d", ParameterType::kString, Need::kRequired, diskDescription},
  });
}

}  // namespace OrvaneCli::DovraNamespace
