#include "gui/bilog_widget.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>

#include "platform/forms.h"

namespace tellux {

BilogWidget::BilogWidget(QtDrawingSurface& surface, QWidget* parent)
    : QWidget(parent), surface_(surface) {
  setObjectName(QStringLiteral("Bilog"));
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setCursor(Qt::CrossCursor);
  surface_.on_pointer = [this](int shape) { set_pointer(shape); };
}

BilogWidget::~BilogWidget() {
  surface_.on_pointer = nullptr;
  if (busy_override_) QGuiApplication::restoreOverrideCursor();
}

void BilogWidget::set_pointer(int shape) {
  if (shape == kPointerHourglass) {
    setCursor(Qt::WaitCursor);
    // The drawing runs without returning to the event loop: the hourglass is shown over the
    // whole program until it does.
    if (!busy_override_) {
      busy_override_ = true;
      QGuiApplication::setOverrideCursor(Qt::WaitCursor);
      QTimer::singleShot(0, this, [this] {
        if (busy_override_) QGuiApplication::restoreOverrideCursor();
        busy_override_ = false;
      });
    }
    return;
  }
  setCursor(shape == kPointerCross ? Qt::CrossCursor : Qt::ArrowCursor);
  update();
}

void BilogWidget::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.drawImage(QPoint(0, 0), surface_.image());
}

bool BilogWidget::fit_surface() {
  if (surface_.width() == width() && surface_.height() == height()) return false;
  surface_.resize(width(), height());
  return true;
}

// The main window gives the diagram its size and draws it again (its resize rules); the surface
// follows here only when the widget's size arrives late.
void BilogWidget::resizeEvent(QResizeEvent*) { update(); }

void BilogWidget::report(QPointF pixel) {
  if (!on_mouse) return;
  const QPointF logical = surface_.to_logical(pixel);
  on_mouse(static_cast<float>(logical.x()), static_cast<float>(logical.y()));
}

void BilogWidget::mouseMoveEvent(QMouseEvent* event) { report(event->position()); }

void BilogWidget::mousePressEvent(QMouseEvent* event) { report(event->position()); }

}  // namespace tellux
