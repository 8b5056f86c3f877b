#include "tests/pages/PreparedServer.h"

#include <regex>

#include "tests/support/RawPdf.h"
#include "tests/support/TestPPD.h"

namespace {

constexpr char kDuplex[] =
    "*OpenUI *Duplex/Two-Sided: PickOne\n*OrderDependency: 20 AnySetup *Duplex\n"
    "*DefaultDuplex: None\n*Duplex None/Off: \"\"\n*Duplex DuplexNoTumble/Long Edge: \"\"\n"
    "*Duplex DuplexTumble/Short Edge: \"\"\n*CloseUI: *Duplex\n";

constexpr char kRaster[] =
    "*cupsFilter: \"application/vnd.cups-raster 0 -\"\n"
    "*OpenUI *Resolution/Resolution: PickOne\n*OrderDependency: 10 AnySetup *Resolution\n"
    "*DefaultResolution: 75dpi\n"
    "*Resolution 75dpi/75: \"<</HWResolution[75 75]/cupsColorSpace 1/cupsColorOrder "
    "0/cupsBitsPerColor 8>>setpagedevice\"\n*CloseUI: *Resolution\n";

}  // namespace

std::string PlainPdf(int pages) {
  std::vector<RawPage> all;
  for (int page = 1; page <= pages; ++page) {
    all.push_back({"BT /F 12 Tf 50 750 Td (Page " + std::to_string(page) + ") Tj ET"});
  }
  return RawPdf(all);
}

std::string UnpreparedQueues::PdfPrinter(const std::string &lines) {
  return TestPPD::Text(std::string(kColorDevice) + kDuplex +
                       "*cupsFilter2: \"application/vnd.cups-pdf application/pdf 0 -\"\n" + lines);
}

void UnpreparedQueues::SetUpTestSuite() {
  StartServer();
  const TemporaryFolder folder;
  server().AddQueue({.name = "Pdf", .ppd = folder.Write("pdf.ppd", PdfPrinter())});
  server().AddQueue(
      {.name = "Raster",
       .ppd = folder.Write("raster.ppd", TestPPD::Text(std::string(kColorDevice) + kRaster))});
  server().AddQueue(
      {.name = "PostScript", .ppd = folder.Write("ps.ppd", TestPPD::Text(kColorDevice))});
  server().AddQueue({.name = "Raw"});
}

std::vector<std::string> UnpreparedQueues::Printed::numbers() const {
  static const std::regex number("\\b[0-9]{2}\\b");
  return {std::sregex_token_iterator(text.begin(), text.end(), number), {}};
}

UnpreparedQueues::Printed UnpreparedQueues::Print(const std::string &queue, const Arguments &more,
                                                  const std::vector<std::string> &files,
                                                  const EnvironmentChanges &changes) {
  Arguments arguments = {"print", "-d", queue};
  arguments.insert(arguments.end(), more.begin(), more.end());
  arguments.insert(arguments.end(), files.begin(), files.end());
  const RunResult result = Run(arguments, changes);
  EXPECT_EQ(result.status, 0) << result.err;
  const std::string begin = "request id is " + queue + '-';
  if (!result.out.starts_with(begin)) return {};
  const int job = std::stoi(result.out.substr(begin.size()));
  EXPECT_TRUE(Becomes([&] {
    const std::string state = server().JobAttributes(job)["job-state"];
    return state == "completed" || state == "aborted" || state == "canceled";
  }));
  Printed printed;
  printed.job = server().JobAttributes(job);
  EXPECT_EQ(printed.job["job-state"], "completed");
  printed.out = server().OutputOf(job);
  printed.documents = server().DocumentsOf(job);
  printed.said = result.err;
  if (printed.out.starts_with("%PDF-")) printed.text = TextOfPdf(printed.out);
  return printed;
}

UnpreparedQueues::Printed UnpreparedQueues::Number(const Arguments &more,
                                                   const std::vector<std::string> &files) {
  Arguments all = kFrom25;
  all.insert(all.end(), more.begin(), more.end());
  return Print("Pdf", all, files);
}
