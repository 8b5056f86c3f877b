// What the start of every program of the platform takes.

#import <Cocoa/Cocoa.h>

int main() { return [NSApplication class] == Nil; }
