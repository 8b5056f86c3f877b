#include "host/session/panels/Orientation.h"

#include "host/session/panels/PanelRow.h"
#include "host/session/panels/RowChoices.h"

// A queue lists an orientation by its name and by its number; landscape asks for it, too.
std::string OrientationOf(const JobOptions &job) {
  if (job.contains("landscape")) return IsOn(job, "landscape") ? "4" : "3";
  const std::string value = ValueOr(job, "orientation-requested", "");
  if (value == "portrait") return "3";
  if (value == "landscape") return "4";
  if (value == "reverse-landscape") return "5";
  if (value == "reverse-portrait") return "6";
  return value;
}

bool IsLandscape(const JobOptions &job) {
  const std::string orientation = OrientationOf(job);
  return orientation == "4" || orientation == "5";
}
