#pragma once

#include <zowidgets/builder/BuiltPanel.h>

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

  // Unset: where the toolkit puts new windows.
  static UIBuilderJSONTestPanel* open(XY<int> screenPosition = XY<int>::unset());

  MultiLineTextBox* getDescriptionBox() const noexcept { return description_; }
  PushButton* getBuildButton() const noexcept { return build_; }
  TextLabel* getStatus() const noexcept { return status_; }
  // The panel the last build opened, while it is open.
  StandardPanel* getBuiltPanel() const;
  // Builds the description in the box into a new panel beside this one.
  void build();

private:
  // The line under the description, and its tooltip.
  void showStatus(LightweightString<wchar_t> const& text);

  MultiLineTextBox* description_ = nullptr;
  PushButton* build_ = nullptr;
  TextLabel* status_ = nullptr;
  Glob* builtPanel_ = nullptr;
  IdStamp builtStamp_;
};
