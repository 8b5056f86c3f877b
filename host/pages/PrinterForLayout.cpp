#include "host/pages/PrinterForLayout.h"

#include "host/ppd/edit/PPDText.h"

std::string ForLayout(std::string_view ppd, LastSide side) {
  std::string text;
  for (const PPDStatement &statement : StatementsOf(ppd)) {
    const bool is_replaced = statement.keyword == "cupsManualCopies" ||
                             (side == LastSide::kBack && statement.keyword == "cupsEvenDuplex");
    if (!is_replaced) text += statement.all;
  }
  const std::string end(LineEndOf(ppd));
  if (!text.empty() && !text.ends_with('\n') && !text.ends_with('\r')) text += end;
  text += "*cupsManualCopies: True" + end;
  if (side == LastSide::kBack) text += "*cupsEvenDuplex: True" + end;
  return text;
}
