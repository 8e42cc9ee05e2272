#pragma once

// Picture files for the image tests, made at test time with ImageMagick from
// the wallpapers of Debian's gnome-backgrounds, and ImageMagick's own decode
// of a file as the reference the loader is held to.

#include <zowidgets/host/base/Log.h>
#include <zowidgets/host/drawing/ImageSurface.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace ImageTestFiles {

inline std::string const kWallpaperDir = "/usr/share/backgrounds/gnome";

inline std::string wallpaper(std::string const& name) { return kWallpaperDir + "/" + name; }

// A folder for this process's pictures, made once and kept until exit: the
// files in it are fixtures that no test changes.
inline std::string const& folder() {
  static std::string const path = [] {
    std::string pattern = (std::filesystem::temp_directory_path() / "zo-images-XXXXXX").string();
    return std::string(mkdtemp(pattern.data()));
  }();
  return path;
}

inline bool run(std::string const& command) { return std::system((command + " 2>/dev/null").c_str()) == 0; }

// `name` in the folder, made by `convert SOURCE ARGUMENTS name` the first
// time it is asked for. A source that is a file path is quoted; any other is
// passed as ImageMagick arguments (such as "-size 40x30 xc:grey").
inline std::string made(std::string const& name, std::string const& source, std::string const& arguments) {
  static std::mutex mutex;
  std::lock_guard lock(mutex);
  std::string const path = folder() + "/" + name;
  if (!std::filesystem::exists(path))
    run("convert " + (source.starts_with("/") ? "'" + source + "'" : source) + " " + arguments + " '" + path + "'");
  return path;
}

inline std::string readBytes(std::string const& path) {
  std::ifstream file(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

inline void writeBytes(std::string const& path, std::string const& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

inline std::uint32_t premultiplied(std::uint8_t const* rgba) {
  std::uint32_t const alpha = rgba[3];
  auto const channel = [&](int i) { return (std::uint32_t(rgba[i]) * alpha + 127) / 255; };
  return alpha << 24 | channel(0) << 16 | channel(1) << 8 | channel(2);
}

// ImageMagick's decode of `path`, as a surface. `arguments` come after the
// input (a resize, say) and `readOptions` before it (how to read it).
inline Zo::Image::Surface reference(std::string const& path, std::string const& arguments = "",
                                    std::string const& readOptions = "") {
  std::string const raw = folder() + "/reference.rgba";
  std::string const sizeFile = folder() + "/reference.size";
  std::string const input = "convert " + readOptions + " '" + path + "' " + arguments;
  if (!run(input + " -depth 8 rgba:'" + raw + "'") || !run(input + " -format '%w %h' info:'" + sizeFile + "'"))
    return {};
  int width = 0;
  int height = 0;
  std::ifstream(sizeFile) >> width >> height;
  std::string const bytes = readBytes(raw);
  if (bytes.size() != std::size_t(width) * height * 4)
    return {};
  Zo::Image::Surface surface(width, height);
  auto const* in = reinterpret_cast<std::uint8_t const*>(bytes.data());
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x, in += 4)
      surface.setPixel(x, y, premultiplied(in));
  return surface;
}

// Keeps the log lines written while it lives.
class LogCapture {
public:
  LogCapture()
      : id_(addLogSink([this](std::string_view line) {
          std::lock_guard lock(mutex_);
          lines_.emplace_back(line);
        })) {}
  ~LogCapture() { removeLogSink(id_); }
  std::vector<std::string> lines() const {
    std::lock_guard lock(mutex_);
    return lines_;
  }

private:
  mutable std::mutex mutex_;
  std::vector<std::string> lines_;
  int id_;
};

} // namespace ImageTestFiles
