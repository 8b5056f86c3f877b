// The built panel as it is shown in a language, measured by a program of its own.

#ifndef TESTS_GUI_PANELINLANGUAGE_H
#define TESTS_GUI_PANELINLANGUAGE_H

#import <Cocoa/Cocoa.h>

#include <map>
#include <string>
#include <vector>

// Points, in the coordinates of the panel's view, whose own bounds are the frame of "view".
struct ControlMeasurements {
  std::string text;      // what it says now; a pop-up: its chosen item
  NSRect frame;          // where it may draw
  NSRect text_area;      // where its text lies; a pop-up: the widest of its items
  CGFloat wanted_width;  // what its cell asks for to show all of it
};

// By outlet.
using PanelMeasurements = std::map<std::string, ControlMeasurements>;

struct PanelInLanguage {
  std::string language;
  std::map<std::string, PanelMeasurements> looks;  // "on", "off"
  std::string PicturePath(const std::string &look) const;
};

// All languages of the bundle, each once; shown at the first call.
const std::vector<PanelInLanguage> &PanelInAllLanguages();

#endif
