// Bytes as texts.

#ifndef TESTS_FUZZ_TEXTS_H
#define TESTS_FUZZ_TEXTS_H

#import <Foundation/Foundation.h>

#include <string_view>

namespace fuzz {

// UTF-8 as a string; halves of surrogate pairs may stand alone, each in three bytes, and other
// bytes that are no UTF-8 are taken for ISO Latin 1. Every string can be made.
NSString *TextOfBytes(std::string_view bytes);

}  // namespace fuzz

#endif
