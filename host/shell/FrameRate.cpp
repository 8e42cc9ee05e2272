#include <zowidgets/host/base/NumberText.h>
#include <zowidgets/host/shell/FrameRate.h>

#include <array>
#include <string>

namespace Zo {
namespace {

// The rates offered, slowest first, with the groups each belongs to.
struct KnownRate {
  FrameRate rate;
  unsigned groups; // bit per FrameRateGroup other than kAll
};

constexpr unsigned bit(FrameRateGroups::FrameRateGroup group) { return 1u << group; }

constexpr std::array<KnownRate, 15> kKnownRates{{
    {{24000, 1001, false}, bit(FrameRateGroups::kFilm)},
    {{24, 1, false}, bit(FrameRateGroups::kFilm)},
    {{25, 1, false}, bit(FrameRateGroups::kPAL)},
    {{30000, 1001, true}, bit(FrameRateGroups::kNTSC)},
    {{30000, 1001, false}, bit(FrameRateGroups::kNTSC)},
    {{30, 1, false}, bit(FrameRateGroups::kNTSC)},
    {{48000, 1001, false}, bit(FrameRateGroups::kFilm) | bit(FrameRateGroups::kHighFrameRate)},
    {{48, 1, false}, bit(FrameRateGroups::kFilm) | bit(FrameRateGroups::kHighFrameRate)},
    {{50, 1, false}, bit(FrameRateGroups::kPAL) | bit(FrameRateGroups::kHighFrameRate)},
    {{60000, 1001, true}, bit(FrameRateGroups::kNTSC) | bit(FrameRateGroups::kHighFrameRate)},
    {{60000, 1001, false}, bit(FrameRateGroups::kNTSC) | bit(FrameRateGroups::kHighFrameRate)},
    {{60, 1, false}, bit(FrameRateGroups::kHighFrameRate)},
    {{100, 1, false}, bit(FrameRateGroups::kPAL) | bit(FrameRateGroups::kHighFrameRate)},
    {{120000, 1001, false}, bit(FrameRateGroups::kNTSC) | bit(FrameRateGroups::kHighFrameRate)},
    {{120, 1, false}, bit(FrameRateGroups::kHighFrameRate)},
}};

} // namespace

void getFrameRates(FrameRateGroups::FrameRateGroup group, std::vector<FrameRate>& rates) {
  rates.clear();
  for (KnownRate const& known : kKnownRates)
    if (group == FrameRateGroups::kAll || (known.groups & bit(group)) != 0)
      rates.push_back(known.rate);
}

LightweightString<wchar_t> getDisplayString(FrameRate rate) {
  if (!rate.isValid())
    return {};
  // Three decimals at most, trailing zeros dropped: 23.976, 29.97, 25.
  std::wstring result = std::wstring(WStringFromFloatTrimmed(rate.framesPerSecond(), 3).view()) + L" fps";
  if (rate.dropFrame)
    result += L" DF";
  return LightweightString<wchar_t>(result);
}

FrameRate getFrameRateFromDisplayString(LightweightString<wchar_t> const& text) {
  for (KnownRate const& known : kKnownRates)
    if (getDisplayString(known.rate).view() == text.view())
      return known.rate;
  // Any other whole rate reads back as it was written.
  int whole = 0;
  wchar_t rest[8] = {};
  if (std::swscanf(text.c_str(), L"%d fps%7ls", &whole, rest) == 1 && whole > 0 &&
      getDisplayString(FrameRate{whole, 1, false}).view() == text.view())
    return FrameRate{whole, 1, false};
  return FrameRate{0, 1, false};
}

} // namespace Zo
