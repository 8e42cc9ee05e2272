#pragma once

#include <zowidgets/host/shell/FrameRate.h>
#include <zowidgets/host/widgets/popups/DropDownMenuButton.h>

// A titled menu of frame rates, each shown by its display string.
class ZO_API FrameRateButton : public TitleMenuButton {
public:
  struct InitArgs : GlobCreationInfo {
    InitArgs() = default;
    explicit InitArgs(std::vector<Zo::FrameRate> rates, XY<int> size = {})
        : GlobCreationInfo(size), rates(std::move(rates)) {}
    std::vector<Zo::FrameRate> rates;
  };

  // Every rate the host knows.
  FrameRateButton(unsigned short width, unsigned short height);
  explicit FrameRateButton(InitArgs const& args);
  char const* idstring() const override { return "FrameRateButton"; }

  void init(std::vector<Zo::FrameRate> const& rates);
  // An invalid rate when nothing is chosen.
  Zo::FrameRate getSelectedFrameRate() const;
  // A rate the menu does not offer leaves the choice as it is.
  void setFrameRate(Zo::FrameRate rate);

private:
  static TitleMenuButton::InitArgs titled(GlobCreationInfo const& info);
};
