// The bundle as it was built, loaded as the print dialog loads it.

#ifndef TESTS_SUPPORT_BUILTBUNDLE_H
#define TESTS_SUPPORT_BUILTBUNDLE_H

#import <PrintCore/PrintCore.h>

#import "tests/support/TestHost.h"

/// The loaded bundle; the test program ends where it does not load.
NSBundle *BuiltBundle();

/// A new principal object that has taken the bundle, autoreleased.
id NewPrincipalObject();

/// A new panel for the host's printer, autoreleased; nil where none is offered.
id<PDEPanel> NewPanel(TestHost *host);

/// What the panel's view controller answers for a key, for instance "popUpSize".
id Outlet(id<PDEPanel> panel, NSString *name);

#endif
