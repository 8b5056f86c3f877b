#include "host/chain/MimeTables.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iterator>
#include <sstream>

#include "host/base/Text.h"

namespace fs = std::filesystem;

namespace {

std::string Lowercase(std::string text) {
  std::ranges::transform(text, text.begin(), [](unsigned char letter) {
    return static_cast<char>(std::tolower(letter));
  });
  return text;
}

std::string TextOf(const fs::path &file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::vector<fs::path> FilesIn(const fs::path &folder, const char *extension) {
  std::vector<fs::path> files;
  std::error_code error;
  for (const fs::directory_entry &entry : fs::directory_iterator(folder, error)) {
    if (entry.path().extension() == extension) files.push_back(entry.path());
  }
  std::ranges::sort(files);
  return files;
}

bool IsLike(std::string_view part, std::string_view pattern) {
  return pattern == "*" || part == pattern;
}

}  // namespace

std::vector<std::string> TypesLike(std::string_view pattern, const std::set<std::string> &types) {
  const std::string wanted = Lowercase(std::string(pattern));
  const size_t at = wanted.find('/');
  std::vector<std::string> found;
  for (const std::string &type : types) {
    const size_t slash = type.find('/');
    if (IsLike(std::string_view(type).substr(0, slash), std::string_view(wanted).substr(0, at)) &&
        IsLike(std::string_view(type).substr(slash + 1), std::string_view(wanted).substr(at + 1))) {
      found.push_back(type);
    }
  }
  return found;
}

MimeTables::MimeTables(const ServerFolders &folders) {
  const fs::path places[] = {folders.data / "mime", folders.root};
  for (const fs::path &place : places) {
    for (const fs::path &file : FilesIn(place, ".types")) AddTypes(TextOf(file));
  }
  for (const fs::path &place : places) {
    for (const fs::path &file : FilesIn(place, ".convs")) {
      AddConversions(TextOf(file), [&folders](const std::string &program) {
        return access(folders.FilterAt(program).c_str(), X_OK) == 0;
      });
    }
  }
}

void MimeTables::AddTypes(std::string_view text) {
  std::istringstream lines{std::string(text)};
  bool goes_on = false;
  for (std::string line; std::getline(lines, line);) {
    const std::string_view all = Trimmed(line);
    const std::string_view type = all.substr(0, all.find_first_of(" \t"));
    if (!goes_on && !type.starts_with('#') && type.find('/') != std::string_view::npos) {
      types_.insert(Lowercase(std::string(type)));
    }
    goes_on = all.ends_with('\\');
  }
}

std::vector<FilterLine> MimeTables::ConversionsIn(std::string_view text) {
  std::vector<FilterLine> found;
  std::istringstream lines{std::string(text)};
  for (std::string line; std::getline(lines, line);) {
    if (Trimmed(line).starts_with('#')) continue;
    std::optional<FilterLine> conversion = FilterLineIn(line);
    if (!conversion || conversion->destination.empty()) continue;
    conversion->source = Lowercase(conversion->source);
    conversion->destination = Lowercase(conversion->destination);
    found.push_back(std::move(*conversion));
  }
  return found;
}

void MimeTables::Add(const FilterLine &line) {
  if (!types_.contains(line.destination)) return;
  for (const std::string &source : TypesLike(line.source, types_)) {
    const auto same = std::ranges::find_if(conversions_, [&](const FilterLine &other) {
      return other.source == source && other.destination == line.destination;
    });
    if (same == conversions_.end()) {
      conversions_.push_back(line);
      conversions_.back().source = source;
    } else if (line.cost < same->cost) {
      same->cost = line.cost;
      same->program = line.program;
    }
  }
}
