// Names the type of the object through which the print dialog answers the plug-in.

#ifndef SETTINGINFO_VELMORABNPDECALLBACKRV2_H
#define SETTINGINFO_VELMORABNPDECALLBACKRV2_H

#import <Foundation/Foundation.h>

/// The print dialog hands in an object of its own that answers PDEPlugInCallbackProtocol; it is not
/// an instance of this class. Of that protocol the plug-in sends `printSettings` and `ppdFile`, and
/// owns neither answer.
@interface velmoraBNPdeCallbackRV2 : NSObject
@end

#endif
