#pragma once

// The messages the drop-down buttons and their panels exchange, by name.
namespace DropDownMsg {
// To the button's parent: the drop-down is about to be shown.
inline constexpr char const* kButtonClick = "ddBtnClickMsg";
// To the button, from a dying panel: the panel has gone.
inline constexpr char const* kPanelGone = "menu_poot";
// To the button: the panel was torn off and is independent now.
inline constexpr char const* kDetach = "detach";
} // namespace DropDownMsg
