#include <zowidgets/host/drawing/ImageSurface.h>

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <unistd.h>

using Zo::Image::Surface;

namespace {

class TempFolder {
public:
  TempFolder() : path_(std::filesystem::temp_directory_path() / ("zo-surface-" + std::to_string(::getpid()))) {
    std::filesystem::create_directories(path_);
  }
  ~TempFolder() { std::filesystem::remove_all(path_); }
  std::string file(char const* name) const { return (path_ / name).string(); }
  std::filesystem::path const& path() const { return path_; }

private:
  std::filesystem::path path_;
};

// A random but valid premultiplied pixel: no channel above alpha.
std::uint32_t randomPremultiplied(std::mt19937& random) {
  std::uint32_t const alpha = random() % 256;
  std::uniform_int_distribution<std::uint32_t> channel(0, alpha);
  return alpha << 24 | channel(random) << 16 | channel(random) << 8 | channel(random);
}

} // namespace

TEST(ImageSurface, DefaultIsEmpty) {
  Surface surface;
  EXPECT_TRUE(surface.empty());
  EXPECT_EQ(surface.width(), 0);
  EXPECT_EQ(surface.height(), 0);
  EXPECT_EQ(surface.data(), nullptr);
  EXPECT_EQ(surface.pixel(0, 0), 0u);
}

TEST(ImageSurface, NewSurfaceIsTransparentWithCairoRows) {
  Surface surface(7, 3);
  ASSERT_FALSE(surface.empty());
  EXPECT_EQ(surface.width(), 7);
  EXPECT_EQ(surface.height(), 3);
  EXPECT_EQ(surface.stride(), 28);
  for (int row = 0; row < 3; ++row)
    for (int x = 0; x < 7; ++x)
      EXPECT_EQ(surface.pixel(x, row), 0u);
}

TEST(ImageSurface, ALargeSurfaceIsTransparentAndKeepsWhatIsWritten) {
  // 16 MB: large enough to be asked of the kernel in huge pages.
  Surface surface(2048, 2048);
  ASSERT_FALSE(surface.empty());
  for (int row = 0; row < 2048; row += 97)
    for (int x = 0; x < 2048; x += 89)
      ASSERT_EQ(surface.pixel(x, row), 0u) << x << ", " << row;
  surface.fill(Colour(0.0, 0.0, 1.0));
  EXPECT_EQ(surface.pixel(0, 0), 0xFF0000FFu);
  EXPECT_EQ(surface.pixel(2047, 2047), 0xFF0000FFu);
  EXPECT_EQ(surface.pixel(1024, 1500), 0xFF0000FFu);
}

TEST(ImageSurface, ImpossibleSizesGiveEmptySurfaces) {
  EXPECT_TRUE(Surface(0, 5).empty());
  EXPECT_TRUE(Surface(5, -1).empty());
  EXPECT_TRUE(Surface(Surface::kMaxSide + 1, 1).empty());
}

TEST(ImageSurface, PixelsAreNativeWordsRowZeroAtTheTop) {
  Surface surface(4, 2);
  surface.setPixel(1, 1, 0x80402010u);
  EXPECT_EQ(surface.pixel(1, 1), 0x80402010u);
  std::uint32_t word;
  std::memcpy(&word, surface.data() + surface.stride() + 4, sizeof word);
  EXPECT_EQ(word, 0x80402010u);
}

TEST(ImageSurface, OutsideReadsZeroAndWritesNothing) {
  Surface surface(2, 2);
  surface.setPixel(-1, 0, 0xFFFFFFFFu);
  surface.setPixel(2, 0, 0xFFFFFFFFu);
  surface.setPixel(0, 2, 0xFFFFFFFFu);
  for (int row = 0; row < 2; ++row)
    for (int x = 0; x < 2; ++x)
      EXPECT_EQ(surface.pixel(x, row), 0u);
  EXPECT_EQ(surface.pixel(5, 5), 0u);
}

TEST(ImageSurface, CopiesShareAndCloneSeparates) {
  Surface original(3, 3);
  Surface copy = original;
  EXPECT_TRUE(copy.sharesPixelsWith(original));
  copy.setPixel(0, 0, 0xFF112233u);
  EXPECT_EQ(original.pixel(0, 0), 0xFF112233u);

  Surface clone = original.clone();
  EXPECT_FALSE(clone.sharesPixelsWith(original));
  EXPECT_EQ(clone.pixel(0, 0), 0xFF112233u);
  clone.setPixel(0, 0, 0xFF000000u);
  EXPECT_EQ(original.pixel(0, 0), 0xFF112233u);
}

TEST(ImageSurface, FillStoresPremultipliedColour) {
  Surface surface(3, 2);
  surface.fill(Colour(0.2, 0.4, 0.6));
  EXPECT_EQ(surface.pixel(2, 1), 0xFF336699u);
  Colour half(1.0, 1.0, 1.0);
  half.setAlpha(0.5);
  surface.fill(half);
  EXPECT_EQ(surface.pixel(0, 0), 0x80808080u);
  surface.fill(Colour::invalid());
  EXPECT_EQ(surface.pixel(1, 1), 0u);
}

TEST(ImageSurface, BlitCompositesSourceOver) {
  Surface screen(4, 4);
  screen.fill(Colour(0.0, 0.0, 1.0));
  Surface window(2, 2);
  window.setPixel(0, 0, 0xFFFF0000u); // opaque red
  window.setPixel(1, 0, 0x80800000u); // half-transparent red
  window.setPixel(0, 1, 0x00000000u); // transparent
  window.setPixel(1, 1, 0xFF00FF00u);
  screen.blit(window, 1, 2);
  EXPECT_EQ(screen.pixel(1, 2), 0xFFFF0000u);
  EXPECT_EQ(screen.pixel(2, 2), 0xFF80007Fu);
  EXPECT_EQ(screen.pixel(1, 3), 0xFF0000FFu);
  EXPECT_EQ(screen.pixel(2, 3), 0xFF00FF00u);
  EXPECT_EQ(screen.pixel(0, 0), 0xFF0000FFu);
  EXPECT_EQ(screen.pixel(3, 1), 0xFF0000FFu);
}

TEST(ImageSurface, BlitDropsWhatFallsOutside) {
  Surface screen(3, 3);
  Surface window(3, 3);
  window.fill(Colour(1.0, 1.0, 1.0));
  screen.blit(window, -2, 2);
  EXPECT_EQ(screen.pixel(0, 2), 0xFFFFFFFFu);
  EXPECT_EQ(screen.pixel(1, 2), 0u);
  EXPECT_EQ(screen.pixel(0, 1), 0u);
}

TEST(ImageSurface, BlitOntoItselfUsesTheOriginalPixels) {
  Surface surface(4, 1);
  surface.setPixel(0, 0, 0xFFFF0000u);
  surface.setPixel(1, 0, 0xFF00FF00u);
  surface.blit(surface, 1, 0);
  EXPECT_EQ(surface.pixel(1, 0), 0xFFFF0000u);
  EXPECT_EQ(surface.pixel(2, 0), 0xFF00FF00u);
}

TEST(ImageSurface, PNGRoundTripIsExact) {
  TempFolder folder;
  std::mt19937 random(1234);
  Surface surface(37, 23);
  for (int row = 0; row < surface.height(); ++row)
    for (int x = 0; x < surface.width(); ++x)
      surface.setPixel(x, row, randomPremultiplied(random));
  ASSERT_TRUE(surface.savePNG(folder.file("round.png")));
  Surface loaded = Surface::loadPNG(folder.file("round.png"));
  ASSERT_EQ(loaded.width(), 37);
  ASSERT_EQ(loaded.height(), 23);
  Surface::Difference const difference = Surface::compare(surface, loaded);
  EXPECT_EQ(difference.differingPixels, 0);
  EXPECT_EQ(difference.maxChannel, 0);
}

TEST(ImageSurface, PNGKeepsEveryAlphaLevelOfOneColour) {
  TempFolder folder;
  Surface surface(256, 1);
  for (int alpha = 0; alpha < 256; ++alpha)
    surface.setPixel(alpha, 0, std::uint32_t(alpha) << 24 | std::uint32_t(alpha * 3 / 4) << 8);
  ASSERT_TRUE(surface.savePNG(folder.file("alpha.png")));
  EXPECT_EQ(Surface::compare(surface, Surface::loadPNG(folder.file("alpha.png"))).differingPixels, 0);
}

TEST(ImageSurface, SavingFailsWithoutPixelsOrAPlaceForTheFile) {
  TempFolder folder;
  EXPECT_FALSE(Surface().savePNG(folder.file("empty.png")));
  std::ofstream(folder.file("plain")) << "a file, not a folder";
  EXPECT_FALSE(Surface(2, 2).savePNG(folder.file("plain/x.png")));
}

TEST(ImageSurface, SavingOverAFileReplacesItAndAFailedSaveLeavesItWhole) {
  TempFolder folder;
  std::string const path = folder.file("kept.png");
  Surface first(3, 2);
  first.fill(Colour(1.0, 0.0, 0.0));
  ASSERT_TRUE(first.savePNG(path));
  Surface second(5, 4);
  second.fill(Colour(0.0, 0.0, 1.0));
  ASSERT_TRUE(second.savePNG(path));
  EXPECT_EQ(Surface::compare(second, Surface::loadPNG(path)).differingPixels, 0);

  EXPECT_FALSE(Surface().savePNG(path));
  EXPECT_EQ(Surface::loadPNG(path).width(), 5);
  // Nothing but the picture is left beside it.
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

TEST(ImageSurface, PngBytesAreTheFileThatSavingWrites) {
  TempFolder folder;
  Surface surface(4, 3);
  surface.fill(Colour(0.2, 0.4, 0.6));
  ASSERT_TRUE(surface.savePNG(folder.file("saved.png")));
  std::ifstream file(folder.file("saved.png"), std::ios::binary);
  std::string const written((std::istreambuf_iterator<char>(file)), {});
  std::string const bytes = surface.pngBytes();
  EXPECT_TRUE(bytes.starts_with("\x89PNG"));
  EXPECT_EQ(bytes, written);
  EXPECT_TRUE(Surface().pngBytes().empty());
}

TEST(ImageSurface, BadFilesLoadAsEmptySurfaces) {
  TempFolder folder;
  EXPECT_TRUE(Surface::loadPNG(folder.file("missing.png")).empty());

  std::ofstream(folder.file("text.png")) << "this is not a picture";
  EXPECT_TRUE(Surface::loadPNG(folder.file("text.png")).empty());

  Surface surface(64, 64);
  surface.fill(Colour(0.5, 0.25, 1.0));
  ASSERT_TRUE(surface.savePNG(folder.file("whole.png")));
  std::filesystem::path const whole = folder.file("whole.png");
  std::filesystem::copy_file(whole, folder.file("cut.png"));
  std::filesystem::resize_file(folder.file("cut.png"), std::filesystem::file_size(whole) / 2);
  EXPECT_TRUE(Surface::loadPNG(folder.file("cut.png")).empty());
}

TEST(ImageSurface, CompareCountsPixelsBeyondTheTolerance) {
  Surface a(3, 1);
  Surface b(3, 1);
  a.setPixel(0, 0, 0xFF101010u);
  b.setPixel(0, 0, 0xFF101012u);
  a.setPixel(1, 0, 0xFF000000u);
  b.setPixel(1, 0, 0xFF000030u);
  Surface::Difference exact = Surface::compare(a, b);
  EXPECT_TRUE(exact.sameSize);
  EXPECT_EQ(exact.maxChannel, 0x30);
  EXPECT_EQ(exact.differingPixels, 2);
  EXPECT_EQ(Surface::compare(a, b, 2).differingPixels, 1);
  EXPECT_EQ(Surface::maxChannelDifference(a, a), 0);

  Surface::Difference sizes = Surface::compare(a, Surface(3, 2));
  EXPECT_FALSE(sizes.sameSize);
  EXPECT_EQ(sizes.maxChannel, 255);
}
