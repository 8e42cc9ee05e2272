#pragma once

#include <zowidgets/host/widgets/popups/DropDownHostBase.h>

#include <string>

class colourEyeDropper;

// The colour tools that read the screen, for the end-to-end cases that pick
// a colour off the real desktop and magnify it: a panel holding an eye
// dropper, which remembers the colours picked with it, and the magnifiers
// the "Show Magnifier" command opens.
class ScreenToolsPanel {
public:
  using ToScreen = std::string (*)(Zo::Box<int> const&);

  // Opens the panel at a screen position (bottom-left corner, bottom-up).
  explicit ScreenToolsPanel(XY<int> screenPosition);
  ~ScreenToolsPanel();
  ScreenToolsPanel(ScreenToolsPanel const&) = delete;
  ScreenToolsPanel& operator=(ScreenToolsPanel const&) = delete;

  // The dropper's place, whether it captures, its lens, and the colours
  // picked so far, as one line of JSON.
  std::string dropperJson(ToScreen toScreen) const;
  // Sets the preferred level and runs "Show Magnifier"; answers as
  // magnifierJson.
  std::string showMagnifier(int level, ToScreen toScreen);
  // The last magnifier's view, level and ticks, and the colours of the
  // view's middle row and of the pixel under the pointer, as the screen
  // shows them.
  std::string magnifierJson(ToScreen toScreen) const;

private:
  class Panel;
  Panel* panel_ = nullptr;
  GlobHandle magnifier_;
};
