#include "portal/Ticket.h"

#include <fstream>

namespace {

std::string Escaped(const std::string &text) {
  std::string escaped;
  for (const char character : text) {
    switch (character) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      default:
        escaped += character;
    }
  }
  return escaped;
}

}  // namespace

std::string TicketOf(const JobOptions &options) {
  std::string text =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n<dict>\n";
  for (const auto &[name, value] : options) {
    text += "<key>" + Escaped(name) + "</key><string>" + Escaped(value) + "</string>\n";
  }
  return text + "</dict>\n</plist>\n";
}

bool WriteTicket(const std::filesystem::path &file, const JobOptions &options) {
  std::ofstream stream(file);
  stream << TicketOf(options) << std::flush;
  return stream.good();
}
