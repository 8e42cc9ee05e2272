#include <zowidgets/colour/MagnifyEnlarge.h>
#include <zowidgets/colour/MagnifyTool.h>
#include <zowidgets/host/drawing/CanvasRenderer.h>
#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/shell/MediaServices.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/shell/Preferences.h>
#include <zowidgets/host/shell/ScreenBackend.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/InputRouter.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/values/Slider.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace {

constexpr ResId kCommandShortLabel = 11233;
constexpr ResId kCommandLabel = 13638;
constexpr ResId kCommandDescription = 13639;
constexpr ResId kTitleWord = 11235;
constexpr int kShowMagnifierKey = kKeyCtrl | 'M';

// The preferred sizes are for scale 1, like every other size.
constexpr int kDefaultLevel = 2;
constexpr int kDefaultWidth = 200;
constexpr int kDefaultHeight = 220;
constexpr int kLargestPreferredSide = 4096;

int minimumSide() { return UifStd::getRowHeight() * 13 / 2; }

int scaled(int size) { return static_cast<int>(std::lround(size * UifStd::getScale())); }

MagnifyTool::InitArgs withStyleBorder(MagnifyTool::InitArgs args) {
  if (args.style == MagnifyTool::kLens)
    args.setBorder(Border(UifStd::getWidgetGap()));
  return args;
}

// The lens is a rounded shape: its frame's corners and its window's.
int lensCornerRadius() { return UifStd::getWidgetGap() * 2; }

// A thin frame at least one pixel wide that grows with the scale.
int frameWidth() { return std::max(1, UifStd::getIndentWidth() / 2); }

Zo::Box<double> outlineBox(Zo::Box<int> const& box, int grow) {
  return Glib::toDoubleBox(Zo::Box<int>(box.x0 - grow, box.y0 - grow, box.x1 + grow, box.y1 + grow));
}

CommandRegistrar const showMagnifierCommand(
    MagnifyTool::kShowCommand, [](Cmd::Context const&) { MagnifyTool::showMagnifier(); }, UIString(kCommandLabel),
    UIString(kCommandDescription), kCmdScopeApplication, MapItem{kShowMagnifierKey}, UIString(kCommandShortLabel));

bool const registeredType = [] {
  GlobManager::registerGlobType("MagnifyTool", [](GlobCreationInfo const& info) {
    GlobCreationInfo copy(info);
    return MagnifyTool::create(&copy);
  });
  return true;
}();

} // namespace

MagnifyTool::MagnifyTool(InitArgs const& args)
    : StandardPanel(withStyleBorder(args)),
      level_(args.level == 0 ? getDefaultMagLevel() : std::clamp(args.level, kMinLevel, kMaxLevel)),
      style_(std::clamp(args.style, int(kFreeStanding), int(kPlain))) {
  init();
}

MagnifyTool::MagnifyTool(GlobCreationInfo const& info) : MagnifyTool(InitArgs(info, kFreeStanding, 0)) {}

Glob* MagnifyTool::create(GlobCreationInfo* info) { return info ? new MagnifyTool(*info) : nullptr; }

MagnifyTool* MagnifyTool::showMagnifier() {
  Drawable::Suspender holdRedraws;
  XY<int> const size = calcSize();
  Glob::setupRootPos(nullptr, GlobManager::getSafePosForGlob(nullptr, size, glib_getMousePos()));
  auto* tool = new MagnifyTool(InitArgs(GlobCreationInfo(size), kFreeStanding, 0));
  GlobManager::realize(tool);
  return tool;
}

int MagnifyTool::getDefaultMagLevel() { return config_int(kLevelPreference, kDefaultLevel, kMinLevel, kMaxLevel); }

int MagnifyTool::getDefaultMagWidth() { return config_int(kWidthPreference, kDefaultWidth, 1, kLargestPreferredSide); }

int MagnifyTool::getDefaultMagHeight() {
  return config_int(kHeightPreference, kDefaultHeight, 1, kLargestPreferredSide);
}

XY<int> MagnifyTool::calcSize() {
  int const least = minimumSide();
  return XY<int>(std::max(least, scaled(getDefaultMagWidth())), std::max(least, scaled(getDefaultMagHeight())));
}

XY<int> MagnifyTool::calcSourceSize(XY<int> view, int level) {
  level = std::max(level, 1);
  XY<int> source(view.x / level, view.y / level);
  if (view.x % level != 0) {
    ++source.x;
    ++source.y;
  }
  if (source.x % 2 == 0)
    ++source.x;
  if (source.y % 2 == 0)
    ++source.y;
  return source;
}

Zo::Box<int> MagnifyTool::getScreenRect(Zo::Box<int> const& box) {
  XY<int> const screen = screenBackend().screenSize();
  return box.intersect(Zo::Box<int>(0, 0, screen.x, screen.y));
}

UIString MagnifyTool::buildTitleStr() const {
  LightweightString<wchar_t> title = resourceStrW(kTitleWord);
  title += L" (";
  title += std::to_wstring(level_).c_str();
  title += L":1)";
  return UIString(title);
}

void MagnifyTool::init() {
  Palette const& palette = getPalette();
  if (style_ == kFreeStanding) {
    addStandardWidgets(kPoot);
    setTitle(buildTitleStr(), UifStd::getTitleFont(), kNoRedraw);
    setMinSize(XY<int>(minimumSide(), minimumSide()));
  }
  // What lies outside the lens's rounded frame is the screen behind it.
  if (style_ == kLens)
    setWindowCornerRadius(lensCornerRadius());
  if (style_ != kLens) {
    Slider::InitArgs args(GlobCreationInfo(XY<int>(getUserArea().width(), UifStd::getRowHeight())));
    args.minValue = kMinLevel;
    args.maxValue = kMaxLevel;
    args.increment = 1.0;
    args.initialValue = level_;
    args.thumbColour = palette.subheadingText();
    slider_ = createWidget<Slider>(args, UserBottomLeft(0, 0));
    slider_->addListener(Broadcaster<SliderEvent>::makeCallback(this, &MagnifyTool::handleSliderEvent));
  }
  resize(width(), height());
  setInterest(kTimerInterest);
}

void MagnifyTool::makeViewPicture() {
  viewPicture_ = Zo::Image::Surface(view_.x, view_.y);
  viewPicture_.fill(getPalette().childWindow(-2));
}

// What the view shows where the screen could not be read.
std::uint32_t MagnifyTool::outsidePixel() const { return getPalette().childWindow(-2).get_vlib_colour(); }

void MagnifyTool::resize(double width, double height) {
  StandardPanel::resize(width, height);
  Zo::Box<int> const user = getUserArea();
  view_ = XY<int>(std::max(user.width(), 0), std::max(user.height(), 0));
  if (slider_) {
    slider_->resize(view_.x, slider_->height());
    view_.y = std::max(view_.y - slider_->height() - UifStd::getWidgetGap(), 0);
  }
  makeViewPicture();
}

void MagnifyTool::setLevel(int level) {
  level = std::clamp(level, kMinLevel, kMaxLevel);
  if (level == level_)
    return;
  level_ = level;
  if (slider_ && slider_->getPosition() != level_)
    slider_->setPosition(level_);
  if (getStandardWidgets() & kTitle)
    setTitle(buildTitleStr(), UifStd::getTitleFont(), kRedrawNow);
  invalidate(getViewBox());
}

int MagnifyTool::handleSliderEvent(SliderEvent const& event) {
  if (event.kind != SliderEvent::kValueRequested)
    return 0;
  setLevel(static_cast<int>(event.value + 0.5));
  // The level a user picks is the one the next magnifier opens with.
  if (style_ == kFreeStanding)
    prefs().setPreference(kLevelPreference, level_);
  return 0;
}

Zo::Box<int> MagnifyTool::getViewBox() const {
  Zo::Box<int> const user = getUserArea();
  return Zo::Box<int>(user.x0, user.y1 - view_.y, user.x0 + view_.x, user.y1);
}

Zo::Box<int> MagnifyTool::sourceBoxAt(XY<int> mouse) const {
  XY<int> const source = calcSourceSize(view_, level_);
  XY<int> const corner(mouse.x - source.x / 2, mouse.y - source.y / 2);
  return Zo::Box<int>(corner, corner + source);
}

XY<int> MagnifyTool::calcCrop() const {
  // The enlarged source is a little larger than the view: cropped evenly.
  XY<int> const source = calcSourceSize(view_, level_);
  return XY<int>((source.x * level_ - view_.x) / 2, (source.y * level_ - view_.y) / 2);
}

XY<int> MagnifyTool::getMarkerPosition() const {
  // The pointer's pixel is the middle one of the source box; the enlarged
  // box is cropped evenly and its rows run down from the view's top.
  XY<int> const source = calcSourceSize(view_, level_);
  XY<int> const crop = calcCrop();
  Zo::Box<int> const view = getViewBox();
  return XY<int>(view.x0 + source.x / 2 * level_ - crop.x, view.y1 - (source.y / 2 * level_ - crop.y) - level_);
}

void MagnifyTool::setHighlight(Zo::Box<double> const& screenBox) {
  if (screenBox == highlight_)
    return;
  highlight_ = screenBox;
  invalidate(getViewBox());
}

void MagnifyTool::setVisible(bool visible) {
  StandardPanel::setVisible(visible);
  if (visible)
    setInterest(kTimerInterest);
  else
    clearInterest(kTimerInterest);
}

void MagnifyTool::handleTimerEvent() { invalidate(getViewBox()); }

void MagnifyTool::drawBackground(CanvasRenderer& renderer) {
  Zo::Box<int> const view = getViewBox();
  Zo::Box<int> const clip = renderer.clipBox();
  // A tick repaints the view alone, and the view covers all of it.
  if (view.translated(renderer.origin()).intersect(clip) != clip) {
    StandardPanel::drawBackground(renderer);
    Palette const& palette = getPalette();
    if (style_ == kLens) {
      Colour const edge = Colour::mix(palette.window(), Colour(0.0, 0.0, 0.0), 0.2);
      Glib::drawRoundedRectOutline(renderer, Glib::toDoubleBox(Zo::Box<int>(0, 0, width(), height())), edge,
                                   lensCornerRadius(), UifStd::getIndentWidth());
    } else {
      Glib::RectDescription frame(outlineBox(view, frameWidth()), Colour::invalid());
      frame.outline = palette.window(-3);
      frame.outlineWidth = frameWidth();
      renderer.renderPrimitive(frame);
    }
  }
  drawMagnified(renderer);
}

void MagnifyTool::drawMagnified(CanvasRenderer& renderer) {
  if (view_.x <= 0 || view_.y <= 0)
    return;
  XY<int> const mouse = glib_getMousePos();
  Zo::Box<int> const source = sourceBoxAt(mouse);
  Zo::Box<int> const onScreen = getScreenRect(source);
  Zo::Ptr<iHostImage> const image = onScreen.empty() ? Zo::Ptr<iHostImage>() : OS().media().getHostImage(onScreen);
  if (image && !image->pixels().empty()) {
    ++grabs_;
    // The part read goes where it lies in the source box, so the pointer's
    // pixel stays in the centre at the screen's edges too.
    magnifyInto(viewPicture_, image->pixels(), XY<int>(onScreen.x0 - source.x0, source.y1 - onScreen.y1), level_,
                calcCrop(), outsidePixel());
  }
  showView(renderer);

  // The pointer's pixel: a dark ring round a light one, seen on any colour.
  Zo::Box<int> const marker(getMarkerPosition(), getMarkerPosition() + XY<int>(level_, level_));
  int const ring = frameWidth();
  Glib::RectDescription light(outlineBox(marker, ring), Colour::invalid());
  light.outline = Colour(0.95, 0.95, 0.95);
  light.outlineWidth = ring;
  Glib::RectDescription dark(outlineBox(marker, ring * 2), Colour::invalid());
  dark.outline = Colour(0.05, 0.05, 0.05);
  dark.outlineWidth = ring;
  renderer.renderPrimitive(light);
  renderer.renderPrimitive(dark);
  drawHighlight(renderer, mouse);
}

// The view is opaque and nothing is drawn under it, so its pixels are copied
// onto the canvas as they are: far cheaper than compositing them.
void MagnifyTool::showView(CanvasRenderer& renderer) const {
  Zo::Box<int> const view = getViewBox().translated(renderer.origin());
  Zo::Box<int> const area = view.intersect(renderer.clipBox());
  if (!renderer.isAcceptingDrawing() || area.empty())
    return;
  renderer.flush();
  Zo::Image::Surface target = renderer.surface();
  copyPixels(target, XY<int>(area.x0, target.height() - area.y1), viewPicture_,
             XY<int>(area.x0 - view.x0, view.y1 - area.y1), area.getDimensions());
}

void MagnifyTool::drawHighlight(CanvasRenderer& renderer, XY<int> mouse) const {
  if (highlight_.empty())
    return;
  XY<int> const marker = getMarkerPosition();
  auto toView = [&](double screen, int pointer, int markerAt) {
    return std::trunc((screen - pointer) * level_ + markerAt);
  };
  Zo::Box<double> const box(toView(highlight_.x0, mouse.x, marker.x), toView(highlight_.y0, mouse.y, marker.y),
                            toView(highlight_.x1, mouse.x, marker.x), toView(highlight_.y1, mouse.y, marker.y));
  Zo::Box<int> const clip = renderer.clipBox();
  renderer.setClipBox(clip.intersect(getViewBox().translated(canvasPosition())));
  Glib::drawRoundedRectOutline(renderer, box, Colour(0.9, 0.0, 0.0), UifStd::getIndentWidth(),
                               UifStd::getIndentWidth());
  renderer.setClipBox(clip);
}
