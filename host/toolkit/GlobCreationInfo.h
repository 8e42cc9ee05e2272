#pragma once

#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/base/configb.h>
#include <zowidgets/host/toolkit/WidgetPosition.h>

#include <memory>

class Glob;
class Canvas;
class Palette;

// What every widget is made from: its size, its parent, and optionally a
// palette, a border, a class name and saved settings. Each widget's InitArgs
// derives from this.
struct ZO_API GlobCreationInfo {
  GlobCreationInfo();
  GlobCreationInfo(unsigned short width, unsigned short height);
  explicit GlobCreationInfo(XY<int> size);
  GlobCreationInfo(GlobCreationInfo const&);
  GlobCreationInfo& operator=(GlobCreationInfo const&);
  virtual ~GlobCreationInfo();

  GlobCreationInfo& setParent(Glob* newParent) {
    parent = newParent;
    return *this;
  }
  GlobCreationInfo& setPalette(Palette const& newPalette);
  GlobCreationInfo& setBorder(Border const& newBorder) {
    border = newBorder;
    hasBorder = true;
    return *this;
  }

  XY<int> size;
  Glob* parent = nullptr;
  // For a top-level window: where on the screen it goes (bottom-left corner);
  // unset lets the toolkit choose.
  XY<int> screenPosition = XY<int>::unset();
  std::unique_ptr<Palette> palette; // null: inherit the parent's
  Border border;
  bool hasBorder = false;
  LightweightString<char> className; // for GlobManager::createGlob
  // Asks a container that makes the widget in a place of its choosing to
  // size it for that place rather than for the container's whole area.
  bool useParentAllotment = false;
  configb config;
};
