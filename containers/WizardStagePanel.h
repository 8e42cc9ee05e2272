#pragma once

#include <zowidgets/containers/WizardData.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/values/notify/Broadcaster.h>

#include <string>

class ImageView;

// What a stage's page tells its wizard.
struct ZO_API WizardStagePanelEvent {
  enum eKind : int {
    kStateChanged = 0, // refresh the buttons and the title
    kGoForward = 1,    // as if Next were pressed
    kGoBack = 2,       // as if Back were pressed
  };
  int kind = kStateChanged;
};

// The page of one wizard stage. A page says whether the user may go on or
// back, and may refuse to be left forward (requestCompletion), saying why
// itself. With an image named, the picture stands at the bottom left and the
// user area starts to its right.
class ZO_API WizardStagePanel : public StandardPanel, public Broadcaster<WizardStagePanelEvent> {
public:
  struct InitArgs : StandardPanel::InitArgs {
    InitArgs() = default;
    InitArgs(XY<int> size, Zo::Ptr<WizardData> data, std::string imageName = {})
        : StandardPanel::InitArgs(size), data(std::move(data)), imageName(std::move(imageName)) {}
    Zo::Ptr<WizardData> data;
    std::string imageName; // an icon name (host/drawing/IconNames.h), three rows square; empty: none
  };

  explicit WizardStagePanel(InitArgs const& args);
  char const* idstring() const override { return "WizardStagePanel"; }

  virtual bool canAdvance() const { return true; }
  virtual bool canRetreat() const { return true; }
  // Asked before the wizard leaves this page forward, except from the last
  // stage; false keeps the page on show.
  virtual bool requestCompletion() { return true; }

  Zo::Box<int> getUserArea() const override;
  Zo::Ptr<WizardData> const& getData() const noexcept { return data_; }
  // Null without an image.
  ImageView* getImageView() const noexcept { return image_; }

private:
  Zo::Ptr<WizardData> data_;
  ImageView* image_ = nullptr;
};
