// libFuzzer target for the tutorial reader: each input is written to a file
// and read with Tutorial::load, as a tutorial file found on disk is. Whatever
// it reads must keep the file's path and be written out again; what that
// text reads back to must be stable from its second trip on (the first may
// still drop what the format cannot hold, such as an infinite number, written
// as null).

#include <zowidgets/tutorials/Tutorial.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <unistd.h>

namespace {

void check(bool condition) {
  if (!condition)
    std::abort();
}

// One file for the whole run, rewritten for each input.
std::string const& scratchFile() {
  static std::string const path = [] {
    std::string pattern = "/tmp/tutorial-load-fuzz-XXXXXX";
    int const fd = ::mkstemp(pattern.data());
    check(fd >= 0);
    ::close(fd);
    return pattern;
  }();
  return path;
}

std::string written(Tutorial const& tutorial) {
  JSON::Builder builder(JSON::Builder::kPretty);
  tutorial.write(builder);
  return builder.getText().str();
}

std::string writtenAfterReading(std::string const& text) {
  Tutorial tutorial;
  Zo::Ptr<JSON::Element> const element = JSON::parse(LightweightString<wchar_t>::fromUTF8(text));
  check(element != nullptr);
  tutorial.read(element);
  return written(tutorial);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  std::FILE* file = std::fopen(scratchFile().c_str(), "wb");
  check(file != nullptr);
  check(std::fwrite(data, 1, size, file) == size);
  check(std::fclose(file) == 0);

  LightweightString<wchar_t> const path = LightweightString<wchar_t>::fromUTF8(scratchFile());
  Tutorial tutorial;
  tutorial.load(path);
  check(tutorial.path() == path);
  for (unsigned short i = 0; i < tutorial.getNumPhases(); ++i)
    check(tutorial.getPhase(i) != nullptr);
  check(!tutorial.getPhase(tutorial.getNumPhases()));

  std::string const once = written(tutorial);
  std::string const twice = writtenAfterReading(once);
  check(writtenAfterReading(twice) == twice);
  return 0;
}
