// How much longer everything may take than it should.

#ifndef TESTS_SUPPORT_SLOWDOWN_H
#define TESTS_SUPPORT_SLOWDOWN_H

// A factor for limits of time: sanitizers make programs several times as slow.
#if __has_feature(address_sanitizer)
inline constexpr int kSlowdown = 4;
#else
inline constexpr int kSlowdown = 1;
#endif

#endif
