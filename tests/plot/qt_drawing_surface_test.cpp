#include "platform/qt/qt_drawing_surface.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QImage>
#include <cmath>
#include <cstdlib>

namespace tellux {
namespace {

// Fonts need the application object, made once and left to the end of the process; the tests
// run on the offscreen platform.
void application() {
  static int argc = 1;
  static char name[] = "tests";
  static char* argv[] = {name, nullptr};
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  static QGuiApplication* app = new QGuiApplication(argc, argv);
  (void)app;
}

QColor pixel(const QImage& image, QPointF p) {
  return image.pixelColor(static_cast<int>(p.x()), static_cast<int>(p.y()));
}

TEST(QtDrawingSurfaceTest, LogicalCoordinatesMapOntoTheImage) {
  application();
  QtDrawingSurface surface(200, 100);
  surface.Scale(0, 10, 20, 0);  // ordinate upward
  EXPECT_EQ(surface.to_pixel(0, 10), QPointF(0, 0));
  EXPECT_EQ(surface.to_pixel(10, 5), QPointF(100, 50));
  EXPECT_EQ(surface.to_logical(QPointF(100, 50)), QPointF(10, 5));
  surface.Line(2, 8, 18, 2, 0xFFFFFF, LineForm::FilledBox);
  surface.Line(0, 5, 20, 5, 255);  // red across the middle
  const QImage& image = surface.image();
  EXPECT_EQ(pixel(image, QPointF(5, 5)), to_qcolor(QtDrawingSurface::kBackColour));
  EXPECT_EQ(pixel(image, QPointF(150, 30)), QColor(Qt::white));
  EXPECT_EQ(pixel(image, QPointF(150, 50)), QColor(255, 0, 0));
  EXPECT_EQ(surface.CurrentX(), 20.0f);
  surface.Scale(1, 1, 1, 1);  // degenerate: draws nothing and does not fail
  surface.Line(0, 0, 2, 2);
  surface.PSet(std::nanf(""), 0);
  surface.Print("x");
  EXPECT_FALSE(surface.image().isNull());
}

}  // namespace
}  // namespace tellux
