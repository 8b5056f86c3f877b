#import "host/dialog/OptionsView.h"

#include <algorithm>
#include <iterator>

#import "host/dialog/Controls.h"
#import "host/dialog/KeyViewLoop.h"

namespace {

const CGFloat kWidth = 500;
const CGFloat kCaptionWidth = 190;
const CGFloat kPopUpLeft = kCaptionWidth + 10;
const CGFloat kRow = kControlHeight + 6;
const CGFloat kHeading = 26;

// A group's options need not stand together in the printer's description.
std::vector<PPDOption> InGroups(const std::vector<PPDOption> &options) {
  std::vector<std::string> groups;
  for (const PPDOption &option : options) {
    if (std::find(groups.begin(), groups.end(), option.group) == groups.end()) {
      groups.push_back(option.group);
    }
  }
  std::vector<PPDOption> sorted;
  for (const std::string &group : groups) {
    std::copy_if(options.begin(), options.end(), std::back_inserter(sorted),
                 [&group](const PPDOption &option) { return option.group == group; });
  }
  return sorted;
}

}  // namespace

@implementation OptionsView

- (instancetype)
    initWithOptions:(const std::vector<PPDOption> &)options
         whenChosen:(std::function<void(const std::string &keyword, const std::string &choice)>)
                        whenChosen {
  self = [super initWithFrame:NSMakeRect(0, 0, kWidth, 0)];
  if (self == nil) return nil;
  _options = InGroups(options);
  _whenChosen = std::move(whenChosen);
  _popUps = [[NSMutableArray alloc] init];
  CGFloat y = 8;
  std::string group;
  for (const PPDOption &option : _options) {
    if (option.group != group) {
      group = option.group;
      NSTextField *heading = Label(String(group));
      [heading setFont:[NSFont boldSystemFontOfSize:0]];
      [heading setFrame:NSMakeRect(0, y, kWidth, kLineHeight)];
      [self addSubview:heading];
      y += kHeading;
    }
    NSTextField *caption = Caption(option.text);
    [[caption cell] setLineBreakMode:NSLineBreakByTruncatingTail];
    [caption setToolTip:String(option.text)];
    [caption setFrame:NSMakeRect(0, y + 4, kCaptionWidth, kLineHeight)];
    [self addSubview:caption];
    NSPopUpButton *popUp = PopUpButton(self, @selector(choose:));
    for (const PPDChoice &choice : option.choices) {
      AddItem(popUp, String(choice.text), String(choice.keyword));
    }
    [popUp setFrame:NSMakeRect(kPopUpLeft, y, kWidth - kPopUpLeft, kControlHeight)];
    [self addSubview:popUp];
    [_popUps addObject:popUp];
    y += kRow;
  }
  [self setFrameSize:NSMakeSize(kWidth, y + 8)];
  std::vector<NSView *> keyViews;
  for (NSPopUpButton *popUp in _popUps) keyViews.push_back(popUp);
  LinkKeyViews(keyViews);
  if (!keyViews.empty()) [self setNextKeyView:keyViews.front()];
  return self;
}

- (void)dealloc {
  [_popUps release];
  [super dealloc];
}

- (BOOL)isFlipped {
  return YES;
}

- (void)showChoices:(const JobOptions &)choices {
  for (size_t i = 0; i < _options.size(); ++i) {
    NSPopUpButton *popUp = [_popUps objectAtIndex:i];
    const auto choice = choices.find(_options[i].keyword);
    [popUp selectItemAtIndex:choice == choices.end()
                                 ? -1
                                 : [popUp indexOfItemWithRepresentedObject:String(choice->second)]];
  }
}

- (void)choose:(NSPopUpButton *)sender {
  const PPDOption &option = _options[[_popUps indexOfObjectIdenticalTo:sender]];
  _whenChosen(option.keyword, Text([[sender selectedItem] representedObject]));
}

@end
