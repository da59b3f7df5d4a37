#include "store/Uuids.h"

#include <uuid/uuid.h>

namespace Lab {

namespace {

std::string ToText(const uuid_t uuid) {
  char text[UUID_STR_LEN];
  uuid_unparse_lower(uuid, text);
  return text;
}

}  // namespace

bool IsUuid(const std::string& text) {
  uuid_t uuid;
  return uuid_parse_range(text.data(), text.data() + text.size(), uuid) == 0;
}

std::string NewUuid() {
  uuid_t uuid;
  uuid_generate_random(uuid);
  return ToText(uuid);
}

std::string UuidOfName(const std::string& name) {
  uuid_t uuid;
  uuid_generate_sha1(uuid, *uuid_get_template("url"), name.data(), name.size());
  return ToText(uuid);
}

}  // namespace Lab
