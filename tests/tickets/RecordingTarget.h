// A control that tells what is done to it, for tests of the order among several controls.

#ifndef TESTS_TICKETS_RECORDINGTARGET_H
#define TESTS_TICKETS_RECORDINGTARGET_H

#import <Foundation/Foundation.h>

#include <string>
#include <vector>

/// Also its own selected item.
@interface RecordingTarget : NSObject {
 @public
  std::string name;
  std::vector<std::string> *record;  // "NAME OPERATION [ARGUMENT]"
  NSInteger shownState;
  NSString *shownText;  // not retained; also the represented object
}

+ (instancetype)targetNamed:(const char *)name record:(std::vector<std::string> *)record;

- (void)setStringValue:(NSString *)text;
- (NSString *)stringValue;
- (void)setTitle:(NSString *)title;
- (void)setState:(NSInteger)state;
- (NSInteger)state;
- (void)selectItemWithTitle:(NSString *)title;
- (id)selectedItem;
- (id)representedObject;

@end

#endif
