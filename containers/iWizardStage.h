#pragma once

#include <zowidgets/containers/WizardData.h>
#include <zowidgets/host/base/UIString.h>
#include <zowidgets/host/toolkit/WidgetPosition.h>

class StandardPanel;
class WizardStagePanel;

// One step of a WizardPanel. The stage makes its page each time it is shown
// and keeps what it needs in the wizard's shared WizardData.
class ZO_API iWizardStage : public iObject {
public:
  static constexpr ResId kNextTextId = 10850;
  static constexpr ResId kBackTextId = 10852;

  // Makes the page in `parent` at `position`, `size` large; the wizard owns
  // it from then on.
  virtual WizardStagePanel* createPage(StandardPanel& parent, WidgetPosition const& position, XY<int> size) = 0;
  virtual UIString getTitle() const = 0;
  // The back button's text; an empty text hides the button on this stage.
  virtual UIString getBackText() const { return UIString(kBackTextId); }
  virtual UIString getForwardText() const { return UIString(kNextTextId); }
  // A disabled stage is skipped and not counted.
  virtual bool isEnabled() const { return true; }

  void setData(Zo::Ptr<WizardData> const& data) { data_ = data; }
  Zo::Ptr<WizardData> const& getData() const noexcept { return data_; }

private:
  Zo::Ptr<WizardData> data_;
};
