#include "host/command/Printer.h"

#include "host/base/Localized.h"
#include "host/command/Server.h"
#include "host/pages/PdfFileQueue.h"
#include "host/ppd/PPDSource.h"
#include "host/ppd/PdfFilePrinter.h"

namespace {

Expected<Printer> PdfFilePrinter() {
  Expected<PPDFile> ppd = ParsePPD(PdfFilePrinterPPD());
  if (!ppd) return ppd.failure();
  return Printer{.name = ppd->Name(), .queue = PdfFileQueue(), .ppd = std::move(*ppd)};
}

}  // namespace

Expected<Printer> OpenPrinter(const JobSource &source) {
  Printer printer;
  if (!source.ppd.empty()) {
    printer.name = source.ppd.string();
    Expected<PPDFile> ppd = OpenPPD(source.ppd);
    if (!ppd) return Failure{Localized("cannot read %1: %2", {printer.name, ppd.message()})};
    printer.ppd = std::move(*ppd);
    if (source.is_for_file) printer.queue = PdfFileQueue();
    return printer;
  }
  const PrintServer server = ServerOf(source);
  Expected<Queue> queue = server.FindQueue(source.queue);
  if (!queue && source.is_for_file && source.queue.empty()) return PdfFilePrinter();
  if (!queue) return queue.failure();
  printer.name = queue->name;
  printer.queue = std::move(*queue);
  Expected<std::optional<PPDFile>> ppd = server.PPDOfQueue(printer.name);
  if (!ppd) return ppd.failure();
  printer.ppd = std::move(*ppd);
  return printer;
}
