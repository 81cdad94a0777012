#pragma once
// "Extraction for SURFER" (`HORSLICE`): a horizontal slice through the models of chosen TX3
// files, at an altitude or at a layer number, written as "X,Y,value" lines for a contouring
// program. The files are read straight into the record's model and location, one after the
// other, so the sounding in work is overwritten.
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/session.h"
#include "platform/controls.h"

namespace tellux {

// What can be extracted, by the number of the form's option.
enum class Slice {
  ResistivityAtAltitude = 1,
  ResistivityOfLayer = 2,
  ThicknessAtAltitude = 3,
  ThicknessOfLayer = 4,
  DepthOfLayer = 5
};

// The small form `Extraction`: five options, the altitude A (`Text1`) and the layer L (`Text2`).
struct ExtractionForm {
  Label Option1, Option2, Option3, Option4, Option5, Label6, Label7;
  int option = 0;     // 1..5 once `Command1` was pressed; 0 when the form was closed
  std::string Text1;  // A, as typed
  std::string Text2;  // L, as typed

  void set_captions(const Session& session);
};

// The slice the form asks for; "Extraction aborted" when no option was chosen or its altitude or
// layer is empty.
std::optional<Slice> slice_of(Session& session, const ExtractionForm& form);

// The file name proposed for a slice: "Res_by_alt_" + A + ".DAT" and so on.
std::string extraction_file_name(Slice slice, const std::string& A, const std::string& L);

// The name typed in the save dialog with its extension made ".DAT": cut after the first point,
// or ".DAT" added when there is none ("data.txt" gives "data.DAT").
std::string surfer_file_name(const std::string& typed);

// Writes the slice of `files` to `out`; returns the number of lines written. The record's
// `LayerModel`, `FieldCount` and location strings hold the last file read afterwards. Raises the
// file errors of the write.
int write_slice(SoundingState& s, const std::vector<std::string>& files, Slice slice,
                const std::string& A, const std::string& L, const std::string& out);

// The menu command: the file dialog, the form (shown by `show_form`, which fills it), the
// question with the default name, the save dialog on No, and the file. Returns the path written,
// or an empty string when the command stopped.
std::string HORSLICE(Session& session, const std::function<void(ExtractionForm&)>& show_form);

}  // namespace tellux
