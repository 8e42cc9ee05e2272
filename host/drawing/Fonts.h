#pragma once

#include <zowidgets/host/base/LightweightString.h>

#include <memory>
#include <vector>

namespace Glib {

// Which font to draw text in: a family, a size in whole points and style
// bits. An empty family and a size of 0 each mean the toolkit's default, so
// FontDesc() is the default font.
class ZO_API FontDesc {
public:
  static constexpr unsigned kBold = 1;
  static constexpr unsigned kItalic = 2;

  FontDesc() = default;
  // `family` in UTF-8. Style bits other than kBold and kItalic are kept as
  // given, for whoever defined them.
  FontDesc(LightweightString<char> const& family, unsigned size, unsigned style)
      : family_(family), size_(size), style_(style) {}

  LightweightString<char> const& family() const noexcept { return family_; }
  unsigned size() const noexcept { return size_; }
  unsigned style() const noexcept { return style_; }
  bool bold() const noexcept { return (style_ & kBold) != 0; }
  bool italic() const noexcept { return (style_ & kItalic) != 0; }

  void setFamily(LightweightString<char> const& family) { family_ = family; }
  void setSize(unsigned size) noexcept { size_ = size; }
  void setStyle(unsigned style) noexcept { style_ = style; }
  void setBold(bool on) noexcept { setBit(kBold, on); }
  void setItalic(bool on) noexcept { setBit(kItalic, on); }

  friend bool operator==(FontDesc const&, FontDesc const&) = default;

private:
  void setBit(unsigned bit, bool on) noexcept { style_ = on ? (style_ | bit) : (style_ & ~bit); }

  LightweightString<char> family_;
  unsigned size_ = 0;
  unsigned style_ = 0;
};

// The largest size mapFontSize gives; anything above is a mistake (a pixel
// count or an unscaled value), not a font.
inline constexpr unsigned kMaxFontSize = 999;

// The families of the fonts installed on this machine, in UTF-8, each once,
// in byte order. A font known by several names is listed by its English
// name, or else by its first. Empty when the font configuration cannot be
// read. The configuration is read once and kept; it is checked for changed
// files at most once a second, so fonts installed meanwhile appear then.
// Any thread.
ZO_API std::vector<LightweightString<char>> getAvailableFonts();
// The same list as kept: the same object until the list is read again, so a
// caller that keeps what it made of the list can tell a new one by address.
ZO_API std::shared_ptr<std::vector<LightweightString<char>> const> getAvailableFontsShared();
// Whether an installed family draws Latin letters as letters, so that its
// own name can be shown in it: false for a family marked as a symbol font,
// or with a face that has no Latin letters at all (dingbats, whose older
// faces put their symbols where the letters go, and scripts of their own).
// True for a family not installed. Any thread.
ZO_API bool drawsLatinText(LightweightString<char> const& family);

// The FontDesc size for a size in points at an interface scale: points times
// scale, rounded to whole points, at least 1 and at most kMaxFontSize.
// A size that is not a positive number (0, negative, NaN), or a scale that is
// not, gives 0: the default size.
ZO_API unsigned mapFontSize(double points, double scale = 1.0);

// The size of the interface font at scale 1, in pixels; every layout size
// of the toolkit derives from it.
inline constexpr int kBaseFontSize = 13;

// The interface scale: what every size the toolkit draws is multiplied by,
// fonts first. UifStd::setScale sets it.
ZO_API double interfaceScale();
// Scales at or below 0 (or not numbers) are ignored.
ZO_API void setInterfaceScale(double scale);

} // namespace Glib

// The default font size at the present scale, in pixels.
ZO_API int getDefaultFontSize();
// The default families: 0 the interface font, 1 fixed width, 2 serif; other
// values give the interface font.
ZO_API LightweightString<char> getDefaultFontName(unsigned which = 0);
