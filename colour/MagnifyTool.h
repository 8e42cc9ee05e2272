#pragma once

#include <zowidgets/host/drawing/ImageSurface.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>

class Slider;
struct SliderEvent;

// A small window showing an enlarged copy of the screen around the mouse
// pointer, refreshed on every timer tick while it is visible. It is a
// free-standing tool with a level slider, or the lens that follows the eye
// dropper.
//
// The view shows each screen pixel of a source box centred on the pointer as
// `level` by `level` pixels; the pixel under the pointer is ringed in the
// centre, and a screen box may be outlined as well (the eye dropper's sample
// area).
class ZO_API MagnifyTool : public StandardPanel {
public:
  enum eStyle : int {
    kFreeStanding = 0, // title, close box, level slider
    kLens = 1,         // a bare, rounded view
    kPlain = 2,        // a panel with a level slider
  };
  static constexpr int kMinLevel = 1;
  static constexpr int kMaxLevel = 16;
  static constexpr char const* kLevelPreference = "Magnifier level";
  static constexpr char const* kWidthPreference = "Magnifier width";
  static constexpr char const* kHeightPreference = "Magnifier height";
  static constexpr char const* kShowCommand = "Show Magnifier";

  struct InitArgs : StandardPanel::InitArgs {
    using StandardPanel::InitArgs::InitArgs;
    InitArgs() = default;
    InitArgs(GlobCreationInfo const& info, int style, int level)
        : StandardPanel::InitArgs(info), style(style), level(level) {}
    int style = kFreeStanding;
    int level = 0; // 0: the user's preferred level
  };

  explicit MagnifyTool(InitArgs const& args);
  explicit MagnifyTool(GlobCreationInfo const& info);
  char const* idstring() const override { return "MagnifyTool"; }
  // The lens follows the pointer; the free-standing tool is a panel.
  eWindowKind windowKind() const override { return style_ == kLens ? eWindowKind::kTip : eWindowKind::kPanel; }

  // The factory GlobManager::createGlob uses for the class name.
  static Glob* create(GlobCreationInfo* info);
  // Opens a free-standing magnifier with its bottom-left corner at the
  // mouse, as the "Show Magnifier" command does.
  static MagnifyTool* showMagnifier();

  // The preferences, with their defaults (level 2, a window of 200 by 220).
  static int getDefaultMagLevel();
  static int getDefaultMagWidth();
  static int getDefaultMagHeight();
  // The size of a new free-standing magnifier's window.
  static XY<int> calcSize();
  // The screen pixels a view of `view` pixels shows at `level`: each axis
  // view / level, one more on both when the width does not divide, then
  // made odd so that the pointer's pixel has a centre.
  static XY<int> calcSourceSize(XY<int> view, int level);
  // The part of a screen box that lies on the screen.
  static Zo::Box<int> getScreenRect(Zo::Box<int> const& box);

  UIString buildTitleStr() const;
  int getLevel() const noexcept { return level_; }
  // Clamped to the slider's range; the title and slider follow.
  void setLevel(int level);
  int getStyle() const noexcept { return style_; }
  Slider* getSlider() const noexcept { return slider_; }
  // The magnified view, in this widget's coordinates.
  Zo::Box<int> getViewBox() const;
  // The screen box the view shows with the pointer at `mouse`.
  Zo::Box<int> sourceBoxAt(XY<int> mouse) const;
  // The pixel of the view showing the pointer's pixel (its bottom-left
  // corner, in this widget's coordinates).
  XY<int> getMarkerPosition() const;
  // A screen box outlined over the view; an empty box outlines nothing.
  void setHighlight(Zo::Box<double> const& screenBox);
  Zo::Box<double> const& getHighlight() const noexcept { return highlight_; }
  // How many grabs of the screen the view has drawn.
  int grabCount() const noexcept { return grabs_; }

  void setVisible(bool visible) override;
  void resize(double width, double height) override;
  void handleTimerEvent() override;

protected:
  void drawBackground(CanvasRenderer& renderer) override;

private:
  void init();
  void makeViewPicture();
  // How many enlarged pixels are cut off the left and the top of the view.
  XY<int> calcCrop() const;
  std::uint32_t outsidePixel() const;
  int handleSliderEvent(SliderEvent const& event);
  void drawMagnified(CanvasRenderer& renderer);
  // Puts the view's picture on the canvas under the renderer's clip.
  void showView(CanvasRenderer& renderer) const;
  void drawHighlight(CanvasRenderer& renderer, XY<int> mouse) const;

  XY<int> view_;
  Slider* slider_ = nullptr;
  int level_;
  // The enlarged view, kept between ticks: a tick that reads nothing shows
  // it again.
  Zo::Image::Surface viewPicture_;
  int style_;
  Zo::Box<double> highlight_;
  int grabs_ = 0;
};
