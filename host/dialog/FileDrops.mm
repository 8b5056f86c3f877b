#include "host/dialog/FileDrops.h"

#include <unistd.h>

#include <array>
#include <cstdint>
#include <string>
#include <utility>

/// Calls a function on the main thread whenever a descriptor can be read. NSFileHandle does it too,
/// but goes on looking after its end in all modes of the run loop but one.
@interface DescriptorWatcher : NSObject <RunLoopEvents> {
  void *_descriptor;  // as the run loop has it
  std::function<void()> _canBeRead;
}
- (instancetype)initWithDescriptor:(int)descriptor canBeRead:(std::function<void()>)canBeRead;
- (void)end;
@end

@implementation DescriptorWatcher

+ (NSArray *)modes {
  return @[ NSDefaultRunLoopMode, NSModalPanelRunLoopMode, NSEventTrackingRunLoopMode ];
}

- (instancetype)initWithDescriptor:(int)descriptor canBeRead:(std::function<void()>)canBeRead {
  self = [super init];
  if (self == nil) return nil;
  _descriptor = reinterpret_cast<void *>(static_cast<intptr_t>(descriptor));
  _canBeRead = std::move(canBeRead);
  for (NSString *mode in [DescriptorWatcher modes]) {
    [[NSRunLoop mainRunLoop] addEvent:_descriptor type:ET_RDESC watcher:self forMode:mode];
  }
  return self;
}

- (void)receivedEvent:(void *)data
                 type:(RunLoopEventType)type
                extra:(void *)extra
              forMode:(NSString *)mode {
  (void)data;
  (void)type;
  (void)extra;
  (void)mode;
  // What is called may end this object's work.
  [[self retain] autorelease];
  const std::function<void()> canBeRead = _canBeRead;
  if (canBeRead) canBeRead();
}

- (void)end {
  _canBeRead = nullptr;
  for (NSString *mode in [DescriptorWatcher modes]) {
    [[NSRunLoop mainRunLoop] removeEvent:_descriptor type:ET_RDESC forMode:mode all:YES];
  }
}

@end

namespace {

std::string HostName() {
  std::array<char, 256> name = {};
  return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

unsigned long WindowOnDisplay(NSWindow *window) {
  return reinterpret_cast<unsigned long>([window windowRef]);
}

}  // namespace

FileDrops::FileDrops(NSWindow *window, Callbacks callbacks)
    : callbacks_(std::move(callbacks)),
      target_(WindowOnDisplay(window),
              {.takes = [this] { return [NSApp modalWindow] == nil && callbacks_.takes(); },
               .dropped =
                   [this](const std::string &list) {
                     callbacks_.dropped(FilesOfUriList(list, HostName()));
                   }}) {
  if (target_.descriptor() < 0) return;
  // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.RetainCount): the handle takes the object over
  watcher_ = Retained<id>::Adopt([[DescriptorWatcher alloc]
      initWithDescriptor:target_.descriptor()
               canBeRead:[this] { target_.HandleEvents(); }]);
}

FileDrops::~FileDrops() { [(DescriptorWatcher *)watcher_.get() end]; }
