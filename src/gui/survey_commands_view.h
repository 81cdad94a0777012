#pragma once
// The survey commands on the screen: "Fit all" and "Export models..." beside "Select SEV" on the
// tab "Profile data", and "Import a table..." in the menu File with its dialog.
#include <functional>

class QWidget;

namespace tellux {

struct Application;
class ProfileWidget;

// Adds "Fit all" and "Export models..." to the tab's row of commands. `changed` runs after each,
// so that the windows show the models again.
void add_survey_buttons(ProfileWidget& profile, Application& app, std::function<void()> changed);

// "Fit all": the soundings of the table fitted on worker threads under a progress bar with
// Cancel, then the one question and the writing (`write_fitted_survey`).
void fit_all_soundings(QWidget* parent, Application& app);

// "Import a table...": the open dialog, then the table's first lines with a role for each column;
// OK writes the readings as NAME.TX3 beside the table and opens it.
void import_table_command(QWidget* parent, Application& app);

// The caption of the menu entry in the language in force.
const char* import_table_caption(const Application& app);

// The captions of "Fit all", "Export models..." and "Import a table..." under `window`, in the
// language in force: when they are made and after the language box changes.
void caption_survey_commands(QWidget& window, const Application& app);

}  // namespace tellux
