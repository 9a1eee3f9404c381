#pragma once

#include <map>
#include <string>

#include "controls/boxes.h"
#include "controls/buttons.h"
#include "controls/containers.h"
#include "controls/form.h"
#include "controls/rich_text.h"
#include "controls/sp_lebal.h"

namespace paperway {

/// A form with controls of all kinds, whose log says which handlers ran: two boxes that clear one
/// another, options in and out of a frame, a box that takes digits and is not left at "0".
struct SampleForm : Form {
  SampleForm() : Form("SampleForm") {
    Width = 9000;
    Height = 9000;
    std::map<const Control*, int> rows;
    for (Control* control : controls()) {
      place(*control, 200, 300 + 450 * rows[control->container]++, 2400, 375);
      control->onClick = [this, control] { log += control->name + " "; };
    }
    place(Frame1, 3000, 0, 2800, 2900);
    place(Rt1, 6000, 0, 2900, 2900);
    place(Panel, 3000, 3000, 5000, 1500);
    Panel.Panel = true;
    Panel.Visible = false;
    CmdShut.Default = true;
    VScroll1.Max = 100;
    Label1.onClick = Rt1.onClick = nullptr;
    CmdMenu.onClick = [this] { PopupMenu(AQ, 10, 20); };
    CmdOpen.onClick = [this] { Panel.Visible = true; };
    CmdShut.onClick = [this] { Panel.Visible = false; };
    Ch10.onClick = [this] { ticked(Ch10, Ch12); };
    Ch12.onClick = [this] { ticked(Ch12, Ch10); };
    Text1.onChange = [this] { log += "change " + Text1.Text.get() + " "; };
    Text1.onLostFocus = [this] { log += "left "; };
    Text1.onValidate = [this](bool& cancel) { cancel = Text1.Text == "0"; };
    Text1.onKeyPress = [](int& key) { key = key >= ' ' && (key < '0' || key > '9') ? 1 : key; };
  }
  void Form_Load() override { log += "load "; }
  void Form_Activate() override { log += "front "; }
  void Form_Unload() override { log += "closed "; }
  std::string takeLog() { return std::exchange(log, ""); }

  std::string log;
  JeweledButton CmdOk{*this, "CmdOk", "&OK"};
  JeweledButton CmdMenu{*this, "CmdMenu", "&Menu"};
  JeweledButton CmdOpen{*this, "CmdOpen", "Open"};
  Label Link{*this, "Link", "Link"};
  SpLebal Sign{*this, "Sign"};
  Label Label1{*this, "Label1", "&Text :"};
  TextBox Text1{*this, "Text1"};
  ComboBox Combo1{*this, "Combo1", {"3", "4", "6"}};
  ScrollBar VScroll1{*this, "VScroll1"};
  OptionButton OptElse{*this, "OptElse", "Else"};
  Frame Frame1{*this, "Frame1"};
  CheckBox Ch10{*this, "Ch10", "10 Cpi", &Frame1};
  CheckBox Ch12{*this, "Ch12", "12 Cpi", &Frame1};
  ControlArray<OptionButton> Op{*this, "Op", {"All", "Current", "Range"}, &Frame1};
  RichTextBox Rt1{*this, "Rt1"};
  Frame Panel{*this, "Panel", "Panel"};
  TextBox InPanel{*this, "InPanel", "", &Panel};
  JeweledButton CmdShut{*this, "CmdShut", "Shut", &Panel};
  Menu AQ{*this, "AQ"};
  MenuItem pppp{AQ, "pppp", "Paste"};

 private:
  static void place(Geometry& place, int left, int top, int width, int height) {
    place = {left, top, width, height};
  }
  void ticked(CheckBox& box, CheckBox& other) {
    log += box.name + " ";
    other.Value = 0;
  }
};

}  // namespace paperway
