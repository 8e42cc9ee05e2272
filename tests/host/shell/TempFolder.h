#pragma once

#include <zowidgets/host/base/LightweightString.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

// A new empty folder under the system's temporary folder, removed with all
// it holds when the test ends.
class TempFolder {
public:
  TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zowidgets-test-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
      throw std::runtime_error("cannot make a temporary folder");
    path_ = pattern;
  }
  ~TempFolder() {
    std::error_code error;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, std::filesystem::perm_options::add, error);
    std::filesystem::remove_all(path_, error);
  }
  TempFolder(TempFolder const&) = delete;
  TempFolder& operator=(TempFolder const&) = delete;

  std::filesystem::path const& path() const { return path_; }
  std::filesystem::path operator/(std::string const& name) const { return path_ / name; }
  LightweightString<wchar_t> wide() const { return LightweightString<wchar_t>::fromUTF8(path_.string()); }
  LightweightString<wchar_t> wide(std::string const& name) const {
    return LightweightString<wchar_t>::fromUTF8((path_ / name).string());
  }

  // Makes a file (and its folders) holding `text`.
  void write(std::string const& name, std::string const& text = "x") const {
    std::filesystem::create_directories((path_ / name).parent_path());
    std::ofstream(path_ / name) << text;
  }

private:
  std::filesystem::path path_;
};
