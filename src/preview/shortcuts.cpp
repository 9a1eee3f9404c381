// Keys that do what people expect of them beside the buttons.

#include "preview/frm_report.h"

namespace paperway {
namespace {

/// What stood there before gives way to what is typed.
bool typeInto(TextBox& box) {
  if (!box.SetFocus()) return false;
  box.selectAll();
  return true;
}

}  // namespace

/// Esc closes the panel in front, or leaves a box for the page. It goes on to the box, whose search
/// it stops.
void FrmReport::escape() {
  if (Frame1.Visible) {
    if (CmdCancel.onClick) CmdCancel.click();
  } else if (Frame6.Visible && Label4.Visible) {
    Command3.click();
  } else if (activeControl() != &Rt1) {
    Rt1.SetFocus();
  }
}

void FrmReport::turnPage(bool forward) {
  if (showsWholeReport_) return;
  if (forward && CurrentPage < PageCount() - 1) {
    CmdNxt_Click();
  } else if (!forward && CurrentPage > 0) {
    CmdBck_Click();
    Rt1.moveCaret(Rt1.buffer().size());
  }
}

void FrmReport::zoom(bool in) {
  if (in != ZoomOn) Command2_Click();
}

/// True when the key is used up.
bool FrmReport::shortcut(int keyCode, int shift) {
  if (keyCode == keyEscape && shift == 0) escape();
  if (keyCode == keyAdd && shift == (smCtrl | smShift)) shift = smCtrl;  // where it needs both
  if (shift != smCtrl) return false;
  switch (keyCode) {
    case 'F':
      return typeInto(Text4);
    case 'G':
      return typeInto(Text2);
    case 'P':
      return CmdPrint.Visible && CmdPrint.onClick && CmdPrint.click();
    case keyAdd:
    case keySubtract:
      zoom(keyCode == keyAdd);
      return true;
    case keyPageDown:
    case keyPageUp:
      turnPage(keyCode == keyPageDown);
      return true;
    default:
      return false;
  }
}

void FrmReport::Form_KeyDown(int& keyCode, int shift) {
  if (shortcut(keyCode, shift)) keyCode = 0;
}

/// For a reader the ends of the text are those of the report.
bool FrmReport::goesToReportEnd(int keyCode, int shift) {
  if (!Rt1.Locked || showsWholeReport_ || shift != smCtrl) return false;
  if (keyCode == keyHome) {
    CmdFst_Click();
    Rt1.moveCaret(0);
  } else if (keyCode == keyEnd) {
    CmdLast_Click();
    Rt1.moveCaret(Rt1.buffer().size());
  } else {
    return false;
  }
  return true;
}

}  // namespace paperway
