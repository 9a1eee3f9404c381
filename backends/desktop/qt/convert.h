#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QPoint>
#include <QRect>
#include <QString>
#include <string>
#include <string_view>

#include "controls/appearance.h"
#include "controls/input_events.h"

/// Values of the forms as Qt has them, and back.
class QKeyEvent;

namespace paperway::qt {

QString text(std::string_view utf8);
std::string utf8(const QString& text);

/// A caption as a widget shows it: without the blanks round it, "&" marks kept.
QString caption(std::string_view caption);

int pixels(int twips);
int twips(int pixels);
/// Edges are rounded, not sizes, so that controls that share an edge keep sharing it.
QRect pixels(const Geometry& geometry);

QColor color(Color color, const QPalette& palette);
Color colorValue(const QColor& color);
/// A text colour that can be read on the background: the same hue, lighter or darker.
QColor readable(const QColor& text, const QColor& background);

/// Between two colours, `part` of the way from the second to the first.
QColor blend(const QColor& one, const QColor& other, double part = 0.5);

/// What `wanted` leaves open comes from `base`.
QFont font(const FontSpec& wanted, const QFont& base);

/// The code of a key as forms know it, 0 when they know none, and the shift mask.
int keyCode(int qtKey, Qt::KeyboardModifiers modifiers);
/// A key pressed with Ctrl or Alt; both together type a character on some keyboards.
bool isCommand(const QKeyEvent& event);
/// Alt and a character, which a line of text would take as typed.
bool isAltCharacter(const QKeyEvent& event);
/// Ctrl with Home or End.
bool isTextEndKey(const QKeyEvent& event);
int shiftMask(Qt::KeyboardModifiers modifiers);
int mouseButton(Qt::MouseButton button);

}  // namespace paperway::qt
