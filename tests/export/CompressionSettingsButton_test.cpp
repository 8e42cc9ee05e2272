#include "ExportTestSupport.h"

#include <zowidgets/export/CompressionSettingsPanel.h>
#include <zowidgets/export/FileWriterInfo.h>
#include <zowidgets/host/base/configb.h>

namespace {

class CompressionSettingsButtonTest : public ExportWidgetTest {
protected:
  static GenericParam::ParamList jpegOptions() {
    VideoCompressionInfo info(shot(1920, 1080), CompressionFormat(Zo::Image::Format("AVC1")));
    return Zo::FileWriterInfo::getEncodeOptions("quicktime", info);
  }
};

TEST_F(CompressionSettingsButtonTest, PressingShowsTheParametersInADropDown) {
  GenericParam::ParamList const params = jpegOptions();
  CompressionSettingsButton::InitArgs args(XY<int>(28, 24), CompressionSettingsPanel::InitArgs(params));
  auto* button = log->createChild<CompressionSettingsButton>(args, Glob::UserTopLeft(10, 10));
  EXPECT_EQ(button->getIconName(), "ParamView.png");
  EXPECT_EQ(button->getDropDownPanel(), nullptr);
  HeadlessInput::clickOn(*button);
  pump();
  CompressionSettingsPanel* panel = button->getDropDownPanel();
  ASSERT_NE(panel, nullptr);
  ASSERT_NE(panel->getBuiltParams(), nullptr);
  EXPECT_EQ(panel->getBuiltParams()->getWidgets().size(), params.size());
  EXPECT_GE(panel->getUserArea().height(), panel->getBuiltParams()->calcHeight());
}

TEST_F(CompressionSettingsButtonTest, SavedStateIsShownWhenThePanelOpens) {
  GenericParam::ParamList const params = jpegOptions();
  configb state;
  state.set("Profile", 2);
  state.set("FastStart", false);
  CompressionSettingsButton::InitArgs args(XY<int>(28, 24), CompressionSettingsPanel::InitArgs(params, &state));
  auto* button = log->createChild<CompressionSettingsButton>(args, Glob::UserTopLeft(10, 10));
  HeadlessInput::clickOn(*button);
  pump();
  ASSERT_NE(button->getDropDownPanel(), nullptr);
  for (Zo::Ptr<GenericParam::iParam> const& param : params) {
    if (param->getID() == "Profile") {
      EXPECT_EQ(param->getValueAsString(), L"2");
    }
    if (param->getID() == "FastStart") { // on unless told
      EXPECT_NE(param->getValueAsString(), param->getDefaultValueAsString());
    }
  }
}

} // namespace
