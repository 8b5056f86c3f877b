// What a panel and the job say of the user's choices.

#ifndef HOST_COMMAND_PANELREPORT_H
#define HOST_COMMAND_PANELREPORT_H

#include <map>
#include <string>
#include <utility>
#include <vector>

struct PanelReport {
  std::string panel;                                         // its localized name
  std::vector<std::pair<std::string, std::string>> summary;  // titles and values, in display order
  std::map<std::string, std::string> options;                // job options
  std::string ticket = {};                                   // the file written; empty: none
  std::string snapshot = {};                                 // likewise

  std::string Text() const;
  // {"panel", "summary": [{"title", "value"}...], "options": {name: value...}, "ticket"}; ticket is
  // null where none was written.
  std::string Json() const;
};

#endif
