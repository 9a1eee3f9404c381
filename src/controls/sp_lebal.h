#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "controls/accessor.h"
#include "controls/control.h"

namespace paperway {

struct SpLebalPaint;

/// Measures a caption wrapped at a width, both in pixels.
class TextMeasure {
 public:
  virtual ~TextMeasure() = default;
  virtual int wrappedHeight(std::string_view text, const FontSpec& font, int width) const = 0;
};

/// A caption inside a frame of four thin lines that can look raised, sunken or flat, with a second
/// text at the right for a hot key. Clicked when any mouse button is released on it.
class SpLebal : public Control {
 public:
  SpLebal(Form& owner, std::string itsName, Control* itsContainer = nullptr);

  /// 0 left on one line, 1 centred on one line, 2 centred and wrapped; others paint no text.
  std::int32_t CaptionStyle = 1;
  std::string HotKeyCaption;
  bool Down3D = true;

  /// What the control keeps of itself: keys and values in their order.
  using Record = std::vector<std::pair<std::string, std::string>>;
  Record write() const;
  void read(const Record& record);

  /// What to paint on a surface of this inner size, in twips.
  SpLebalPaint paint(int width, int height, const TextMeasure& measure) const;

 private:
  const FontSpec& containerFont() const;
  std::int32_t view3d() const { return view3d_; }
  void setView3d(std::int32_t view);

 public:
  /// 1 raised, 0 sunken, 2 flat; others leave the lines as they are.
  Accessor<SpLebal, std::int32_t, &SpLebal::view3d, &SpLebal::setView3d> View3D{*this};

 private:
  std::int32_t view3d_ = 0;
  Color topLeft_ = kButtonShadow;
  Color bottomRight_ = kButtonHighlight;
};

struct SpLebalPaint {
  struct Line {
    int x1, y1, x2, y2;  // twips
    Color color;
  };
  struct Text {
    std::string text;
    int left, top, right, bottom;  // pixels
    enum class Horizontal { left, center, right } horizontal;
    enum class Vertical { top, center, bottom } vertical;
    bool wrapped;
  };

  Color background;
  Color textColor;
  std::vector<Line> lines;  // lineRight, lineLeft, lineBottom, lineTop
  std::vector<Text> texts;  // in the order of painting
};

}  // namespace paperway
