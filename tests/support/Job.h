// A print job on a queue of a test's own, as the objects of a panel see it.

#ifndef TESTS_SUPPORT_JOB_H
#define TESTS_SUPPORT_JOB_H

#import "settinginfo/velmoraBNCommonInfoRV2.h"
#include "tests/support/Interposed.h"
#import "tests/support/TestBundle.h"
#import "tests/support/TestHost.h"
#include "tests/support/TestPPD.h"

using Strings = std::vector<std::string>;

/// Begins and ends with print-settings calls that work; the recorded calls are those made since the
/// creation.
class Job {
 public:
  // The lines are the PPD file's, the strings those of the bundle's English table.
  explicit Job(const std::string &ppd_lines, id setting_info = ShippedSettingInfo(),
               const std::string &strings = "");
  ~Job();
  Job(const Job &) = delete;
  Job &operator=(const Job &) = delete;

  TestHost *host() const { return host_; }
  NSBundle *bundle() const { return bundle_.get(); }
  velmoraBNCommonInfoRV2 *info() const { return info_; }

  // Another common information for the same job, of a class derived from the product's.
  template <typename Info>
  Info *InfoOf() const {
    return [[[Info alloc] initWithCallback:[host_ callback] bundle:bundle()] autorelease];
  }

  id operator[](NSString *key) const { return [host_ valueForSetting:key]; }
  // Stores without leaving a trace among the recorded calls; nil removes the key.
  void Store(NSString *key, id value);
  // From now on the job has no print settings.
  void DropSettings();

 private:
  TestPPD ppd_;
  TestBundle bundle_;
  TestHost *host_;
  velmoraBNCommonInfoRV2 *info_;
};

#endif
