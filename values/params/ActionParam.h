#pragma once

#include <zowidgets/values/params/Param.h>

namespace GenericParam {

// A button. Its callback's result says whether the action changed data that
// listeners should hear of.
class ZO_API ActionParam : public Param<unsigned int> {
public:
  struct CallbackData {
    Zo::Ptr<iObject> context; // the parameter's context; WrappedData<T> carries plain values
  };
  using Callback = iCallbackBase<bool, CallbackData>;

  ActionParam(UIString const& legend, LightweightString<char> const& id, UIString const& tooltip,
              Zo::Ptr<Callback> const& callback, Zo::Ptr<iObject> const& context = {})
      : Param<unsigned int>("action", id, legend, tooltip, 0), callback_(callback), context_(context),
        tooltipText_(tooltip) {}
  // A clone shares the callback and the context.
  Zo::Ptr<iParam> clone() const override { return Zo::Ptr<iParam>(new ActionParam(*this)); }

  // Runs the callback with the context; false without a callback.
  bool invoke() const { return callback_ ? callback_->execute(CallbackData{context_}) : false; }

  Zo::Ptr<Callback> const& getCallback() const noexcept { return callback_; }
  Zo::Ptr<iObject> const& getContext() const noexcept { return context_; }
  UIString const& getTooltipText() const noexcept { return tooltipText_; }

private:
  Zo::Ptr<Callback> callback_;
  Zo::Ptr<iObject> context_;
  UIString tooltipText_;
};

} // namespace GenericParam
