#pragma once
// The tab "Profile data"'s commands on the whole survey: "Fit all" writes the soundings of the
// table with their fitted models, each file's previous version kept as NAME.BAK, and "Export
// models..." writes their models for a map. The fits themselves run on worker threads
// (`fit_survey`); what is here runs on the program's own thread.
#include <string>
#include <vector>

#include "app/profile_tab.h"
#include "survey/survey_fit.h"
#include "survey/table_import.h"

namespace tellux {

// The soundings of the table, as full paths, in the table's order.
std::vector<std::string> profile_files(const ProfileSheet& sheet);

// The choices of the fits: the record's array and decimals, the sensitivity a file's read sets.
FitChoices profile_fit_choices(const SoundingState& s);

// The backup of a sounding file: its name with the extension BAK, the layout the backup
// commands read back.
std::string backup_path(const std::string& path);

// After the fits: asks once; on Yes each file that was fitted keeps its previous version as
// NAME.BAK and is written with its fitted model through the safe writer, the boxes of the fits
// and of failed writes are shown, and the table is read again and the section drawn. Returns the
// number of files written.
int write_fitted_survey(Session& session, ProfileTab& tab, std::vector<FittedSounding>& fitted);

// "Export models...": the save dialog for the GeoJSON file; the CSV goes beside it, same name.
void export_profile_models(Session& session, const ProfileSheet& sheet);

// "Import a table...", once the roles are chosen: the readings of the table at `path` become the
// sounding NAME.TX3 beside it, written as the program writes a sounding (its question first), and
// that file is opened. The readings left out are told in one box. False when nothing was written.
bool import_table_file(Session& session, const std::string& path, const TableLayout& layout);

}  // namespace tellux
