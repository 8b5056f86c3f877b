#include "host/base/NameOrder.h"
#include "host/base/Utf8.h"
#include "host/presets/PresetName.h"
#include "host/presets/PresetStore.h"
#include "tests/fuzz/Targets.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace fuzz {

namespace {

std::string AsNameOfPreset(const std::string &name) {
  static const TemporaryFolder folder;
  const PresetStore store(folder.path() / "presets", {});
  if (const auto checked = CheckPresetName(name); !checked) {
    if (checked.message().empty()) return "refused without a reason";
    return store.PathForWriting(name) ? "a name that is refused can be written" : "";
  }
  const std::string file = FileNameOfPreset(name);
  if (PresetNameOfFile(file) != name) return "the file " + file + " is another preset's";
  Expected<fs::path> path = store.PathForWriting(name);
  if (!path) return path.message();
  if (path->parent_path() != folder.path() / "presets") return path->string() + " is elsewhere";

  folder.Write(*path, "");
  const std::optional<Preset> preset = store.Find(name);
  const size_t count = store.List().size();
  if (!preset || preset->path != *path) return "a preset that was written is not found";
  if (count != 1) return "there are " + std::to_string(count) + " presets in place of one";
  if (auto done = store.Delete(name); !done) return done.message();
  return store.List().empty() ? "" : "a preset that was deleted is still there";
}

std::string AsNameOfFile(const std::string &file) {
  const std::optional<std::string> name = PresetNameOfFile(file);
  if (!name) return "";
  if (const auto checked = CheckPresetName(*name); !checked) {
    return "the file " + file + " is that of a name that is refused: " + checked.message();
  }
  return FileNameOfPreset(*name) == file ? "" : "the preset " + *name + " has two files";
}

std::string InOrder(const std::string &name, const std::string &other) {
  const bool before = NameComesBefore(name, other);
  const bool after = NameComesBefore(other, name);
  if (before && after) return "each of two names comes before the other";
  return before || after || name == other ? "" : "two names have no order";
}

}  // namespace

std::string TryPresetName(std::string_view name) {
  const std::string text(name);
  for (const std::string &finding :
       {AsNameOfPreset(text), AsNameOfFile(text), AsNameOfFile(text + ".plist"),
        InOrder(text, text.substr(text.size() / 2)), InOrder(text, ToUtf8(text))}) {
    if (!finding.empty()) return finding;
  }
  return "";
}

}  // namespace fuzz
