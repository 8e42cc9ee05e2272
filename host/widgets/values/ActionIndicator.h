#pragma once

#include <zowidgets/host/drawing/Colour.h>
#include <zowidgets/host/toolkit/Glob.h>

// A sign that something is busy while it is running; nothing while it is
// stopped. Made with an icon name ("action-indicator.png"), it turns that
// icon (IconCache, in the palette's text colour) a step clockwise at each
// phase; without a name, or when the theme has no artwork for it, it draws
// its own mark: a ring of dots round which a bright dot runs, with a fading
// tail. The host's timer ticks drive it, and the phase follows the clock, so
// a late tick skips ahead rather than slowing the spin.
class ZO_API ActionIndicator : public Glob {
public:
  static constexpr int kDots = 12;
  // How long the bright dot stays on one place.
  static constexpr double kStepMs = 80.0;

  // How an indicator looks: sizes from its own size, the colour of its dots
  // from the palette.
  struct Look {
    double ringRadius; // through the dots' centres
    double dotRadius;
    Colour dot;
    double dimmestAlpha; // the dots the tail has left
    static Look make(Palette const& palette, XY<int> size);
  };

  struct InitArgs : GlobCreationInfo {
    using GlobCreationInfo::GlobCreationInfo;
    InitArgs() : GlobCreationInfo(calcSize()) {}
    InitArgs(GlobCreationInfo const& info) : GlobCreationInfo(info) {}
    explicit InitArgs(LightweightString<char> const& icon) : GlobCreationInfo(calcSize()), iconName(icon) {}
    LightweightString<char> iconName;
    bool running = true;
  };

  explicit ActionIndicator(InitArgs const& args);
  char const* idstring() const override { return "ActionIndicator"; }

  // A square a row high.
  static XY<int> calcSize();
  LightweightString<char> const& getIconName() const noexcept { return iconName_; }

  void start();
  void stop();
  bool isRunning() const noexcept { return running_; }
  // The dot that is brightest now, 0 .. kDots - 1, counted clockwise from
  // the top.
  int phase() const noexcept { return phase_; }

  int react(Event const& event) override;

  // The side of the icon's square in an indicator of `size`.
  static int iconSide(XY<int> size);

protected:
  void draw(CanvasRenderer& renderer) override;

private:
  int phaseAt(double nowMs) const;
  // Draws the named icon at the current phase; false when there is no
  // artwork to draw.
  bool drawIcon(CanvasRenderer& renderer, Colour const& colour);

  LightweightString<char> iconName_;
  bool running_ = false;
  double startMs_ = 0.0;
  int phase_ = 0;
};
