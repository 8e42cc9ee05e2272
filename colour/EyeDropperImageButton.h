#pragma once

#include <zowidgets/host/widgets/buttons/Button.h>

#include <string>

// A button whose face is a picture: a PNG file, or a picture made in code.
class ZO_API ImageButton : public Button {
public:
  struct InitArgs : Button::InitArgs {
    InitArgs() = default;
    InitArgs(UIString label, XY<int> size) : Button::InitArgs(std::move(label), size) {}
    // A PNG to show; when empty or unreadable, `icon` is shown as given.
    std::string imageFile;
  };

  explicit ImageButton(InitArgs const& args);
  char const* idstring() const override { return "ImageButton"; }
};
