#include "host/extension/PanelSession.h"

#include "host/base/Messages.h"
#include "host/extension/BundleSearch.h"
#include "host/extension/SettingInfo.h"
#include "host/job/JobTicket.h"

namespace {

std::vector<std::pair<std::string, std::string>> InDisplayOrder(NSDictionary *summary) {
  NSString *orderKey = (NSString *)SUMMARY_DISPLAY_ORDER;
  NSMutableArray *titles = [NSMutableArray array];
  id order = [summary objectForKey:orderKey];
  if ([order isKindOfClass:[NSArray class]]) [titles addObjectsFromArray:order];
  for (NSString *title in [[summary allKeys] sortedArrayUsingSelector:@selector(compare:)]) {
    if (![title isEqual:orderKey] && ![titles containsObject:title]) [titles addObject:title];
  }
  std::vector<std::pair<std::string, std::string>> lines;
  for (NSString *title in titles) {
    id value = [summary objectForKey:title];
    if (value != nil) {
      lines.emplace_back([[title description] UTF8String], [[value description] UTF8String]);
    }
  }
  return lines;
}

// Panels take what is stored under their keys for strings. The name of a key whose value is none.
std::optional<std::string> KeyWithoutString(NSBundle *bundle, PMPrintSettings settings) {
  Expected<std::vector<Setting>> known = SettingsOfBundle(bundle);
  if (!known) return std::nullopt;
  for (const Setting &setting : *known) {
    CFTypeRef value = nullptr;
    NSString *key = [NSString stringWithUTF8String:setting.key.c_str()];
    PMPrintSettingsGetValue(settings, (CFStringRef)key, &value);
    if (value != nullptr && ![(id)value isKindOfClass:[NSString class]]) return setting.key;
  }
  return std::nullopt;
}

}  // namespace

PanelSession::PanelSession(PPDFile ppd, PrintSettings settings, ExtensionBundle bundle)
    : ppd_(std::move(ppd)), settings_(std::move(settings)), bundle_(std::move(bundle)) {}

Expected<std::unique_ptr<PanelSession>> PanelSession::Open(const JobFiles &files) {
  Expected<PPDFile> ppd = PPDFile::Open(files.ppd);
  if (!ppd) return Failure{"cannot read " + files.ppd.string() + ": " + ppd.message()};
  Expected<PrintSettings> settings = ReadTicket(files.ticket);
  if (!settings) return Failure{settings.message()};
  Expected<std::filesystem::path> bundle_path = FindBundle(files.plugin);
  if (!bundle_path) return Failure{bundle_path.message()};
  Expected<ExtensionBundle> bundle = ExtensionBundle::Load(*bundle_path);
  if (!bundle) return Failure{bundle.message()};

  if (auto key = KeyWithoutString(bundle->bundle(), settings->get())) {
    return Failure{"cannot use ticket " + files.ticket.string() + ": the value of " + *key +
                   " is not a string"};
  }

  std::unique_ptr<PanelSession> session(
      new PanelSession(std::move(*ppd), std::move(*settings), std::move(*bundle)));
  auto callback = Retained<HostCallback *>::Adopt(
      [[HostCallback alloc] initWithPrintSettings:session->settings() ppdFile:session->ppd_.get()]);
  @try {
    session->panels_ = Retained<NSArray *>::Share(session->bundle_.Panels(callback.get()));
  } @catch (NSException *exception) {
    return Failure{DescribeException(session->bundle(), exception)};
  }
  if ([session->panels_.get() count] == 0) {
    return Failure{"no panel for " + files.ppd.string() + ": " +
                   session->bundle_.ReasonForNoPanel(session->ppd_)};
  }
  return session;
}

PanelReport PanelSession::Report() const {
  PanelReport report;
  report.panel = [[panel() panelName] UTF8String];
  report.summary = InDisplayOrder([panel() summaryInfo]);
  report.options = JobOptionsFromSettings(settings());
  return report;
}

int WithPanelSession(const JobFiles &files, const std::function<int(PanelSession &)> &work) {
  @autoreleasepool {
    NSBundle *bundle = nil;
    @try {
      Expected<std::unique_ptr<PanelSession>> session = PanelSession::Open(files);
      if (!session) {
        Complain(session.message());
        return kFailed;
      }
      bundle = (*session)->bundle();
      return work(**session);
    } @catch (NSException *exception) {
      Complain(DescribeException(bundle, exception));
      return kFailed;
    }
  }
}
