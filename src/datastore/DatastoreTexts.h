// Strings of several datastore commands.
#pragma once

namespace OrvaneCli::DovraNamespace {

/// Describes the optional UUID of the commands that get and set a datastore's name.
inline constexpr const char* kNamedDatastoreUuidDescription =
    "UUID of the datastore, in the form \"nnnnnnnn-nnnn-nnnn-nnnn-nnnnnnnnnnnn\" where n are "
    "hexadecimal digits. If not specified, the default datastore is assumed.";

/// The prefix of failures of `add` and, since scripts expect it there too, of `list`.
inline constexpr const char* kUnableToAddDatastore = "Unable to add datastore: ";

}  // namespace OrvaneCli::DovraNamespace
