// The display that windows are shown on.

#ifndef HOST_COMMAND_DISPLAY_H
#define HOST_COMMAND_DISPLAY_H

// Makes the application object, with the dialog's appearance. False: there is no display.
bool ConnectToDisplay();

#endif
