#include "backends/desktop/qt/convert.h"

#include <QKeyEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "util/text.h"

namespace paperway::qt {
namespace {

constexpr double kReadableContrast = 4.5;

double luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other) {
  const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

QPalette::ColorRole roleOf(Color color) {
  switch (color) {
    case kWindowBackground:
      return QPalette::Base;
    case kWindowText:
      return QPalette::Text;
    case kButtonShadow:
      return QPalette::Mid;
    case kButtonHighlight:
      return QPalette::Light;
    case kButtonText:
      return QPalette::WindowText;
    default:
      return QPalette::Window;
  }
}

}  // namespace

QString text(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::string utf8(const QString& text) {
  const QByteArray bytes = text.toUtf8();
  return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

QString caption(std::string_view caption) {
  return text(trimBlanks(caption));
}

int pixels(int twips) {
  return static_cast<int>(std::lround(static_cast<double>(twips) / kTwipsPerPixel));
}

int twips(int pixels) {
  return pixels * kTwipsPerPixel;
}

QRect pixels(const Geometry& geometry) {
  const QPoint topLeft(pixels(geometry.Left), pixels(geometry.Top));
  const QPoint behind(pixels(geometry.right()), pixels(geometry.bottom()));
  return {topLeft,
          QSize(std::max(0, behind.x() - topLeft.x()), std::max(0, behind.y() - topLeft.y()))};
}

QColor color(Color color, const QPalette& palette) {
  if (isSystemColor(color)) return palette.color(roleOf(color));
  return {redOf(color), greenOf(color), blueOf(color)};
}

Color colorValue(const QColor& color) {
  return static_cast<Color>(color.blue() * 65536 + color.green() * 256 + color.red());
}

QColor readable(const QColor& text, const QColor& background) {
  const bool lighter = luminance(background) < 0.18;
  QColor color = text;
  for (int step = 0; step < 20 && contrast(color, background) < kReadableContrast; ++step) {
    const double lightness = color.lightnessF() + (lighter ? 0.05 : -0.05);
    color = QColor::fromHslF(std::max(0.F, color.hslHueF()), color.hslSaturationF(),
                             static_cast<float>(std::clamp(lightness, 0.0, 1.0)));
  }
  return color;
}

QColor blend(const QColor& one, const QColor& other, double part) {
  const auto mix = [part](int a, int b) { return static_cast<int>(a * part + b * (1 - part)); };
  return {mix(one.red(), other.red()), mix(one.green(), other.green()),
          mix(one.blue(), other.blue())};
}

QFont font(const FontSpec& wanted, const QFont& base) {
  QFont font = base;
  if (!wanted.Name.empty()) font.setFamily(text(wanted.Name));
  if (wanted.Size > 0) font.setPointSizeF(wanted.Size);
  if (wanted.Bold) font.setBold(true);
  if (wanted.Italic) font.setItalic(true);
  if (wanted.Underline) font.setUnderline(true);
  return font;
}

int keyCode(int qtKey, Qt::KeyboardModifiers modifiers) {
  static constexpr std::pair<int, int> kKeys[] = {
      {Qt::Key_Backspace, keyBack},  {Qt::Key_Tab, keyTab},       {Qt::Key_Backtab, keyTab},
      {Qt::Key_Return, keyReturn},   {Qt::Key_Enter, keyReturn},  {Qt::Key_Shift, keyShift},
      {Qt::Key_Control, keyControl}, {Qt::Key_Alt, keyMenu},      {Qt::Key_Escape, keyEscape},
      {Qt::Key_Space, keySpace},     {Qt::Key_PageUp, keyPageUp}, {Qt::Key_PageDown, keyPageDown},
      {Qt::Key_End, keyEnd},         {Qt::Key_Home, keyHome},     {Qt::Key_Left, keyLeft},
      {Qt::Key_Up, keyUp},           {Qt::Key_Right, keyRight},   {Qt::Key_Down, keyDown},
      {Qt::Key_Delete, keyDelete},   {Qt::Key_Plus, keyAdd},      {Qt::Key_Minus, keySubtract},
  };
  // On most keyboards the plus stands above the equals sign; with Ctrl nobody presses Shift for it.
  if (qtKey == Qt::Key_Equal && (modifiers & Qt::ControlModifier) != 0) return keyAdd;
  if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F12) return keyF1 + (qtKey - Qt::Key_F1);
  if ((qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) || (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9)) {
    return qtKey;
  }
  const auto* found = std::find_if(std::begin(kKeys), std::end(kKeys),
                                   [qtKey](const auto& pair) { return pair.first == qtKey; });
  return found == std::end(kKeys) ? keyOther : found->second;
}

bool isCommand(const QKeyEvent& event) {
  const bool ctrl = (event.modifiers() & Qt::ControlModifier) != 0;
  const bool alt = (event.modifiers() & Qt::AltModifier) != 0;
  const bool types = !event.text().isEmpty() && event.text()[0].isPrint();
  return ctrl != alt || (ctrl && !types);
}

bool isAltCharacter(const QKeyEvent& event) {
  const bool alt = (event.modifiers() & Qt::AltModifier) != 0;
  return alt && isCommand(event) && !event.text().isEmpty() && event.text()[0].isPrint();
}

bool isTextEndKey(const QKeyEvent& event) {
  const bool end = event.key() == Qt::Key_Home || event.key() == Qt::Key_End;
  return end && shiftMask(event.modifiers()) == smCtrl;
}

int shiftMask(Qt::KeyboardModifiers modifiers) {
  return ((modifiers & Qt::ShiftModifier) != 0 ? smShift : 0) |
         ((modifiers & Qt::ControlModifier) != 0 ? smCtrl : 0) |
         ((modifiers & Qt::AltModifier) != 0 ? smAlt : 0);
}

int mouseButton(Qt::MouseButton button) {
  if (button == Qt::LeftButton) return mbLeft;
  if (button == Qt::RightButton) return mbRight;
  return button == Qt::MiddleButton ? mbMiddle : 0;
}

}  // namespace paperway::qt
