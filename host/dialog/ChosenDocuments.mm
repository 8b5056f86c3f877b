#include "host/dialog/ChosenDocuments.h"

#import <Cocoa/Cocoa.h>

#include "host/base/Localized.h"
#import "host/dialog/Controls.h"

namespace fs = std::filesystem;

std::vector<fs::path> ChosenDocuments(const fs::path &beside) {
  std::error_code error;
  NSOpenPanel *panel = [NSOpenPanel openPanel];
  [panel setTitle:String(Localized("Documents"))];
  [panel setAllowsMultipleSelection:YES];
  [panel setCanChooseDirectories:NO];
  [panel setDirectory:String(fs::absolute(beside, error).parent_path().string())];
  std::vector<fs::path> chosen;
  if ([panel runModal] != NSOKButton) return chosen;
  for (NSString *name in [panel filenames]) chosen.emplace_back([name fileSystemRepresentation]);
  return chosen;
}
