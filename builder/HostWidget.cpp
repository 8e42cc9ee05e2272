#include <zowidgets/builder/HostWidget.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <algorithm>

void UIBuilder::HostWidgetBase::setActive(bool active, eRedrawFlag redraw) {
  if (Glob* child = getChild())
    child->setActive(active, redraw);
  Glob::setActive(active, redraw);
}

void UIBuilder::HostWidgetBase::resize(double width, double height) {
  Glob::resize(width, height);
  if (Glob* child = getChild())
    child->resize(width, std::max(height - UifStd::getRowGap(), 0.0));
}

void UIBuilder::HostWidgetBase::setVisible(bool visible) {
  if (visible == isVisible())
    return;
  Glob::setVisible(visible);
  Glob* child = getChild();
  int const delta = (child ? child->height() : 0) + UifStd::getRowGap();
  // Our own size only: the child keeps its height for the next showing.
  Glob::resize(width(), visible ? delta : 0);
}

void UIBuilder::HostWidgetBase::handleChildResize(Glob* child) {
  Glob::handleChildResize(child);
  if (child != getChild() || !isVisible())
    return;
  // Our own size only, so the child is not resized back.
  if (int const wanted = child->height() + UifStd::getRowGap(); wanted != height())
    Glob::resize(width(), wanted);
}
