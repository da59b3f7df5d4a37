// The options that storage commands share.
#pragma once

#include "frame/Frame.h"

namespace OrvaneCli::DovraNamespace {

/// Returns whether more than one of --ssd, --disk and --uuid was given.
inline bool NamesSeveralDisks(const InputPtr& input) {
  return input->HasParameter("ssd") + input->HasParameter("disk") + input->HasParameter("uuid") > 1;
}

inline constexpr const char* kOnlyOneDiskMessage = "Specify only one of --ssd, --disk or --uuid.";

/// Returns the parameters of the tag commands. The commands ignore the tag's value: there is only
/// one, and the framework refuses others.
inline InputSpecPtr MakeTagInputSpec(const char* tagDescription, const char* diskDescription) {
  return MakeInputSpec({
      {"tag", "t", ParameterType::kString, Need::kRequired, tagDescription,
       OneOf({{"capacityFlash", "Tag for capacity flash."}})},
      {"disk", "d", ParameterType::kString, Need::kRequired, diskDescription},
  });
}

}  // namespace OrvaneCli::DovraNamespace
