#import "tests/support/ObjCTest.h"
