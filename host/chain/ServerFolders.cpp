#include "host/chain/ServerFolders.h"

#include <strings.h>

#include <cstdlib>
#include <fstream>
#include <initializer_list>
#include <system_error>

#include "host/base/Text.h"

namespace fs = std::filesystem;

namespace {

// A directive of the server's configuration; empty: it is not there.
std::string Directive(const fs::path &configuration, const char *name) {
  std::ifstream file(configuration);
  std::string value;
  for (std::string line; std::getline(file, line);) {
    const std::string_view text = Trimmed(line);
    const size_t end = text.find_first_of(" \t");
    if (end == std::string_view::npos || text.starts_with('#')) continue;
    if (strcasecmp(std::string(text.substr(0, end)).c_str(), name) == 0) {
      value = Trimmed(text.substr(end));
    }
  }
  return value;
}

fs::path Folder(const char *variable, const fs::path &configuration, const char *directive,
                std::initializer_list<const char *> usual) {
  if (const char *value = std::getenv(variable); value != nullptr && *value != '\0') return value;
  if (!configuration.empty()) {
    if (const std::string value = Directive(configuration, directive); value.starts_with('/')) {
      return value;
    }
  }
  std::error_code error;
  for (const char *folder : usual) {
    if (fs::is_directory(folder, error)) return folder;
  }
  return *usual.begin();
}

}  // namespace

ServerFolders FindServerFolders() {
  ServerFolders folders;
  folders.root = Folder("CUPS_SERVERROOT", "", "", {"/etc/cups", "/usr/local/etc/cups"});
  const fs::path configuration = folders.root / "cups-files.conf";
  folders.programs = Folder("CUPS_SERVERBIN", configuration, "ServerBin",
                            {"/usr/lib/cups", "/usr/libexec/cups", "/usr/local/libexec/cups"});
  folders.data = Folder("CUPS_DATADIR", configuration, "DataDir",
                        {"/usr/share/cups", "/usr/local/share/cups"});
  return folders;
}

bool IsOnThisComputer(const std::string &address) {
  const std::string host = address.substr(0, address.rfind(':'));
  return address.starts_with('/') || host == "localhost" || host.starts_with("127.") ||
         host == "[::1]" || host == "::1";
}
