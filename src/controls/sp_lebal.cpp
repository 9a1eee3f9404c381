#include "controls/sp_lebal.h"

#include <algorithm>

#include "controls/form.h"
#include "paperway/value.h"
#include "util/numbers.h"
#include "util/value_text.h"

namespace paperway {
namespace {

constexpr int kMargin = 8;                // pixels
constexpr int kBottomLineStart = 30;      // twips
constexpr std::int32_t kStoredStyle = 2;  // of a stored control without the key

std::string fontText(const FontSpec& font) {
  std::string text = font.Name + ";" + defaultText(font.Size);
  if (font.Bold) text += ";Bold";
  if (font.Italic) text += ";Italic";
  if (font.Underline) text += ";Underline";
  return text;
}

FontSpec fontOf(const std::string& text) {
  FontSpec font;
  const std::size_t name = std::min(text.find(';'), text.size());
  font.Name = text.substr(0, name);
  if (name < text.size()) font.Size = leadingNumber(std::string_view(text).substr(name + 1));
  font.Bold = text.find(";Bold", name) != std::string::npos;
  font.Italic = text.find(";Italic", name) != std::string::npos;
  font.Underline = text.find(";Underline", name) != std::string::npos;
  return font;
}

std::string number(std::int64_t value) {
  return std::to_string(value);
}

}  // namespace

SpLebal::SpLebal(Form& owner, std::string itsName, Control* itsContainer)
    : Control(owner, ControlKind::spLebal, std::move(itsName), itsContainer) {
  Caption = name;
  Font = containerFont();
}

const FontSpec& SpLebal::containerFont() const {
  return container != nullptr ? container->Font : form.Font;
}

SpLebal::Record SpLebal::write() const {
  Record record;
  const auto put = [&record](const char* key, const std::string& value, const std::string& usual) {
    if (value != usual) record.emplace_back(key, value);
  };
  put("Caption", Caption, name);
  put("HotKeyCaption", HotKeyCaption, "");
  put("CaptionStyle", number(CaptionStyle), number(kStoredStyle));
  put("Down3D", Down3D ? "-1" : "0", "-1");
  put("BackColor", number(BackColor), number(kButtonFace));
  put("Font", fontText(Font), fontText(containerFont()));
  put("ForeColor", number(ForeColor), number(kButtonText));
  put("View3D", number(View3D), "0");
  return record;
}

void SpLebal::read(const Record& record) {
  const auto take = [&record](const char* key, const std::string& usual) {
    const auto found = std::find_if(record.begin(), record.end(),
                                    [key](const auto& entry) { return entry.first == key; });
    return found == record.end() ? usual : found->second;
  };
  const auto whole = [](const std::string& text) {
    return static_cast<std::int64_t>(leadingNumber(text));
  };
  Caption = take("Caption", name);
  HotKeyCaption = take("HotKeyCaption", "");
  CaptionStyle = static_cast<std::int32_t>(whole(take("CaptionStyle", number(kStoredStyle))));
  Down3D = whole(take("Down3D", "-1")) != 0;
  BackColor = static_cast<Color>(whole(take("BackColor", number(kButtonFace))));
  Font = fontOf(take("Font", fontText(containerFont())));
  ForeColor = static_cast<Color>(whole(take("ForeColor", number(kButtonText))));
  View3D = static_cast<std::int32_t>(whole(take("View3D", "0")));
}

void SpLebal::setView3d(std::int32_t view) {
  view3d_ = view;
  if (view == 0 || view == 1) {
    topLeft_ = view == 1 ? kButtonHighlight : kButtonShadow;
    bottomRight_ = view == 1 ? kButtonShadow : kButtonHighlight;
  } else if (view == 2) {
    topLeft_ = bottomRight_ = kButtonFace;
  }
}

SpLebalPaint SpLebal::paint(int width, int height, const TextMeasure& measure) const {
  SpLebalPaint plan{BackColor, ForeColor, {}, {}};
  plan.lines = {{width - 1, 0, width - 1, height, bottomRight_},
                {0, 0, 0, height - 1, topLeft_},
                {kBottomLineStart, height - 1, width, height - 1, bottomRight_},
                {0, 0, width - 1, 0, topLeft_}};

  using Text = SpLebalPaint::Text;
  if (CaptionStyle < 0 || CaptionStyle > 2) return plan;
  const bool wrapped = CaptionStyle == 2;
  const int left = kMargin;
  const int right = width / kTwipsPerPixel - kMargin;
  int bottom = height / kTwipsPerPixel;
  int margin = kMargin;
  if (wrapped) margin = (bottom - measure.wrappedHeight(Caption, Font, right - left)) / 2;
  const int top = margin;
  bottom -= margin;
  const auto add = [&](const std::string& text, Text::Horizontal horizontal,
                       Text::Vertical vertical, bool wraps) {
    if (!text.empty()) {
      plan.texts.push_back({text, left, top, right, bottom, horizontal, vertical, wraps});
    }
  };
  add(Caption, CaptionStyle == 0 ? Text::Horizontal::left : Text::Horizontal::center,
      wrapped ? Text::Vertical::top : Text::Vertical::center, wrapped);
  add(HotKeyCaption, Text::Horizontal::right,
      wrapped ? Text::Vertical::bottom : Text::Vertical::center, false);
  return plan;
}

}  // namespace paperway
