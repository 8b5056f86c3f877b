// The rows of the dialog's own panels, as far as a printer has them. The session must outlive them;
// they hold until its printer, or one of its panels, changes.

#ifndef HOST_SESSION_PANELS_PANELROWS_H
#define HOST_SESSION_PANELS_PANELROWS_H

#include <vector>

#include "host/session/panels/PanelRow.h"

using PanelRows = std::vector<PanelRow>;

// Pages per sheet, their order and border, orientation, two-sided.
PanelRows LayoutRows(const JobSession &session);
// Its size, where it comes from, what it is, and how pages fill it.
PanelRows PaperRows(const JobSession &session);
// Which of them, in which order, and that of copies.
PanelRows PagesRows(const JobSession &session);
// Banners, when it is printed, and who pays.
PanelRows JobRows(const JobSession &session);
// All other options of the printer.
PanelRows PrinterOptionRows(const JobSession &session);

#endif
