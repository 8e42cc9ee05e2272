#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <system_error>

#include <stdlib.h>

namespace services_test {

// A fresh folder under the system's temporary folder, removed with its
// contents when the object goes.
class ScratchFolder {
public:
  ScratchFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zowidgets-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()))
      path_ = pattern;
  }
  ~ScratchFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
  }
  ScratchFolder(ScratchFolder const&) = delete;
  ScratchFolder& operator=(ScratchFolder const&) = delete;

  std::filesystem::path const& path() const { return path_; }
  std::string file(std::string const& name) const { return (path_ / name).string(); }

private:
  std::filesystem::path path_;
};

inline std::string readAll(std::string const& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

inline void writeAll(std::string const& path, std::string const& text) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << text;
}

// Sets an environment variable (or unsets it, for nullopt) and puts back
// what was there when the object goes.
class ScopedEnvironment {
public:
  ScopedEnvironment(char const* name, std::optional<std::string> const& value) : name_(name) {
    if (char const* old = std::getenv(name))
      old_ = old;
    apply(value);
  }
  ~ScopedEnvironment() { apply(old_); }
  ScopedEnvironment(ScopedEnvironment const&) = delete;
  ScopedEnvironment& operator=(ScopedEnvironment const&) = delete;

private:
  void apply(std::optional<std::string> const& value) {
    if (value)
      ::setenv(name_, value->c_str(), 1);
    else
      ::unsetenv(name_);
  }

  char const* name_;
  std::optional<std::string> old_;
};

} // namespace services_test
