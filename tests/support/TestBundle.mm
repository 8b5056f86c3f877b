#import "tests/support/TestBundle.h"

NSMutableDictionary *ShippedSettingInfo() {
  NSData *data = [NSData dataWithContentsOfFile:@SOURCE_DIRECTORY
                         "/resources/BackgroundNumberingRV2-SettingInfo.plist"];
  return [NSPropertyListSerialization propertyListWithData:data
                                                   options:NSPropertyListMutableContainersAndLeaves
                                                    format:nullptr
                                                     error:nullptr];
}

NSMutableDictionary *SettingInfoWith(NSString *section, NSString *entry, id value) {
  NSMutableDictionary *info = ShippedSettingInfo();
  [[info objectForKey:section] setValue:value forKey:entry];
  return info;
}

TestBundle::TestBundle(id setting_info, const std::string &strings) {
  // NSBundle takes two bundles with one identifier for the same.
  static int number = 0;
  const std::string info = "{ CFBundleIdentifier = \"test.bundle." + std::to_string(++number) +
                           "\"; CFBundlePackageType = BNDL; }";
  folder_.Write("Test.bundle/" BUNDLE_INFO_PLIST, info);
  if (!strings.empty()) {
    NSString *text = [NSString stringWithUTF8String:strings.c_str()];
    NSData *utf16 = [text dataUsingEncoding:NSUnicodeStringEncoding];
    folder_.Write("Test.bundle/" BUNDLE_RESOURCES "/en.lproj/Localizable.strings",
                  {static_cast<const char *>([utf16 bytes]), [utf16 length]});
  }
  if (setting_info != nil) {
    NSData *data = [NSPropertyListSerialization dataFromPropertyList:setting_info
                                                              format:NSPropertyListXMLFormat_v1_0
                                                    errorDescription:nullptr];
    folder_.Write("Test.bundle/" BUNDLE_RESOURCES "/BackgroundNumberingRV2-SettingInfo.plist",
                  {static_cast<const char *>([data bytes]), [data length]});
  }
  const std::string path = (folder_.path() / "Test.bundle").string();
  bundle_ = [[NSBundle alloc] initWithPath:[NSString stringWithUTF8String:path.c_str()]];
}
