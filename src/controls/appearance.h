#pragma once

#include <cstdint>
#include <string>

namespace paperway {

/// Lengths on forms are twips, 1440 to the inch; 15 make one logical pixel.
inline constexpr int kTwipsPerPixel = 15;

struct Geometry {
  int Left = 0;
  int Top = 0;
  int Width = 0;
  int Height = 0;

  int right() const { return Left + Width; }
  int bottom() const { return Top + Height; }
};

inline void place(Geometry& control, int left, int top, int width, int height) {
  control.Left = left;
  control.Top = top;
  control.Width = width;
  control.Height = height;
}

/// blue × 65536 + green × 256 + red, or one of the system colours below, which the renderer takes
/// from the desktop's theme.
using Color = std::uint32_t;

inline constexpr Color kWindowBackground = 0x80000005;
inline constexpr Color kWindowText = 0x80000008;
inline constexpr Color kButtonFace = 0x8000000F;
inline constexpr Color kButtonShadow = 0x80000010;
inline constexpr Color kButtonText = 0x80000012;
inline constexpr Color kButtonHighlight = 0x80000014;
inline constexpr Color kWhite = 16777215;

constexpr bool isSystemColor(Color color) {
  return (color & 0x80000000) != 0;
}
constexpr int redOf(Color color) {
  return static_cast<int>(color & 0xFF);
}
constexpr int greenOf(Color color) {
  return static_cast<int>(color >> 8 & 0xFF);
}
constexpr int blueOf(Color color) {
  return static_cast<int>(color >> 16 & 0xFF);
}

/// An empty name or a size of 0 means the desktop's own font.
struct FontSpec {
  std::string Name;
  double Size = 0;  // points
  bool Bold = false;
  bool Italic = false;
  bool Underline = false;

  bool operator==(const FontSpec&) const = default;
};

/// Values of MousePointer.
enum MousePointer { mpDefault = 0, mpHourglass = 11, mpCustom = 99 };

enum class Alignment { left = 0, right = 1, center = 2 };

}  // namespace paperway
