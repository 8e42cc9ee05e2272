#pragma once

#include <zowidgets/tutorials/Tutorial.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <stdexcept>
#include <string>

// Readable failures.
inline void PrintTo(XY<double> const& point, std::ostream* out) { *out << '(' << point.x << ", " << point.y << ')'; }
template <class T> void PrintTo(LightweightString<T> const& text, std::ostream* out) {
  *out << '"' << text.toUTF8().str() << '"';
}

// A folder of its own under the system's temporary folder, removed with all
// it holds when the test ends.
class ScratchFolder {
public:
  ScratchFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zo-tutorials-XXXXXX").string();
    char const* made = ::mkdtemp(pattern.data());
    if (!made)
      throw std::runtime_error("cannot make a scratch folder");
    path_ = made;
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(ScratchFolder const&) = delete;
  ScratchFolder& operator=(ScratchFolder const&) = delete;

  std::filesystem::path const& path() const noexcept { return path_; }
  LightweightString<wchar_t> wide() const { return LightweightString<wchar_t>::fromUTF8(path_.string()); }
  // A path inside the folder, as the library takes paths.
  LightweightString<wchar_t> file(std::string const& name) const {
    return LightweightString<wchar_t>::fromUTF8((path_ / name).string());
  }

private:
  std::filesystem::path path_;
};

inline std::string readBytes(std::filesystem::path const& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

inline void writeBytes(std::filesystem::path const& path, std::string const& bytes) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << bytes;
}

inline std::filesystem::path toPath(LightweightString<wchar_t> const& path) {
  return std::filesystem::path(toNarrow(path));
}

// What a tutorial writes, as its file holds it less the final newline.
inline std::string writtenText(Tutorial const& tutorial) {
  JSON::Builder builder(JSON::Builder::kPretty);
  tutorial.write(builder);
  return builder.getText().str();
}

// A phase or one of its parts, written compactly into an object of its own
// as its container writes it.
inline std::string writtenPart(JSON::iPersistable const& part) {
  JSON::Builder builder(JSON::Builder::kCompact);
  builder.startChild();
  part.write(builder);
  builder.end();
  return builder.getText().str();
}

// The JSON text parsed; the test fails when it does not parse.
inline Zo::Ptr<JSON::Element> parsed(std::string const& json) {
  Zo::Ptr<JSON::Element> element = JSON::parse(LightweightString<wchar_t>::fromUTF8(json));
  EXPECT_TRUE(element) << "does not parse: " << json;
  return element;
}

// A new tutorial that has read the JSON text.
inline Zo::Ptr<Tutorial> readTutorial(std::string const& json) {
  auto tutorial = Zo::make<Tutorial>();
  EXPECT_TRUE(tutorial->read(parsed(json)));
  return tutorial;
}
