#pragma once

#include <zowidgets/host/base/LightweightString.h>
#include <zowidgets/host/base/Ptr.h>

#include <cstdint>
#include <vector>

// What every log writer is: something that takes lines of a kind, may keep
// them in a file, and indents what follows.
class ZO_API LoggerBase {
public:
  // The kind of a row. The numbers are stored in logs and switched on, so
  // they never change.
  enum eOutputType : std::int32_t {
    kOutputPlain = 0,
    kOutputUnstyled = 1,
    kOutputWarning = 2,
    kOutputDim = 3,
    kOutputError = 4,
    kOutputStatusLine = 5,
    kOutputHyperLink = 6,
    kOutputSubheading = 7,
    kOutputDivider = 8,
    kOutputSuccess = 9,
  };

  // One line of a log.
  class ZO_API Item : public iObject {
  public:
    Item() = default;
    Item(LightweightString<wchar_t> text, eOutputType type, std::uint16_t indent = 0)
        : text(std::move(text)), type(type), indent(indent) {}

    LightweightString<wchar_t> text;
    eOutputType type = kOutputPlain;
    std::uint16_t indent = 0; // in row heights
  };

  // The text of a link row: what it shows and where it leads. A link is
  // external (files, folders, web addresses: the first is the one opened) or
  // internal (its first target is JSON describing a panel to open).
  class ZO_API HyperLink {
  public:
    HyperLink() = default;
    HyperLink(LightweightString<wchar_t> description, std::vector<LightweightString<wchar_t>> targets,
              bool internal = false)
        : description_(std::move(description)), targets_(std::move(targets)), internal_(internal) {}

    // Reads what toString wrote. Any other text is a link to that text,
    // described by itself, so a row holding only a path is a link to it; an
    // empty text is an empty link.
    static HyperLink fromString(LightweightString<wchar_t> const& text);
    // One line: the marker, then the description and the targets separated
    // by tabs (tabs inside them become spaces).
    LightweightString<wchar_t> toString() const;

    // The description, or the first target when there is none.
    LightweightString<wchar_t> getDescription() const;
    std::vector<LightweightString<wchar_t>> const& targets() const noexcept { return targets_; }
    bool isInternal() const noexcept { return internal_; }
    bool empty() const noexcept { return targets_.empty(); }

  private:
    LightweightString<wchar_t> description_;
    std::vector<LightweightString<wchar_t>> targets_;
    bool internal_ = false;
  };

  virtual ~LoggerBase() = default;

  virtual void write(LightweightString<wchar_t> const& text, eOutputType type) = 0;
  virtual void setFilename(LightweightString<wchar_t> name) { filename_ = std::move(name); }
  virtual void setFilename(LightweightString<wchar_t> folder, LightweightString<wchar_t> name);
  virtual void getFilename(LightweightString<wchar_t>& name) { name = filename_; }
  virtual void setIndentLevel(std::uint16_t level) { indent_ = level; }
  virtual void decIndent() {
    if (indent_ > 0)
      --indent_;
  }
  virtual void incIndent() { ++indent_; }

protected:
  std::uint16_t indentLevel() const noexcept { return indent_; }

private:
  LightweightString<wchar_t> filename_;
  std::uint16_t indent_ = 0;
};
