// Message windows: a message, a question whose answer is reported, and a
// status message below the button that asked for it.
#include "PageLayout.h"

#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/panels/Message.h>
#include <zowidgets/host/widgets/popups/StatusMessage.h>
#include <zowidgets/host/widgets/text/TextLabel.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using WString = LightweightString<wchar_t>;

// Numbers the answers in a label's text, if the label still lives when the
// answer comes: each press answers once.
Warn::Callback reportTo(TextLabel* label, std::shared_ptr<int> const& answers, std::wstring const& text) {
  IdStamp const stamp = EventHandler::stampOf(label);
  return Broadcaster<ButtonEvent>::makeCallback([label, stamp, answers, text](ButtonEvent const&) {
    if (!EventHandler::valid(label, stamp))
      return;
    ++*answers;
    label->setString(WString((L"Answer " + std::to_wstring(*answers) + L": " + text).c_str()));
  });
}

// Opens a status message below `button`, its tip towards it.
StatusMessage* showStatusBelow(Button* button) {
  StatusMessage::InitArgs args(UIString(L"Drag a clip onto a track to add it to the sequence."), kRelativeBelow);
  args.screenPosition = TipWindowBase::calcPosition(Glob::Below(UifStd::getWidgetGap(), button), args.size);
  auto* status = new StatusMessage(args);
  GlobManager::realize(status);
  return status;
}

Glob* buildMessagesPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  int const buttonWidth = m.row * 7;
  StandardPanel* panel =
      openPageWindow(context, XY<int>(3 * buttonWidth + 4 * m.gap, 2 * m.row + 3 * m.gap), L"Message windows");
  TextLabel::InitArgs statusArgs(XY<int>(3 * buttonWidth + 2 * m.gap, m.row));
  statusArgs.text = L"Each button opens a window; answers show here";
  auto* status = panel->createWidget<TextLabel>(statusArgs, Glob::UserTopLeft(m.gap, m.gap));

  auto* message = panel->createWidget<PushButton>(PushButton::InitArgs(L"Show a message", XY<int>(buttonWidth, 0)),
                                                  Glob::UserBottomLeft(m.gap, m.gap));
  message->setCallback(Broadcaster<ButtonEvent>::makeCallback([panel](ButtonEvent const&) {
    makeMessage(UIString(L"The export finished: 3 files were written to the Exports folder."), UIString(L"Export"),
                panel->screenPosition() + XY<int>(panel->width() + UifStd::getRowHeight(), 0));
  }));

  auto* question = panel->createWidget<PushButton>(PushButton::InitArgs(L"Ask a question", XY<int>(buttonWidth, 0)),
                                                   Glob::RightOf(m.gap));
  auto const answers = std::make_shared<int>(0);
  question->setCallback(Broadcaster<ButtonEvent>::makeCallback([status, answers](ButtonEvent const&) {
    make_warn(UIString(L"A file called \"Edit 3.mov\" already exists in this folder. Replace it?"),
              {UIString(L"Replace"), UIString(L"Keep both")},
              {reportTo(status, answers, L"replace the file"), reportTo(status, answers, L"keep both files")},
              UIString(L"Export"));
  }));

  auto* hint = panel->createWidget<PushButton>(PushButton::InitArgs(L"Show a hint", XY<int>(buttonWidth, 0)),
                                               Glob::RightOf(m.gap));
  hint->setCallback(Broadcaster<ButtonEvent>::makeCallback([hint](ButtonEvent const&) { showStatusBelow(hint); }));

  // Shown at once, so that the page's picture has them.
  showStatusBelow(hint);
  makeMessage(UIString(L"The export finished: 3 files were written to the Exports folder."), UIString(L"Export"),
              panel->screenPosition() + XY<int>(panel->width() + m.row, 0));
  return panel;
}

PageRegistrar const messagesPage{"messages", "Message windows",
                                 "A message with an OK button, a question (Warn) whose answer shows on the page, and "
                                 "a StatusMessage below the button that opened it",
                                 buildMessagesPage};

} // namespace
