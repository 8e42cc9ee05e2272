#include "ScreenToolsPanel.h"

#include <zowidgets/colour/EyeDropper.h>
#include <zowidgets/colour/MagnifyTool.h>
#include <zowidgets/host/drawing/ColourData.h>
#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/shell/MediaServices.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/shell/Preferences.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/InputRouter.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <sstream>
#include <vector>

namespace {

std::string hexColour(int r, int g, int b) {
  char text[8];
  std::snprintf(text, sizeof text, "#%02x%02x%02x", r, g, b);
  return text;
}

std::string hexOf(std::uint32_t argb) { return hexColour((argb >> 16) & 0xff, (argb >> 8) & 0xff, argb & 0xff); }

Zo::Box<int> screenBoxOf(Glob const& widget) {
  return Zo::Box<int>(0, 0, widget.width(), widget.height()).translated(widget.screenPosition());
}

} // namespace

// Turns each colour the dropper sends into its hex text, as a colour
// picker would: the value comes divided by 255.
class ScreenToolsPanel::Panel : public StandardPanel {
public:
  explicit Panel(InitArgs const& args) : StandardPanel(args) {
    int const row = UifStd::getRowHeight();
    dropper = createWidget<colourEyeDropper>(colourEyeDropper::InitArgs(row, row), UserTopLeft(0, 0));
  }
  int handleMessageEvent(LightweightString<char> const& message, Glob*) override {
    double h = 0.0, s = 0.0, v = 0.0;
    if (!message.view().starts_with(ColEyeDropBase::kMessagePrefix) ||
        ColEyeDropBase::parse(message.c_str(), h, s, v) != 0)
      return 0;
    ColourData const colour(h, s, v * 255.0, ColourSpace::HSV);
    auto byte = [](double channel) { return static_cast<int>(std::lround(channel * 255.0)); };
    picked.push_back(hexColour(byte(colour.getRed()), byte(colour.getGreen()), byte(colour.getBlue())));
    return 1;
  }

  colourEyeDropper* dropper = nullptr;
  std::vector<std::string> picked;
};

ScreenToolsPanel::ScreenToolsPanel(XY<int> screenPosition) {
  int const row = UifStd::getRowHeight();
  StandardPanel::InitArgs args(XY<int>(row * 8, row * 3));
  args.screenPosition = screenPosition;
  args.title = UIString(L"Screen tools");
  panel_ = new Panel(args);
  GlobManager::realize(panel_);
}

ScreenToolsPanel::~ScreenToolsPanel() {
  magnifier_.requestDeletion();
  GlobManager::requestDeletion(panel_);
}

std::string ScreenToolsPanel::dropperJson(ToScreen toScreen) const {
  colourEyeDropper const& dropper = *panel_->dropper;
  MagnifyTool const* lens = dropper.getMagnifier();
  std::ostringstream out;
  out << "{\"dropper\":" << toScreen(screenBoxOf(dropper)) << ",\"capturing\":" << (dropper.enabled() ? 1 : 0)
      << ",\"lens\":" << (lens ? toScreen(lens->canvas()->screenBox()) : std::string("null"))
      << ",\"picks\":" << panel_->picked.size() << ",\"picked\":\""
      << (panel_->picked.empty() ? std::string() : panel_->picked.back()) << "\"}";
  return out.str();
}

std::string ScreenToolsPanel::showMagnifier(int level, ToScreen toScreen) {
  prefs().setPreference(MagnifyTool::kLevelPreference, level);
  std::vector<Glob*> const before = GlobManager::topLevelWindows();
  CommandMap::callCommand(MagnifyTool::kShowCommand);
  for (Glob* window : GlobManager::topLevelWindows())
    if (is_good_glob_ptr(window, "MagnifyTool") && std::find(before.begin(), before.end(), window) == before.end())
      magnifier_ = GlobHandle(window);
  return magnifierJson(toScreen);
}

std::string ScreenToolsPanel::magnifierJson(ToScreen toScreen) const {
  auto const* tool = static_cast<MagnifyTool const*>(magnifier_.get());
  if (!tool)
    return "{\"error\":\"no magnifier\"}";
  Zo::Box<int> const view = tool->getViewBox().translated(tool->screenPosition());
  XY<int> const marker = tool->screenPosition() + tool->getMarkerPosition();
  // The view's row through the marker, and the pointer's pixel, from the
  // real screen.
  Zo::Ptr<iHostImage> const row = OS().media().getHostImage(Zo::Box<int>(view.x0, marker.y, view.x1, marker.y + 1));
  XY<int> const mouse = glib_getMousePos();
  Zo::Ptr<iHostImage> const under = OS().media().getHostImage(Zo::Box<int>(mouse, mouse + XY<int>(1, 1)));
  std::ostringstream out;
  out << "{\"window\":" << toScreen(tool->canvas()->screenBox()) << ",\"view\":" << toScreen(view)
      << ",\"level\":" << tool->getLevel() << ",\"grabs\":" << tool->grabCount() << ",\"marker\":" << marker.x - view.x0
      << ",\"pointer\":\"" << hexOf(under->pixelAt(mouse)) << "\",\"row\":[";
  for (int x = view.x0; x < view.x1; ++x)
    out << (x == view.x0 ? "\"" : ",\"") << hexOf(row->pixelAt(XY<int>(x, marker.y))) << "\"";
  out << "]}";
  return out.str();
}
