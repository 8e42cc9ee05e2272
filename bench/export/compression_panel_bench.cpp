// Building the compression widget for the encoder with the most options of
// the system's codec libraries: the options made into parameters, their rows
// built and laid out under the format button, and then the first paint; per
// row, so it stands beside the builder's own per-row figures and beside the
// same rows built by the panel builder alone.
//
// After timing, the widget is checked: one row per parameter, and its height
// that of the rows; for the paint, the panel painted once.

#include <zowidgets/builder/UIBuilder.h>
#include <zowidgets/export/CompressionWidget.h>
#include <zowidgets/export/FileWriterInfo.h>
#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/shell/LibavMediaSource.h>
#include <zowidgets/host/shell/MediaWriters.h>
#include <zowidgets/host/toolkit/Canvas.h>
#include <zowidgets/host/toolkit/Drawable.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <benchmark/benchmark.h>

#include <optional>

namespace {

struct Encoder {
  LightweightString<char> fileType;
  Zo::Image::Format format;
  std::size_t options = 0;
};

ShotVideoMetadata const kShot(1920, 1080, {25, 1, false});

// The encoder with the most options, over every container.
Encoder richestEncoder() {
  Encoder richest;
  iMediaSource& source = Zo::MediaWriters::source();
  for (LightweightString<char> const& type : source.fileTypes(Compression::kVideoExport)) {
    VectorExt<ShotVideoMetadata> digital;
    VectorExt<Zo::Image::Format> formats;
    source.validFormats(type, kShot, digital, formats);
    for (Zo::Image::Format const format : formats) {
      std::size_t const count = source.encodeOptions(type, format).size();
      if (count > richest.options)
        richest = Encoder{type, format, count};
    }
  }
  return richest;
}

// The headless screen and the codec libraries' source, the richest encoder
// and the panel size for its rows; none, with the benchmark skipped, when the
// build has no codec libraries.
struct Setting {
  Encoder encoder;
  int width = 0;
  int height = 0;

  StandardPanel* makePanel() const {
    StandardPanel::InitArgs args(
        StandardPanel::calcPanelSize(XY<int>(width, height), 0, StandardPanel::getDefaultBorder()));
    args.screenPosition = XY<int>(0, 0);
    return new StandardPanel(args);
  }
};

std::optional<Setting> prepare(benchmark::State& state) {
  useHeadlessScreen();
  Zo::Ptr<iMediaSource> libav = makeLibavMediaSource();
  if (!libav) {
    state.SkipWithError("built without the codec libraries");
    return std::nullopt;
  }
  Zo::MediaWriters::setSource(libav);
  Setting setting;
  setting.encoder = richestEncoder();
  setting.width = 18 * UifStd::getRowHeight();
  setting.height = static_cast<int>(setting.encoder.options + 2) * (UifStd::getRowHeight() + UifStd::getRowGap());
  return setting;
}

void timeCompressionPanel(benchmark::State& state, bool paint) {
  std::optional<Setting> const setting = prepare(state);
  if (!setting)
    return;
  Encoder const& encoder = setting->encoder;
  int const width = setting->width;
  VectorExt<ShotVideoMetadata> digital;
  VectorExt<Zo::Image::Format> formats;
  Compression::getValidFormats(encoder.fileType, kShot, digital, formats);
  bool ok = true;
  for (auto _ : state) {
    StandardPanel* panel = nullptr;
    CompressionWidget* widget = nullptr;
    {
      // Held through the build; let go at the end of the scope, which paints
      // a realized panel once, whole.
      Drawable::Suspender oneRedraw;
      panel = setting->makePanel();
      CompressionWidget::InitArgs widgetArgs(Compression::kVideoExport, static_cast<unsigned short>(width));
      widgetArgs.fileType = encoder.fileType;
      widget = panel->createWidget<CompressionWidget>(widgetArgs, Glob::UserTopLeft(0, 0));
      widget->setCompressionFormat(VideoCompressionInfo(kShot, CompressionFormat(encoder.format)), formats);
      if (paint)
        GlobManager::realize(panel);
    }
    benchmark::DoNotOptimize(widget);
    state.PauseTiming();
    ok = ok && widget->getParams().size() == encoder.options &&
         widget->getBuiltParams()->getWidgets().size() == encoder.options &&
         widget->height() == UifStd::getRowGap() + widget->getBuiltParams()->calcHeight() + UifStd::getRowHeight() &&
         (!paint || (panel->canvas() && panel->canvas()->paintCount() == 1));
    GlobManager::requestDeletion(panel);
    MessageLoop::runPending();
    state.ResumeTiming();
  }
  state.SetLabel(std::string(Zo::MediaWriters::source().formatName(encoder.format).toUTF8().view()));
  Zo::MediaWriters::setSource(nullptr);
  state.counters["rows"] = static_cast<double>(encoder.options);
  if (!ok)
    state.SkipWithError("the options were not all built into rows");
}

// The first step alone: the encoder's options read and made into parameters.
void zoCompressionOptionsToParams(benchmark::State& state) {
  Zo::Ptr<iMediaSource> libav = makeLibavMediaSource();
  if (!libav) {
    state.SkipWithError("built without the codec libraries");
    return;
  }
  Zo::MediaWriters::setSource(libav);
  Encoder const encoder = richestEncoder();
  VideoCompressionInfo const info(kShot, CompressionFormat(encoder.format));
  bool ok = true;
  for (auto _ : state) {
    GenericParam::ParamList params = Zo::FileWriterInfo::getEncodeOptions(encoder.fileType, info);
    benchmark::DoNotOptimize(params.size());
    ok = ok && params.size() == encoder.options;
  }
  Zo::MediaWriters::setSource(nullptr);
  state.counters["rows"] = static_cast<double>(encoder.options);
  if (!ok)
    state.SkipWithError("an option was not made into a parameter");
}

// The same encoder's rows built by the panel builder alone, on a plain
// panel, with the parameters made before timing as the builder's own
// benchmark does: the same kinds of rows, so the compression widget's cost
// per row stands beside what those rows cost anywhere.
void timePlainRows(benchmark::State& state, bool paint) {
  std::optional<Setting> const setting = prepare(state);
  if (!setting)
    return;
  Encoder const& encoder = setting->encoder;
  VideoCompressionInfo const info(kShot, CompressionFormat(encoder.format));
  bool ok = true;
  for (auto _ : state) {
    state.PauseTiming();
    GenericParam::ParamList const params = Zo::FileWriterInfo::getEncodeOptions(encoder.fileType, info);
    state.ResumeTiming();
    StandardPanel* panel = nullptr;
    Zo::Ptr<UIBuilder::Params> built;
    {
      Drawable::Suspender oneRedraw;
      panel = setting->makePanel();
      built = UIBuilder::build(params, panel, 0);
      if (paint)
        GlobManager::realize(panel);
    }
    benchmark::DoNotOptimize(built.get());
    state.PauseTiming();
    ok = ok && built->getWidgets().size() == encoder.options &&
         (!paint || (panel->canvas() && panel->canvas()->paintCount() == 1));
    built.reset();
    GlobManager::requestDeletion(panel);
    MessageLoop::runPending();
    state.ResumeTiming();
  }
  Zo::MediaWriters::setSource(nullptr);
  state.counters["rows"] = static_cast<double>(encoder.options);
  if (!ok)
    state.SkipWithError("the options were not all built into rows");
}

void zoCompressionPanelBuild(benchmark::State& state) { timeCompressionPanel(state, false); }
void zoCompressionPanelFirstPaint(benchmark::State& state) { timeCompressionPanel(state, true); }
void zoCompressionRowsPlainBuild(benchmark::State& state) { timePlainRows(state, false); }
void zoCompressionRowsPlainFirstPaint(benchmark::State& state) { timePlainRows(state, true); }

} // namespace

BENCHMARK(zoCompressionOptionsToParams)->Unit(benchmark::kMicrosecond);
BENCHMARK(zoCompressionPanelBuild)->Unit(benchmark::kMicrosecond);
BENCHMARK(zoCompressionPanelFirstPaint)->Unit(benchmark::kMicrosecond);
BENCHMARK(zoCompressionRowsPlainBuild)->Unit(benchmark::kMicrosecond);
BENCHMARK(zoCompressionRowsPlainFirstPaint)->Unit(benchmark::kMicrosecond);
