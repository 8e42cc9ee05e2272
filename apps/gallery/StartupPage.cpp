// The start-up pieces: a wallpaper made from a real picture over the theme's
// bands, and announcements beside it, one with text and one a banner; a
// button opens the announcements test tool.
#include "PageLayout.h"

#include <zowidgets/host/drawing/IconCache.h>
#include <zowidgets/host/drawing/ImageSaver.h>
#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/values/ImageView.h>
#include <zowidgets/startup/AnnouncementPanel.h>
#include <zowidgets/startup/AnnouncementTestPanel.h>
#include <zowidgets/startup/StartupWallpaper.h>

#include <algorithm>
#include <filesystem>

namespace {

using WString = LightweightString<wchar_t>;

// A wallpaper from the desktop's own backgrounds when they are installed.
WString wallpaperPicture() {
  for (char const* candidate :
       {"/usr/share/backgrounds/gnome/adwaita-l.webp", "/usr/share/backgrounds/gnome/adwaita-d.webp"})
    if (std::filesystem::exists(candidate))
      return WString(std::filesystem::path(candidate).wstring().c_str());
  return {};
}

// The banner's picture: a strip cut from the middle of the background,
// written to a file as a banner would come.
WString bannerPicture(WString const& background) {
  Zo::Image::Surface const source = background.empty() ? Zo::Image::Surface() : IconCache::instance().load(background);
  Zo::Image::Surface strip(880, 240);
  int const left = std::max(0, (source.width() - strip.width()) / 2);
  int const top = std::max(0, (source.height() - strip.height()) / 2);
  for (int y = 0; y < strip.height(); ++y)
    for (int x = 0; x < strip.width(); ++x)
      strip.setPixel(
          x, y, source.empty() ? 0xff3060a0u : source.pixel((left + x) % source.width(), (top + y) % source.height()));
  std::filesystem::path const path = std::filesystem::temp_directory_path() / "zogallery-banner.png";
  ZoImage::Saver::saveImage(strip, path.string());
  return WString(path.wstring().c_str());
}

void openBeside(AnnouncementPanel::InitArgs args, XY<int> at) {
  // Moved back onto the screen where it would leave it.
  args.screenPosition = GlobManager::getSafePosForGlob(nullptr, args.size, at);
  GlobManager::realize(new AnnouncementPanel(args));
}

Glob* buildStartupPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  XY<int> const wallpaperSize(m.row * 24, m.row * 15);
  StandardPanel* panel =
      openPageWindow(context, XY<int>(wallpaperSize.x, wallpaperSize.y + m.row + m.gap), UIString(L"Start-up"));

  WString const background = wallpaperPicture();
  StartupWallpaper const wallpaper(background);
  Zo::Ptr<iOffscreenBuffer> const buffer = wallpaper.load(wallpaperSize);
  ImageView::InitArgs view(wallpaperSize);
  view.image = buffer ? buffer->surface() : Zo::Image::Surface();
  auto* shown = panel->createWidget<ImageView>(view, Glob::UserTopLeft(0, 0));

  Button::InitArgs tryArgs(UIString(L"Announcements Test\u2026"), XY<int>(m.row * 9, m.row));
  auto* tryButton = panel->createWidget<Button>(tryArgs, Glob::Below(m.gap, shown));
  // The tool opens beside the page, the command's origin.
  tryButton->setCallback(Broadcaster<ButtonEvent>::makeCallback([panel](ButtonEvent const&) {
    CommandMap::callCommand(AnnouncementTestPanel::kCommand, Cmd::Context{panel, {}});
  }));

  if (Canvas* canvas = panel->canvas()) {
    Zo::Box<int> const page = canvas->screenBox();
    AnnouncementPanel::InitArgs text(
        StartupMessage(L"What's new",
                       L"<p>Clips now <b>snap</b> to markers while you drag them. Read the "
                       L"<a href=\"https://example.org/notes\">release notes</a>.</p>",
                       L"", L"gallery-text", L"gallery", L"every start"));
    openBeside(text, XY<int>(page.x1 + m.gap, page.y1 - text.size.y));
    AnnouncementPanel::InitArgs banner(StartupMessage(L"", L"https://example.org/training", bannerPicture(background),
                                                      L"gallery-banner", L"gallery", L"every start"));
    openBeside(banner, XY<int>(page.x1 + m.gap, page.y1 - text.size.y - m.gap - banner.size.y));
  }
  return panel;
}

PageRegistrar const startupPage{"startup", "Start-up",
                                "The start-up wallpaper made from a desktop background over the theme's bands; "
                                "beside it an announcement with text and a banner that opens its link, both "
                                "with the box that asks not to show them again; a button opens the "
                                "announcements test tool",
                                buildStartupPage};

} // namespace
