#pragma once

#include <zowidgets/containers/SpaceDivider.h>

// A demonstration for developers: a side-by-side divider whose right side is
// a stacked divider, each side a labelled pane. Opened by the command
// "Space Divider Test".
class ZO_API SpaceDividerTestPanel : public StandardPanel {
public:
  static constexpr char const* kCommand = "Space Divider Test";

  explicit SpaceDividerTestPanel(InitArgs const& args);
  char const* idstring() const override { return "SpaceDividerTestPanel"; }

  // Unset: where the toolkit puts new windows.
  static SpaceDividerTestPanel* open(XY<int> screenPosition = XY<int>::unset());

  SpaceDivider* getOuterDivider() const noexcept { return outer_; }
  SpaceDivider* getInnerDivider() const noexcept { return inner_; }

private:
  SpaceDivider* outer_ = nullptr;
  SpaceDivider* inner_ = nullptr;
};
