#pragma once

namespace paperway {

/// Mouse buttons and the shift mask of key and mouse events.
enum MouseButton { mbLeft = 1, mbRight = 2, mbMiddle = 4 };
enum ShiftMask { smShift = 1, smCtrl = 2, smAlt = 4 };

struct MouseEvent {
  int button = 0;
  int shift = 0;
  int x = 0;  // twips from the control's (or the form's) top left corner
  int y = 0;
};

/// Key codes of key-down and key-up events: those of the automation platform. Letters and digits
/// have the code of their upper-case ASCII character.
enum KeyCode {
  keyBack = 8,
  keyTab = 9,
  keyReturn = 13,
  keyShift = 16,
  keyControl = 17,
  keyMenu = 18,
  keyEscape = 27,
  keySpace = 32,
  keyPageUp = 33,
  keyPageDown = 34,
  keyEnd = 35,
  keyHome = 36,
  keyLeft = 37,
  keyUp = 38,
  keyRight = 39,
  keyDown = 40,
  keyDelete = 46,
  keyF1 = 112,  // keyF1 + 11 is F12
  keyAdd = 107,
  keySubtract = 109,
  keyOther = 255,  // any key without a code of its own
};

}  // namespace paperway
