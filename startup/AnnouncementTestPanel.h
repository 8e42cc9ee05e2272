#pragma once

#include <zowidgets/host/base/IdStamp.h>
#include <zowidgets/host/widgets/panels/StandardPanel.h>

class AnnouncementPanel;
class Button;
class MultiLineTextBox;
class TitleTextBox;
class TitledFileBrowserButton;

// A developer's tool for trying start-up messages: a title, a description
// (a paragraph of HTML, or a link for a banner) and a picture, and "Test",
// which shows the announcement as the program would. Opened by the command
// "AnnouncementTest".
class ZO_API AnnouncementTestPanel : public StandardPanel {
public:
  static constexpr char const* kCommand = "AnnouncementTest";
  static constexpr char const* kFolderPreference = "Announcements test : folder";

  explicit AnnouncementTestPanel(InitArgs const& args);
  char const* idstring() const override { return "AnnouncementTestPanel"; }

  // A new panel, 20 by 20 rows, realized.
  static AnnouncementTestPanel* open();
  static XY<int> calcSize();

  // Whether a description can be tried: a link ("http://", "https://") or
  // one paragraph ("<p>...</p>").
  static bool canTest(LightweightString<wchar_t> const& description);

  // Deletes the announcement opened last and opens one from the fields.
  void test();
  // The announcement opened last, while it is open.
  AnnouncementPanel* lastAnnouncement() const;

  TitleTextBox& titleBox() const noexcept { return *title_; }
  MultiLineTextBox& descriptionBox() const noexcept { return *description_; }
  TitledFileBrowserButton& imageButton() const noexcept { return *image_; }
  Button& testButton() const noexcept { return *test_; }

private:
  void updateTestButton();

  TitleTextBox* title_ = nullptr;
  MultiLineTextBox* description_ = nullptr;
  TitledFileBrowserButton* image_ = nullptr;
  Button* test_ = nullptr;
  AnnouncementPanel* last_ = nullptr;
  IdStamp lastStamp_;
};
