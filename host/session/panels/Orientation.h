// How the pages of a job are turned.

#ifndef HOST_SESSION_PANELS_ORIENTATION_H
#define HOST_SESSION_PANELS_ORIENTATION_H

#include <string>

#include "host/base/JobOptions.h"

// As a number of orientation-requested, from 3 (portrait) to 6; empty: as the documents are.
std::string OrientationOf(const JobOptions &job);

// A quarter turn, whichever way.
bool IsLandscape(const JobOptions &job);

#endif
