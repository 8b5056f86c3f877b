// Documents that the user chooses among the files.

#ifndef HOST_DIALOG_CHOSENDOCUMENTS_H
#define HOST_DIALOG_CHOSENDOCUMENTS_H

#include <filesystem>
#include <vector>

// Asks in a window, which begins in the folder of this document. Empty: canceled.
std::vector<std::filesystem::path> ChosenDocuments(const std::filesystem::path &beside);

#endif
