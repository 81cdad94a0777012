#pragma once
// The diagram `Bilog` on the screen: it shows the picture that the drawing surface keeps (what
// is drawn stays when the window is covered), takes the surface's pointer shapes, and reports
// the mouse in the diagram's logical coordinates.
#include <QWidget>
#include <functional>

#include "platform/qt/qt_drawing_surface.h"

namespace tellux {

class BilogWidget : public QWidget {
 public:
  BilogWidget(QtDrawingSurface& surface, QWidget* parent = nullptr);
  ~BilogWidget() override;

  // The mouse was pressed or moved at logical (x, y).
  std::function<void(float, float)> on_mouse;

  QtDrawingSurface& surface() { return surface_; }
  // Gives the surface the widget's size; true when it changed, and so was erased.
  bool fit_surface();
  // The pointer shape by the logic's numbers: 11 hourglass, 2 cross, else the arrow.
  void set_pointer(int shape);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  void report(QPointF pixel);

  QtDrawingSurface& surface_;
  bool busy_override_ = false;
};

}  // namespace tellux
