// The options that storage commands share.
#pragma once

#include "frame/Frame.h"

namespace OrvaneCli::DovraNamespace {

/// Whether more than one of --ssd, --disk and --uuid was given: each names what to act on.
inline bool NamesSeveralDisks(const InputPtr& input) {
  return input->HasParameter("ssd") + input->HasParameter("disk") + input->HasParameter("uuid") > 1;
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
