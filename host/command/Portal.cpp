#include "host/base/Localized.h"
#include "host/base/Messages.h"
#include "host/base/Process.h"
#include "host/command/Commands.h"
#include "host/command/PortalOptIn.h"
#include "host/command/Refusal.h"

namespace {

constexpr char kProgram[] = "pdeprint-portal";  // and the package that has it

std::string Status(const PortalOptIn &portal) {
  const std::optional<std::filesystem::path> file = portal.Chosen();
  std::string text = "portal: " + portal.version() +
                     "\nbackend: " + (portal.HasBackend() ? "installed" : "missing") +
                     "\nchoice: " + (file ? "enabled" : "disabled") + '\n';
  if (file) text += "file: " + file->string() + '\n';
  return text;
}

std::string Report(const PortalChanges &changes) {
  if (changes.empty()) return "unchanged\n";
  std::string text;
  for (const PortalChange &change : changes) {
    text += change.kind == PortalChange::Kind::kWritten ? "written: " : "removed: ";
    text += change.path.string() + '\n';
  }
  return text;
}

// The portal reads its files, and the session manager those of services, only when they start.
void SayWhatIsNext() {
  Note(Localized("this holds from the next login on, or after: %1",
                 {"systemctl --user daemon-reload && systemctl --user restart "
                  "xdg-desktop-portal"}));
}

}  // namespace

int Portal(const PortalOptions &options) {
  Expected<PortalOptIn> portal = PortalOptIn::Find(PortalPlaces::OfUser());
  if (!portal) return Refuse({kFailed, portal.message()});
  if (options.action == PortalOptions::Action::kStatus) {
    return PrintResults(Status(*portal)) ? kDone : kFailed;
  }
  const bool enables = options.action == PortalOptions::Action::kEnable;
  Expected<PortalChanges> changes = enables ? portal->Choose() : portal->TakeBack();
  if (!changes) return Refuse({kFailed, changes.message()});
  if (!PrintResults(Report(*changes))) return kFailed;
  if (!changes->empty()) SayWhatIsNext();
  if (enables && !portal->HasBackend()) {
    Note(Localized("the program %1 is not there; install the package %2", {kProgram, kProgram}));
  }
  return kDone;
}
