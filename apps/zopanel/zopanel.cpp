// zopanel: renders a panel description (JSON) on the headless screen.
//
//   zopanel render FILE|- -o OUT.png|- [--scale S] [--width PIXELS] [--title TEXT]
//   zopanel tree FILE|- [options]     prints the built widget tree as JSON
//   zopanel values FILE|- [options]   prints what each named row shows as JSON
//
// Exit status: 0 done, 1 the description could not be read or built, 2 the
// command line is wrong.

#include "PanelDump.h"
#include "PanelRender.h"

#include <zowidgets/host/drawing/ImageSurface.h>
#include <zowidgets/host/events/MessageQueue.h>
#include <zowidgets/host/headless/HeadlessScreen.h>
#include <zowidgets/host/toolkit/GlobManager.h>
#include <zowidgets/host/toolkit/UifStd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>

#include <unistd.h>

namespace {

constexpr char const* kUsage =
    "usage: zopanel render FILE|- -o OUT.png|- [--scale S] [--width PIXELS] [--title TEXT]\n"
    "       zopanel tree FILE|- [--scale S] [--width PIXELS] [--title TEXT]\n"
    "       zopanel values FILE|- [--scale S] [--width PIXELS] [--title TEXT]\n"
    "Builds the panel a JSON description describes, on a virtual screen. FILE - reads standard input.\n"
    "render writes a PNG of it (-o - to standard output); tree prints its widget tree and values what each named row "
    "shows, as JSON.\n";

struct CommandLine {
  std::string command;
  std::string input;
  std::string output;
  double scale = 1.0;
  PanelOptions options;
};

int usageError(std::string const& problem) {
  std::cerr << "zopanel: " << problem << "\n" << kUsage;
  return 2;
}

std::optional<double> number(std::string_view text) {
  try {
    std::size_t used = 0;
    double const value = std::stod(std::string(text), &used);
    if (used == text.size())
      return value;
  } catch (std::exception const&) {
  }
  return std::nullopt;
}

// Fills `line`; an empty string on success, else what is wrong.
std::string parseArguments(int argc, char** argv, CommandLine& line) {
  if (argc < 2)
    return "no command given";
  line.command = argv[1];
  if (line.command != "render" && line.command != "tree" && line.command != "values")
    return "unknown command '" + line.command + "'";
  for (int i = 2; i < argc; ++i) {
    std::string_view const arg = argv[i];
    bool const hasValue = i + 1 < argc;
    if (arg == "-o" || arg == "--scale" || arg == "--width" || arg == "--title") {
      if (!hasValue)
        return std::string(arg) + " needs a value";
      std::string_view const value = argv[++i];
      if (arg == "-o") {
        line.output = value;
      } else if (arg == "--title") {
        line.options.title = toWide(value);
      } else {
        std::optional<double> const parsed = number(value);
        if (!parsed || *parsed <= 0 || (arg == "--scale" && *parsed > 4) || (arg == "--width" && *parsed > 10000))
          return std::string(arg) + " takes a positive number" + (arg == "--scale" ? " up to 4" : " up to 10000") +
                 ", not '" + std::string(value) + "'";
        if (arg == "--scale")
          line.scale = *parsed;
        else
          line.options.width = static_cast<int>(*parsed);
      }
    } else if (line.input.empty() && (arg == "-" || !arg.starts_with('-'))) {
      line.input = arg;
    } else {
      return "unexpected argument '" + std::string(arg) + "'";
    }
  }
  if (line.input.empty())
    return "no description given (a file name, or - for standard input)";
  if (line.command == "render" && line.output.empty())
    return "render needs -o OUT.png (or -o - for standard output)";
  if (line.command == "render" && line.output == "-" && ::isatty(STDOUT_FILENO))
    return "-o - writes the picture to standard output, which is a terminal here; redirect it to a file or a program";
  return {};
}

std::optional<std::string> readInput(std::string const& input) {
  if (input == "-")
    return std::string(std::istreambuf_iterator<char>(std::cin), {});
  std::error_code ignored;
  if (std::filesystem::is_directory(input, ignored)) {
    std::cerr << "zopanel: cannot read " << input << ": it is a folder, not a description\n";
    return std::nullopt;
  }
  std::ifstream file(input, std::ios::binary);
  if (!file) {
    std::cerr << "zopanel: cannot read " << input << ": " << std::strerror(errno) << "\n";
    return std::nullopt;
  }
  return std::string(std::istreambuf_iterator<char>(file), {});
}

int run(CommandLine const& line) {
  std::optional<std::string> const bytes = readInput(line.input);
  if (!bytes)
    return 1;
  std::string_view utf8(*bytes);
  if (utf8.starts_with("\xEF\xBB\xBF"))
    utf8.remove_prefix(3);
  BuiltDescription const built = buildDescription(LightweightString<wchar_t>::fromUTF8(utf8), line.options);
  if (!built.panel) {
    std::cerr << "zopanel: " << (line.input == "-" ? "standard input" : line.input) << ": " << built.error << "\n";
    return 1;
  }
  // Kept as asked, as the builder keeps them, but told: a row that shows two
  // values at once is a mistake the tool is there to catch.
  for (std::string const& warning : built.warnings)
    std::cerr << "zopanel: " << (line.input == "-" ? "standard input" : line.input) << ": " << warning << "\n";
  int status = 0;
  if (line.command == "render") {
    if (built.panel->height() > Zo::Image::Surface::kMaxSide || built.panel->width() > Zo::Image::Surface::kMaxSide) {
      std::cerr << "zopanel: the panel is " << built.panel->width() << " by " << built.panel->height()
                << " pixels, larger than a picture can be (" << Zo::Image::Surface::kMaxSide
                << " pixels a side); tree and values still describe it\n";
      status = 1;
    } else if (line.output == "-") {
      std::string const png = HeadlessScreen::windowShot(*built.panel).pngBytes();
      if (!std::cout.write(png.data(), static_cast<std::streamsize>(png.size())).flush()) {
        std::cerr << "zopanel: cannot write the picture to standard output\n";
        status = 1;
      }
    } else if (!HeadlessScreen::saveWindowShot(*built.panel, line.output)) {
      std::cerr << "zopanel: cannot write " << line.output << ": " << std::strerror(errno) << "\n";
      status = 1;
    }
  } else {
    JSON::Builder out;
    if (line.command == "tree") {
      out.startChild();
      PanelDump::writeTree(out, *built.panel);
    } else {
      out.startArray();
      PanelDump::writeValues(out, *built.panel, *built.panel->getBuiltParams());
    }
    std::cout << out.getText().c_str() << "\n";
  }
  GlobManager::requestDeletion(built.panel);
  MessageLoop::runPending();
  return status;
}

} // namespace

int main(int argc, char** argv) {
  if (argc == 2 && (std::string_view(argv[1]) == "--help" || std::string_view(argv[1]) == "-h")) {
    std::cout << kUsage;
    return 0;
  }
  CommandLine line;
  if (std::string const problem = parseArguments(argc, argv, line); !problem.empty())
    return usageError(problem);
  useHeadlessScreen();
  UifStd::setScale(line.scale);
  return run(line);
}
