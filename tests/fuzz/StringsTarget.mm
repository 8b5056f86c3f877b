#import <objc/runtime.h>

#include "host/base/Language.h"
#include "tests/fuzz/Outcome.h"
#import "tests/fuzz/Panel.h"
#include "tests/fuzz/Targets.h"

namespace fuzz {

namespace {

// A bundle whose English table is written anew for each input.
class TableBundle {
 public:
  TableBundle() : bundle_(ShippedSettingInfo(), "\"a\" = \"b\";") {}

  void Write(std::string_view table) const {
    NSString *path = [bundle_.get() pathForResource:@"Localizable" ofType:@"strings"];
    folder_.Write([path fileSystemRepresentation], table);
    // It keeps what it has read, and is never gone itself.
    [Tables() removeAllObjects];
  }
  // Once it was asked for a text.
  bool HasTexts() const { return [[Tables() objectForKey:@"Localizable"] count] > 0; }
  NSBundle *get() const { return bundle_.get(); }

 private:
  NSMutableDictionary *Tables() const {
    void *tables = nullptr;
    object_getInstanceVariable(bundle_.get(), "_localizations", &tables);
    return static_cast<NSMutableDictionary *>(tables);
  }

  TestBundle bundle_;
  TemporaryFolder folder_;
};

std::string OnPanel(std::string_view table) {
  static const TableBundle bundle;
  bundle.Write(table);
  TestHost *host = LoadedPanel().host();
  velmoraBNCommonInfoRV2 *info =
      [[[velmoraBNCommonInfoRV2 alloc] initWithCallback:[host callback]
                                                 bundle:bundle.get()] autorelease];
  for (NSString *key in @[ @"Size", @"BackgroundNumbering", @"absent", @"" ]) {
    if ([info localizedString:key] == nil) return "a text is nil";
  }
  // Without texts it would be the same panel each time.
  if (bundle.HasTexts()) BorrowedPanel(info).Work();
  return "";
}

std::string InProgram(std::string_view table) {
  static const TemporaryFolder folder;
  folder.Write("en.lproj/pdeprint.strings", table);
  const Translation translation = TranslationIn(folder.path());
  const TextsOf texts(&translation);
  for (const auto &[english, text] : translation) {
    if (Localized(english.c_str()) != text && english.find('\0') == std::string::npos) {
      return "the text for " + english + " is not its translation";
    }
    (void)Localized(english.c_str(), {"%2", "\xff"});
  }
  return "";
}

}  // namespace

std::string TryStrings(std::string_view file) {
  const std::string finding = Outcome([file] { return OnPanel(file); });
  return finding.empty() ? Outcome([file] { return InProgram(file); }) : finding;
}

}  // namespace fuzz
