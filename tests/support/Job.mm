#import "tests/support/Job.h"

Job::Job(const std::string &ppd_lines, id setting_info, const std::string &strings)
    : ppd_(ppd_lines),
      bundle_(setting_info, strings),
      host_([[TestHost hostWithPPD:ppd_.get()] retain]),
      info_([[velmoraBNCommonInfoRV2 alloc] initWithCallback:[host_ callback]
                                                      bundle:bundle_.get()]) {
  interposed::FailReads(0);
  interposed::FailWrites(0);
  interposed::Clear();
}

Job::~Job() {
  interposed::FailReads(0);
  interposed::FailWrites(0);
  [info_ release];
  [host_ release];
}

void Job::Store(NSString *key, id value) {
  [host_ setValue:value forSetting:key];
  interposed::Clear();
}

void Job::DropSettings() {
  PMRelease(host_->settings);
  host_->settings = nullptr;
}
