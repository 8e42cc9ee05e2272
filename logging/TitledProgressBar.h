#pragma once

#include <zowidgets/host/widgets/panels/StandardPanel.h>

class Gauge;
class TextLabel;

// A label over a thin gauge, for a panel that shows one task among others.
class ZO_API TitledProgressBar : public StandardPanel {
public:
  struct InitArgs : StandardPanel::InitArgs {
    using StandardPanel::InitArgs::InitArgs;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info) : StandardPanel::InitArgs(info) {}
  };

  explicit TitledProgressBar(InitArgs const& args);
  char const* idstring() const override { return "TitledProgressBar"; }

  // The label's row, the gap and the gauge.
  static int calcHeight();

  void setString(UIString const& text);
  void setProgress(double fraction);
  void resize(double width, double height) override;

  TextLabel* label() const noexcept { return label_; }
  Gauge* gauge() const noexcept { return gauge_; }

private:
  TextLabel* label_ = nullptr;
  Gauge* gauge_ = nullptr;
};
