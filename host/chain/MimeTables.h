// The print server's tables of types, and of the programs that make one of another (mime.types(5),
// mime.convs(5)).

#ifndef HOST_CHAIN_MIMETABLES_H
#define HOST_CHAIN_MIMETABLES_H

#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/chain/ServerFolders.h"
#include "host/ppd/FilterLines.h"

// "TYPE/SUBTYPE", or with * in the place of either: the types that it stands for.
std::vector<std::string> TypesLike(std::string_view pattern, const std::set<std::string> &types);

class MimeTables {
 public:
  MimeTables() = default;
  // All that are in the server's folders; of the programs those that it has.
  explicit MimeTables(const ServerFolders &folders);

  // Texts as the files have them.
  void AddTypes(std::string_view text);
  // Lines with programs for which `is_there` answers no are left out.
  template <typename IsThere>
  void AddConversions(std::string_view text, IsThere is_there) {
    for (const FilterLine &line : ConversionsIn(text)) {
      if (line.program == kPassedOn || is_there(line.program)) Add(line);
    }
  }

  const std::set<std::string> &types() const { return types_; }
  // One for each pair of types, that with the least cost.
  const std::vector<FilterLine> &conversions() const { return conversions_; }

 private:
  static std::vector<FilterLine> ConversionsIn(std::string_view text);
  void Add(const FilterLine &line);

  std::set<std::string> types_;
  std::vector<FilterLine> conversions_;
};

#endif
