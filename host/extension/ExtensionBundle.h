// A print-dialog extension bundle and its principal object.

#ifndef HOST_EXTENSION_EXTENSIONBUNDLE_H
#define HOST_EXTENSION_EXTENSIONBUNDLE_H

#import <PrintCore/PrintCore.h>

#include <filesystem>
#include <string>

#include "host/base/Expected.h"
#include "host/base/Retained.h"
#include "host/extension/HostCallback.h"
#include "host/ppd/PPDFile.h"

class ExtensionBundle {
 public:
  // Loads the bundle and makes its principal object, in the way that the object's class asks for:
  // initWithBundle: alone if it declares the protocol PDEPlugIn, init and a boolean initWithBundle:
  // if not. What the bundle raises meanwhile is a failure too.
  static Expected<ExtensionBundle> Load(const std::filesystem::path &path);

  NSBundle *bundle() const { return bundle_.get(); }

  // Its name for people: CFBundleName, or its folder's.
  std::string Name() const;

  // The panels for the print dialog, in the order of the panel types that the dialog asks for:
  // print dialog, application, printer module. The failure: the bundle raised, or answered
  // something that is no array.
  Expected<Retained<NSArray *>> Panels(HostCallback *host) const;

  // Why the bundle offers no panel for this printer, as far as its Info.plist tells: under
  // PDESupportAttribute the Keyword and the Value of the PPD attribute that it looks for.
  std::string ReasonForNoPanel(const PPDFile &ppd) const;

 private:
  ExtensionBundle(NSBundle *bundle, Retained<id> principal);
  static Expected<ExtensionBundle> Open(const std::filesystem::path &path);

  Retained<NSBundle *> bundle_;
  Retained<id> principal_;
};

#endif
