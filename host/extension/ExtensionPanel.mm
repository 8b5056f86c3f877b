#include "host/extension/ExtensionPanel.h"

#include "host/base/Localized.h"
#include "host/extension/Guarded.h"

namespace {

// What the protocol PDEPanel requires. By name: here @protocol() answers one that no class of
// another image conforms to.
const SEL kRequired[] = {
    @selector(willShow),
    @selector(shouldHide),
    @selector(saveValuesAndReturnError:),
    @selector(restoreValuesAndReturnError:),
    @selector(PPDOptionKeyValueDidChange:ppdChoice:),
    @selector(panelView),
    @selector(panelName),
    @selector(panelKind),
    @selector(summaryInfo),
};

// Does nothing once there is a fault. What the body raises is one.
template <typename Body>
void Ask(std::optional<std::string> &fault, Body body) {
  if (fault) return;
  if (const auto raised = WhatRaises(body)) fault = Localized("its panel raised %1", {*raised});
}

bool IsText(id object) { return [object isKindOfClass:[NSString class]] && [object length] > 0; }

SummaryLines InDisplayOrder(NSDictionary *summary) {
  NSString *order_key = (NSString *)SUMMARY_DISPLAY_ORDER;
  NSMutableArray *titles = [NSMutableArray array];
  id order = [summary objectForKey:order_key];
  if (![order isKindOfClass:[NSArray class]]) order = @[];
  NSArray *others = [[summary allKeys] sortedArrayUsingSelector:@selector(compare:)];
  for (id title in [order arrayByAddingObjectsFromArray:others]) {
    if (![title isEqual:order_key] && ![titles containsObject:title]) [titles addObject:title];
  }
  SummaryLines lines;
  for (id title in titles) {
    id value = [summary objectForKey:title];
    if (value != nil) lines.emplace_back(Words([title description]), Words([value description]));
  }
  return lines;
}

// The panel's own words where it gives some.
std::string WordsOf(NSError *error) {
  const std::string words =
      [error isKindOfClass:[NSError class]] ? Words([error localizedDescription]) : "";
  return words.empty() ? Localized("it does not say why") : words;
}

}  // namespace

ExtensionPanel::ExtensionPanel(NSBundle *bundle, id panel)
    : bundle_(Retained<NSBundle *>::Share(bundle)), panel_(Retained<id>::Share(panel)) {}

Expected<ExtensionPanel> ExtensionPanel::Take(NSBundle *bundle, id object) {
  ExtensionPanel panel(bundle, object);
  std::optional<std::string> &fault = panel.fault_;
  Ask(fault, [&] {
    for (const SEL selector : kRequired) {
      if ([object respondsToSelector:selector]) continue;
      fault = Localized("it offers a panel that does not answer to %1",
                        {Words(NSStringFromSelector(selector))});
      return;
    }
  });
  Ask(fault, [&] {
    id name = [(id<PDEPanel>)object panelName];
    if (IsText(name)) {
      panel.name_ = Words(name);
    } else {
      fault = Localized("its panel answered no name");
    }
  });
  Ask(fault, [&] {
    id kind = [(id<PDEPanel>)object panelKind];
    if (IsText(kind)) {
      panel.kind_ = Words(kind);
    } else {
      fault = Localized("its panel answered no kind");
    }
  });
  if (fault) return Failure{*fault};
  return panel;
}

const std::vector<std::string> &ExtensionPanel::option_keywords() {
  if (option_keywords_) return *option_keywords_;
  option_keywords_.emplace();
  Ask(fault_, [this] {
    id panel = panel_.get();
    if (![panel respondsToSelector:@selector(supportedPPDOptionKeys)]) return;
    id keywords = [panel supportedPPDOptionKeys];
    bool are_strings = keywords == nil || [keywords isKindOfClass:[NSArray class]];
    if (are_strings) {
      for (id keyword in keywords) {
        are_strings = are_strings && [keyword isKindOfClass:[NSString class]];
        if (are_strings) option_keywords_->push_back(Words(keyword));
      }
    }
    if (!are_strings) {
      fault_ = Localized("its panel answered option keywords that are no array of strings");
    }
  });
  if (fault_) option_keywords_->clear();
  return *option_keywords_;
}

NSView *ExtensionPanel::View() {
  if (view_.get() == nil) {
    Ask(fault_, [this] {
      id view = [(id<PDEPanel>)panel_.get() panelView];
      if ([view isKindOfClass:[NSView class]]) {
        view_ = Retained<NSView *>::Share(view);
      } else {
        fault_ = Localized("its panel answered no view");
      }
    });
  }
  return fault_ ? nil : view_.get();
}

Expected<void> ExtensionPanel::Restore() {
  Expected<void> restored;
  Ask(fault_, [&] {
    NSError *error = nil;
    if ([(id<PDEPanel>)panel_.get() restoreValuesAndReturnError:&error]) return;
    restored =
        Failure{Localized("%1 does not show the job's settings: %2", {name_, WordsOf(error)})};
  });
  if (fault_) return Unusable();
  return restored;
}

Expected<void> ExtensionPanel::Save() {
  Expected<void> saved;
  Ask(fault_, [&] {
    NSError *error = nil;
    if ([(id<PDEPanel>)panel_.get() saveValuesAndReturnError:&error]) return;
    saved = Failure{Localized("%1 does not save what it shows: %2", {name_, WordsOf(error)})};
  });
  if (fault_) return Unusable();
  return saved;
}

Failure ExtensionPanel::Unusable() const {
  return Failure{Localized("%1 cannot be used: %2", {name_, *fault_})};
}

void ExtensionPanel::WillShow() {
  Ask(fault_, [this] { [(id<PDEPanel>)panel_.get() willShow]; });
}

bool ExtensionPanel::ShouldHide() {
  bool answer = true;
  Ask(fault_, [&] { answer = [(id<PDEPanel>)panel_.get() shouldHide]; });
  return answer;
}

bool ExtensionPanel::ShouldPrint() {
  bool answer = true;
  Ask(fault_, [&] {
    id panel = panel_.get();
    if ([panel respondsToSelector:@selector(shouldPrint)]) answer = [panel shouldPrint];
  });
  return answer;
}

bool ExtensionPanel::ShouldShowHelp() {
  bool answer = true;
  Ask(fault_, [&] {
    id panel = panel_.get();
    if ([panel respondsToSelector:@selector(shouldShowHelp)]) answer = [panel shouldShowHelp];
  });
  return answer;
}

SummaryLines ExtensionPanel::Summary() {
  SummaryLines lines;
  Ask(fault_, [&] {
    id summary = [(id<PDEPanel>)panel_.get() summaryInfo];
    if (summary == nil) return;
    if ([summary isKindOfClass:[NSDictionary class]]) {
      lines = InDisplayOrder(summary);
    } else {
      fault_ = Localized("its panel answered a summary that is no dictionary");
    }
  });
  return lines;
}

void ExtensionPanel::OptionDidChange(const std::string &keyword, const std::string &choice) {
  Ask(fault_, [&] {
    [(id<PDEPanel>)panel_.get()
        PPDOptionKeyValueDidChange:[NSString stringWithUTF8String:keyword.c_str()]
                         ppdChoice:[NSString stringWithUTF8String:choice.c_str()]];
  });
}

void ExtensionPanel::WindowWillClose(bool canceled) {
  Ask(fault_, [&] {
    id panel = panel_.get();
    if ([panel respondsToSelector:@selector(printWindowWillClose:)]) {
      [panel printWindowWillClose:canceled];
    }
  });
}
