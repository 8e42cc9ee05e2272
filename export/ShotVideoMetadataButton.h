#pragma once

#include <zowidgets/host/shell/ShotVideoMetadata.h>
#include <zowidgets/host/widgets/popups/DropDownMenuButton.h>

#include <set>

// A menu of candidate video formats, grouped under headings by family and
// sorted by height within each, each row telling its size in a tooltip.
class ZO_API ShotVideoMetadataButton : public DropDownMenuButton {
public:
  using FormatSet = std::set<ShotVideoMetadata, ShotVideoMetadata::CompareT>;

  struct InitArgs : DropDownMenuButton::InitArgs {
    InitArgs() = default;
    InitArgs(std::vector<ShotVideoMetadata> candidates, ShotVideoMetadata selected, XY<int> size)
        : candidates(std::move(candidates)), selectedFormat(std::move(selected)) {
      this->size = size;
    }
    std::vector<ShotVideoMetadata> candidates;
    ShotVideoMetadata selectedFormat;
  };

  explicit ShotVideoMetadataButton(InitArgs const& args);
  char const* idstring() const override { return "ShotVideoMetadataButton"; }

  void setFormats(std::vector<ShotVideoMetadata> const& candidates, ShotVideoMetadata const& selected);
  void setFormats(FormatSet const& candidates, ShotVideoMetadata const& selected);
  // The candidate on the selected row. Not to be asked of an empty button.
  ShotVideoMetadata const& getSelectedFormat() const;
  // Selects the candidate equal to `format`, or for a format in an unusual
  // colorimetry one that differs from it only in sample details. False when
  // none matched; the selection is then left as it was.
  bool setSelectedFormat(ShotVideoMetadata const& format);
  // The candidates in the order of their selectable rows.
  std::vector<ShotVideoMetadata> const& getFormats() const noexcept { return formats_; }

  static int calcWidth(std::vector<ShotVideoMetadata> const& candidates);

private:
  std::vector<ShotVideoMetadata> formats_;
  std::vector<int> menuRows_; // the menu row of each stored candidate
};
