#import "settinginfo/PPDAttribute.h"

NSString *PPDAttributeValue(ppd_file_t *ppd, NSString *keyword) {
  const ppd_attr_t *attribute = ppdFindAttr(ppd, [keyword UTF8String], nullptr);
  if (attribute == nullptr || attribute->value == nullptr) return nil;
  return [NSString stringWithUTF8String:attribute->value];
}
