#pragma once

#include <zowidgets/host/base/Ptr.h>

#include <set>

class WidgetBase;

// What binds data to widgets: holds the widgets bound to it, in pointer order.
// The widgets hold the adaptor; the adaptor only points back at them.
class ZO_API AdaptorBase : public iObject {
public:
  std::set<WidgetBase*> const& boundWidgets() const noexcept { return widgets_; }

private:
  friend class WidgetBase;
  std::set<WidgetBase*> widgets_;
};

// The value side of a widget: what an adaptor binds to. It is not a widget
// itself, so that any widget can take it on beside its own base: a widget
// class derives from Glob, StandardPanel or another widget, and from
// ValWidget<T>. Header-only, like the rest of the value binding, so that the
// host's own widgets can be value widgets.
class ZO_API WidgetBase {
public:
  WidgetBase() = default;
  WidgetBase(WidgetBase const&) = delete;
  WidgetBase& operator=(WidgetBase const&) = delete;
  virtual ~WidgetBase() { setAdaptor(nullptr); }

  // Leaves the old adaptor's set and joins the new one's; null only unbinds.
  void setAdaptor(Zo::Ptr<AdaptorBase> const& adaptor) {
    if (adaptor_)
      adaptor_->widgets_.erase(this);
    adaptor_ = adaptor;
    if (adaptor_)
      adaptor_->widgets_.insert(this);
  }
  Zo::Ptr<AdaptorBase> const& getAdaptor() const noexcept { return adaptor_; }

private:
  Zo::Ptr<AdaptorBase> adaptor_;
};
