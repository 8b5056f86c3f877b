#import "view/velmoraBNTextBoxRV2.h"

#include <objc/runtime.h>

#include <cstdlib>
#include <string>
#include <vector>

#import "tests/support/ObjCTest.h"
#import "tests/support/TestPanel.h"
#import "view/velmoraBNDecimalFormatterRV2.h"

// Notes the order in which its bounds are set.
@interface RecordingTextBox : velmoraBNTextBoxRV2
@end

@implementation RecordingTextBox

- (void)setMin:(NSNumber *)min {
  Events().push_back("min");
  [super setMin:min];
}

- (void)setMax:(NSNumber *)max {
  Events().push_back("max");
  [super setMax:max];
}

@end

// As on platforms where a new text ends editing for good.
@interface EditingEndsTextBox : velmoraBNTextBoxRV2
@end

@implementation EditingEndsTextBox

- (void)setStringValue:(NSString *)text {
  [super setStringValue:text];
  [self abortEditing];
}

@end

namespace {

velmoraBNTextBoxRV2 *TextBox() {
  return [[[velmoraBNTextBoxRV2 alloc] initWithFrame:NSMakeRect(0, 0, 100, 25)] autorelease];
}

velmoraBNTextBoxRV2 *TextBoxFrom10To99() {
  velmoraBNTextBoxRV2 *textBox = TextBox();
  [textBox setValueRange:@10 max:@99];
  return textBox;
}

// A window whose text box is being edited.
class EditedBox {
 public:
  explicit EditedBox(velmoraBNTextBoxRV2 *textBox, NSView *view = nil) {
    if (view == nil) view = textBox;
    window_ = [[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, 500, 300)
                                          styleMask:NSBorderlessWindowMask
                                            backing:NSBackingStoreBuffered
                                              defer:NO];
    [window_ setReleasedWhenClosed:NO];
    view_ = view;
    [[window_ contentView] addSubview:view];
    [window_ makeFirstResponder:textBox];
    editor_ = (NSTextView *)[textBox currentEditor];
  }

  ~EditedBox() {
    EndEditing();
    [view_ removeFromSuperview];
    [window_ release];
  }

  NSTextView *editor() const { return editor_; }
  void EndEditing() { [window_ makeFirstResponder:nil]; }

  void Type(NSString *text, NSRange replaced) {
    [editor_ setSelectedRange:replaced];
    [editor_ insertText:text];
  }

 private:
  NSWindow *window_;
  NSView *view_;
  NSTextView *editor_;
};

void ExpectEditor(const EditedBox &box, NSString *text, NSRange selection) {
  EXPECT_EQUAL_OBJECTS(text, [box.editor() string]);
  EXPECT_EQUAL_OBJECTS(NSStringFromRange(selection),
                       NSStringFromRange([box.editor() selectedRange]));
}

}  // namespace

OBJC_TEST(TextBox, HasTheFieldsMinAndMax) {
  unsigned count = 0;
  Ivar *fields = class_copyIvarList([velmoraBNTextBoxRV2 class], &count);
  std::vector<std::string> names;
  for (unsigned i = 0; i < count; ++i) names.push_back(ivar_getName(fields[i]));
  free(fields);
  EXPECT_EQ((std::vector<std::string>{"_min", "_max"}), names);
}

OBJC_TEST(TextBox, HasNoBoundsAtFirst) {
  EXPECT_EQUAL_OBJECTS(nil, TextBox().min);
  EXPECT_EQUAL_OBJECTS(nil, TextBox().max);
}

OBJC_TEST(TextBox, SetsMinBeforeMaxThroughTheSetters) {
  RecordingTextBox *textBox =
      [[[RecordingTextBox alloc] initWithFrame:NSMakeRect(0, 0, 100, 25)] autorelease];
  Events().clear();
  [textBox setValueRange:@1 max:@999];
  EXPECT_EQ((std::vector<std::string>{"min", "max"}), Events());
  EXPECT_EQUAL_OBJECTS(@1, textBox.min);
  EXPECT_EQUAL_OBJECTS(@999, textBox.max);
}

OBJC_TEST(TextBox, CopiesItsBounds) {
  velmoraBNTextBoxRV2 *textBox = TextBox();
  NSMutableString *bound = [NSMutableString stringWithString:@"1"];
  [textBox setValueRange:(NSNumber *)bound max:(NSNumber *)bound];
  [bound setString:@"2"];
  EXPECT_EQUAL_OBJECTS(@"1", textBox.min);
  EXPECT_EQUAL_OBJECTS(@"1", textBox.max);
}

OBJC_TEST(TextBox, GivesItsBoundsBack) {
  NSNumber *min = [[[NSNumber alloc] initWithInteger:1000] autorelease];
  NSNumber *max = [[[NSNumber alloc] initWithInteger:2000] autorelease];
  NSUInteger before = [min retainCount] + [max retainCount];
  velmoraBNTextBoxRV2 *textBox =
      [[velmoraBNTextBoxRV2 alloc] initWithFrame:NSMakeRect(0, 0, 100, 25)];
  @autoreleasepool {
    [textBox setValueRange:@1 max:@2];
    [textBox setValueRange:min max:max];
  }
  EXPECT_EQ(before + 2, [min retainCount] + [max retainCount]);
  [textBox release];
  EXPECT_EQ(before, [min retainCount] + [max retainCount]);
}

OBJC_TEST(TextBox, AnswersTheBoundItselfForValuesBeyondIt) {
  velmoraBNTextBoxRV2 *textBox = TextBoxFrom10To99();
  EXPECT_EQ(textBox.min, [textBox verifyValue:@9]);
  EXPECT_EQ(textBox.min, [textBox verifyValue:@-50]);
  EXPECT_EQ(textBox.min, [textBox verifyValue:[NSNumber numberWithInteger:NSIntegerMin]]);
  EXPECT_EQ(textBox.max, [textBox verifyValue:@100]);
  EXPECT_EQ(textBox.max, [textBox verifyValue:[NSNumber numberWithInteger:NSIntegerMax]]);
  EXPECT_EQ(textBox.max, [textBox verifyValue:[NSNumber numberWithLongLong:(1LL << 32) + 50]]);
}

OBJC_TEST(TextBox, AnswersAValueInTheRangeItself) {
  velmoraBNTextBoxRV2 *textBox = TextBoxFrom10To99();
  for (NSInteger value : std::vector<NSInteger>{10, 50, 99}) {
    // An integer of the same value might be the same object as the bound.
    NSNumber *number = [NSNumber numberWithDouble:static_cast<double>(value)];
    ASSERT_NE(textBox.min, number);
    ASSERT_NE(textBox.max, number);
    EXPECT_EQ(number, [textBox verifyValue:number]) << value;
  }
}

OBJC_TEST(TextBox, ComparesIntegers) {
  NSNumber *almostHundred = @99.9;
  EXPECT_EQ(almostHundred, [TextBoxFrom10To99() verifyValue:almostHundred]);
}

OBJC_TEST(TextBox, TestsMinFirstWhenMinIsAboveMax) {
  velmoraBNTextBoxRV2 *textBox = TextBox();
  [textBox setValueRange:@99 max:@10];
  EXPECT_EQ(textBox.min, [textBox verifyValue:@98]);
  EXPECT_EQ(textBox.min, [textBox verifyValue:@5]);
  EXPECT_EQ(textBox.max, [textBox verifyValue:@99]);
  EXPECT_EQ(textBox.max, [textBox verifyValue:@100]);
}

OBJC_TEST(TextBox, TakesAbsentBoundsForZero) {
  velmoraBNTextBoxRV2 *textBox = TextBox();
  NSNumber *zero = @0.5;
  EXPECT_EQ(zero, [textBox verifyValue:zero]);
  EXPECT_EQUAL_OBJECTS(nil, [textBox verifyValue:@-1]);
  EXPECT_EQUAL_OBJECTS(nil, [textBox verifyValue:@1]);
}

OBJC_TEST(TextBox, AnswersTheInheritedTextWhileNotEdited) {
  NSTextField *plain = [[[NSTextField alloc] initWithFrame:NSMakeRect(0, 0, 100, 25)] autorelease];
  velmoraBNTextBoxRV2 *textBox = TextBox();
  for (NSTextField *field in @[ plain, textBox ]) {
    [field setFormatter:[[[velmoraBNDecimalFormatterRV2 alloc] init] autorelease]];
  }
  for (NSString *text in @[ @"7", @"0042", @"x1", @"" ]) {
    [plain setStringValue:text];
    [textBox setStringValue:text];
    EXPECT_EQUAL_OBJECTS([plain stringValue], [textBox stringValue]);
  }
  [textBox setObjectValue:@1000];
  EXPECT_EQUAL_OBJECTS(@"1000", [textBox stringValue]);
}

OBJC_TEST(TextBox, AnswersTheTypedTextAsItStandsWhileEdited) {
  velmoraBNTextBoxRV2 *textBox = TextBox();
  [textBox setFormatter:[[[velmoraBNDecimalFormatterRV2 alloc] init] autorelease]];
  EditedBox box(textBox);
  [box.editor() setString:@"a712"];
  NSString *typed = [textBox stringValue];
  EXPECT_EQUAL_OBJECTS(@"a712", typed);
  [box.editor() setString:@"b"];
  EXPECT_EQUAL_OBJECTS(@"a712", typed);
}

OBJC_TEST(TextBox, KeepsTheCaretsDistanceFromTheEndWhenTheTextIsRewritten) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  [controller.textBoxStartNumber setStringValue:@"12"];
  EditedBox box(controller.textBoxStartNumber, controller.view);
  box.Type(@"x", NSMakeRange(0, 0));
  ExpectEditor(box, @"12", NSMakeRange(0, 0));
  box.Type(@"5", NSMakeRange(1, 0));
  ExpectEditor(box, @"152", NSMakeRange(2, 0));
  box.Type(@"0", NSMakeRange(0, 0));
  ExpectEditor(box, @"152", NSMakeRange(0, 0));
}

OBJC_TEST(TextBox, KeepsTheCaretInsideATextThatBecameShorter) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  [controller.textBoxStartNumber setStringValue:@"1"];
  EditedBox box(controller.textBoxStartNumber, controller.view);
  [box.editor() setString:@"0000000001"];
  box.Type(@"0", NSMakeRange(0, 0));
  ExpectEditor(box, @"1", NSMakeRange(0, 0));
}

OBJC_TEST(TextBox, SelectsWhatAppearsInABoxThatWasEmptied) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  [controller.textBoxStartNumber setStringValue:@"712"];
  EditedBox box(controller.textBoxStartNumber, controller.view);
  box.Type(@"", NSMakeRange(0, 3));
  ExpectEditor(box, @"1", NSMakeRange(0, 1));
  [box.editor() insertText:@"2"];
  [box.editor() insertText:@"5"];
  ExpectEditor(box, @"25", NSMakeRange(2, 0));
}

OBJC_TEST(TextBox, TakesEditingUpAgainWhereANewTextHasEndedIt) {
  TestPanel panel;
  velmoraBNViewControllerRV2 *controller = panel.Load();
  [controller.textBoxStartNumber setStringValue:@"5"];
  object_setClass(controller.textBoxStartNumber, [EditingEndsTextBox class]);
  EditedBox box(controller.textBoxStartNumber, controller.view);
  box.Type(@"a12", NSMakeRange(0, 0));
  ExpectEditor(box, @"125", NSMakeRange(2, 0));
  EXPECT_EQ(box.editor(), [controller.textBoxStartNumber currentEditor]);
}
