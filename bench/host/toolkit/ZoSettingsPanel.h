#pragma once

#include "SettingsPanelLook.h"
#include "SettingsRow.h"

#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>

#include <algorithm>
#include <cstdint>
#include <vector>

// The benchmark's settings panel made of our widgets: a top-level
// StandardPanel, realized and painted on a headless screen tall enough for
// it, holding the rows placed one below the other.
class ZoSettingsPanel {
public:
  ZoSettingsPanel() {
    using namespace SettingsPanelLook;
    XY<int> const size = panelSize();
    useHeadlessScreen(XY<int>(HeadlessScreen::kDefaultWidth, std::max(HeadlessScreen::kDefaultHeight, size.y)));
    StandardPanel::InitArgs args(size);
    args.screenPosition = XY<int>(0, 0);
    panel_ = new StandardPanel(args);
    for (int row = 0; row < kRows; ++row)
      rows_.push_back(panel_->addChild(new SettingsRow(row, panel_->getPalette()),
                                       row == 0 ? Glob::UserTopLeft(0, 0) : Glob::Below(UifStd::getRowGap())));
    GlobManager::realize(panel_);
  }
  ~ZoSettingsPanel() { delete panel_; }
  ZoSettingsPanel(ZoSettingsPanel const&) = delete;
  ZoSettingsPanel& operator=(ZoSettingsPanel const&) = delete;

  StandardPanel& panel() { return *panel_; }
  Glob& row(int index) { return *rows_[index]; }
  Canvas& canvas() { return *panel_->canvas(); }

  // True when every row stands where the Qt peer draws it.
  bool rowsWhereTheLookSays() const {
    for (int row = 0; row < SettingsPanelLook::kRows; ++row)
      if (rows_[row]->canvasBox() != SettingsPanelLook::rowBox(row))
        return false;
    return true;
  }

  void fill(Colour const& colour) {
    Zo::Image::Surface pixels = panel_->canvas()->surface();
    pixels.fill(colour);
  }
  // The pixel at a bottom-up point of the panel, as 0xAARRGGBB.
  std::uint32_t pixel(XY<int> point) const {
    Zo::Image::Surface const& pixels = panel_->canvas()->surface();
    return pixels.pixel(point.x, pixels.height() - 1 - point.y);
  }

private:
  StandardPanel* panel_ = nullptr;
  std::vector<Glob*> rows_;
};
