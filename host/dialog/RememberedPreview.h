// Whether the user wants to see the preview, from one dialog to the next.

#ifndef HOST_DIALOG_REMEMBEREDPREVIEW_H
#define HOST_DIALOG_REMEMBEREDPREVIEW_H

// At first they do.
bool WantsPreview();

// A convenience: where it cannot be kept, it is not.
void RememberPreview(bool wanted);

#endif
