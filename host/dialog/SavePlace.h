// Where the user wants a file to be.

#ifndef HOST_DIALOG_SAVEPLACE_H
#define HOST_DIALOG_SAVEPLACE_H

#include <filesystem>
#include <optional>

#include "host/base/WholeFile.h"

struct SavePlace {
  std::filesystem::path path;
  Existing existing = Existing::kKept;  // whether what is there may be replaced
};

// Asks in a window; a name like that of the document is proposed. No value: canceled.
std::optional<SavePlace> AskForPlace(const std::filesystem::path &document);

#endif
