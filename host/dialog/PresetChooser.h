// The pop-up of presets.

#ifndef HOST_DIALOG_PRESETCHOOSER_H
#define HOST_DIALOG_PRESETCHOOSER_H

#import <Cocoa/Cocoa.h>

#include <functional>
#include <optional>
#include <string>

#include "host/base/Retained.h"
#include "host/presets/PresetStore.h"
#include "host/presets/Ticket.h"

class PresetChooser {
 public:
  struct Callbacks {
    std::function<void(PrintSettings settings)> apply;
    // The job's settings as they stand, with what the shown panel holds; none: it does not save.
    std::function<PMPrintSettings()> settings_to_save;
    std::function<void(const std::string &message)> tell;
    std::function<void(const std::string &message)> left_out;  // a damaged preset
  };

  PresetChooser(NSPopUpButton *pop_up, PresetStore store, Callbacks callbacks);

  // Lists the presets; one that cannot be read is told of, and left out.
  void Fill();
  // Does what the chosen item says.
  void Choose();
  // Shows the name of a preset whose settings the job was opened with.
  void Select(const std::string &name);

 private:
  void AddPresets();
  void SelectCurrent();
  void Apply(const std::filesystem::path &path);
  void Save();
  void Rename();
  void Delete();
  bool CurrentIsUsers() const;

  Retained<NSPopUpButton *> pop_up_;
  PresetStore store_;
  Callbacks callbacks_;
  std::string current_ = kDefaultSettings;
};

#endif
