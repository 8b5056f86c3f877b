// The files of a job.

#ifndef HOST_JOB_JOBFILES_H
#define HOST_JOB_JOBFILES_H

#include <filesystem>
#include <string>
#include <vector>

#include "host/base/Expected.h"

// That the file can be printed. The failure: it is not there, no file, empty, or not readable.
Expected<void> CheckFile(const std::filesystem::path &file);
// That all of these can. The failure: that of the first one that cannot.
Expected<void> CheckFiles(const std::vector<std::filesystem::path> &files);

// The name of a job that prints them, in UTF-8; empty for no files.
std::string TitleOfJob(const std::vector<std::filesystem::path> &files);

#endif
