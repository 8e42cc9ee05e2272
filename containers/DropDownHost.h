#pragma once

#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/widgets/popups/DropDownHostBase.h>

// A drop-down window holding one panel of type T, made from T::InitArgs
// (which derives from GlobCreationInfo) and placed in the user area.
template <class T> class ZO_API DropDownHost : public DropDownHostBase {
public:
  struct InitArgs : DropDownHostBase::InitArgs {
    InitArgs(DropDownHostBase::InitArgs const& host, typename T::InitArgs const& panel)
        : DropDownHostBase::InitArgs(host), panelArgs(panel) {}
    typename T::InitArgs panelArgs;
  };

  // A panel that chose another size than it was asked for gets a host that
  // fits it.
  explicit DropDownHost(InitArgs const& args)
      : DropDownHostBase(args), panel_(createChild<T>(args.panelArgs, UserBottomLeft(0, 0))) {
    handleChildResize(panel_);
  }
  char const* idstring() const override { return "DropDownHost"; }

  T* getPanel() const noexcept { return panel_; }

  // Makes a host and shows it in one step with redraws held: at `position`
  // on the screen kept wholly on it, or beside the pointer for the panel
  // default kind.
  static DropDownHost* create(InitArgs const& args, WidgetPosition const& position) {
    Drawable::Suspender holdRedraws;
    Glob* window = GlobManager::getParentForGlob(args.owner);
    Canvas* near = window ? window->canvas() : nullptr;
    XY<int> const where =
        position.kind == WidgetPosition::kPanelDefault
            ? glib_getPosForPanel(near, args.size)
            : GlobManager::getSafePosForGlob(near, args.size, GlobManager::getPosForGlob(args, position));
    Glob::setupRootPos(nullptr, where);
    auto* host = new DropDownHost(args);
    GlobManager::realize(host);
    return host;
  }

private:
  T* panel_;
};
