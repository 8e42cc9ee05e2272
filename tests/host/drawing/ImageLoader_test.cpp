// The loader is held to ImageMagick's decode of the same files.
#include "ImageTestFiles.h"

#include <zowidgets/host/drawing/ImageLoader.h>
#include <zowidgets/host/drawing/ImageOperations.h>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace ImageTestFiles;
using Zo::Image::Surface;
using ZoImage::Loader;

std::string const kWood = wallpaper("wood-d.webp");

std::string photoJpeg() { return made("photo.jpg", kWood, "-resize 1200x900! -quality 92"); }
std::string photoPng() { return made("photo.png", kWood, "-resize 600x450!"); }

double meanDifference(Surface const& a, Surface const& b) {
  long long total = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      std::uint32_t const p = a.pixel(x, y);
      std::uint32_t const q = b.pixel(x, y);
      for (int shift = 0; shift < 32; shift += 8)
        total += std::abs(int((p >> shift) & 0xFF) - int((q >> shift) & 0xFF));
    }
  }
  return double(total) / (double(a.width()) * a.height() * 4);
}

TEST(ImageLoader, JpegMatchesTheReferenceDecodeExactly) {
  Surface const picture = Loader::loadImage(photoJpeg());
  Surface const expected = reference(photoJpeg());
  ASSERT_FALSE(expected.empty());
  ASSERT_EQ(picture.width(), 1200);
  ASSERT_EQ(picture.height(), 900);
  EXPECT_LE(Surface::compare(picture, expected).maxChannel, 1);
}

// At 1/8 the decoder averages each 8x8 block in the frequency domain; the
// reference shrinks its full decode by averaging the same blocks. They agree
// to within 2 on average and 48 at worst (at sharp edges of the grain).
TEST(ImageLoader, JpegThumbnailIsDecodedAtReducedScaleAndAgreesWithAShrunkFullDecode) {
  Surface const thumb = Loader::loadImage(photoJpeg(), {150, 113});
  ASSERT_EQ(thumb.width(), 150);
  ASSERT_EQ(thumb.height(), 113);
  Surface const expected = reference(photoJpeg(), "-scale 150x113!");
  ASSERT_EQ(expected.width(), 150);
  EXPECT_LE(meanDifference(thumb, expected), 2.0);
  EXPECT_LE(Surface::compare(thumb, expected).maxChannel, 48);
}

TEST(ImageLoader, JpegThumbnailOfQuarterSizeIsNotAFullDecode) {
  // 300x225 is exactly a quarter: the decoder's own scale gives it, and the
  // reference using the same scaled decode agrees exactly.
  Surface const quarter = Loader::loadImage(photoJpeg(), {300, 225});
  Surface const expected = reference(photoJpeg(), "", "-define jpeg:size=300x225");
  ASSERT_EQ(expected.width(), 300);
  EXPECT_LE(Surface::compare(quarter, expected).maxChannel, 1);
}

TEST(ImageLoader, PngOfEveryKindMatchesTheReference) {
  struct Kind {
    char const* name;
    char const* arguments;
  };
  for (Kind const& kind : {Kind{"rgb8.png", ""}, Kind{"rgb16.png", "-depth 16"},
                           Kind{"palette.png", "-colors 200 PNG8:"}, Kind{"grey.png", "-colorspace Gray"},
                           Kind{"grey16.png", "-colorspace Gray -depth 16"}, Kind{"interlaced.png", "-interlace PNG"},
                           Kind{"alpha.png", "-alpha set -channel A -evaluate set 40% +channel"}}) {
    std::string path = folder() + "/" + kind.name;
    std::string const arguments = kind.arguments;
    std::string const prefix = arguments.ends_with("PNG8:") ? "PNG8:" : "";
    run("convert '" + photoPng() + "' " + arguments.substr(0, arguments.size() - prefix.size()) + " '" + prefix + path +
        "'");
    Surface const picture = Loader::loadImage(path);
    Surface const expected = reference(path);
    ASSERT_FALSE(expected.empty()) << kind.name;
    ASSERT_EQ(picture.width(), 600) << kind.name;
    EXPECT_LE(Surface::compare(picture, expected).maxChannel, 1) << kind.name;
  }
}

// A PNG wanted much smaller is shrunk by whole blocks as its rows arrive and
// then filtered to size; it agrees with the full decode filtered to the same
// size, for every kind of PNG (interlaced files are read whole).
TEST(ImageLoader, PngThumbnailOfEveryKindAgreesWithAShrunkFullDecode) {
  for (char const* name : {"rgb8", "rgb16", "palette", "grey", "grey16", "interlaced", "alpha"}) {
    std::string const path = folder() + "/thumb-" + name + ".png";
    std::string const arguments = std::string(name) == "rgb16"        ? "-depth 16"
                                  : std::string(name) == "palette"    ? "-colors 200"
                                  : std::string(name) == "grey"       ? "-colorspace Gray"
                                  : std::string(name) == "grey16"     ? "-colorspace Gray -depth 16"
                                  : std::string(name) == "interlaced" ? "-interlace PNG"
                                  : std::string(name) == "alpha" ? "-alpha set -channel A -evaluate set 40% +channel"
                                                                 : "";
    std::string const prefix = std::string(name) == "palette" ? "PNG8:" : "";
    run("convert '" + photoPng() + "' " + arguments + " '" + prefix + path + "'");
    Surface const thumb = Loader::loadImage(path, {75, 56});
    Surface const whole = Loader::loadImage(path);
    ASSERT_EQ(whole.width(), 600) << name;
    Surface const expected = Zo::Image::resize(whole, 75, 56);
    ASSERT_EQ(thumb.width(), 75) << name;
    ASSERT_EQ(thumb.height(), 56) << name;
    EXPECT_LE(meanDifference(thumb, expected), 2.0) << name;
    EXPECT_LE(Surface::compare(thumb, expected).maxChannel, 48) << name;
  }
}

// Half the size or more is not worth a block shrink: the picture is read
// whole and filtered, exactly as without the wish.
TEST(ImageLoader, PngThumbnailOfMoreThanHalfSizeIsTheFilteredFullDecode) {
  Surface const thumb = Loader::loadImage(photoPng(), {400, 300});
  Surface const expected = Zo::Image::resize(Loader::loadImage(photoPng()), 400, 300);
  ASSERT_EQ(thumb.width(), 400);
  EXPECT_EQ(Surface::compare(thumb, expected).maxChannel, 0);
}

TEST(ImageLoader, WebpWallpaperMatchesTheReference) {
  Surface const picture = Loader::loadImage(kWood);
  Surface const expected = reference(kWood);
  ASSERT_EQ(picture.width(), 4096);
  EXPECT_LE(Surface::compare(picture, expected).maxChannel, 1);
}

TEST(ImageLoader, FormatIsToldByContentNotByName) {
  std::string const misnamed = folder() + "/really-a-jpeg.png";
  writeBytes(misnamed, readBytes(photoJpeg()));
  EXPECT_TRUE(Loader::canLoadImage(misnamed));
  EXPECT_EQ(Loader::loadImage(misnamed).width(), 1200);

  std::string const text = folder() + "/text.jpg";
  writeBytes(text, "not a picture at all");
  LogCapture log;
  EXPECT_FALSE(Loader::canLoadImage(text));
  EXPECT_TRUE(Loader::loadImage(text).empty());
  ASSERT_EQ(log.lines().size(), 1u);
  EXPECT_NE(log.lines()[0].find("text.jpg"), std::string::npos);
}

TEST(ImageLoader, EmptyAndMissingFilesGiveAnEmptyPictureAndALogLine) {
  std::string const empty = folder() + "/empty.png";
  writeBytes(empty, "");
  LogCapture log;
  EXPECT_TRUE(Loader::loadImage(empty).empty());
  EXPECT_TRUE(Loader::loadImage(folder() + "/missing.png").empty());
  EXPECT_FALSE(Loader::canLoadImage(folder() + "/missing.png"));
  auto const lines = log.lines();
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_NE(lines[0].find("empty"), std::string::npos);
  EXPECT_NE(lines[1].find("cannot be opened"), std::string::npos);
}

// Every file cut short at several places, and every file with bytes flipped
// through its middle, is refused whole: an empty picture and a line in the log.
TEST(ImageLoader, TruncatedAndCorruptFilesAreRefused) {
  std::string const smallWebp = made("small.webp", kWood, "-resize 300x300");
  for (std::string const& path : {photoJpeg(), photoPng(), smallWebp}) {
    std::string const bytes = readBytes(path);
    for (double share : {0.1, 0.5, 0.9, 0.999}) {
      LogCapture log;
      std::string const cut = bytes.substr(0, std::size_t(double(bytes.size()) * share));
      EXPECT_TRUE(Loader::decode(cut).empty()) << path << " cut at " << share;
      EXPECT_EQ(log.lines().size(), 1u) << path << " cut at " << share;
      // The same when only a thumbnail is wanted, which reads rows as they come.
      EXPECT_TRUE(Loader::decode(cut, {40, 30}).empty()) << path << " cut at " << share;
      EXPECT_EQ(log.lines().size(), 2u) << path << " cut at " << share;
    }
  }
  // Flipped bytes: a PNG's checksums catch any change; a JPEG's entropy
  // coded data is changed in a way its decoder notices (a marker in the
  // middle of the scan).
  std::string png = readBytes(photoPng());
  png[png.size() / 2] ^= 0x5A;
  EXPECT_TRUE(Loader::decode(png).empty());
  EXPECT_TRUE(Loader::decode(png, {40, 30}).empty());
  std::string jpeg = readBytes(photoJpeg());
  for (std::size_t i = jpeg.size() / 2; i < jpeg.size() / 2 + 64; ++i)
    jpeg[i] = char(0xFF);
  EXPECT_TRUE(Loader::decode(jpeg).empty());
}

TEST(ImageLoader, FlippedBytesAnywhereNeverCrash) {
  std::string const smallJpeg = made("small.jpg", kWood, "-resize 64x64");
  std::string const bytes = readBytes(smallJpeg);
  for (std::size_t i = 0; i < bytes.size(); i += 7) {
    std::string damaged = bytes;
    damaged[i] = char(~damaged[i]);
    Surface const picture = Loader::decode(damaged);
    EXPECT_TRUE(picture.empty() || (picture.width() <= 64 * 8 && picture.height() <= 64 * 8));
  }
}

// The CRC-32 that PNG chunks carry, so that a patched header is still a valid
// chunk and the loader's own size check is what refuses it.
std::uint32_t pngCrc(std::string_view bytes) {
  std::uint32_t crc = 0xFFFFFFFFu;
  for (char c : bytes) {
    crc ^= static_cast<unsigned char>(c);
    for (int bit = 0; bit < 8; ++bit)
      crc = (crc >> 1) ^ (0xEDB88320u & (0u - (crc & 1u)));
  }
  return ~crc;
}

void putBigEndian(std::string& bytes, std::size_t at, std::uint32_t value, int length) {
  for (int i = 0; i < length; ++i)
    bytes[at + i] = char((value >> (8 * (length - 1 - i))) & 0xFF);
}

TEST(ImageLoader, DecompressionBombIsRefusedFromItsHeader) {
  // A PNG whose header claims 30000 by 30000 pixels over a small body:
  // IHDR's width and height sit at bytes 16..23, its CRC at 29..32.
  std::string png = readBytes(photoPng());
  putBigEndian(png, 16, 30000, 4);
  putBigEndian(png, 20, 30000, 4);
  putBigEndian(png, 29, pngCrc(std::string_view(png).substr(12, 17)), 4);
  LogCapture pngLog;
  EXPECT_TRUE(Loader::decode(png).empty());
  ASSERT_EQ(pngLog.lines().size(), 1u);
  EXPECT_NE(pngLog.lines()[0].find("30000 by 30000"), std::string::npos) << pngLog.lines()[0];
  EXPECT_TRUE(Loader::decode(png, {160, 90}).empty());
  ASSERT_EQ(pngLog.lines().size(), 2u);
  EXPECT_NE(pngLog.lines()[1].find("30000 by 30000"), std::string::npos) << pngLog.lines()[1];

  // A JPEG whose frame header claims 30000 by 30000.
  std::string jpeg = readBytes(photoJpeg());
  std::size_t const frame = jpeg.find("\xFF\xC0");
  ASSERT_NE(frame, std::string::npos);
  putBigEndian(jpeg, frame + 5, 30000, 2);
  putBigEndian(jpeg, frame + 7, 30000, 2);
  LogCapture jpegLog;
  EXPECT_TRUE(Loader::decode(jpeg).empty());
  ASSERT_EQ(jpegLog.lines().size(), 1u);
  EXPECT_NE(jpegLog.lines()[0].find("30000 by 30000"), std::string::npos) << jpegLog.lines()[0];
}

// An APP1 segment holding a big-endian EXIF directory with one entry, the
// orientation, as a camera writes it.
std::string exifSegment(int orientation) {
  std::string tiff("MM\0\x2A\0\0\0\x08", 8);
  tiff += std::string("\0\x01", 2);                   // one entry
  tiff += std::string("\x01\x12\0\x03\0\0\0\x01", 8); // orientation, a SHORT, one of it
  tiff += std::string(1, '\0') + char(orientation) + std::string(2, '\0');
  tiff += std::string(4, '\0'); // no next directory
  std::string const payload = std::string("Exif\0\0", 6) + tiff;
  std::string segment("\xFF\xE1", 2);
  std::size_t const length = payload.size() + 2;
  segment += char(length >> 8);
  segment += char(length & 0xFF);
  return segment + payload;
}

TEST(ImageLoader, JpegExifOrientationTurnsThePicture) {
  // 120x80 stored with a red corner at the top left, marked "turn a quarter
  // clockwise" (6): shown 80x120, with that corner at the top right.
  std::string const stored =
      made("stored.jpg", "-size 120x80 xc:blue", "-fill red -draw 'rectangle 0,0 20,20' -quality 95");
  std::string bytes = readBytes(stored);
  ASSERT_GT(bytes.size(), 2u);
  bytes.insert(2, exifSegment(6));
  Surface const picture = Loader::decode(bytes);
  ASSERT_EQ(picture.width(), 80);
  ASSERT_EQ(picture.height(), 120);
  std::uint32_t const topRight = picture.pixel(75, 5);
  EXPECT_GT((topRight >> 16) & 0xFF, 200u) << std::hex << topRight;
  EXPECT_LT(topRight & 0xFF, 60u) << std::hex << topRight;
  std::uint32_t const topLeft = picture.pixel(5, 5);
  EXPECT_GT(topLeft & 0xFF, 200u) << std::hex << topLeft;
  // A thumbnail of the turned picture fits the turned size.
  Surface const thumb = Loader::decode(bytes, {40, 60});
  EXPECT_EQ(thumb.width(), 40);
  EXPECT_EQ(thumb.height(), 60);
}

TEST(ImageLoader, AnSvgDrawingIsDrawnAtTheSizeAskedForAndKeepsItsColours) {
  std::string const path = folder() + "/halves.svg";
  writeBytes(path, "\xEF\xBB\xBF\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"40\" height=\"20\">"
                   "<rect x=\"0\" y=\"0\" width=\"20\" height=\"20\" fill=\"#ff0000\"/>"
                   "<rect x=\"20\" y=\"0\" width=\"20\" height=\"20\" fill=\"#0000ff\"/></svg>");
  EXPECT_TRUE(Loader::canLoadImage(path));
  Surface const whole = Loader::loadImage(path);
  ASSERT_EQ(whole.width(), 40);
  ASSERT_EQ(whole.height(), 20);
  EXPECT_EQ(whole.pixel(10, 10), 0xFFFF0000u);
  EXPECT_EQ(whole.pixel(30, 10), 0xFF0000FFu);
  Surface const small = Loader::loadImage(path, XY<int>(20, 20));
  ASSERT_EQ(small.width(), 20);
  ASSERT_EQ(small.height(), 10);
  EXPECT_EQ(small.pixel(4, 5), 0xFFFF0000u) << "drawn at the size, not shrunk from a larger drawing";
  EXPECT_EQ(small.pixel(15, 5), 0xFF0000FFu);
  EXPECT_EQ(Loader::loadImage(path, XY<int>(400, 400)).width(), 40) << "never drawn larger than its own size";
}

TEST(ImageLoader, AWallpaperDrawingLoadsFittedAndHugeOrSizelessDrawingsAreHandled) {
  std::string const blobs = wallpaper("blobs-d.svg");
  Surface const thumb = Loader::loadImage(blobs, XY<int>(320, 240));
  ASSERT_FALSE(thumb.empty());
  EXPECT_TRUE(thumb.width() == 320 || thumb.height() == 240) << thumb.width() << " by " << thumb.height();

  std::string const huge = folder() + "/huge.svg";
  writeBytes(huge, "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"100000\" height=\"50000\">"
                   "<rect width=\"100000\" height=\"50000\" fill=\"#00ff00\"/></svg>");
  Surface const drawn = Loader::loadImage(huge);
  EXPECT_EQ(drawn.width(), 4096) << "a drawing asked for whole is drawn at most 4096 pixels a side";
  EXPECT_EQ(drawn.height(), 2048);

  std::string const sizeless = folder() + "/sizeless.svg";
  writeBytes(sizeless, "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 10 10\" width=\"50%\"/>");
  std::string const broken = folder() + "/broken.svg";
  writeBytes(broken, "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"10\" height=\"10\"><rect");
  LogCapture log;
  EXPECT_TRUE(Loader::loadImage(sizeless).empty());
  EXPECT_TRUE(Loader::loadImage(broken).empty());
  auto const lines = log.lines();
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_NE(lines[0].find("states no size"), std::string::npos) << lines[0];
  EXPECT_NE(lines[1].find("not a readable SVG drawing"), std::string::npos) << lines[1];
}

TEST(ImageLoader, SupportedExtensionsNameTheFourFormats) {
  auto const extensions = Loader::getSupportedImageExtensions();
  for (wchar_t const* extension : {L"jpg", L"jpeg", L"png", L"webp", L"svg"})
    EXPECT_NE(std::find(extensions.begin(), extensions.end(), LightweightString<wchar_t>(extension)), extensions.end());
}

} // namespace
