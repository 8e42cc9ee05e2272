#pragma once

#include <zowidgets/builder/UIBuilder.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/VerticalScrollingBase.h>

// A row of a built panel: a container around one widget, one row gap taller
// than it so that rows placed below keep their distance. Hiding it takes its
// height away, so the rows below move up; a widget that changes its own
// height (a group folding) takes the rows below with it the same way.
class ZO_API UIBuilder::HostWidgetBase : public Glob {
public:
  explicit HostWidgetBase(GlobCreationInfo const& info) : Glob(info) {}
  char const* idstring() const override { return "HostWidget"; }
  Glob* getChild() const noexcept { return isChildGlob(child_) ? child_ : nullptr; }
  void setActive(bool active, eRedrawFlag redraw) override;
  void resize(double width, double height) override;
  void setVisible(bool visible) override;
  void handleChildResize(Glob* child) override;

protected:
  void drawBackground(CanvasRenderer&) override {}
  Glob* child_ = nullptr;
};

template <class T> class UIBuilder::HostWidget : public UIBuilder::HostWidgetBase {
public:
  struct InitArgs : GlobCreationInfo {
    explicit InitArgs(typename T::InitArgs const& args) : GlobCreationInfo(args.size), childArgs(&args) {}
    // The child's arguments, which outlive the host's making: held by
    // address, as a choice row's arguments hold all its choices and the
    // host's arguments are copied on the way to the host.
    typename T::InitArgs const* childArgs;
  };

  // The child fills the host, less the gap kept below it.
  explicit HostWidget(InitArgs const& args) : HostWidgetBase(args) {
    child_ = createChild<T>(*args.childArgs, Glob::TopLeft(0, 0));
  }
  T* getWidget() const noexcept { return static_cast<T*>(getChild()); }
};

template <class T> T* UIBuilder::createWidget(typename T::InitArgs const& args, bool visible,
                                              WidgetPosition const& position, WidgetSurround const& surround) {
  Glob* parent = currentParent();
  if (!panel_ || !parent)
    return nullptr;
  typename HostWidget<T>::InitArgs hostArgs(args);
  hostArgs.size.y = args.size.y + UifStd::getRowGap();
  HostWidget<T>* host = nullptr;
  auto* scrolling = dynamic_cast<VerticalScrollingBase*>(panel_);
  if (parent == panel_ && scrolling && parents_.size() == 1) {
    host = scrolling->createManagedWidget<HostWidget<T>>(hostArgs);
  } else {
    host = parent->createChild<HostWidget<T>>(hostArgs, position, surround);
  }
  if (!visible)
    host->setVisible(false);
  if (scrolling && parent == panel_) {
    scrolling->recalcWidgetsHeight();
    scrolling->resetView();
  }
  return host->getWidget();
}
