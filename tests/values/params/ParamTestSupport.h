#pragma once

#include <zowidgets/values/params/Params.h>

#include <functional>
#include <string>
#include <vector>

// Records each change a parameter reports, as "id=value".
struct RecordingHandler : GenericParam::iValueChangeHandler {
  explicit RecordingHandler(std::vector<std::string>& log) : log(log) {}
  void handleValueChange(LightweightString<char> const& id, LightweightString<wchar_t> const& value) override {
    log.push_back(id.str() + "=" + toNarrow(value));
  }
  std::vector<std::string>& log;
};

// A constraint written as a function of the candidate text.
struct FunctionConstraint : GenericParam::iValueConstraint {
  explicit FunctionConstraint(std::function<LightweightString<wchar_t>(LightweightString<wchar_t> const&)> f)
      : f(std::move(f)) {}
  LightweightString<wchar_t> constrain(LightweightString<wchar_t> const& candidate) override { return f(candidate); }
  std::function<LightweightString<wchar_t>(LightweightString<wchar_t> const&)> f;
};

inline Zo::Ptr<GenericParam::iValueChangeHandler> recorder(std::vector<std::string>& log) {
  return Zo::Ptr<GenericParam::iValueChangeHandler>(new RecordingHandler(log));
}
