#pragma once

#include <zowidgets/host/shell/Command.h>
#include <zowidgets/host/widgets/buttons/Button.h>

// The buttons that act when pressed: a plain push button, a link that opens
// its address through the shell, and a button that runs a named command.

// A raised button that acts on each press and never latches.
class ZO_API PushButton : public Button {
public:
  struct InitArgs : Button::InitArgs {
    InitArgs() = default;
    InitArgs(UIString label, XY<int> size, LightweightString<char> message = {})
        : Button::InitArgs(std::move(label), size, std::move(message)) {}
  };

  explicit PushButton(InitArgs const& args);
  char const* idstring() const override { return "PushButton"; }
};

// Underlined text that opens `link` (an address or a file path) in the
// user's usual program. The label defaults to the link itself.
class ZO_API LinkButton : public Button {
public:
  struct InitArgs : Button::InitArgs {
    InitArgs() = default;
    explicit InitArgs(LightweightString<wchar_t> link, UIString label = {})
        : Button::InitArgs(label.empty() ? UIString(link) : std::move(label), XY<int>()), link(std::move(link)) {}
    LightweightString<wchar_t> link;
  };

  explicit LinkButton(InitArgs const& args);
  char const* idstring() const override { return "LinkButton"; }
  void setLink(LightweightString<wchar_t> const& link) { link_ = link; }
  LightweightString<wchar_t> const& getLink() const noexcept { return link_; }

protected:
  void performAction() override;

private:
  LightweightString<wchar_t> link_;
};

// Runs a command of the CommandMap by name when pressed.
class ZO_API CommandButton : public Button {
public:
  struct InitArgs : Button::InitArgs {
    InitArgs() = default;
    InitArgs(UIString label, XY<int> size, std::string command)
        : Button::InitArgs(std::move(label), size), command(std::move(command)) {}
    std::string command;
  };

  explicit CommandButton(InitArgs const& args);
  char const* idstring() const override { return "CommandButton"; }
  std::string const& getCommand() const noexcept { return command_; }
  // What the command runs with: this button as its origin, by default.
  virtual Cmd::Context getContext();

protected:
  void performAction() override;

private:
  std::string command_;
};
