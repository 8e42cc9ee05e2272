#pragma once

// Folders of pictures for the thumbnail tests: one photo-sized JPEG made with
// ImageMagick from a gnome-backgrounds wallpaper, copied under many names so
// that each copy is a file of its own to the cache.

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace ThumbnailTestFolder {

inline std::string const& root() {
  static std::string const path = [] {
    std::string pattern = (std::filesystem::temp_directory_path() / "zo-thumbs-XXXXXX").string();
    return std::string(mkdtemp(pattern.data()));
  }();
  return path;
}

// A 1600x1200 JPEG, made once per process.
inline std::string const& photo() {
  static std::string const path = [] {
    std::string const made = root() + "/photo.jpg";
    std::system(
        ("convert /usr/share/backgrounds/gnome/wood-l.webp -resize 1600x1200! -quality 90 '" + made + "' 2>/dev/null")
            .c_str());
    return made;
  }();
  return path;
}

// The path of copy `index` in a folder made by folderOf.
inline std::string pictureIn(std::string const& folder, int index) {
  char file[32];
  std::snprintf(file, sizeof file, "/picture-%03d.jpg", index);
  return folder + file;
}

// A folder `name` holding `count` copies of the photo, picture-000.jpg on;
// made once and never changed by a test.
inline std::string folderOf(std::string const& name, int count) {
  std::string const folder = root() + "/" + name;
  if (std::filesystem::exists(folder))
    return folder;
  std::filesystem::create_directories(folder);
  for (int i = 0; i < count; ++i)
    std::filesystem::copy_file(photo(), pictureIn(folder, i));
  return folder;
}

} // namespace ThumbnailTestFolder
