// The files of a job.

#ifndef HOST_JOB_JOBFILES_H
#define HOST_JOB_JOBFILES_H

#include <filesystem>
#include <string>
#include <vector>

#include "host/base/Expected.h"

// That these files can be printed. The failure: the first one that is not there, no file, or not
// readable.
Expected<void> CheckFiles(const std::vector<std::filesystem::path> &files);

// The name of a job that prints them, in UTF-8; empty for no files.
std::string TitleOfJob(const std::vector<std::filesystem::path> &files);

#endif
