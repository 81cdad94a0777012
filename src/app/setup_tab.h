#pragma once
// The tab "Bilog Setup": the ranges of the axes, the decimals of the model's thicknesses, the
// model steps and the error curve, the electrode array and the colours. The tab acts only when
// its redraw button `Command11` is pressed; colours are stored as soon as they are picked.
#include "core/session.h"
#include "platform/controls.h"
#include "platform/drawing_surface.h"
#include "platform/grid_model.h"

namespace tellux {

// The question "Do you want a color grid": Yes draws each kind of line in its own colour, No in
// the superposed colour.
void AskColourGrid(Session& session);

class SetupTab {
 public:
  // What the tab writes outside itself: the diagram `Bilog`, the main window's status line
  // `Text1` and array box `Text4`, and the field sheet `BuildGrid` (none while it is not built).
  SetupTab(Session& session, DrawingSurface& Bilog, TextBox& Text1, TextBox& Text4,
           GridModel* BuildGrid = nullptr);

  // Ranges: minimum and maximum of AB/2, of the resistivity; decimals of the thicknesses.
  ListModel Combo1, Combo2, Combo3, Combo4, Combo5;
  CheckBox RMSB;              // the error curve
  CheckBox represent_modele;  // the model steps (`représent_modèle`)
  CheckBox garder_config;     // keep the configuration when leaving
  CheckBox accurate_curves;   // "Accurate curves": the accurate forward calculation
  // Option1 "Schlumberger", Option2 "Dipole", Option3 "Wenner": indexes 0, 1, 2.
  OptionGroup Options;
  Button Command4, Command5, Command6, Command7, Command8, Command12;  // colour choices
  Button Command11;                                                    // redraw
  ColourSample Picture1, Picture2, Picture3, Picture4, Picture5;
  TextBox Text16;  // sample of the superposed colour
  Label Frame10, Frame7, Frame8, Label5;
  Label ArrayFrame;  // the frame around the array buttons

  // Fills the tab from the record at start-up.
  void Load_parameter();
  // The samples show the colours of the record (after the settings are loaded).
  void show_colours();
  // Reads the tab back, redraws the frame and replays the stored models and the current one.
  void Command11_Click();
  // A click on an array button: the record follows the buttons.
  void Option_Click(int index);

  void Command4_Click();   // points
  void Command5_Click();   // grid
  void Command6_Click();   // model
  void Command7_Click();   // error curve
  void Command8_Click();   // superposed curves
  void Command12_Click();  // curve

  // Hints in the status line when the mouse moves over a sample.
  void Picture4_MouseMove();
  void Picture5_MouseMove();

 private:
  void set_captions();
  void read_ranges();
  void replay_models();
  void pick_colour(const char* title, int32_t& colour, int32_t& sample);

  Session& session_;
  SoundingState& s_;
  DrawingSurface& Bilog_;
  TextBox& Text1_;
  TextBox& Text4_;
  GridModel* BuildGrid_;
};

}  // namespace tellux
