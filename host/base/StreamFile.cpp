#include <zowidgets/host/base/StreamFile.h>

#include <zowidgets/host/base/AtomicFile.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <fstream>
#include <iterator>

namespace {

template <class Number> void toLittleEndian(Number value, unsigned char* out) {
  for (std::size_t i = 0; i < sizeof(Number); ++i)
    out[i] = static_cast<unsigned char>(value >> (8 * i));
}

template <class Number> Number fromLittleEndian(unsigned char const* in) {
  Number value = 0;
  for (std::size_t i = 0; i < sizeof(Number); ++i)
    value = static_cast<Number>(value | static_cast<Number>(in[i]) << (8 * i));
  return value;
}

} // namespace

std::optional<StreamFile> StreamFile::load(std::string const& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in)
    return std::nullopt;
  std::vector<unsigned char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (in.bad())
    return std::nullopt;
  return StreamFile(std::move(bytes));
}

bool StreamFile::save(std::string const& path) const {
  return Zo::writeFileAtomically(path, std::string_view(reinterpret_cast<char const*>(bytes_.data()), bytes_.size()));
}

void StreamFile::write(void const* data, std::size_t count) {
  auto const* in = static_cast<unsigned char const*>(data);
  std::size_t const overwrite = std::min(count, bytes_.size() - position_);
  std::copy(in, in + overwrite, bytes_.begin() + static_cast<std::ptrdiff_t>(position_));
  bytes_.insert(bytes_.end(), in + overwrite, in + count);
  position_ += count;
}

void StreamFile::setUnsignedShort(std::uint16_t value) {
  unsigned char out[2];
  toLittleEndian(value, out);
  write(out, sizeof out);
}

void StreamFile::setUnsignedLong(std::uint32_t value) {
  unsigned char out[4];
  toLittleEndian(value, out);
  write(out, sizeof out);
}

void StreamFile::setFloat(float value) { setUnsignedLong(std::bit_cast<std::uint32_t>(value)); }

bool StreamFile::read(void* data, std::size_t count) {
  if (count > bytes_.size() - position_) {
    position_ = bytes_.size();
    failed_ = true;
    return false;
  }
  std::memcpy(data, bytes_.data() + position_, count);
  position_ += count;
  return true;
}

std::optional<unsigned char> StreamFile::getCookedChar() {
  unsigned char value;
  return read(&value, 1) ? std::optional<unsigned char>(value) : std::nullopt;
}

std::optional<std::uint16_t> StreamFile::getUnsignedShort() {
  unsigned char in[2];
  return read(in, sizeof in) ? std::optional<std::uint16_t>(fromLittleEndian<std::uint16_t>(in)) : std::nullopt;
}

std::optional<std::uint32_t> StreamFile::getUnsignedLong() {
  unsigned char in[4];
  return read(in, sizeof in) ? std::optional<std::uint32_t>(fromLittleEndian<std::uint32_t>(in)) : std::nullopt;
}

std::optional<float> StreamFile::getFloat() {
  std::optional<std::uint32_t> const bits = getUnsignedLong();
  return bits ? std::optional<float>(std::bit_cast<float>(*bits)) : std::nullopt;
}

std::optional<LightweightString<char>> StreamFile::getString() {
  auto const begin = bytes_.begin() + static_cast<std::ptrdiff_t>(position_);
  auto const end = std::find(begin, bytes_.end(), 0);
  if (end == bytes_.end()) {
    position_ = bytes_.size();
    failed_ = true;
    return std::nullopt;
  }
  LightweightString<char> text(std::string(begin, end));
  position_ += static_cast<std::size_t>(end - begin) + 1;
  return text;
}
