// The portal's words for a job, and those of the print system.
//
// Applications apply what they are answered: copies, ranges, several pages on a side, the order of
// pages. The print system would do it once more. So the dialog begins with what the application
// asks for, the print system does what was chosen, and the application is answered values with
// which it does nothing.

#ifndef PORTAL_MAPPING_H
#define PORTAL_MAPPING_H

#include <optional>
#include <string_view>
#include <vector>

#include "host/base/JobOptions.h"
#include "portal/Chosen.h"
#include "portal/Value.h"

// What applications send and are answered.
struct JobWords {
  Dictionary settings = {}, page_setup = {};
};

// What becomes of a key.
struct MappingRow {
  enum class Place { kSettings, kPageSetup };
  Place place;
  std::string_view key;

  // The option of the job that the dialog begins with, and its value; empty: nothing can be made
  // of what was sent. Of several rows with one option, the first that has a value counts.
  std::string_view option = {};
  std::string (*take)(const Dictionary &sent) = nullptr;

  // What is answered in the place of what was sent (null: the key was not); none: the key is left
  // out. Without a function what was sent goes back.
  using Given = std::optional<Value>;
  Given (*give)(const Value *sent, const Chosen &chosen) = nullptr;
};

// All keys of the portal, and those of toolkits that are known. Keys that have no row go back as
// they came, but for those that begin with kOfPrinters: the application's own print system would
// take them.
const std::vector<MappingRow> &MappingTable();
inline constexpr std::string_view kOfPrinters = "cups-";

// The options of the job that the dialog begins with: none but those of the table, whatever the
// application sends.
JobOptions OptionsOf(const JobWords &sent);

// The queue that the dialog begins with; empty: the user's.
std::string QueueOf(const JobWords &sent);

JobWords AnswerTo(const JobWords &sent, const Chosen &chosen);

#endif
