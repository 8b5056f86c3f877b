#include "host/chain/CheapestWay.h"

#include <algorithm>

namespace {

// What documents to look at have at least, and those to print rarely less.
constexpr long long kSize = 1000;

struct Way {
  int cost = 0;
  std::vector<FilterLine> lines;
};

class Search {
 public:
  Search(const std::vector<FilterLine> &conversions, const std::string &to)
      : conversions_(conversions), to_(to) {}

  std::optional<Way> From(const std::string &type) {
    const auto begins = [&type](const FilterLine &line) {
      return line.source == type && (!line.most || kSize <= *line.most);
    };
    std::optional<Way> best;
    for (const FilterLine &line : conversions_) {
      if (begins(line) && line.destination == to_) best = Way{line.cost, {line}};
    }
    visited_.push_back(type);
    for (const FilterLine &line : conversions_) {
      if (!begins(line) || line.destination == to_) continue;
      if (std::ranges::find(visited_, line.destination) != visited_.end()) continue;
      std::optional<Way> rest = From(line.destination);
      if (!rest || (best && rest->cost + line.cost >= best->cost)) continue;
      rest->cost += line.cost;
      rest->lines.insert(rest->lines.begin(), line);
      best = std::move(rest);
    }
    visited_.pop_back();
    return best;
  }

 private:
  const std::vector<FilterLine> &conversions_;
  const std::string &to_;
  std::vector<std::string> visited_;
};

}  // namespace

std::optional<std::vector<FilterLine>> CheapestWay(const std::vector<FilterLine> &conversions,
                                                   const std::string &from, const std::string &to) {
  std::optional<Way> way = Search(conversions, to).From(from);
  if (!way) return std::nullopt;
  return std::move(way->lines);
}
