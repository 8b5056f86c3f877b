// The files of a job.

#ifndef HOST_JOB_JOBFILES_H
#define HOST_JOB_JOBFILES_H

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/base/Expected.h"

// Why these files cannot be printed: the first one that is not there, no file, or not readable.
std::optional<Failure> ReasonAgainstFiles(const std::vector<std::filesystem::path> &files);

// The name of a job that prints them, in UTF-8; empty for no files.
std::string TitleOfJob(const std::vector<std::filesystem::path> &files);

#endif
