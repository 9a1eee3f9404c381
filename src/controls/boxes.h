#pragma once

#include <string>
#include <utility>
#include <vector>

#include "controls/control.h"
#include "controls/property.h"

namespace paperway {

/// One line of text. A change of Text, by whomever, runs onChange. A key press of 32 and above
/// types its character, 8 takes one away, every other does nothing.
class TextBox : public Control {
 public:
  TextBox(Form& owner, std::string itsName, std::string text = "", Control* itsContainer = nullptr);

  Property<std::string> Text;
  bool Locked = false;
  Alignment TextAlignment = Alignment::left;
  int MaxLength = 0;  // characters; 0: no limit

  /// Selects the text, so that typing takes its place.
  void selectAll() { selectAll_ = true; }
  /// For the renderer: whether that was asked for since the last call.
  bool takeSelectAll() { return std::exchange(selectAll_, false); }

 private:
  bool selectAll_ = false;
};

/// A list to choose from with a text that may also be typed. ListIndex is -1 while Text is no
/// entry. Choosing from the list runs onClick, a change of Text onChange.
class ComboBox : public Control {
 public:
  ComboBox(Form& owner, std::string itsName, std::vector<std::string> list = {},
           Control* itsContainer = nullptr);

  Property<std::string> Text;
  Property<int> ListIndex;

  const std::vector<std::string>& List() const { return list_; }
  int ListCount() const { return static_cast<int>(list_.size()); }
  /// The entry at the index; empty when there is none.
  std::string List(int index) const;
  void AddItem(std::string entry);
  void Clear();

 private:
  void textChanged();
  void indexChanged();
  int indexOf(const std::string& text) const;
  std::vector<std::string> list_;
};

/// A text beside other controls. With onClick it is a command that looks like a link.
class Label : public Control {
 public:
  Label(Form& owner, std::string itsName, std::string caption, Control* itsContainer = nullptr);

  Alignment TextAlignment = Alignment::left;
};

/// A change of Value, by whomever, runs onChange. Values outside Min to Max go to the nearer end.
class ScrollBar : public Control {
 public:
  ScrollBar(Form& owner, std::string itsName, Control* itsContainer = nullptr);

  bool Vertical = true;
  int Min = 0;
  int Max = 32767;
  int SmallChange = 1;
  int LargeChange = 1;
  Property<int> Value;

  /// Moves the bar within its ends, as the user would.
  bool scrollTo(int value);

 private:
  int last_ = 0;
};

}  // namespace paperway
