#pragma once

#include <zowidgets/host/base/DataConvert.h>
#include <zowidgets/values/notify/ValServer.h>
#include <zowidgets/values/params/GenericParam.h>

namespace GenericParam {

// How a value type crosses the text choke point.
template <class T> struct ParamText {
  static LightweightString<wchar_t> toText(T const& value) {
    return DataConvert::convert<T, LightweightString<wchar_t>>(value);
  }
  static T fromText(LightweightString<wchar_t> const& text) {
    return DataConvert::convert<LightweightString<wchar_t>, T>(text);
  }
};
template <> struct ParamText<LightweightString<wchar_t>> {
  static LightweightString<wchar_t> toText(LightweightString<wchar_t> const& value) { return value; }
  static LightweightString<wchar_t> fromText(LightweightString<wchar_t> const& text) { return text; }
};

// The range that int and double parameters carry. Only an int's is enforced,
// and only through setValueFromString; a double's is for its presenter.
template <class T> struct ParamRange {};
template <> struct ParamRange<int> {
  int min = 0;
  int max = 0;
  bool hasRange = false;
};
template <> struct ParamRange<double> {
  double min = 0;
  double max = 0;
  bool hasRange = false;
  double step = 0; // zero: not set
};

// A typed parameter: manager of, and client to, the server that holds its
// value. Every assignment passes as text through the constraints; a
// parameter never vetoes, it can only rewrite.
template <class T> class ZO_API Param : public ValManagerBase<T>, public ParamBase, public ParamRange<T> {
public:
  Param(LightweightString<char> const& type, LightweightString<char> const& id, UIString const& legend,
        UIString const& tooltip, T const& value)
      : ParamBase(type, id, legend, tooltip), server_(value), defaultValue_(value) {
    init();
  }

  // A copy has its own server, subscription and value, and no listeners.
  Param(Param const& other)
      : Zo::InternalRefCount(other), ValManagerBase<T>(), ParamBase(other), ParamRange<T>(other),
        server_(other.server_.get()), defaultValue_(other.defaultValue_) {
    init();
  }
  Param& operator=(Param const&) = delete;

  bool requestValChange(ValServer<T>*, T& value) override {
    // Every text form reads back its own output exactly, so without
    // constraints the round trip through text would change nothing.
    if (valueConstraintCount() != 0)
      value = ParamText<T>::fromText(requestValueChange(ParamText<T>::toText(value)));
    return true;
  }
  // The server is our own member: nothing to let go of.
  void releaseServer(ValServer<T>*) override {}

  LightweightString<wchar_t> getValueAsString() const override { return ParamText<T>::toText(server_.get()); }
  void setValueFromString(LightweightString<wchar_t> const& text) override {
    T value = ParamText<T>::fromText(text);
    if constexpr (std::is_same_v<T, int>) {
      if (this->hasRange)
        DataConvert::constrain<int>(value, this->min, this->max);
    }
    server_.updateAndNotify(value);
  }
  bool isAcceptableValueString(LightweightString<wchar_t> const& text) const override {
    return isAcceptableValue(ParamText<T>::fromText(text));
  }
  LightweightString<wchar_t> getDefaultValueAsString() const override { return ParamText<T>::toText(defaultValue_); }
  bool reset() override {
    if (server_.get() == defaultValue_)
      return false;
    server_.updateAndNotify(defaultValue_);
    return true;
  }
  // Replays the constraints for their side effects and tells every handler
  // the current value, which stays as it is.
  void enforceConstraints() override {
    LightweightString<wchar_t> text = getValueAsString();
    requestValueChange(text);
    handleDataChange(text);
  }
  // A range never makes a value unacceptable.
  virtual bool isAcceptableValue(T const&) const { return true; }

  T getValue() const { return server_.get(); }
  // Assigns through the server, so constraints and listeners run.
  bool setValue(T const& value) { return server_.updateAndNotify(value); }
  T const& getDefaultValue() const noexcept { return defaultValue_; }
  ValServer<T>& getServer() noexcept { return server_; }
  ValServer<T> const& getServer() const noexcept { return server_; }

private:
  void init() {
    if (server_.getManager() && server_.getManager() != this)
      server_.getManager()->releaseServer(&server_);
    server_.setManager(this);
    using Callback = MethodCallback<Param, ValServerEvent<T>, int>;
    serverGuard_ = server_.addListener(
        Zo::Ptr<iCallbackBase<int, ValServerEvent<T>>>(new Callback(this, &Param::handleValueChange)),
        NotifyMsgTypeDictionary::instance().anyType());
  }

  // Whatever the phase, tells the change handlers the current value.
  int handleValueChange(ValServerEvent<T> const&) {
    if (changeHandlerCount() != 0)
      handleDataChange(getValueAsString());
    return 0;
  }

  ValServer<T> server_;
  T defaultValue_;
  Zo::Ptr<Zo::Guard> serverGuard_; // declared last: released first
};

} // namespace GenericParam
