// What the platform draws of controls as fixed pictures, drawn anew.

#ifndef HOST_DIALOG_CONTROLIMAGES_H
#define HOST_DIALOG_CONTROLIMAGES_H

/// Gives check boxes a square with a tick, and pop-up buttons an arrow down, in this process and
/// under the platform's own names for their pictures. Call before the first control is made.
void UseLightControlImages();

#endif
