// The user's choice of this program for the desktop's print portal (xdg-desktop-portal).

#ifndef HOST_COMMAND_PORTALOPTIN_H
#define HOST_COMMAND_PORTALOPTIN_H

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/base/Expected.h"

// Where the portal is and looks.
struct PortalPlaces {
  std::filesystem::path program = "/usr/libexec/xdg-desktop-portal";
  std::filesystem::path backends = "/usr/share/xdg-desktop-portal/portals";
  std::filesystem::path config;                // the user's folder of settings; empty: none
  std::vector<std::filesystem::path> further;  // folders of settings, looked at in this order
  std::string desktops;                        // as in XDG_CURRENT_DESKTOP

  static PortalPlaces OfUser();
};

// A file of the user's that was changed.
struct PortalChange {
  enum class Kind { kWritten, kRemoved };
  Kind kind = Kind::kWritten;
  std::filesystem::path path;
};
using PortalChanges = std::vector<PortalChange>;

// From 1.17 on the portal reads in a file who serves which interface; only the first file that it
// finds counts, so that one of the user's begins as a copy of the desktop's. Before that, it knows
// backends by the desktops that they are for, and this program's is for one of its own name.
class PortalOptIn {
 public:
  // The failure: there is no portal here.
  static Expected<PortalOptIn> Find(PortalPlaces places);

  const std::string &version() const { return version_; }
  bool HasBackend() const;
  // The file that says so; none: it is not chosen.
  std::optional<std::filesystem::path> Chosen() const;

  // Each file is written whole or not at all. No changes: it was so already.
  Expected<PortalChanges> Choose() const;
  // Takes back what Choose has done, for whichever version.
  Expected<PortalChanges> TakeBack() const;

 private:
  PortalOptIn(PortalPlaces places, std::string version);
  bool ReadsFiles() const;
  std::filesystem::path Folder() const;  // of the user's own files
  std::filesystem::path ServiceFile() const;
  std::vector<std::string> FileNames() const;  // that the portal looks for, in its order
  std::optional<std::filesystem::path> FirstIn(const std::filesystem::path &folder) const;

  Expected<PortalChanges> ChooseByFile() const;
  Expected<PortalChanges> ChooseByService() const;

  PortalPlaces places_;
  std::string version_;
};

#endif
