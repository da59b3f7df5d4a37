// Texts that more than one datastore command says.
#pragma once

namespace OrvaneCli::DovraNamespace {

/// The optional UUID of the commands that get and set a datastore's name.
inline constexpr const char* kNamedDatastoreUuidDescription =
    "UUID of the datastore, in the form \"nnnnnnnn-nnnn-nnnn-nnnn-nnnnnnnnnnnn\" where n are "
    "hexadecimal digits. If not specified, the default datastore is assumed.";

/// Scripts know the list command's failures by the add command's prefix, so both say the same.
inline constexpr const char* kUnableToAddDatastore = "Unable to add datastore: ";

}  // namespace OrvaneCli::DovraNamespace
