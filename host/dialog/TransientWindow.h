// Windows that belong to those of other programs.

#ifndef HOST_DIALOG_TRANSIENTWINDOW_H
#define HOST_DIALOG_TRANSIENTWINDOW_H

// On the display (an Xlib Display), makes a window that is not shown yet the dialog of another one:
// window managers keep it above that one, which cannot be used meanwhile. Where there is no such
// other window, nothing is done. False: so it was.
bool MakeDialogOf(void *display, unsigned long window, unsigned long parent);

#endif
