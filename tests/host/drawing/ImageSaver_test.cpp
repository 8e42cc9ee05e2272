#include "ImageTestFiles.h"

#include <zowidgets/host/drawing/ImageLoader.h>
#include <zowidgets/host/drawing/ImageSaver.h>

#include <gtest/gtest.h>

namespace {

using namespace ImageTestFiles;

TEST(ImageSaver, SavedPictureReadsBackWithItsAlpha) {
  Zo::Image::Surface picture(3, 2);
  picture.setPixel(0, 0, 0xFFFF0000u);
  picture.setPixel(1, 0, 0x80400000u);
  picture.setPixel(2, 1, 0x00000000u);
  std::string const path = folder() + "/saved.png";
  ASSERT_TRUE(ZoImage::Saver::saveImage(picture, path));
  Zo::Image::Surface const back = ZoImage::Loader::loadImage(path);
  EXPECT_EQ(Zo::Image::Surface::compare(picture, back).maxChannel, 0);
  Zo::Image::Surface const expected = reference(path);
  EXPECT_LE(Zo::Image::Surface::compare(expected, back).maxChannel, 1);
}

TEST(ImageSaver, SavingAgainReplacesTheFile) {
  std::string const path = folder() + "/again.png";
  Zo::Image::Surface first(4, 4);
  first.fill(Colour(1.0, 0.0, 0.0));
  Zo::Image::Surface second(2, 2);
  second.fill(Colour(0.0, 0.0, 1.0));
  ASSERT_TRUE(ZoImage::Saver::saveImage(first, path));
  ASSERT_TRUE(ZoImage::Saver::saveImage(second, path));
  EXPECT_EQ(ZoImage::Loader::loadImage(path).width(), 2);
}

TEST(ImageSaver, RefusesAnEmptyPictureAndOtherFormatsWithALogLine) {
  LogCapture log;
  EXPECT_FALSE(ZoImage::Saver::saveImage(Zo::Image::Surface(), folder() + "/nothing.png"));
  EXPECT_FALSE(ZoImage::Saver::saveImage(Zo::Image::Surface(2, 2), folder() + "/picture.jpg"));
  EXPECT_FALSE(std::filesystem::exists(folder() + "/picture.jpg"));
  EXPECT_EQ(log.lines().size(), 2u);
}

} // namespace
