// A printer without background numbering: asked for the panels of every print dialog.

#include <cstring>
#include <fstream>
#include <sstream>

#import "bench/panel/Job.h"
#import "bench/panel/Measured.h"
#include "tests/support/TestPPD.h"

@protocol PrincipalObject
- (NSArray *)PDEPanelsForType:(NSString *)type withHostInfo:(id)host;
@end

namespace {

constexpr char kSupportKeyword[] = "VQBackgroundNumberingSupport";

// The built PPD file without the support attribute.
ppd_file_t *OtherPrinter() {
  static ppd_file_t *const ppd = [] {
    const TemporaryFolder folder;
    std::ifstream file(BINARY_DIRECTORY "/printer/VelmoraNumbering.ppd");
    std::ostringstream text;
    for (std::string line; std::getline(file, line);) {
      if (line.find(kSupportKeyword) == std::string::npos) text << line << '\n';
    }
    folder.Write("other.ppd", text.str());
    return ppdOpenFile((folder.path() / "other.ppd").c_str());
  }();
  return ppd;
}

const bool registered = [] {
  Measure("refusal/ours", [] {
    static TestHost *const job = [[TestHost hostWithPPD:OtherPrinter()] retain];
    static id const principal = [NewPrincipalObject() retain];
    benchmark::DoNotOptimize([(id<PrincipalObject>)principal
        PDEPanelsForType:(NSString *)kPrinterModuleTypeIDStr
            withHostInfo:job]);
  });
  Measure("refusal/platform", [] {
    static NSString *const type = [(NSString *)kPrinterModuleTypeIDStr copy];
    benchmark::DoNotOptimize([type isEqualToString:(NSString *)kPrinterModuleTypeIDStr]);
    benchmark::DoNotOptimize(ppdFindAttr(OtherPrinter(), kSupportKeyword, nullptr));
  });
  return true;
}();

}  // namespace
