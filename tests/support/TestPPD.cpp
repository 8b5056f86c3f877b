#include "tests/support/TestPPD.h"

#include <cstdlib>
#include <iostream>

std::string TestPPD::Text(const std::string &lines) {
  return R"PPD(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "TEST.PPD"
*Manufacturer: "Test"
*Product: "(Test)"
*ModelName: "Test"
*ShortNickName: "Test"
*NickName: "Test"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*OpenUI *PageSize/Media Size: PickOne
*DefaultPageSize: A4
*PageSize A4/A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion/Media Size: PickOne
*DefaultPageRegion: A4
*PageRegion A4/A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4/A4: "18 18 577 824"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
*DefaultFont: Courier
*Font Courier: Standard "(002.004S)" Standard ROM
)PPD" + lines;
}

TestPPD::TestPPD(const std::string &lines)
    : path_(folder_.Write("test.ppd", Text(lines))), ppd_(ppdOpenFile(path_.c_str())) {
  if (ppd_ == nullptr) {
    int line = 0;
    const ppd_status_t status = ppdLastError(&line);
    std::cerr << "test PPD: " << ppdErrorString(status) << " on line " << line << '\n';
    std::abort();
  }
}
