#include "support/WidgetTestSupport.h"

#include <zowidgets/host/drawing/Palette.h>
#include <zowidgets/host/widgets/values/ImageView.h>

namespace {

constexpr std::uint32_t kOpaqueRed = 0xFFCC2020;
constexpr std::uint32_t kOpaqueBlue = 0xFF2040CC;

// A picture whose left half is red and right half blue.
Zo::Image::Surface twoHalves(int width, int height) {
  Zo::Image::Surface image(width, height);
  for (int row = 0; row < height; ++row)
    for (int x = 0; x < width; ++x)
      image.setPixel(x, row, x < width / 2 ? kOpaqueRed : kOpaqueBlue);
  return image;
}

struct ImageViewTest : HeadlessScreenTest {
  StandardPanel* panel = nullptr;
  void SetUp() override {
    HeadlessScreenTest::SetUp();
    panel = openPanel(XY<int>(400, 300), XY<int>(100, 100));
    panel->setBorder(Border());
  }
  ImageView* addView(XY<int> size, Zo::Image::Surface const& image, int scaling = ImageView::kStretch) {
    ImageView::InitArgs args(size);
    args.image = image;
    args.scaling = scaling;
    return panel->createWidget<ImageView>(args, Glob::BottomLeft(10, 10));
  }
};

TEST_F(ImageViewTest, StretchedThePictureCoversTheWholeView) {
  ImageView* view = addView(XY<int>(200, 100), twoHalves(10, 4));
  EXPECT_EQ(view->imageBox(), Zo::Box<int>(0, 0, 200, 100));
  EXPECT_EQ(rgbOf(widgetPixel(*view, XY<int>(2, 2))), rgbOf(kOpaqueRed));
  EXPECT_EQ(rgbOf(widgetPixel(*view, XY<int>(60, 97))), rgbOf(kOpaqueRed));
  EXPECT_EQ(rgbOf(widgetPixel(*view, XY<int>(140, 50))), rgbOf(kOpaqueBlue));
  EXPECT_EQ(rgbOf(widgetPixel(*view, XY<int>(197, 2))), rgbOf(kOpaqueBlue));
}

TEST_F(ImageViewTest, FittedThePictureKeepsItsProportionsInTheMiddle) {
  ImageView* view = addView(XY<int>(200, 100), twoHalves(40, 40), ImageView::kFit);
  EXPECT_EQ(view->imageBox(), Zo::Box<int>(50, 0, 150, 100));
  Rgb const window = rgbOf(view->getPalette().window());
  EXPECT_EQ(rgbOf(widgetPixel(*view, XY<int>(20, 50))), window);
  EXPECT_EQ(rgbOf(widgetPixel(*view, XY<int>(180, 50))), window);
  EXPECT_EQ(rgbOf(widgetPixel(*view, XY<int>(70, 50))), rgbOf(kOpaqueRed));
  EXPECT_EQ(rgbOf(widgetPixel(*view, XY<int>(130, 50))), rgbOf(kOpaqueBlue));
  view->setScaling(ImageView::kStretch);
  EXPECT_EQ(rgbOf(widgetPixel(*view, XY<int>(20, 50))), rgbOf(kOpaqueRed));
}

TEST_F(ImageViewTest, ThePictureFollowsTheViewsSize) {
  ImageView* view = addView(XY<int>(100, 50), twoHalves(10, 10));
  view->resize(300, 120);
  EXPECT_EQ(view->imageBox(), Zo::Box<int>(0, 0, 300, 120));
  EXPECT_EQ(rgbOf(widgetPixel(*view, XY<int>(100, 60))), rgbOf(kOpaqueRed));
  EXPECT_EQ(rgbOf(widgetPixel(*view, XY<int>(200, 60))), rgbOf(kOpaqueBlue));
  EXPECT_EQ(rgbOf(widgetPixel(*view, XY<int>(296, 117))), rgbOf(kOpaqueBlue));
}

TEST_F(ImageViewTest, WithoutAPictureOnlyTheWindowShows) {
  ImageView* view = addView(XY<int>(100, 50), Zo::Image::Surface());
  EXPECT_TRUE(view->imageBox().empty());
  EXPECT_EQ(rgbOf(widgetPixel(*view, XY<int>(50, 25))), rgbOf(view->getPalette().window()));
  view->setImage(twoHalves(4, 4));
  EXPECT_EQ(rgbOf(widgetPixel(*view, XY<int>(10, 25))), rgbOf(kOpaqueRed));
}

TEST(ImageViewOpaque, MakeOpaqueImageLaysThePictureOverTheColour) {
  Zo::Image::Surface image(2, 1);
  image.setPixel(0, 0, 0x80800000); // half-covering red, premultiplied
  image.setPixel(1, 0, 0x00000000); // nothing
  EXPECT_TRUE(ImageView::hasTransparency(image));
  Zo::Image::Surface const opaque = ImageView::makeOpaqueImage(image, Colour(0.0, 0.0, 1.0));
  EXPECT_FALSE(ImageView::hasTransparency(opaque));
  EXPECT_EQ(opaque.pixel(1, 0), 0xFF0000FFu);
  EXPECT_TRUE(near(rgbOf(opaque.pixel(0, 0)), Rgb{128, 0, 127}));
  EXPECT_FALSE(ImageView::hasTransparency(twoHalves(3, 3)));
  EXPECT_TRUE(ImageView::makeOpaqueImage(Zo::Image::Surface(), Colour(1, 1, 1)).empty());
  EXPECT_FALSE(image.sharesPixelsWith(opaque));
}

} // namespace
