#pragma once
// One run of the desktop program: the sounding record, the settings, and the logic of the main
// window, its tabs and the start window, wired together. One per process, owned by the program's
// entry (or by a test); the windows show its control models.
#include <string>

#include "app/field_sheet.h"
#include "app/main_form.h"
#include "app/model_window.h"
#include "app/print_tab.h"
#include "app/profile_tab.h"
#include "app/setup_tab.h"
#include "app/start_window.h"
#include "core/session.h"
#include "core/settings.h"
#include "platform/dialogs.h"
#include "platform/drawing_surface.h"
#include "platform/forms.h"
#include "platform/system_services.h"
#include "plot/bilog_view.h"

namespace tellux {

struct Application {
  // `Bilog` is the screen diagram; `settings_path` the settings file to read and write.
  Application(Dialogs& dialogs, Forms& forms, DrawingSurface& Bilog, SystemServices& system,
              std::string settings_path = settings_file_path());
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  SoundingState s;
  Settings settings;
  Session session;
  BilogDrawing drawing;
  StartWindow frmSplash;
  MainForm main;
  FieldSheet sheet;
  SetupTab setup;
  ModelWindow model;  // the model editor; its window shows and hides, the logic stays
  ProfileTab profile;
  PageDocument VSPrint;  // the report's page in the tab "Print Bilog"
  PrintTab print;
  PageDocument VSPrint1;  // the section's page in the tab "SEV Profile"
  PrintTab section;       // its twin controls

  // A click on an array button of the setup tab: the record follows, and the setting "SEV File"
  // names the default spread file of that array for the next new sounding.
  void Option_Click(int index);
};

}  // namespace tellux
