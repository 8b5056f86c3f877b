#import "tests/gui/PanelInLanguage.h"

#include <gtest/gtest.h>

#include <filesystem>

#import "tests/support/BuiltBundle.h"
#include "tests/support/RunProgram.h"

namespace {

const std::filesystem::path kPictures = BINARY_DIRECTORY "/pictures/languages";

PanelMeasurements Look(NSDictionary *controls) {
  PanelMeasurements look;
  for (NSString *outlet in controls) {
    NSDictionary *control = [controls objectForKey:outlet];
    NSString *text = [control objectForKey:@"text"];
    look[[outlet UTF8String]] = {
        .text = text == nil ? "" : [text UTF8String],
        .frame = NSRectFromString([control objectForKey:@"frame"]),
        .text_area = NSRectFromString([control objectForKey:@"textArea"]),
        .wanted_width = [[control objectForKey:@"wantedWidth"] doubleValue],
    };
  }
  return look;
}

PanelInLanguage Show(const std::string &language) {
  PanelInLanguage panel = {.language = language, .looks = {}};
  RunOptions options;
  // Looking for leaks, which other tests do, would take most of the time.
  options.environment["ASAN_OPTIONS"] = "detect_leaks=0";
  const RunResult run =
      RunProgram({PANEL_MEASUREMENTS, language, (kPictures / language).string()}, options);
  EXPECT_EQ(0, run.status) << language << ": " << run.err;
  NSData *data = [NSData dataWithBytes:run.out.data() length:run.out.size()];
  NSDictionary *looks = [NSPropertyListSerialization propertyListWithData:data
                                                                  options:NSPropertyListImmutable
                                                                   format:nullptr
                                                                    error:nullptr];
  for (NSString *look in looks) {
    panel.looks[[look UTF8String]] = Look([looks objectForKey:look]);
  }
  EXPECT_EQ(2u, panel.looks.size()) << language << ": " << run.err;
  return panel;
}

// The same strings under the names by which GNUstep asks for them.
bool IsSecondName(NSString *language) {
  return [language isEqual:@"Hebrew"] || [language isEqual:@"Portuguese"];
}

}  // namespace

std::string PanelInLanguage::PicturePath(const std::string &look) const {
  return kPictures / (language + '-' + look + ".png");
}

const std::vector<PanelInLanguage> &PanelInAllLanguages() {
  static const std::vector<PanelInLanguage> panels = [] {
    std::filesystem::create_directories(kPictures);
    std::vector<PanelInLanguage> shown;
    NSArray *languages =
        [[BuiltBundle() localizations] sortedArrayUsingSelector:@selector(compare:)];
    for (NSString *language in languages) {
      if (!IsSecondName(language)) shown.push_back(Show([language UTF8String]));
    }
    return shown;
  }();
  return panels;
}
