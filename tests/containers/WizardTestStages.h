#pragma once

#include <zowidgets/containers/WizardPanel.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <optional>
#include <string>

// A stage whose answers the test sets, and which counts what the wizard
// asked of it. Its page shows the stage's title as a line of text.
class TestStage : public iWizardStage {
public:
  explicit TestStage(UIString title, bool enabled = true) : enabled(enabled), title_(std::move(title)) {}

  WizardStagePanel* createPage(StandardPanel& parent, WidgetPosition const& position, XY<int> size) override;
  UIString getTitle() const override { return title_; }
  UIString getBackText() const override { return backText ? *backText : iWizardStage::getBackText(); }
  UIString getForwardText() const override { return forwardText ? *forwardText : iWizardStage::getForwardText(); }
  bool isEnabled() const override { return enabled; }

  bool enabled;
  bool canAdvance = true;
  bool canRetreat = true;
  bool agreesToLeave = true;
  std::string imageName;
  std::optional<UIString> backText;
  std::optional<UIString> forwardText;
  int pagesMade = 0;
  int completionRequests = 0;

private:
  UIString title_;
};

class TestStagePage : public WizardStagePanel {
public:
  struct InitArgs : WizardStagePanel::InitArgs {
    InitArgs(XY<int> size, TestStage& stage)
        : WizardStagePanel::InitArgs(size, stage.getData(), stage.imageName), stage(&stage) {}
    TestStage* stage;
  };

  explicit TestStagePage(InitArgs const& args) : WizardStagePanel(args), stage_(*args.stage) {
    TextLabel::InitArgs label(XY<int>(getUserArea().width(), UifStd::getRowHeight()));
    label.text = stage_.getTitle();
    createWidget<TextLabel>(label, UserTopLeft(0, 0));
  }
  char const* idstring() const override { return "TestStagePage"; }

  bool canAdvance() const override { return stage_.canAdvance; }
  bool canRetreat() const override { return stage_.canRetreat; }
  bool requestCompletion() override {
    ++stage_.completionRequests;
    return stage_.agreesToLeave;
  }
  TestStage& stage() const noexcept { return stage_; }

private:
  TestStage& stage_;
};

inline WizardStagePanel* TestStage::createPage(StandardPanel& parent, WidgetPosition const& position, XY<int> size) {
  ++pagesMade;
  return parent.createWidget<TestStagePage>(TestStagePage::InitArgs(size, *this), position);
}
