#include "host/command/PortalOptIn.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

#include "host/base/ConfigFolders.h"
#include "host/base/Localized.h"
#include "host/base/RegularFile.h"
#include "host/base/Text.h"
#include "host/base/WholeFile.h"
#include "host/command/PortalsFile.h"

namespace fs = std::filesystem;

namespace {

constexpr char kOwnFolder[] = "xdg-desktop-portal";
constexpr char kMade[] = "# Made by pdeprint portal --enable, and removed by --disable";

std::string Variable(const char *name, const char *otherwise = "") {
  const char *value = std::getenv(name);
  return value == nullptr || *value == '\0' ? otherwise : value;
}

std::vector<std::string> Split(const std::string &list) {
  std::vector<std::string> parts;
  std::istringstream stream(list);
  for (std::string part; std::getline(stream, part, ':');) {
    if (!part.empty()) parts.push_back(part);
  }
  return parts;
}

std::string LowerCase(std::string text) {
  std::ranges::transform(text, text.begin(),
                         [](unsigned char letter) { return std::tolower(letter); });
  return text;
}

// What the program says that it is: "NAME VERSION".
std::string VersionOf(const fs::path &program) {
  const std::string command = "exec '" + program.string() + "' --version 2>/dev/null </dev/null";
  FILE *said = popen(command.c_str(), "r");
  if (said == nullptr) return "";
  char line[200] = "";
  const bool has_line = fgets(line, sizeof line, said) != nullptr;
  pclose(said);
  if (!has_line) return "";
  std::istringstream words(line);
  std::string name, version;
  words >> name >> version;
  return version;
}

// The text of a file; none: it is not there.
Expected<std::optional<std::string>> TextOf(const fs::path &path) {
  std::error_code error;
  if (!fs::exists(fs::symlink_status(path, error))) return std::optional<std::string>();
  const auto failure = [&path](const std::string &why) {
    return Failure{Localized("cannot read %1: %2", {path.string(), why})};
  };
  if (auto regular = CheckRegularFile(path); !regular) return failure(regular.message());
  std::ifstream file(path, std::ios::binary);
  std::string text{std::istreambuf_iterator<char>(file), {}};
  if (!file) return failure(std::make_error_code(std::errc::io_error).message());
  return std::optional(std::move(text));
}

std::string TextOrNone(const fs::path &path) {
  const Expected<std::optional<std::string>> text = TextOf(path);
  return text ? text->value_or("") : "";
}

constexpr char kDesktopOfService[] = "Environment=XDG_CURRENT_DESKTOP=pdeprint:";

std::string ServiceText(const std::string &desktops) {
  return std::string(kMade) + "\n[Service]\n" + kDesktopOfService + desktops + '\n';
}

// What somebody has added to it since; empty: nothing.
std::string AddedToService(const std::string &text) {
  std::string added;
  bool has_more = false;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (line == kMade || line.starts_with(kDesktopOfService)) continue;
    added += line + '\n';
    has_more = has_more || (line != "[Service]" && !Trimmed(line).empty());
  }
  return has_more ? added : "";
}

// By which a file is known that nobody has changed since.
std::string Checksum(std::string_view text) {
  uint64_t sum = 0xcbf29ce484222325;
  for (const char byte : text) sum = (sum ^ static_cast<unsigned char>(byte)) * 0x100000001b3;
  std::ostringstream digits;
  digits << std::hex << sum;
  return digits.str();
}

std::string FirstLine(std::string_view text) {
  return std::string(kMade) + " unless it is changed: " + Checksum(text) + '\n';
}

// A file of which nothing is older than Choose.
bool IsOnlyMade(std::string_view text) {
  const size_t end = text.find('\n');
  return end != std::string_view::npos &&
         text.substr(0, end + 1) == FirstLine(text.substr(end + 1));
}

std::string_view WithoutFirstLine(std::string_view text) {
  return text.starts_with(kMade) ? text.substr(std::min(text.find('\n'), text.size() - 1) + 1)
                                 : text;
}

Expected<PortalChanges> Written(const fs::path &path, const std::string &text) {
  if (auto made = MakePrivateFolder(path.parent_path()); !made) return made.failure();
  if (auto written = WriteWholeFile(path, text); !written) return written.failure();
  return PortalChanges{{PortalChange::Kind::kWritten, path}};
}

Expected<PortalChanges> Removed(const fs::path &path) {
  std::error_code error;
  if (!fs::remove(path, error) && error) {
    return Failure{Localized("cannot write %1: %2", {path.string(), error.message()})};
  }
  return PortalChanges{{PortalChange::Kind::kRemoved, path}};
}

Expected<PortalChanges> TakenOutOf(const fs::path &path) {
  Expected<std::optional<std::string>> text = TextOf(path);
  if (!text) return text.failure();
  if (!*text || !PrefersPdeprint(**text)) return PortalChanges();
  const std::string without = WithoutPdeprint(WithoutFirstLine(**text));
  if (IsOnlyMade(**text) || Trimmed(without).empty()) return Removed(path);
  return Written(path, without);
}

}  // namespace

PortalPlaces PortalPlaces::OfUser() {
  PortalPlaces places;
  places.config = UserConfigFolder();
  places.further = SystemConfigFolders();
  places.further.emplace_back("/etc");
  if (const std::string data = Variable("XDG_DATA_HOME"); !data.empty()) {
    places.further.emplace_back(data);
  } else if (const std::string home = Variable("HOME"); !home.empty()) {
    places.further.push_back(fs::path(home) / ".local/share");
  }
  for (const std::string &folder :
       Split(Variable("XDG_DATA_DIRS", "/usr/local/share:/usr/share"))) {
    places.further.emplace_back(folder);
  }
  places.further.emplace_back("/usr/share");
  places.desktops = Variable("XDG_CURRENT_DESKTOP");
  return places;
}

PortalOptIn::PortalOptIn(PortalPlaces places, std::string version)
    : places_(std::move(places)), version_(std::move(version)) {}

Expected<PortalOptIn> PortalOptIn::Find(PortalPlaces places) {
  std::error_code error;
  if (!fs::exists(places.program, error)) {
    return Failure{Localized("the program %1 is not there; install the package %2",
                             {places.program.string(), "xdg-desktop-portal"})};
  }
  if (places.config.empty()) {
    return Failure{Localized("there is no folder %1", {"~/.config"})};
  }
  std::string version = VersionOf(places.program);
  if (version.empty() || std::isdigit(static_cast<unsigned char>(version.front())) == 0) {
    return Failure{Localized("%1 does not say its version", {places.program.string()})};
  }
  return PortalOptIn(std::move(places), std::move(version));
}

bool PortalOptIn::ReadsFiles() const {
  int major = 0, minor = 0;
  char point = 0;
  std::istringstream(version_) >> major >> point >> minor;
  return major > 1 || (major == 1 && minor >= 17);
}

bool PortalOptIn::HasBackend() const {
  std::error_code error;
  return fs::exists(places_.backends / "pdeprint.portal", error);
}

fs::path PortalOptIn::Folder() const { return places_.config / kOwnFolder; }

fs::path PortalOptIn::ServiceFile() const {
  return places_.config / "systemd/user/xdg-desktop-portal.service.d/pdeprint.conf";
}

std::vector<std::string> PortalOptIn::FileNames() const {
  std::vector<std::string> names;
  for (const std::string &desktop : Split(places_.desktops)) {
    names.push_back(LowerCase(desktop) + "-portals.conf");
  }
  names.emplace_back("portals.conf");
  return names;
}

std::optional<fs::path> PortalOptIn::FirstIn(const fs::path &folder) const {
  for (const std::string &name : FileNames()) {
    fs::path path = folder / name;
    if (HasPreferences(TextOrNone(path))) return path;
  }
  return std::nullopt;
}

std::optional<fs::path> PortalOptIn::Chosen() const {
  if (!ReadsFiles()) {
    if (TextOrNone(ServiceFile()).starts_with(kMade)) return ServiceFile();
    return std::nullopt;
  }
  std::optional<fs::path> file = FirstIn(Folder());
  if (file && !PrefersPdeprint(TextOrNone(*file))) file.reset();
  return file;
}

Expected<PortalChanges> PortalOptIn::Choose() const {
  return ReadsFiles() ? ChooseByFile() : ChooseByService();
}

Expected<PortalChanges> PortalOptIn::ChooseByFile() const {
  if (const std::optional<fs::path> own = FirstIn(Folder())) {
    const std::string text = TextOrNone(*own);
    if (PrefersPdeprint(text)) return PortalChanges();
    return Written(*own, WithPdeprint(text));
  }
  fs::path name = "portals.conf";
  std::string text;
  for (const fs::path &folder : places_.further) {
    const std::optional<fs::path> file = FirstIn(folder / kOwnFolder);
    if (!file) continue;
    name = file->filename();
    text = TextOrNone(*file);
    break;
  }
  // What is there has no preferences, and was passed over.
  Expected<std::optional<std::string>> own = TextOf(Folder() / name);
  if (!own) return own.failure();
  text = WithPdeprint(text);
  return Written(Folder() / name, *own ? **own + text : FirstLine(text) + text);
}

Expected<PortalChanges> PortalOptIn::ChooseByService() const {
  const fs::path path = ServiceFile();
  Expected<std::optional<std::string>> before = TextOf(path);
  if (!before) return before.failure();
  const bool is_ours = *before && (*before)->starts_with(kMade) && AddedToService(**before).empty();
  if (*before && !is_ours) {
    return Failure{Localized("%1 is there already", {path.string()})};
  }
  std::string desktops;
  for (const std::string &desktop : Split(places_.desktops)) {
    if (desktop != "pdeprint") desktops += (desktops.empty() ? "" : ":") + desktop;
  }
  const bool is_name = std::ranges::all_of(desktops, [](unsigned char character) {
    return std::isalnum(character) != 0 ||
           std::string_view(":-_.+").find(static_cast<char>(character)) != std::string_view::npos;
  });
  if (!is_name || desktops.empty()) {
    return Failure{
        Localized("XDG_CURRENT_DESKTOP does not name the desktop; run this in its "
                  "session, or set it")};
  }
  const std::string text = ServiceText(desktops);
  if (*before == text) return PortalChanges();
  return Written(path, text);
}

Expected<PortalChanges> PortalOptIn::TakeBack() const {
  PortalChanges changes;
  Expected<std::optional<std::string>> service = TextOf(ServiceFile());
  if (!service) return service.failure();
  if (*service && (*service)->starts_with(kMade)) {
    const std::string added = AddedToService(**service);
    Expected<PortalChanges> removed =
        added.empty() ? Removed(ServiceFile()) : Written(ServiceFile(), added);
    if (!removed) return removed;
    changes = std::move(*removed);
    std::error_code error;
    fs::remove(ServiceFile().parent_path(), error);  // unless there is something else in it
  }
  std::error_code error;
  std::vector<fs::path> files;
  for (const fs::directory_entry &entry : fs::directory_iterator(Folder(), error)) {
    if (entry.path().filename().string().ends_with("portals.conf")) files.push_back(entry.path());
  }
  std::ranges::sort(files);
  for (const fs::path &file : files) {
    Expected<PortalChanges> more = TakenOutOf(file);
    if (!more) return more;
    changes.insert(changes.end(), more->begin(), more->end());
  }
  return changes;
}
