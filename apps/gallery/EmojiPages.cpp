// The emoji picker on its own, and the multi-line text panel that offers it
// in a drop-down.
#include "PageLayout.h"

#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/widgets/buttons/Button.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/textentry/MultiLineTextBoxPanel.h>

namespace {

using WString = LightweightString<wchar_t>;

Glob* buildEmojiPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  XY<int> const picker = EmojiPanel::defaultSize();
  StandardPanel* panel =
      openPageWindow(context, XY<int>(picker.x + 2 * m.gap, picker.y + m.row + 3 * m.gap), L"Emoji picker");
  TextLabel::InitArgs labelArgs(GlobCreationInfo(XY<int>(picker.x, m.row)));
  labelArgs.text = L"Click an emoji to pick it";
  auto* label = panel->createWidget<TextLabel>(labelArgs, Glob::UserBottomLeft(m.gap, m.gap));
  EmojiPanel::InitArgs args;
  args.callback = Broadcaster<EmojiPanelEvent>::makeCallback([label](EmojiPanelEvent const& event) {
    label->setString(UIString(event.character.text + WString(L"  ") + WString::fromUTF8(event.character.name)));
  });
  panel->createWidget<EmojiPanel>(args, Glob::Above(m.gap, label));
  return panel;
}

// A note shown on one line, edited in a multi-line panel.
class NotePage : public StandardPanel {
public:
  using StandardPanel::StandardPanel;

  void build(PageMetrics const& m, int width) {
    TextLabel::InitArgs labelArgs(GlobCreationInfo(XY<int>(width, m.row)));
    note_ = createWidget<TextLabel>(labelArgs, Glob::UserTopLeft(m.gap, m.rowGap));
    Button::InitArgs editArgs(UIString(L"Edit note"), XY<int>(m.row * 5, m.row));
    edit_ = createWidget<Button>(editArgs, Glob::Below(m.rowGap, note_));
    edit_->setCallback(Broadcaster<ButtonEvent>::makeCallback([this](ButtonEvent const&) { openEditor(); }));
    show(WString(L"Scene 12, take 3\nSound: wind noise on the boom"));
  }

  // The editor, beside the page, on the note as it stands; the one already
  // open comes to the front instead, so that two edits never race.
  void openEditor() {
    if (EventHandler::valid(editor_, editorStamp_)) {
      if (Canvas* window = editor_->canvas())
        window->popToTop();
      return;
    }
    PageMetrics const m = PageMetrics::current();
    MultiLineTextBoxPanel::InitArgs args(XY<int>(m.row * 16, m.row * 9), text_,
                                         Broadcaster<MultiLineTextBoxPanelEvent>::makeCallback(
                                             [this](MultiLineTextBoxPanelEvent const& event) { show(event.text); }));
    args.title = UIString(L"Note");
    args.standardWidgets = kTitle | kPoot;
    if (canvas()) {
      Zo::Box<int> const page = canvas()->screenBox();
      args.screenPosition = XY<int>(page.x1 + m.gap, page.y1 - args.size.y);
    }
    editor_ = new MultiLineTextBoxPanel(args);
    editorStamp_ = EventHandler::stampOf(editor_);
    GlobManager::realize(editor_);
  }

private:
  void show(WString const& text) {
    text_ = text;
    note_->setString(UIString(MultiLineTextBoxPanel::getDisplayString(text)));
  }

  TextLabel* note_ = nullptr;
  Button* edit_ = nullptr;
  Glob* editor_ = nullptr;
  IdStamp editorStamp_;
  WString text_;
};

Glob* buildMultiLinePage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  int const width = m.row * 14;
  unsigned const widgets = StandardPanel::kTitle | StandardPanel::kPoot;
  StandardPanel::InitArgs args(StandardPanel::calcPanelSize(XY<int>(width + 2 * m.gap, 2 * m.row + 3 * m.rowGap),
                                                            widgets, StandardPanel::getDefaultBorder()));
  args.screenPosition = context.screenPosition;
  args.standardWidgets = widgets;
  args.title = L"Multi-line text";
  auto* page = new NotePage(args);
  GlobManager::realize(page);
  page->build(m, width);
  page->openEditor();
  return page;
}

PageRegistrar const emojiPage{"emoji", "Emoji picker",
                              "Every emoji of Unicode's list, one tab per category with the category's first emoji "
                              "on it; type in the filter and press Return to keep only the emoji whose names hold "
                              "the text. A click shows the emoji and its name below",
                              buildEmojiPage};

PageRegistrar const multiLinePage{
    "multiline", "Multi-line text",
    "A note shown on one line (its first line and dots), and the multi-line panel that edits it, open beside it: "
    "type, add an emoji from the smiley button's drop-down, and press OK (or Ctrl+Return) to store the note",
    buildMultiLinePage};

} // namespace
