#pragma once

#include <zowidgets/host/base/StreamFile.h>

#include <string>
#include <string_view>

// A StreamFile as objects pack themselves into it and unpack from it: an
// error flag, the messages of whatever went wrong, and the layer format
// version of the stream. Version 2, plain bytes and 32-bit words, is what is
// written; version 1, compact numbers, is read from older data. A reader
// starts at version 2 until a stream's root layer says otherwise.
class ZO_API PStream {
public:
  static constexpr int kWrittenVersion = 2;

  explicit PStream(StreamFile& file) : file_(file) {}

  StreamFile& file() noexcept { return file_; }
  // Set by setError, or by a read past the end of the file.
  bool hasError() const noexcept { return error_ || file_.failed(); }
  void setError() noexcept { error_ = true; }
  std::string const& getMessages() const noexcept { return messages_; }
  void appendMessage(std::string_view message) { messages_ += message; }
  int getVersion() const noexcept { return version_; }
  void setVersion(int version) noexcept { version_ = version; }

  // The characters of `text` and a zero byte after them: what
  // StreamFile::getString reads back.
  void writeBinary(std::string_view text);

private:
  StreamFile& file_;
  bool error_ = false;
  std::string messages_;
  int version_ = kWrittenVersion;
};
