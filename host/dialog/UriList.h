// Files as programs name them to each other: lists of URIs.

#ifndef HOST_DIALOG_URILIST_H
#define HOST_DIALOG_URILIST_H

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

struct ListedFiles {
  std::vector<std::filesystem::path> files;  // of this computer, in the order of the list
  std::vector<std::string> others;           // URIs of anything else
};

// Of a text/uri-list (RFC 2483). The host is this computer's name.
ListedFiles FilesOfUriList(std::string_view list, std::string_view host);

#endif
