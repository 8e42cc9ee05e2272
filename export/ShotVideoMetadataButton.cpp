#include <zowidgets/export/ShotVideoMetadataButton.h>
#include <zowidgets/host/drawing/Palette.h>

#include <algorithm>
#include <map>

ShotVideoMetadataButton::ShotVideoMetadataButton(InitArgs const& args) : DropDownMenuButton(args) {
  setFormats(args.candidates, args.selectedFormat);
}

void ShotVideoMetadataButton::setFormats(FormatSet const& candidates, ShotVideoMetadata const& selected) {
  setFormats(std::vector<ShotVideoMetadata>(candidates.begin(), candidates.end()), selected);
}

void ShotVideoMetadataButton::setFormats(std::vector<ShotVideoMetadata> const& candidates,
                                         ShotVideoMetadata const& selected) {
  formats_.clear();
  menuRows_.clear();
  std::vector<MenuItem> items;
  if (candidates.empty()) {
    MenuItem none(UIString(L"No formats available"));
    none.active = false;
    items.push_back(none);
    setStrings(items, -1);
    return;
  }
  std::map<Zo::FormatGroup, std::vector<ShotVideoMetadata>> groups;
  for (ShotVideoMetadata const& candidate : candidates)
    groups[candidate.getVideoFormatInfo().group].push_back(candidate);
  for (auto& [group, members] : groups) {
    MenuItem heading = MenuItem::heading(UIString(Zo::getDisplayString(group)));
    heading.textColour = getPalette().subheadingText();
    items.push_back(heading);
    std::stable_sort(members.begin(), members.end(), [](ShotVideoMetadata const& a, ShotVideoMetadata const& b) {
      return a.getHeight() < b.getHeight();
    });
    for (ShotVideoMetadata const& member : members) {
      formats_.push_back(member);
      menuRows_.push_back(static_cast<int>(items.size()));
      std::wstring const size = std::to_wstring(member.getWidth()) + L"x" + std::to_wstring(member.getHeight());
      items.emplace_back(UIString(member.getDisplayString()), getPalette().text(0), Colour::invalid(),
                         UIString(LightweightString<wchar_t>(size)));
    }
  }
  setStrings(items, menuRows_.front());
  setSelectedFormat(selected);
}

ShotVideoMetadata const& ShotVideoMetadataButton::getSelectedFormat() const {
  auto const row = std::find(menuRows_.begin(), menuRows_.end(), getSelectedItem());
  return formats_.at(static_cast<std::size_t>(row - menuRows_.begin()));
}

bool ShotVideoMetadataButton::setSelectedFormat(ShotVideoMetadata const& format) {
  // Colorimetries 0 to 2 are the common ones and must match exactly; an
  // unusual one (3 to 8) may match a candidate that differs only in samples.
  bool const unusualColorimetry = format.sample.colorimetry >= 3 && format.sample.colorimetry < 9;
  for (std::size_t index = 0; index < formats_.size(); ++index) {
    ShotVideoMetadata const& candidate = formats_[index];
    bool matched = candidate == format;
    if (!matched && unusualColorimetry) {
      ShotVideoMetadata withCandidateSamples = format;
      withCandidateSamples.sample = candidate.sample;
      matched = withCandidateSamples == candidate;
    }
    if (matched) {
      setSelectedItem(menuRows_[index]);
      return true;
    }
  }
  return false;
}

int ShotVideoMetadataButton::calcWidth(std::vector<ShotVideoMetadata> const& candidates) {
  std::vector<UIString> texts;
  for (ShotVideoMetadata const& candidate : candidates)
    texts.emplace_back(candidate.getDisplayString());
  return DropDownMenuButton::calcWidth(texts);
}
