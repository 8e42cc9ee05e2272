#pragma once

#include <zowidgets/host/drawing/ImageSurface.h>
#include <zowidgets/host/shell/StartupMessage.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>
#include <zowidgets/values/notify/NotifierBase.h>

class Checkbox;

// Shows one start-up message: a news item (a title, a paragraph of HTML and
// a picture beside it, or the text alone), or a banner (a picture that opens
// a link when clicked). A message that comes back at each start has a
// checkbox asking not to show it again; one that does not is marked as read
// when the panel closes, however it closes. Shown as a window of its own,
// it closes on Escape, and on a press outside it unless pinned (the press
// goes on to what it was meant for).
class ZO_API AnnouncementPanel : public StandardPanel {
public:
  struct ZO_API InitArgs : StandardPanel::InitArgs {
    // Loads the message's picture at once and sizes the panel for it.
    explicit InitArgs(StartupMessage const& message);
    // The panel's whole size for the message and its picture.
    XY<int> calcSize() const;

    StartupMessage message;
    // Empty when the message has none or it did not load.
    Zo::Image::Surface image;
  };

  explicit AnnouncementPanel(InitArgs const& args);
  ~AnnouncementPanel() override;
  char const* idstring() const override { return "AnnouncementPanel"; }
  int handleKeyboardEvent(int key) override;

  // The message's text when it is a link ("http..."); empty otherwise.
  static LightweightString<wchar_t> getBannerLink(StartupMessage const& message);
  static bool isBanner(StartupMessage const& message);
  // The room under a banner for the checkbox.
  static int calcFooterHeight();

  StartupMessage const& message() const noexcept { return m_message; }
  // The "don't show again" checkbox, or null for a message shown once.
  Checkbox* dontShowAgain() const noexcept { return m_dontShowAgain; }

  // The label of that checkbox.
  static constexpr ResId kDontShowAgainId = 12503;

private:
  void addBanner(InitArgs const& args);
  void addPictureAndText(InitArgs const& args);
  void addText(Glob* beside);
  // The tick box, centred in the `room` high strip along the panel's
  // bottom edge that was kept for it.
  void addDontShowAgain(int room);
  int handlePressAnywhere(Event const& event);

  StartupMessage m_message;
  Checkbox* m_dontShowAgain = nullptr;
  Zo::Ptr<Zo::Guard> m_pressListener;
};
