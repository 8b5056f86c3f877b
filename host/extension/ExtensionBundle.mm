#include "host/extension/ExtensionBundle.h"

#include "host/base/Localized.h"
#include "host/base/WholeLibrary.h"
#include "host/extension/Guarded.h"

// How a principal object that does not declare the protocol PDEPlugIn takes its bundle.
@protocol TwoStepPlugIn
- (BOOL)initWithBundle:(NSBundle *)bundle;
@end

namespace {

// The bundle that has brought this bundle's principal class already; nil: none. The runtime ends
// the program if the same classes are loaded from two bundles.
NSBundle *OtherOwnerOfPrincipalClass(NSBundle *bundle) {
  id name = [bundle objectForInfoDictionaryKey:@"NSPrincipalClass"];
  if (![name isKindOfClass:[NSString class]]) return nil;
  Class known = NSClassFromString(name);
  if (![known instancesRespondToSelector:@selector(PDEPanelsForType:withHostInfo:)]) return nil;
  NSBundle *owner = [NSBundle bundleForClass:known];
  return owner == bundle || owner == [NSBundle mainBundle] ? nil : owner;
}

Failure RefusedByPrincipal() {
  return Failure{Localized("its principal object refuses the bundle")};
}

}  // namespace

ExtensionBundle::ExtensionBundle(NSBundle *bundle, Retained<id> principal)
    : bundle_(Retained<NSBundle *>::Share(bundle)), principal_(std::move(principal)) {}

Expected<ExtensionBundle> ExtensionBundle::Load(const std::filesystem::path &path) {
  Expected<ExtensionBundle> result = Failure{};
  if (auto raised = WhatRaises([&] { result = Open(path); })) {
    result = Failure{Localized("it raised %1", {*raised})};
  }
  if (result) return result;
  return result.failure().Reworded(
      Localized("cannot load bundle %1: %2", {path.string(), result.message()}));
}

Expected<ExtensionBundle> ExtensionBundle::Open(const std::filesystem::path &path) {
  NSFileManager *files = [NSFileManager defaultManager];
  NSString *place = [files stringWithFileSystemRepresentation:path.c_str()
                                                       length:path.native().size()];
  if (place == nil) return Failure{Localized("the platform does not take its path for text")};
  NSBundle *bundle = [NSBundle bundleWithPath:place];
  if (bundle == nil) return Failure{Localized("not a bundle")};
  if ([bundle executablePath] == nil) {
    return Failure{Localized("its Info.plist names no executable in it")};
  }
  if (NSBundle *other = OtherOwnerOfPrincipalClass(bundle)) {
    return Failure{
        Localized("its principal class has been loaded from %1", {Words([other bundlePath])})};
  }
  const char *executable = [[bundle executablePath] fileSystemRepresentation];
  if (!IsWholeLibrary(executable)) return Failure{Localized("its executable is cut off")};
  if (![bundle load]) return Failure{Localized("its executable does not load")};

  Class principalClass = [bundle principalClass];
  if (principalClass == nil) return Failure{Localized("no principal class")};
  if (![principalClass instancesRespondToSelector:@selector(PDEPanelsForType:withHostInfo:)]) {
    return Failure{Localized("its principal class is no print-dialog extension")};
  }
  // By name: here @protocol() answers one that no class of another image conforms to.
  if ([principalClass conformsToProtocol:NSProtocolFromString(@"PDEPlugIn")]) {
    // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.RetainCount): the handle takes the object over
    id<PDEPlugIn> object = [(id<PDEPlugIn>)[principalClass alloc] initWithBundle:bundle];
    auto principal = Retained<id>::Adopt(object);
    if (principal.get() == nil) return RefusedByPrincipal();
    return ExtensionBundle(bundle, std::move(principal));
  }
  auto principal = Retained<id>::Adopt([[principalClass alloc] init]);
  if (![(id<TwoStepPlugIn>)principal.get() initWithBundle:bundle]) {
    return RefusedByPrincipal();
  }
  return ExtensionBundle(bundle, std::move(principal));
}

std::string ExtensionBundle::Name() const {
  id name = [bundle_.get() objectForInfoDictionaryKey:@"CFBundleName"];
  if ([name isKindOfClass:[NSString class]] && [name length] > 0) return Words(name);
  return Words([[[bundle_.get() bundlePath] lastPathComponent] stringByDeletingPathExtension]);
}

Expected<Retained<NSArray *>> ExtensionBundle::Panels(HostCallback *host) const {
  auto panels = Retained<NSMutableArray *>::Adopt([[NSMutableArray alloc] init]);
  const std::string path = Words([bundle_.get() bundlePath]);
  bool all_are_arrays = true;
  const auto raised = WhatRaises([&] {
    for (NSString *type in @[
           (NSString *)kGeneralPrintDialogTypeIDStr, (NSString *)kAppPrintDialogTypeIDStr,
           (NSString *)kPrinterModuleTypeIDStr
         ]) {
      id offered = [(id<PDEPlugIn>)principal_.get() PDEPanelsForType:type withHostInfo:host];
      if (offered == nil) continue;
      all_are_arrays = all_are_arrays && [offered isKindOfClass:[NSArray class]];
      if (all_are_arrays) [panels.get() addObjectsFromArray:offered];
    }
  });
  if (raised) return Failure{Localized("the bundle %1 raised %2", {path, *raised})};
  if (!all_are_arrays) {
    return Failure{Localized("the bundle %1 answered panels that are no array", {path})};
  }
  return Retained<NSArray *>::Share(panels.get());
}

std::string ExtensionBundle::ReasonForNoPanel(const PPDFile &ppd) const {
  NSDictionary *wanted = [bundle_.get() objectForInfoDictionaryKey:@"PDESupportAttribute"];
  const bool isDictionary = [wanted isKindOfClass:[NSDictionary class]];
  NSString *wantedKeyword = isDictionary ? [wanted objectForKey:@"Keyword"] : nil;
  NSString *wantedValue = isDictionary ? [wanted objectForKey:@"Value"] : nil;
  if (![wantedKeyword isKindOfClass:[NSString class]] ||
      ![wantedValue isKindOfClass:[NSString class]]) {
    return Localized("the bundle offers none for this printer");
  }

  const std::string keyword = [wantedKeyword UTF8String];
  const std::string value = [wantedValue UTF8String];
  const std::optional<std::string> found = ppd.Attribute(keyword);
  if (!found) return Localized("no attribute %1", {keyword});
  if (*found != value) {
    return Localized("%1 is %2, must be exactly %3",
                     {keyword, "\"" + *found + "\"", "\"" + value + "\""});
  }
  return Localized("the bundle is incomplete: it makes no panel although %1 is %2",
                   {keyword, "\"" + value + "\""});
}
