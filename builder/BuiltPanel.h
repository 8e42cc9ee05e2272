#pragma once

#include <zowidgets/builder/UIBuilderParams.h>

// A panel that keeps the result of its build alive for as long as it lives.
class ZO_API BuiltPanel : public StandardPanel {
public:
  using StandardPanel::StandardPanel;
  char const* idstring() const override { return "BuiltPanel"; }
  void setBuiltParams(Zo::Ptr<UIBuilder::Params> const& params) { params_ = params; }
  UIBuilder::Params* getBuiltParams() const noexcept { return params_.get(); }
  // The separators between rows and rows taller than one (a label of several
  // lines) need more room than a count of entries gives: grows the panel
  // until every shown row fits.
  void growToShowEveryRow();

private:
  Zo::Ptr<UIBuilder::Params> params_;
};
