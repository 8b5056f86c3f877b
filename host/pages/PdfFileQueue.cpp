#include "host/pages/PdfFileQueue.h"

#include <set>

#include "host/pages/DocumentType.h"
#include "host/ppd/FilterLines.h"

Queue PdfFileQueue() {
  Queue queue;
  queue.formats = std::set<std::string>{kPdf, kLaidOutPdf};
  return queue;
}
