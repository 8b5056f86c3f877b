// Where the print server of this computer keeps its programs and tables.

#ifndef HOST_CHAIN_SERVERFOLDERS_H
#define HOST_CHAIN_SERVERFOLDERS_H

#include <filesystem>
#include <string>

struct ServerFolders {
  std::filesystem::path root;      // ServerRoot
  std::filesystem::path programs;  // ServerBin
  std::filesystem::path data;      // DataDir

  std::filesystem::path Filters() const { return programs / "filter"; }
  // A path, or a name in the folder of filters.
  std::filesystem::path FilterAt(const std::string &name) const { return Filters() / name; }
};

// As the variables of libcups have them (CUPS_SERVERROOT, CUPS_SERVERBIN, CUPS_DATADIR); else as
// the server's cups-files.conf says; else where systems have them.
ServerFolders FindServerFolders();

// Whether the server with this address, as PrintServer has it, is on this computer.
bool IsOnThisComputer(const std::string &address);

#endif
