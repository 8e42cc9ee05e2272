#include <zowidgets/values/WidgetBase.h>

WidgetBase::~WidgetBase() { setAdaptor(nullptr); }

void WidgetBase::setAdaptor(Zo::Ptr<AdaptorBase> const& adaptor) {
  if (adaptor_)
    adaptor_->widgets_.erase(this);
  adaptor_ = adaptor;
  if (adaptor_)
    adaptor_->widgets_.insert(this);
}
