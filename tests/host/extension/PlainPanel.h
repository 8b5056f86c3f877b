// A panel of a test's own.

#ifndef TESTS_HOST_EXTENSION_PLAINPANEL_H
#define TESTS_HOST_EXTENSION_PLAINPANEL_H

#import <Cocoa/Cocoa.h>
#import <PrintCore/PrintCore.h>

/// Answers nothing but what is required, and a new view each time. Its name is "Plain", its kind
/// "test.plain".
@interface PlainPanel : NSObject <PDEPanel> {
  id _summary;
}

/// Autoreleased; the summary is answered as it is.
+ (instancetype)panelWithSummary:(id)summary;

@end

#endif
