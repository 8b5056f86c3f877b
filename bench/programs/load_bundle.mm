// What the platform takes for any program that lets a panel look at a job: its own start, and
// loading the bundle.
//   load_bundle BUNDLE

#import <Cocoa/Cocoa.h>

int main(int argc, char **argv) {
  if (argc != 2) return 2;
  @autoreleasepool {
    NSBundle *bundle = [NSBundle bundleWithPath:[NSString stringWithUTF8String:argv[1]]];
    return [bundle principalClass] == Nil;
  }
}
