// Instances that are alive, as the platform can count them.

#ifndef TESTS_SUPPORT_LIVEINSTANCES_H
#define TESTS_SUPPORT_LIVEINSTANCES_H

#import <Foundation/Foundation.h>

/// How many instances of exactly this class there are more than when the first was counted.
long LiveInstances(Class cls);

#ifndef __APPLE__
#include <map>
#include <string>

/// The same of all classes, by their names.
std::map<std::string, long> LiveInstances();
#endif

#endif
