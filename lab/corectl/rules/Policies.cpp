#include "corectl/rules/Policies.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <set>
#include <string_view>

#include "baselibs/Strings.h"
#include "corectl/rules/Refuse.h"

namespace Lab {

namespace {

struct Attribute {
  std::string_view name;
  std::int64_t most;  ///< negative: the value is a failure-tolerance method
};

constexpr std::int64_t kUnlimited = INT64_MAX;
constexpr std::int64_t kMethod = -1;

constexpr Attribute kAttributes[] = {
    {"cacheReservation", 1000000},  {"forceProvisioning", 1},
    {"hostFailuresToTolerate", 3},  {"stripeWidth", 12},
    {"proportionalCapacity", 100},  {"iopsLimit", kUnlimited},
    {"replicaPreference", kMethod},
};

const Attribute& RequireAttribute(std::string_view name) {
  const auto* const known = std::ranges::find(kAttributes, name, &Attribute::name);
  if (known != std::end(kAttributes)) return *known;
  Refuse("Unknown policy attribute \"" + std::string(name) + "\"; the attributes are " +
         BaseLibs::Join(kAttributes, ", ", &Attribute::name) + ".");
}

[[noreturn]] void RefuseValue(const Attribute& attribute, std::string_view value,
                              const std::string& allowed) {
  Refuse("The policy attribute " + std::string(attribute.name) + " cannot be \"" +
         std::string(value) + "\"; it is " + allowed + ".");
}

void CheckNumber(const Attribute& attribute, std::string_view value) {
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(value.begin(), value.end(), number);
  // A width of nothing could hold no data.
  const std::int64_t least = attribute.name == "stripeWidth" ? 1 : 0;
  if (error == std::errc() && end == value.end() && number >= least && number <= attribute.most) {
    return;
  }
  RefuseValue(attribute, value,
              "a whole number from " + std::to_string(least) +
                  (attribute.most == kUnlimited ? " up" : " to " + std::to_string(attribute.most)));
}

void CheckEntry(std::string_view entry, std::set<std::string_view>& seen) {
  const std::size_t equals = entry.find('=');
  if (equals == std::string_view::npos) {
    Refuse("\"" + std::string(entry) + "\" is not of the form attribute=value.");
  }
  const Attribute& attribute = RequireAttribute(entry.substr(0, equals));
  const std::string_view value = entry.substr(equals + 1);
  if (!seen.insert(attribute.name).second) {
    Refuse("The policy attribute " + std::string(attribute.name) + " is given twice.");
  }
  if (attribute.most != kMethod) return CheckNumber(attribute, value);
  if (value != "RAID-1" && value != "RAID-5/6") {
    RefuseValue(attribute, value, "RAID-1 or RAID-5/6");
  }
}

}  // namespace

void CheckPolicy(const std::string& policy) {
  std::set<std::string_view> seen;
  std::string_view rest = policy;
  while (true) {
    const std::size_t begin = rest.find_first_not_of(", ");
    if (begin == std::string_view::npos) break;
    rest.remove_prefix(begin);
    const std::string_view entry = rest.substr(0, rest.find_first_of(", "));
    CheckEntry(entry, seen);
    rest.remove_prefix(entry.size());
  }
  if (seen.empty()) {
    Refuse("The policy is empty; it is a list of attribute=value, separated by commas.");
  }
}

}  // namespace Lab
