#pragma once

#include <zowidgets/host/widgets/panels/StandardPanel.h>

// Hosts one widget known only by its class name, made through
// GlobManager::createGlob, as an ordinary child: centred, given the
// wrapper's size, shown and hidden with it, its menu rows offered as the
// wrapper's own. When the class is unknown the wrapper stays empty.
class ZO_API FactoryGlobWrapper : public StandardPanel {
public:
  struct InitArgs : StandardPanel::InitArgs {
    InitArgs() = default;
    // The wrapper takes `widget`'s size; with size 0 the widget keeps the
    // size it chose itself, and the wrapper takes that.
    explicit InitArgs(GlobCreationInfo const& widget) : StandardPanel::InitArgs(widget.size), widget(widget) {}
    GlobCreationInfo widget; // className names what to make
  };

  explicit FactoryGlobWrapper(InitArgs const& args);
  // "FactoryGlobWrapper:" and the wrapped widget's idstring; empty without one.
  char const* idstring() const override { return identity_.c_str(); }

  // Null when the class could not be made.
  Glob* getWrapped() const noexcept { return wrapped_; }
  // The wrapped widget's minimum, as it stands; (0, 0) without one.
  XY<int> getMinSize() const override;
  // The wrapped widget's menu rows if it keeps any (a MenuGlob); else none.
  std::vector<MenuItem> getMenuItems(Event const* event) override;
  void resize(double width, double height) override;
  void setVisible(bool visible) override;

protected:
  void drawBackground(CanvasRenderer& renderer) override;

private:
  Glob* wrapped_ = nullptr;
  LightweightString<char> identity_;
};
