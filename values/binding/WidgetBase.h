#pragma once

#include <zowidgets/host/base/Ptr.h>
#include <zowidgets/host/toolkit/Glob.h>

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

// A widget that an adaptor binds to. Header-only, like the rest of the value
// binding, so that the host's own widgets can be value widgets.
class ZO_API WidgetBase : public Glob {
public:
  explicit WidgetBase(GlobCreationInfo const& info = GlobCreationInfo()) : Glob(info) {}
  ~WidgetBase() override { setAdaptor(nullptr); }

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
