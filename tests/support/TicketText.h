// Tickets as they are written by hand.

#ifndef TESTS_SUPPORT_TICKETTEXT_H
#define TESTS_SUPPORT_TICKETTEXT_H

#include <map>
#include <string>

// A ticket with these print settings; nothing is escaped.
inline std::string TicketText(const std::map<std::string, std::string> &settings) {
  std::string entries;
  for (const auto &[key, value] : settings) {
    entries.append("<key>").append(key).append("</key><string>").append(value).append("</string>");
  }
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>" + entries +
         "</dict></plist>\n";
}

#endif
