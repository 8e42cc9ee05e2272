#include "support/WidgetTestSupport.h"

#include <zowidgets/host/toolkit/UifStd.h>
#include <zowidgets/host/widgets/panels/Message.h>
#include <zowidgets/host/widgets/popups/StatusMessage.h>

namespace {

struct MessageGolden : HeadlessScreenTest {
  void TearDown() override {
    HeadlessScreenTest::TearDown();
    UifStd::setScale(1.0);
  }

  static Warn* openQuestion() {
    return make_warn(UIString(L"A file called \"Edit 3.mov\" already exists in this folder. Replace it?"),
                     {UIString(L"Replace"), UIString(L"Cancel")}, {}, UIString(L"Export"), XY<int>(40, 40));
  }

  static StatusMessage* openStatus() {
    StatusMessage::InitArgs args(UIString(L"Drag a clip onto a track to add it to the sequence."), kRelativeAbove);
    args.screenPosition = XY<int>(40, 40);
    auto* status = new StatusMessage(args);
    GlobManager::realize(status);
    return status;
  }
};

TEST_F(MessageGolden, AQuestionAtScale1) {
  Warn* warn = openQuestion();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*warn), ZO_GOLDEN_DIR "/warn_question.png"));
}

TEST_F(MessageGolden, AQuestionAtScale2) {
  UifStd::setScale(2.0);
  Warn* warn = openQuestion();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*warn), ZO_GOLDEN_DIR "/warn_question_scale2.png"));
}

TEST_F(MessageGolden, AStatusMessageAtScale1) {
  StatusMessage* status = openStatus();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*status), ZO_GOLDEN_DIR "/status_message.png"));
}

TEST_F(MessageGolden, AStatusMessageAtScale2) {
  UifStd::setScale(2.0);
  StatusMessage* status = openStatus();
  EXPECT_TRUE(matchesGolden(HeadlessScreen::windowShot(*status), ZO_GOLDEN_DIR "/status_message_scale2.png"));
}

} // namespace
