#pragma once

#include <zowidgets/host/base/LightweightString.h>

// A named message with an optional payload, exchanged between widgets.
class ZO_API NotifyMsg {
public:
  NotifyMsg() = default;
  NotifyMsg(LightweightString<char> name, Zo::Ptr<iObject> data = {})
      : name_(std::move(name)), data_(std::move(data)) {}
  NotifyMsg(char const* name, Zo::Ptr<iObject> data = {}) : name_(name), data_(std::move(data)) {}

  LightweightString<char> const& name() const noexcept { return name_; }
  Zo::Ptr<iObject> const& data() const noexcept { return data_; }
  operator char const*() const noexcept { return name_.c_str(); }

private:
  LightweightString<char> name_;
  Zo::Ptr<iObject> data_;
};
