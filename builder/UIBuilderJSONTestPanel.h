#pragma once

#include <zowidgets/builder/UIBuilderParams.h>

class MultiLineTextBox;
class PushButton;
class TextLabel;

// A box to write a panel description in and a "Build" button that opens the
// panel it describes. Opened by the command "makeUIBuilderTestPanel".
class ZO_API UIBuilderJSONTestPanel : public StandardPanel {
public:
  static constexpr char const* kCommand = "makeUIBuilderTestPanel";
  // The description the box starts with.
  static wchar_t const* const kSampleDescription;

  explicit UIBuilderJSONTestPanel(InitArgs const& args);
  char const* idstring() const override { return "UIBuilderJSONTestPanel"; }

  static UIBuilderJSONTestPanel* open();

  MultiLineTextBox* getDescriptionBox() const noexcept { return description_; }
  PushButton* getBuildButton() const noexcept { return build_; }
  TextLabel* getStatus() const noexcept { return status_; }
  // The panel the last build opened, while it is open.
  StandardPanel* getBuiltPanel() const;
  // Builds the description in the box into a new panel beside this one.
  void build();

private:
  static void growToShowEveryRow(StandardPanel& panel);

  MultiLineTextBox* description_ = nullptr;
  PushButton* build_ = nullptr;
  TextLabel* status_ = nullptr;
  Glob* builtPanel_ = nullptr;
  IdStamp builtStamp_;
};

// A panel that keeps the result of its build alive for as long as it lives.
class ZO_API BuiltPanel : public StandardPanel {
public:
  using StandardPanel::StandardPanel;
  char const* idstring() const override { return "BuiltPanel"; }
  void setBuiltParams(Zo::Ptr<UIBuilder::Params> const& params) { params_ = params; }
  UIBuilder::Params* getBuiltParams() const noexcept { return params_.get(); }

private:
  Zo::Ptr<UIBuilder::Params> params_;
};
