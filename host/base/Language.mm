#include "host/base/Language.h"

#import <Foundation/Foundation.h>

#include <utility>

namespace fs = std::filesystem;

namespace {

// Nil: the folder has no table.
NSString *TableOfUsersLanguage(const fs::path &folder) {
  NSFileManager *files = [NSFileManager defaultManager];
  NSString *place = [files stringWithFileSystemRepresentation:folder.c_str()
                                                       length:folder.native().size()];
  NSBundle *bundle = place == nil ? nil : [NSBundle bundleWithPath:place];
  NSString *path = [bundle pathForResource:@"pdeprint" ofType:@"strings"];
  NSData *data = path == nil ? nil : [NSData dataWithContentsOfFile:path];
  if (data == nil) return nil;
  return [[[NSString alloc] initWithData:data encoding:NSUnicodeStringEncoding] autorelease];
}

}  // namespace

std::vector<fs::path> StringsFolders() {
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error);
  if (error) return {};
  const fs::path here = program.parent_path();
  return {here / "share/pdeprint", (here / "../share/pdeprint").lexically_normal()};
}

Translation TranslationIn(const fs::path &folder) {
  Translation translation;
  @autoreleasepool {
    @try {
      NSDictionary *texts = [TableOfUsersLanguage(folder) propertyListFromStringsFileFormat];
      for (NSString *english in texts) {
        translation[[english UTF8String]] = [[texts objectForKey:english] UTF8String];
      }
    } @catch (NSException *exception) {
      translation.clear();  // a damaged table: English is better than half a language
    }
  }
  return translation;
}

void UseLanguageOfUser() {
  // Never destroyed: a task that was left behind may ask for texts while the program ends.
  static Translation &translation = *new Translation;
  for (const fs::path &folder : StringsFolders()) {
    translation = TranslationIn(folder);
    if (!translation.empty()) break;
  }
  UseTranslation(&translation);
}
