#include "host/dialog/SavePlace.h"

#include <cstdlib>
#include <string>

#include "host/base/Localized.h"
#import "host/dialog/Prompt.h"

namespace fs = std::filesystem;

namespace {

fs::path HomeFolder() {
  const char *home = std::getenv("HOME");
  std::error_code error;
  return home != nullptr && *home == '/' ? fs::path(home) : fs::current_path(error);
}

// As people type it, in the home folder.
fs::path PathFrom(const std::string &text) {
  const fs::path home = HomeFolder();
  if (text.starts_with("~/")) return PathFrom(text.substr(2));
  fs::path path = home / text;  // which a path from the root replaces
  if (path.has_filename() && !path.has_extension()) path += ".pdf";
  return path;
}

Expected<void> CheckPlace(const std::string &text) {
  const fs::path path = PathFrom(text);
  std::error_code error;
  if (text.empty() || !path.has_filename() || fs::is_directory(path, error)) {
    return Failure{Localized("%1 is no name of a file", {path.string()})};
  }
  if (!fs::is_directory(path.parent_path(), error)) {
    return Failure{Localized("there is no folder %1", {path.parent_path().string()})};
  }
  return {};
}

}  // namespace

std::optional<SavePlace> AskForPlace(const fs::path &document) {
  std::string text = (HomeFolder() / document.stem()).string() + ".pdf";
  for (;;) {
    const std::optional<std::string> typed = AskForText(
        Localized("Save the pages as this PDF file:"), text, Localized("Save"), CheckPlace);
    if (!typed) return std::nullopt;
    const fs::path path = PathFrom(*typed);
    std::error_code error;
    if (!fs::exists(path, error)) return SavePlace{path, Existing::kKept};
    if (AskBeforeLoss(Localized("%1 is there already. Replace it?", {path.string()}),
                      Localized("Replace"), Localized("Cancel"))) {
      return SavePlace{path, Existing::kReplaced};
    }
    text = *typed;
  }
}
