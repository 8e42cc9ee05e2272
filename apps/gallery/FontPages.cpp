// The font chooser: the panel on its own, and the button that opens it in
// a drop-down, with a label showing the chosen font's one line of text.
#include "PageLayout.h"

#include <zowidgets/fonts/FontText.h>
#include <zowidgets/fonts/TitledFontChooserButton.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

namespace {

constexpr char const* kRecentFontsKey = "Gallery : recent fonts";

// Shared by every opening of the pages, so it outlives the windows on it.
ValServer<FontDefinition>& titleFont() {
  static ValServer<FontDefinition> font(FontDefinition(L"Liberation Serif", 24.0f, Glib::FontDesc::kBold,
                                                       NormalisedRGB(0.1f, 0.1f, 0.15f), NormalisedRGB(1, 0.9f, 0.6f)));
  return font;
}

Glob* buildFontChooserPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  XY<int> const panelSize = FontChooserPanel::calcSize();
  StandardPanel* window =
      openPageWindow(context, XY<int>(panelSize.x + 2 * m.gap, panelSize.y + 2 * m.gap), L"Font chooser");
  window->createWidget<FontChooserPanel>(FontChooserPanel::InitArgs(&titleFont(), kRecentFontsKey),
                                         Glob::UserTopLeft(m.gap, m.gap));
  return window;
}

Glob* buildFontButtonPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  // Wide enough for the stored form of a long family name.
  int const width = m.row * 20;
  StandardPanel* window =
      openPageWindow(context, XY<int>(width + 2 * m.gap, 2 * m.row + m.rowGap + 2 * m.gap), L"Font chooser button");
  TextLabel::InitArgs labelArgs(XY<int>(width, m.row));
  // The font as the library stores it: its text form, labelled so.
  labelArgs.text = L"Stored as " + asString(titleFont().get());
  auto* label = window->createWidget<TextLabel>(labelArgs, Glob::UserBottomLeft(m.gap, m.gap));

  TitledFontChooserButton::InitArgs args(UIString(L"Title font"), XY<int>(width, m.row),
                                         FontChooserButton::InitArgs(XY<int>(), titleFont().get(), kRecentFontsKey));
  auto* titled = window->createWidget<TitledFontChooserButton>(args, Glob::UserTopLeft(m.gap, m.gap));
  // The label follows every change the button makes; the label's window
  // owns both, so the callback never outlives the label.
  titled->getChild()->setClientCallback(
      Zo::Ptr<iCallbackBase<int, NotifyMsg>>(new FunctionCallback<NotifyMsg>([label](NotifyMsg const& message) {
        if (auto const* event = dynamic_cast<FontChooserButton::Event const*>(message.data().get()))
          label->setString(UIString(L"Stored as " + asString(event->font)));
        return 0;
      })));
  return window;
}

PageRegistrar const fontChooserPage{"fontchooser", "Font chooser",
                                    "The font chooser panel: type in the filter to narrow the installed families, "
                                    "each drawn in itself, with the recently chosen ones on top; bold, italic and "
                                    "the text and background colours at the foot",
                                    buildFontChooserPage};

PageRegistrar const fontButtonPage{"fontbutton", "Font chooser button",
                                   "A titled button showing the title font's family in itself: click it to open the "
                                   "chooser, or turn the mouse wheel over it to step through the families. The line "
                                   "below is the font's text form",
                                   buildFontButtonPage};

} // namespace
