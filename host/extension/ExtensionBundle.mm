#include "host/extension/ExtensionBundle.h"

// How a principal object that does not declare the protocol PDEPlugIn takes its bundle.
@protocol TwoStepPlugIn
- (BOOL)initWithBundle:(NSBundle *)bundle;
@end

ExtensionBundle::ExtensionBundle(NSBundle *bundle, Retained<id> principal)
    : bundle_(Retained<NSBundle *>::Share(bundle)), principal_(std::move(principal)) {}

Expected<ExtensionBundle> ExtensionBundle::Load(const std::filesystem::path &path) {
  const auto failure = [&path](const std::string &why) {
    return Failure{"cannot load bundle " + path.string() + ": " + why};
  };
  NSFileManager *files = [NSFileManager defaultManager];
  NSString *place = [files stringWithFileSystemRepresentation:path.c_str()
                                                       length:path.native().size()];
  NSBundle *bundle = [NSBundle bundleWithPath:place];
  if (bundle == nil) return failure("not a bundle");
  if ([bundle executablePath] == nil) return failure("its Info.plist names no executable in it");
  if (![bundle load]) return failure("its executable does not load");

  Class principalClass = [bundle principalClass];
  if (principalClass == nil) return failure("no principal class");
  if (![principalClass instancesRespondToSelector:@selector(PDEPanelsForType:withHostInfo:)]) {
    return failure("its principal class is no print-dialog extension");
  }
  // By name: here @protocol() answers one that no class of another image conforms to.
  if ([principalClass conformsToProtocol:NSProtocolFromString(@"PDEPlugIn")]) {
    // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.RetainCount): the handle takes the object over
    id<PDEPlugIn> object = [(id<PDEPlugIn>)[principalClass alloc] initWithBundle:bundle];
    auto principal = Retained<id>::Adopt(object);
    if (principal.get() == nil) return failure("its principal object refuses the bundle");
    return ExtensionBundle(bundle, std::move(principal));
  }
  auto principal = Retained<id>::Adopt([[principalClass alloc] init]);
  if (![(id<TwoStepPlugIn>)principal.get() initWithBundle:bundle]) {
    return failure("its principal object refuses the bundle");
  }
  return ExtensionBundle(bundle, std::move(principal));
}

NSArray *ExtensionBundle::Panels(HostCallback *host) const {
  NSMutableArray *panels = [NSMutableArray array];
  for (NSString *type in @[
         (NSString *)kGeneralPrintDialogTypeIDStr, (NSString *)kAppPrintDialogTypeIDStr,
         (NSString *)kPrinterModuleTypeIDStr
       ]) {
    NSArray *offered = [(id<PDEPlugIn>)principal_.get() PDEPanelsForType:type withHostInfo:host];
    if (offered != nil) [panels addObjectsFromArray:offered];
  }
  return panels;
}

std::string ExtensionBundle::ReasonForNoPanel(const PPDFile &ppd) const {
  NSDictionary *wanted = [bundle_.get() objectForInfoDictionaryKey:@"PDESupportAttribute"];
  const bool isDictionary = [wanted isKindOfClass:[NSDictionary class]];
  NSString *wantedKeyword = isDictionary ? [wanted objectForKey:@"Keyword"] : nil;
  NSString *wantedValue = isDictionary ? [wanted objectForKey:@"Value"] : nil;
  if (![wantedKeyword isKindOfClass:[NSString class]] ||
      ![wantedValue isKindOfClass:[NSString class]]) {
    return "the bundle offers none for this printer";
  }

  const std::string keyword = [wantedKeyword UTF8String];
  const std::string value = [wantedValue UTF8String];
  const std::optional<std::string> found = ppd.Attribute(keyword);
  if (!found) return "no attribute " + keyword;
  if (*found != value) {
    return keyword + " is \"" + *found + "\", must be exactly \"" + value + "\"";
  }
  return "the bundle is incomplete: it makes no panel although " + keyword + " is \"" + value +
         "\"";
}

std::string DescribeException(NSBundle *bundle, NSException *exception) {
  std::string text = bundle == nil ? "an extension bundle"
                                   : "the bundle " + std::string([[bundle bundlePath] UTF8String]);
  text += std::string(" raised ") + [[exception name] UTF8String];
  if (NSString *reason = [exception reason]) text += std::string(": ") + [reason UTF8String];
  return text;
}
