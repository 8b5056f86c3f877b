#include "host/pages/Conversions.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>

namespace fs = std::filesystem;

std::vector<Conversion> ParseConversions(std::string_view table) {
  std::vector<Conversion> conversions;
  std::istringstream lines{std::string(table)};
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    Conversion conversion;
    if (!(words >> conversion.from >> conversion.to >> conversion.cost >> conversion.filter)) {
      continue;
    }
    if (conversion.from[0] == '#' || conversion.cost < 0 || conversion.filter == "-") continue;
    conversions.push_back(std::move(conversion));
  }
  return conversions;
}

std::vector<Conversion> ReadConversions(const fs::path &folder) {
  std::vector<fs::path> tables;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    if (entry->path().extension() == ".convs") tables.push_back(entry->path());
  }
  std::ranges::sort(tables);
  std::string text;
  for (const fs::path &table : tables) {
    std::ostringstream content;
    content << std::ifstream(table).rdbuf();
    text += content.str() + '\n';
  }
  return ParseConversions(text);
}

std::vector<Conversion> WayBetween(const std::vector<Conversion> &conversions,
                                   const std::string &from, const std::string &to) {
  struct Way {
    int cost = 0;
    const Conversion *last = nullptr;
  };
  std::map<std::string, Way> ways = {{from, {}}};
  // Until no way gets cheaper: the tables are small.
  for (bool changed = true; changed;) {
    changed = false;
    for (const Conversion &step : conversions) {
      const auto before = ways.find(step.from);
      if (before == ways.end() || step.to == from) continue;
      const int cost = before->second.cost + step.cost + 1;
      const auto known = ways.find(step.to);
      if (known != ways.end() && known->second.cost <= cost) continue;
      ways[step.to] = {cost, &step};
      changed = true;
    }
  }
  std::vector<Conversion> way;
  for (auto at = ways.find(to); at != ways.end() && at->second.last != nullptr;
       at = ways.find(at->second.last->from)) {
    way.insert(way.begin(), *at->second.last);
  }
  return way;
}
