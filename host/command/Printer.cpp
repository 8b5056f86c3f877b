#include "host/command/Printer.h"

#include "host/base/Localized.h"
#include "host/command/Server.h"
#include "host/ppd/PPDSource.h"

Expected<Printer> OpenPrinter(const JobSource &source) {
  Printer printer;
  if (!source.ppd.empty()) {
    printer.name = source.ppd.string();
    Expected<PPDFile> ppd = OpenPPD(source.ppd);
    if (!ppd) return Failure{Localized("cannot read %1: %2", {printer.name, ppd.message()})};
    printer.ppd = std::move(*ppd);
    return printer;
  }
  const PrintServer server = ServerOf(source);
  Expected<Queue> queue = server.FindQueue(source.queue);
  if (!queue) return queue.failure();
  printer.name = queue->name;
  printer.queue = std::move(*queue);
  Expected<std::optional<PPDFile>> ppd = server.PPDOfQueue(printer.name);
  if (!ppd) return ppd.failure();
  printer.ppd = std::move(*ppd);
  return printer;
}
