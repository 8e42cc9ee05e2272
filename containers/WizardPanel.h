#pragma once

#include <zowidgets/containers/WizardStagePanel.h>
#include <zowidgets/containers/iWizardStage.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>

#include <vector>

// What a wizard tells its listeners.
struct ZO_API WizardPanelEvent {
  enum eKind : int { kFinished = 0 };
  int kind = kFinished;
};

// A multi-step dialogue: a title numbering the enabled stages ("2/3 : ..."),
// the current stage's page, and Next and Back buttons in a footer. Disabled
// stages are skipped and not counted. There is no history: Back goes to the
// nearest enabled stage before the current one. Next on the last enabled
// stage finishes: the wizard tells its listeners and deletes itself.
class ZO_API WizardPanel : public StandardPanel, public Broadcaster<WizardPanelEvent> {
public:
  using StageList = std::vector<Zo::Ptr<iWizardStage>>;
  // No stage, as the stage queries answer it.
  static constexpr unsigned short kNoStage = 0xFFFF;

  struct InitArgs : StandardPanel::InitArgs {
    InitArgs() = default;
    InitArgs(XY<int> size, StageList stages) : StandardPanel::InitArgs(size), stages(std::move(stages)) {}
    StageList stages;
  };

  explicit WizardPanel(InitArgs const& args);
  char const* idstring() const override { return "WizardPanel"; }

  // Replaces the stages, shares the wizard's data with them and shows the
  // first stage (even a disabled one: it is where the wizard starts).
  void setStages(StageList const& stages);
  // Shows a stage; an index past the end, or the current stage while its
  // page shows, changes nothing.
  void setStage(unsigned short index, eRedrawFlag redraw);
  unsigned short getCurrentStage() const noexcept { return current_; }
  StageList const& getStages() const noexcept { return stages_; }

  // The nearest enabled stage strictly after or before `index`; kNoStage
  // when there is none.
  unsigned short getNextStage(unsigned short index) const;
  unsigned short getPreviousStage(unsigned short index) const;
  unsigned short getFirstActiveStage() const;
  unsigned short getLastActiveStage() const;
  unsigned short getNumActiveStages() const;
  // How many enabled stages there are up to and including `index`.
  unsigned short getLogicalStageIndex(unsigned short index) const;
  // "2/3 : Title" with more than one enabled stage, else the title alone.
  UIString makeTitle(unsigned short index) const;
  // Sets the buttons' texts, icons, widths, visibility and enable states
  // from the current stage and its page.
  void initButtons();

  int handleNextPressed(ButtonEvent const& event);
  int handleBackPressed(ButtonEvent const& event);
  int handlePageEvent(WizardStagePanelEvent const& event);
  // Runs when Next is pressed on the last enabled stage.
  virtual void handleCompletion();
  // The host does not announce changes of the interface, so whoever changes
  // them (the language, say) calls this; with kTextsChanged the title and
  // the buttons are made again.
  static constexpr unsigned kTextsChanged = 8;
  void handleUIChange(unsigned flags);

  Zo::Ptr<WizardData> const& getData() const noexcept { return data_; }
  WizardStagePanel* getPage() const noexcept { return page_; }
  PushButton* getNextButton() const noexcept { return next_; }
  PushButton* getBackButton() const noexcept { return back_; }

  // A wizard with a close box is a dialogue the user may leave at any
  // stage: Escape closes it.
  bool closesOnEscape() const override { return (getStandardWidgets() & kPoot) != 0; }
  // Return no widget used presses Next, the wizard's default button, while
  // it is active.
  int handleKeyboardEvent(int key) override;

  // The footer with the buttons lies under the user area.
  Zo::Box<int> getUserArea() const override;
  Zo::Box<int> getMarginArea() const override;
  // The outer size of a wizard whose pages are `pageSize`.
  static XY<int> calcSize(XY<int> pageSize, unsigned standardWidgets = 0);

private:
  static int footerHeight();
  void showTitle(eRedrawFlag redraw);
  void dropPage();

  Zo::Ptr<WizardData> data_;
  StageList stages_;
  unsigned short current_ = 0;
  WizardStagePanel* page_ = nullptr;
  PushButton* next_ = nullptr;
  PushButton* back_ = nullptr;
};
