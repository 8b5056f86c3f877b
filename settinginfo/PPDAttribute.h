// Look-up of attributes in a parsed PPD file.

#ifndef SETTINGINFO_PPDATTRIBUTE_H
#define SETTINGINFO_PPDATTRIBUTE_H

#import <Foundation/Foundation.h>
#include <cups/ppd.h>

/// The value of the first attribute with this main keyword, whatever its option part, as an
/// autoreleased string; not its translation string. nil: no file, no such attribute, no value, or a
/// value that is not UTF-8.
NSString *PPDAttributeValue(ppd_file_t *ppd, NSString *keyword);

#endif
