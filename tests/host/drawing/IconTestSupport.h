#pragma once

#include <zowidgets/host/drawing/ImageSurface.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string>

#include <unistd.h>

// Sets (or, with nullopt, unsets) an environment variable for the life of
// the object and puts back what was there, so tests that move the icon theme
// leave the process as they found it.
class ScopedEnv {
public:
  ScopedEnv(char const* name, std::optional<std::string> const& value) : name_(name) {
    if (char const* old = std::getenv(name))
      old_ = old;
    value ? ::setenv(name, value->c_str(), 1) : ::unsetenv(name);
  }
  ~ScopedEnv() { old_ ? ::setenv(name_.c_str(), old_->c_str(), 1) : ::unsetenv(name_.c_str()); }
  ScopedEnv(ScopedEnv const&) = delete;
  ScopedEnv& operator=(ScopedEnv const&) = delete;

private:
  std::string name_;
  std::optional<std::string> old_;
};

// A scratch folder, removed with everything in it at the end of the test.
class ScratchFolder {
public:
  ScratchFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zowidgets-icons-XXXXXX").string();
    if (!::mkdtemp(pattern.data()))
      throw std::runtime_error("cannot make a scratch folder");
    path_ = pattern;
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(ScratchFolder const&) = delete;
  ScratchFolder& operator=(ScratchFolder const&) = delete;

  std::filesystem::path const& path() const { return path_; }
  // Writes `text` to the file at `relative`, making its folders.
  std::filesystem::path write(std::string const& relative, std::string const& text) const {
    std::filesystem::path const file = path_ / relative;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
    return file;
  }

private:
  std::filesystem::path path_;
};

// A picture twice the size, each pixel made a 2x2 block: what magnifying a
// bitmap would give.
inline Zo::Image::Surface doubledByNearest(Zo::Image::Surface const& small) {
  Zo::Image::Surface big(small.width() * 2, small.height() * 2);
  for (int row = 0; row < big.height(); ++row)
    for (int x = 0; x < big.width(); ++x)
      big.setPixel(x, row, small.pixel(x / 2, row / 2));
  return big;
}

// Pixels that are neither clear nor solid: the antialiased edge.
inline int countPartlyCovered(Zo::Image::Surface const& surface) {
  int count = 0;
  for (int row = 0; row < surface.height(); ++row)
    for (int x = 0; x < surface.width(); ++x) {
      int const alpha = int(surface.pixel(x, row) >> 24);
      count += alpha > 0 && alpha < 255 ? 1 : 0;
    }
  return count;
}
