#pragma once

#include <QFont>

#include "paperway/platform/sheet.h"

class QPainter;

namespace paperway::qt {

/// Draws sheets of continuous paper: strips with holes, perforations, what is printed, and marks of
/// what is cut and of where the job ends.
class SheetPainter {
 public:
  /// Dots to the inch of pictures in which nothing is rounded.
  static constexpr int kDotsPerInch = 7200;

  SheetPainter();

  /// From the painter's origin, with so many of its units to the inch.
  void paint(QPainter& painter, const Sheet& sheet, double unitsPerInch);

 private:
  static void paintPaper(QPainter& painter, const Sheet& sheet);
  void paintText(QPainter& painter, const SheetText& text);
  static void paintImage(QPainter& painter, const SheetImage& image);
  static void paintMarks(QPainter& painter, const Sheet& sheet);

  QFont font_;  // with ten characters to the inch
};

}  // namespace paperway::qt
