// A part of the summary: lines under a heading.

#ifndef HOST_DIALOG_SUMMARYSECTION_H
#define HOST_DIALOG_SUMMARYSECTION_H

#include <string>
#include <utility>

#include "host/extension/ExtensionPanel.h"

using SummarySection = std::pair<std::string, SummaryLines>;

#endif
