#pragma once
// The start window `frmSplash`: four ways into the program, captioned in the language of the
// settings.
#include <functional>

#include "core/session.h"
#include "platform/controls.h"

namespace tellux {

class StartWindow {
 public:
  explicit StartWindow(Session& session) : session_(session) {}

  Button Command2;  // start a new sounding
  Button Command4;  // open a sounding file
  Button Command3;  // open the last file
  Button Command5;  // read the manual
  Label Subtitle;   // what the program is for, under its name
  bool visible = false;

  // Captions by the language flags: French, else Spanish, else English (German too).
  void set_captions();
  void Show() { visible = true; }
  void Unload();

  void Command2_Click();
  // The open dialog, then the open. Cancel leaves the window for another choice; after an open
  // the window has done its work and goes.
  void Command4_Click();
  void Command3_Click();
  void Command5_Click();

  std::function<void()> on_unload;    // the window is to be hidden
  std::function<void()> open_manual;  // the manual; none while it is not installed

 private:
  Session& session_;
};

}  // namespace tellux
