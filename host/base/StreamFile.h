#pragma once

#include <zowidgets/host/base/LightweightString.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// A file of bytes held in memory with a read and write position: what binary
// forms of objects are packed into and unpacked from. Numbers are written
// little-endian. A read past the end gives nothing and marks the file as
// failed, so a reader of damaged data stops without reading outside it.
// Writing at a position inside the file overwrites; at the end, it appends.
class ZO_API StreamFile {
public:
  StreamFile() = default;
  explicit StreamFile(std::vector<unsigned char> bytes) : bytes_(std::move(bytes)) {}

  // The whole file; nullopt when it cannot be read.
  static std::optional<StreamFile> load(std::string const& path);
  // Writes the bytes atomically (a temporary file renamed over the old one).
  bool save(std::string const& path) const;

  std::vector<unsigned char> const& bytes() const noexcept { return bytes_; }
  std::size_t size() const noexcept { return bytes_.size(); }
  std::size_t tell() const noexcept { return position_; }
  // Positions past the end are held at the end.
  void seek(std::size_t position) noexcept { position_ = position < bytes_.size() ? position : bytes_.size(); }
  bool atEnd() const noexcept { return position_ >= bytes_.size(); }
  bool failed() const noexcept { return failed_; }

  void setCookedChar(unsigned char value) { write(&value, 1); }
  void setUnsignedShort(std::uint16_t value);
  void setUnsignedLong(std::uint32_t value);
  void setFloat(float value);
  void write(void const* data, std::size_t count);

  std::optional<unsigned char> getCookedChar();
  std::optional<std::uint16_t> getUnsignedShort();
  std::optional<std::uint32_t> getUnsignedLong();
  std::optional<float> getFloat();
  // The bytes up to the next zero byte, which is passed over; nothing, and a
  // failed file, when the file ends first.
  std::optional<LightweightString<char>> getString();

private:
  bool read(void* data, std::size_t count);

  std::vector<unsigned char> bytes_;
  std::size_t position_ = 0;
  bool failed_ = false;
};
