#include <zowidgets/host/events/Event.h>
#include <zowidgets/host/events/KeyName.h>

#include <cctype>

namespace {

std::string bareKeyName(int bare) {
  switch (bare) {
  case 0:
    return {};
  case kKeyBackspace:
    return "Backspace";
  case kKeyTab:
    return "Tab";
  case kKeyReturn:
    return "Return";
  case kKeyEscape:
    return "Escape";
  case ' ':
    return "Space";
  case kKeyHome:
    return "Home";
  case kKeyEnd:
    return "End";
  case kKeyUp:
    return "Up";
  case kKeyDown:
    return "Down";
  case kKeyLeft:
    return "Left";
  case kKeyRight:
    return "Right";
  case kKeyPageUp:
    return "Page Up";
  case kKeyPageDown:
    return "Page Down";
  case kKeyInsert:
    return "Insert";
  case kKeyDelete:
    return "Delete";
  default:
    break;
  }
  constexpr int kFunctionKeys = 10;
  if (bare >= kKeyF1 && bare < kKeyF1 + kFunctionKeys)
    return std::string("F").append(std::to_string(bare - kKeyF1 + 1));
  if (bare > ' ' && bare < 0x7f)
    return std::string(1, static_cast<char>(std::toupper(bare)));
  // A key this toolkit has no name for still says which it is.
  return std::string("Key ").append(std::to_string(bare));
}

} // namespace

std::string keyName(int key) {
  std::string const bare = bareKeyName(key & ~kKeyModifierMask);
  if (bare.empty())
    return {};
  std::string name;
  if (key & kKeyCtrl)
    name += "Ctrl+";
  if (key & kKeyAlt)
    name += "Alt+";
  if (key & kKeyShift)
    name += "Shift+";
  if (key & kKeyCmd)
    name += "Cmd+";
  return name + bare;
}
