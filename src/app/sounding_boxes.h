#pragma once
// The six text boxes of the main form that show the sounding's strings: the sheet and the model
// window both copy them to and from the record.
#include "core/sounding_state.h"
#include "platform/controls.h"

namespace tellux {

struct SoundingBoxes {
  TextBox& X;
  TextBox& Y;
  TextBox& Z;
  TextBox& Azimuth;
  TextBox& Comment;
  TextBox& Title;
};

inline void show_strings(const SoundingState& s, const SoundingBoxes& b) {
  b.X.Text = s.LocationX;
  b.Y.Text = s.LocationY;
  b.Z.Text = s.LocationZ;
  b.Azimuth.Text = s.LocationAzimuth;
  b.Comment.Text = s.CommentText;
  b.Title.Text = s.GraphTitle;
}

inline void take_strings(SoundingState& s, const SoundingBoxes& b) {
  s.LocationX = b.X.Text;
  s.LocationY = b.Y.Text;
  s.LocationZ = b.Z.Text;
  s.LocationAzimuth = b.Azimuth.Text;
  s.CommentText = b.Comment.Text;
  s.GraphTitle = b.Title.Text;
}

}  // namespace tellux
