#include <zowidgets/startup/AnnouncementTestPanel.h>

#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/shell/OS.h>
#include <zowidgets/host/shell/Preferences.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/files/FileBrowserButton.h>
#include <zowidgets/host/widgets/text/MultiLineTextBox.h>
#include <zowidgets/host/widgets/text/TitleTextBox.h>
#include <zowidgets/startup/AnnouncementPanel.h>

#include <string_view>

namespace {

using WString = LightweightString<wchar_t>;

CommandRegistrar const announcementTestCommand(
    AnnouncementTestPanel::kCommand,
    [](Cmd::Context const& context) { GlobManager::placeBeside(AnnouncementTestPanel::open(), context.origin); },
    UIString(L"Announcements Test"), UIString(L"Tries a start-up message as the program would show it"),
    kCmdScopeApplication, MapItem{});

WString folderOf(WString const& path) {
  std::wstring_view const whole = path.view();
  std::size_t const slash = whole.find_last_of(L'/');
  return slash == std::wstring_view::npos ? WString() : WString(std::wstring(whole.substr(0, slash)).c_str());
}

} // namespace

XY<int> AnnouncementTestPanel::calcSize() {
  int const side = 20 * UifStd::getRowHeight();
  return XY<int>(side, side);
}

AnnouncementTestPanel* AnnouncementTestPanel::open() {
  InitArgs args{GlobCreationInfo(calcSize())};
  args.title = UIString(L"Announcements Test");
  auto* panel = new AnnouncementTestPanel(args);
  GlobManager::realize(panel);
  return panel;
}

bool AnnouncementTestPanel::canTest(WString const& description) {
  std::wstring_view const text = description.view();
  return text.starts_with(L"http://") || text.starts_with(L"https://") ||
         (text.starts_with(L"<p>") && text.ends_with(L"</p>") && text.size() >= 7);
}

AnnouncementTestPanel::AnnouncementTestPanel(InitArgs const& args) : StandardPanel(args) {
  Drawable::Suspender const holdRedraws;
  addStandardWidgets(kTitle | kPoot);
  setTitle(UIString(L"Announcements Test"), UifStd::getTitleFont(), kNoRedraw);
  int const row = UifStd::getRowHeight();
  int const gap = UifStd::getRowGap();
  int const width = getUserArea().width();

  TitleTextBox::InitArgs titleArgs(GlobCreationInfo(XY<int>(width, row)));
  titleArgs.title = UIString(L"Title");
  title_ = createWidget<TitleTextBox>(titleArgs, UserTopLeft(0, 0));
  title_->setString(L"[Enter a title]");

  TitledFileBrowserButton::InitArgs imageArgs(UIString(L"Image"), XY<int>(width, row));
  imageArgs.button.browser.extensions = {L"jpg", L"png"};
  imageArgs.button.browser.folder = prefs().getPreference(kFolderPreference, WString());
  imageArgs.button.label = UIString(L"Choose an Image");
  image_ = createWidget<TitledFileBrowserButton>(imageArgs, Below(gap, title_));
  image_->getButton().addListener(Broadcaster<FileBrowserEvent>::makeCallback([](FileBrowserEvent const& event) {
    if (event.kind == FileBrowserEvent::kFileChosen)
      prefs().setPreference(kFolderPreference, folderOf(event.path));
  }));

  Button::InitArgs testArgs(UIString(L"Test"), XY<int>(5 * row, row));
  test_ = createWidget<Button>(testArgs, UserBottomRight(0, 0));
  test_->setCallback(Broadcaster<ButtonEvent>::makeCallback([this](ButtonEvent const&) { test(); }));

  int const descriptionHeight = getUserArea().height() - 3 * row - 3 * gap;
  MultiLineTextBox::InitArgs describe(XY<int>(width, std::max(row, descriptionHeight)));
  describe.ghostLabel = UIString(L"Enter a description enclosed in HTML tags, or a URL (that starts with \"http\")");
  description_ = createWidget<MultiLineTextBox>(describe, Below(gap, image_));
  description_->addListener(
      Broadcaster<TextBoxEvent>::makeCallback([this](TextBoxEvent const&) { updateTestButton(); }));
  test_->setActive(false, kNoRedraw);
}

void AnnouncementTestPanel::updateTestButton() {
  bool const usable = canTest(description_->getString());
  if (test_->isActive() != usable)
    test_->setActive(usable, kRedrawNow);
}

AnnouncementPanel* AnnouncementTestPanel::lastAnnouncement() const {
  return last_ && EventHandler::valid(last_, lastStamp_) && !GlobManager::isDeletionPending(last_) ? last_ : nullptr;
}

void AnnouncementTestPanel::test() {
  if (!canTest(description_->getString()))
    return;
  if (AnnouncementPanel* previous = lastAnnouncement())
    GlobManager::requestDeletion(previous);
  StartupMessage const message(title_->getString(), description_->getString(), image_->getPath(), WString(),
                               L"AnnouncementTest", L"once");
  AnnouncementPanel::InitArgs args(message);
  XY<int> const here = screenPosition();
  // One row to the right, moved back onto the screen where it would leave it.
  args.screenPosition =
      GlobManager::getSafePosForGlob(canvas(), args.size, XY<int>(here.x + width() + UifStd::getRowHeight(), here.y));
  last_ = new AnnouncementPanel(args);
  lastStamp_ = EventHandler::stampOf(last_);
  GlobManager::realize(last_);
}
