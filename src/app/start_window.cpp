#include "app/start_window.h"

#include "core/open_flow.h"

namespace tellux {

void StartWindow::set_captions() {
  Subtitle.Caption =
      session_.text("Sondages électriques verticaux", "Sondeos eléctricos verticales",
                    "Vertical electrical soundings");
  Command2.Caption = session_.text("Nouveau sondage", "Empezar nuevo SEV", "Start a new VES");
  Command4.Caption = session_.text("Ouvrir un fichier", "Cargar un fichero", "Open a Tellux file");
  Command3.Caption = session_.text("Ouvrir le dernier fichier", "Cargar el ultimo fichero",
                                   "Load last Tellux file");
  Command5.Caption =
      session_.text("Lire l'aide Tellux", "Leer la ajuda Tellux", "Read Tellux help");
  Command5.Enabled = static_cast<bool>(open_manual);
}

void StartWindow::Unload() {
  visible = false;
  if (on_unload) on_unload();
}

void StartWindow::Command2_Click() {
  Unload();
  SoundingState& s = session_.s;
  s.FileName = "";
  s.FieldTable.erase();
  s.LayerModel.erase();
  s.ModelComputed = 0;
  session_.forms.select_tab(1);
}

void StartWindow::Command4_Click() {
  if (Read_TX3(session_)) Unload();
}

void StartWindow::Command3_Click() {
  Unload();
  load_last_file(session_);
}

void StartWindow::Command5_Click() {
  Unload();
  if (open_manual) open_manual();
}

}  // namespace tellux
