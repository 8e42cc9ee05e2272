// Thumbnails (160 by 90) of 100 photo-sized JPEG files and of 100 PNG files
// of the same size, made by ZoImage::Loader and saved by ZoImage::Saver,
// against vipsthumbnail (Debian's libvips-tools) on the same files. Both run
// on one thread (vipsthumbnail with --vips-concurrency=1) and each run is a
// child process of its own, so that the peak memory of the work alone is
// measured the same way for both: the child's largest resident set, as
// wait4 reports it. Both write PNG thumbnails.
//
// The pictures are made once, at the first run, from the wallpapers of
// gnome-backgrounds: five distinct ones at 4000 by 3000, each copied twenty
// times under its own name.
#include <zowidgets/host/drawing/ImageLoader.h>
#include <zowidgets/host/drawing/ImageSaver.h>

#include <benchmark/benchmark.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace {

char const* const kWallpapers[] = {"adwaita-l", "wood-d", "pixels-l", "truchet-d", "licorice-l"};

// A hundred pictures per format; ZO_THUMBNAIL_BENCH_PICTURES asks for fewer
// (CI's smoke pass, which only checks that the benchmark runs).
int pictureCount() {
  static int const count = [] {
    char const* asked = std::getenv("ZO_THUMBNAIL_BENCH_PICTURES");
    int const wanted = asked ? std::atoi(asked) : 0;
    return wanted > 0 ? wanted : 100;
  }();
  return count;
}
constexpr XY<int> kThumbnail(160, 90);

std::filesystem::path const& workFolder() {
  static std::filesystem::path const folder = [] {
    std::string pattern = (std::filesystem::temp_directory_path() / "zo-thumbnail-bench-XXXXXX").string();
    return std::filesystem::path(mkdtemp(pattern.data()));
  }();
  return folder;
}

// The pictures of one format, made on first use.
std::vector<std::string> const& pictures(std::string const& extension) {
  static std::map<std::string, std::vector<std::string>> made;
  auto& files = made[extension];
  if (!files.empty())
    return files;
  std::filesystem::path const folder = workFolder() / extension;
  std::filesystem::create_directories(folder);
  std::vector<std::string> distinct;
  for (char const* wallpaper : kWallpapers) {
    if (int(distinct.size()) == pictureCount())
      break;
    std::string const path = (folder / (std::string("distinct-") + wallpaper + "." + extension)).string();
    std::string const command = "convert /usr/share/backgrounds/gnome/" + std::string(wallpaper) +
                                ".webp -resize 4000x3000! -quality 90 '" + path + "'";
    if (std::system(command.c_str()) != 0)
      std::fprintf(stderr, "could not make %s\n", path.c_str());
    distinct.push_back(path);
  }
  for (int i = 0; i < pictureCount(); ++i) {
    char name[32];
    std::snprintf(name, sizeof name, "picture-%03d.", i);
    std::string const path = (folder / (name + extension)).string();
    std::filesystem::copy_file(distinct[std::size_t(i) % distinct.size()], path,
                               std::filesystem::copy_options::overwrite_existing);
    files.push_back(path);
  }
  for (std::string const& path : distinct)
    std::filesystem::remove(path);
  return files;
}

std::filesystem::path freshOutput(char const* name) {
  std::filesystem::path const folder = workFolder() / name;
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  return folder;
}

// Runs `work` in a child process; the child's peak resident set in kB, or -1
// when it failed.
long inChild(std::function<void()> const& work) {
  pid_t const child = fork();
  if (child == 0) {
    work();
    _exit(0);
  }
  int status = 0;
  rusage usage{};
  if (child < 0 || wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
    return -1;
  return usage.ru_maxrss;
}

void ours(std::vector<std::string> const& files, std::filesystem::path const& output) {
  for (std::string const& file : files) {
    Zo::Image::Surface const thumbnail = ZoImage::Loader::loadImage(file, kThumbnail);
    std::string const name = std::filesystem::path(file).stem().string() + ".png";
    if (thumbnail.empty() || !ZoImage::Saver::saveImage(thumbnail, (output / name).string()))
      _exit(1);
  }
}

void vips(std::vector<std::string> const& files, std::filesystem::path const& output) {
  std::string const pattern = (output / "%s.png").string();
  std::vector<char const*> arguments = {"vipsthumbnail", "--vips-concurrency=1", "-s", "160x90", "-o", pattern.c_str()};
  for (std::string const& file : files)
    arguments.push_back(file.c_str());
  arguments.push_back(nullptr);
  execvp(arguments[0], const_cast<char* const*>(arguments.data()));
  _exit(1);
}

void thumbnails(benchmark::State& state, std::string const& extension,
                void (*maker)(std::vector<std::string> const&, std::filesystem::path const&)) {
  std::vector<std::string> const& files = pictures(extension);
  long peak = 0;
  for (auto _ : state) {
    std::filesystem::path const output = freshOutput("out");
    long const rss = inChild([&] { maker(files, output); });
    if (rss < 0 || std::distance(std::filesystem::directory_iterator(output), {}) != pictureCount()) {
      state.SkipWithError("the thumbnails were not all made");
      return;
    }
    peak = std::max(peak, rss);
  }
  state.counters["peak_rss_MB"] = double(peak) / 1024.0;
  state.counters["pictures"] = pictureCount();
}

void BM_Thumbnails_Jpeg_Ours(benchmark::State& state) { thumbnails(state, "jpg", ours); }
void BM_Thumbnails_Jpeg_Vips(benchmark::State& state) { thumbnails(state, "jpg", vips); }
void BM_Thumbnails_Png_Ours(benchmark::State& state) { thumbnails(state, "png", ours); }
void BM_Thumbnails_Png_Vips(benchmark::State& state) { thumbnails(state, "png", vips); }

BENCHMARK(BM_Thumbnails_Jpeg_Ours)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);
BENCHMARK(BM_Thumbnails_Jpeg_Vips)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);
BENCHMARK(BM_Thumbnails_Png_Ours)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);
BENCHMARK(BM_Thumbnails_Png_Vips)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

} // namespace
