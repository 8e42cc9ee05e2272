#include "ExportTestSupport.h"

#include <zowidgets/export/FrameRateButton.h>

namespace {

class FrameRateButtonTest : public ExportWidgetTest {
protected:
  FrameRateButton* makeButton() {
    std::vector<Zo::FrameRate> rates;
    Zo::getFrameRates(Zo::FrameRateGroups::kAll, rates);
    return log->createChild<FrameRateButton>(FrameRateButton::InitArgs(rates, XY<int>(260, 24)),
                                             Glob::UserTopLeft(10, 10));
  }
};

TEST_F(FrameRateButtonTest, EveryRowChosenWithThePointerGivesItsRate) {
  FrameRateButton* button = makeButton();
  std::vector<Zo::FrameRate> rates;
  Zo::getFrameRates(Zo::FrameRateGroups::kAll, rates);
  ASSERT_EQ(button->getBtn().getMenu().size(), static_cast<int>(rates.size()));
  for (std::size_t row = 0; row < rates.size(); ++row) {
    chooseRow(button->getBtn(), static_cast<int>(row));
    EXPECT_EQ(button->getSelectedFrameRate(), rates[row]) << "row " << row;
  }
}

TEST_F(FrameRateButtonTest, SettingARateSelectsItsRow) {
  FrameRateButton* button = makeButton();
  button->setFrameRate({30000, 1001, true});
  EXPECT_EQ(button->getBtn().getSelectedItemNameW(), L"29.97 fps DF");
  EXPECT_EQ(button->getSelectedFrameRate(), (Zo::FrameRate{30000, 1001, true}));
  // A rate not offered leaves the choice alone.
  button->setFrameRate({15, 1, false});
  EXPECT_EQ(button->getSelectedFrameRate(), (Zo::FrameRate{30000, 1001, true}));
}

TEST_F(FrameRateButtonTest, ButtonOfAGroupOffersOnlyItsRates) {
  std::vector<Zo::FrameRate> pal;
  Zo::getFrameRates(Zo::FrameRateGroups::kPAL, pal);
  auto* button =
      log->createChild<FrameRateButton>(FrameRateButton::InitArgs(pal, XY<int>(200, 24)), Glob::UserTopLeft(10, 10));
  EXPECT_EQ(button->getBtn().getMenu().size(), 3);
  EXPECT_EQ(button->getSelectedFrameRate(), (Zo::FrameRate{25, 1, false}));
}

TEST_F(FrameRateButtonTest, DefaultButtonOffersEveryRate) {
  auto* button = static_cast<FrameRateButton*>(log->addChild(new FrameRateButton(240, 24), Glob::UserTopLeft(10, 10)));
  EXPECT_EQ(button->getBtn().getMenu().size(), 15);
  EXPECT_EQ(button->getBtn().getSelectedItemNameW(), L"23.976 fps");
}

} // namespace
