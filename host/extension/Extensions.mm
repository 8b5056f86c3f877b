#include "host/extension/Extensions.h"

#include <algorithm>

#include "host/base/Localized.h"
#include "host/extension/BundleSearch.h"
#include "host/extension/Guarded.h"

namespace fs = std::filesystem;

namespace {

std::string NameOf(const fs::path &bundle) { return bundle.stem().string(); }

// Empty: it has none. The platform takes all bundles with one identifier for the first of them.
std::string IdentifierOf(const fs::path &path) {
  std::string identifier;
  WhatRaises([&] {
    NSString *place =
        [[NSFileManager defaultManager] stringWithFileSystemRepresentation:path.c_str()
                                                                    length:path.native().size()];
    id found = place == nil ? nil : [[NSBundle bundleWithPath:place] bundleIdentifier];
    if ([found isKindOfClass:[NSString class]]) identifier = Words(found);
  });
  return identifier;
}

std::string Joined(const std::vector<fs::path> &paths) {
  std::string text;
  for (const fs::path &path : paths) text += (text.empty() ? "" : ", ") + path.string();
  return text;
}

}  // namespace

Expected<Extensions> Extensions::Load(const fs::path &named) {
  Extensions extensions;
  std::error_code error;
  if (!named.empty()) {
    if (!fs::is_directory(named, error)) {
      return Failure{Localized("no bundle at %1", {named.string()})};
    }
    if (auto done = extensions.Add(fs::absolute(named, error)); !done) return done.failure();
  }
  const std::vector<fs::path> folders = BundleFolders();
  for (const fs::path &bundle : BundlesIn(folders)) {
    if (auto added = extensions.Add(bundle); !added) {
      extensions.LeaveOut(NameOf(bundle), added.message());
    }
  }
  extensions.folders_ = Joined(folders);
  return extensions;
}

Expected<void> Extensions::Add(const fs::path &path) {
  std::error_code error;
  const fs::path place = fs::canonical(path, error);
  if (!paths_.insert(error ? path : place).second) return {};
  const std::string identifier = IdentifierOf(path);
  if (!identifier.empty() && !identifiers_.insert(identifier).second) return {};
  Expected<ExtensionBundle> bundle = ExtensionBundle::Load(path);
  if (!bundle) return bundle.failure();
  WhatRaises([&] {
    Expected<std::vector<Setting>> settings = SettingsOfBundle(bundle->bundle());
    if (settings) settings_.insert(settings_.end(), settings->begin(), settings->end());
  });
  bundles_.push_back(std::move(*bundle));
  return {};
}

void Extensions::LoadNamedBy(const PPDFile &ppd) {
  for (const std::string &value : ppd.Attributes("APDialogExtension")) {
    fs::path path = fs::path(value).lexically_normal();
    if (!path.has_filename()) path = path.parent_path();
    std::error_code error;
    if (path.is_absolute() && fs::is_directory(path, error)) {
      if (auto added = Add(path); !added) LeaveOut(NameOf(path), added.message());
      continue;
    }
    const bool was_tried =
        std::any_of(paths_.begin(), paths_.end(),
                    [&path](const fs::path &tried) { return tried.filename() == path.filename(); });
    if (!was_tried) {
      LeaveOut(NameOf(path), Localized("it is not installed at %1", {path.string()}));
    }
  }
}

ExtensionPanels Extensions::Panels(HostCallback *host) {
  ExtensionPanels panels;
  troubles_.clear();
  for (const ExtensionBundle &bundle : bundles_) {
    Expected<Retained<NSArray *>> offered = bundle.Panels(host);
    if (!offered) {
      LeaveOut(bundle.bundle(), offered.message());
      continue;
    }
    for (id object in offered->get()) {
      Expected<ExtensionPanel> panel = ExtensionPanel::Take(bundle.bundle(), object);
      if (!panel) {
        LeaveOut(bundle.bundle(), panel.message());
        continue;
      }
      const auto same = std::find_if(panels.begin(), panels.end(), [&panel](const auto &other) {
        return other->kind() == panel->kind();
      });
      if (same == panels.end()) {
        panels.push_back(std::make_shared<ExtensionPanel>(std::move(*panel)));
      } else if ((*same)->bundle() != bundle.bundle()) {
        LeaveOut(bundle.bundle(),
                 Localized("another bundle, %1, offers the same kind of panel, %2",
                           {Words([(*same)->bundle() bundlePath]), panel->kind()}));
      }
    }
  }
  return panels;
}

std::string Extensions::ReasonForNoPanel(const PPDFile *ppd) const {
  if (bundles_.empty()) return ReasonForNoBundle();
  if (ppd == nullptr) {
    return Localized("the queue has no PPD file, in which a printer declares what extensions need");
  }
  const auto reason_of = [this, ppd](const ExtensionBundle &bundle) {
    const auto trouble = troubles_.find(bundle.bundle());
    return trouble == troubles_.end() ? bundle.ReasonForNoPanel(*ppd) : trouble->second;
  };
  if (bundles_.size() == 1) return reason_of(bundles_.front());
  std::string text;
  for (const ExtensionBundle &bundle : bundles_) {
    text += (text.empty() ? "" : "; ") + bundle.Name() + ": " + reason_of(bundle);
  }
  return text;
}

std::string Extensions::ReasonForNoBundle() const {
  if (left_out_.empty()) {
    return Localized(
        "no extension bundle (*.plugin) in any of these folders: %1; name one with --plugin",
        {folders_});
  }
  std::string text;
  for (const LeftOut &one : left_out_) {
    text += (text.empty() ? "" : "; ") + one.name + ": " + one.reason;
  }
  return Localized("no extension bundle could be loaded; %1", {text});
}

void Extensions::LeaveOut(const ExtensionPanel &panel) {
  if (panel.fault()) LeaveOut(panel.bundle(), *panel.fault());
}

void Extensions::LeaveOut(NSBundle *bundle, const std::string &reason) {
  troubles_.try_emplace(bundle, reason);
  const auto one = std::find_if(bundles_.begin(), bundles_.end(),
                                [bundle](const auto &known) { return known.bundle() == bundle; });
  if (one != bundles_.end()) LeaveOut(one->Name(), reason);
}

void Extensions::LeaveOut(const std::string &name, const std::string &reason) {
  const bool is_new = std::none_of(left_out_.begin(), left_out_.end(), [&](const LeftOut &one) {
    return one.name == name && one.reason == reason;
  });
  if (is_new) left_out_.push_back({name, reason});
}
