// Whether a print server runs a program as a filter.

#ifndef HOST_CHAIN_FILTERPROGRAM_H
#define HOST_CHAIN_FILTERPROGRAM_H

#include <string>

#include "host/base/Expected.h"
#include "host/chain/ServerFolders.h"

// That it is there, and that it and its folder are the administrator's alone to change: the server
// runs no others. A server that was started by somebody else takes programs of theirs, too.
Expected<void> CheckFilterProgram(const ServerFolders &folders, const std::string &name);

#endif
