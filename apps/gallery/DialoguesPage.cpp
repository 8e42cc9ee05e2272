// Dialogue helpers and the checks made before a file is written: a yes/no
// question, and a path checked as an exporter would, the report in words
// and the answer on the page.
#include "PageLayout.h"

#include <zowidgets/hints/YesNoDialogue.h>
#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/buttons/PushButton.h>
#include <zowidgets/host/widgets/text/TextLabel.h>
#include <zowidgets/host/widgets/text/TitleTextBox.h>
#include <zowidgets/logging/OutfileReporter.h>

#include <string>

namespace {

using WString = LightweightString<wchar_t>;

// Shows what the user answered; it is also the listener that hears the
// choice to replace a file.
class AnswerPanel : public StandardPanel {
public:
  explicit AnswerPanel(InitArgs const& args) : StandardPanel(args) {
    TextLabel::InitArgs label(XY<int>(args.size.x, args.size.y));
    label.text = L"Answers show here";
    label_ = createWidget<TextLabel>(label, UserTopLeft(0, 0));
  }
  char const* idstring() const override { return "AnswerPanel"; }
  void say(WString const& text) { label_->setString(text); }
  int handleMessageEvent(LightweightString<char> const& message, Glob* sender) override {
    if (message != outfile_reporter::kReplaceFileMsg)
      return StandardPanel::handleMessageEvent(message, sender);
    say(L"Answer: replace the file");
    return 1;
  }

private:
  TextLabel* label_ = nullptr;
};

Warn::Callback answer(AnswerPanel* answers, WString const& text) {
  IdStamp const stamp = EventHandler::stampOf(answers);
  return Broadcaster<ButtonEvent>::makeCallback([answers, stamp, text](ButtonEvent const&) {
    if (EventHandler::valid(answers, stamp))
      answers->say(text);
  });
}

WString describe(outfile_check_code code) {
  switch (code) {
  case kOutfileUsable:
    return L"Code 0: the file can be written";
  case kOutfileInvalidName:
    return L"Code 1: not a valid file name";
  case kOutfileNoPermissionFloppy:
  case kOutfileNoPermission:
    return WString((L"Code " + std::to_wstring(int(code)) + L": no permission to write").c_str());
  case kOutfileNoFolder:
    return L"Code 4: the folder does not exist";
  case kOutfileExists:
    return L"Code 5: the file exists";
  default:
    return L"";
  }
}

Glob* buildDialoguesPage(PageContext const& context) {
  PageMetrics const m = PageMetrics::current();
  int const width = 20 * m.row;
  StandardPanel* panel =
      openPageWindow(context, XY<int>(width + 2 * m.gap, 4 * m.row + 5 * m.gap), L"Dialogues and output checks");
  StandardPanel::InitArgs answerArgs(XY<int>(width, m.row));
  answerArgs.setBorder(Border());
  auto* answers = panel->createWidget<AnswerPanel>(answerArgs, Glob::UserTopLeft(m.gap, m.gap));

  auto* ask = panel->createWidget<PushButton>(PushButton::InitArgs(L"Ask yes or no", XY<int>(7 * m.row, 0)),
                                              Glob::Below(m.gap, answers));
  ask->setCallback(Broadcaster<ButtonEvent>::makeCallback([answers](ButtonEvent const&) {
    makeYesNoDialogue(UIString(L"Delete the three unused clips from the bin?"),
                      {answer(answers, L"Answer: yes"), answer(answers, L"Answer: no")});
  }));

  TitleTextBox::InitArgs pathArgs{GlobCreationInfo(XY<int>(width, m.row))};
  pathArgs.title = L"Output file";
  pathArgs.titleWidth = 5 * m.row;
  auto* path = panel->createWidget<TitleTextBox>(pathArgs, Glob::Below(m.gap, ask));
  path->setString(L"/tmp/Edit 3.mov");

  auto* check = panel->createWidget<PushButton>(PushButton::InitArgs(L"Check the path", XY<int>(7 * m.row, 0)),
                                                Glob::Below(m.gap, path));
  check->setCallback(Broadcaster<ButtonEvent>::makeCallback([answers, path](ButtonEvent const&) {
    answers->say(describe(outfile_uif_report(path->getString(), false, answers)));
  }));
  return panel;
}

PageRegistrar const dialoguesPage{"dialogues", "Dialogues and output checks",
                                  "makeYesNoDialogue, and outfile_uif_report checking a path before a file is "
                                  "written there: the report in words, and the offer to replace a file that exists",
                                  buildDialoguesPage};

} // namespace
