#pragma once

#include <zowidgets/host/base/Ptr.h>
#include <zowidgets/host/base/UIString.h>

#include <concepts>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

class EventHandler;

// Where a command applies. Everything this library registers is
// application-wide.
enum eCmdScope : int {
  kCmdScopePanel = 0,
  kCmdScopeWindow = 1,
  kCmdScopeApplication = 2,
};

// The key a command is mapped to; a zero key code maps none.
struct MapItem {
  int keyCode = 0;

  friend bool operator==(MapItem const&, MapItem const&) = default;
};

namespace Cmd {

// What a command is run with: whoever asked, and any object the command needs
// (a log to show, say), which the command casts to what it expects.
struct Context {
  EventHandler* origin = nullptr;
  Zo::Ptr<iObject> data;

  // The data as a T, or null when there is none or it is something else.
  template <class T> Zo::Ptr<T> dataAs() const { return data.dynamicCast<T>(); }
};

// A command's body: a plain function or any function object that takes a
// Context const&. What it returns is dropped. An empty Function runs nothing.
class Function {
public:
  Function() = default;
  template <class F>
  requires(!std::same_as<std::remove_cvref_t<F>, Function> && std::invocable<F&, Context const&>) Function(F function)
      : body_(std::move(function)) {}

  explicit operator bool() const noexcept { return static_cast<bool>(body_); }
  void operator()(Context const& context) const { body_(context); }

private:
  std::function<void(Context const&)> body_;
};

// A registered command, as CommandMap::findCommand gives it. The label,
// the description, the short label and the key are how the application
// presents the command (a menu row, its tooltip, a toolbar button);
// commands made for testing carry none of them.
struct Command {
  std::string name;
  Function function;
  UIString label;
  UIString description;
  eCmdScope scope = kCmdScopeApplication;
  MapItem mapItem;
  // The name where room is short: a toolbar button, a narrow menu.
  UIString shortLabel;
};

} // namespace Cmd

// The process-wide table of named commands. Names are case-sensitive. A name
// belongs to its first registration: registering it again is refused, until
// the owner unregisters it. Safe from any thread; a command runs on the
// caller's thread, outside the table's lock, so it may itself register, find
// or call commands.
class ZO_API CommandMap {
public:
  CommandMap() = delete;

  // False, and nothing registered, for an empty name, an empty function or a
  // name already taken.
  static bool registerCommand(std::string_view name, Cmd::Function const& function, UIString const& label = {},
                              UIString const& description = {}, eCmdScope scope = kCmdScopeApplication,
                              MapItem const& mapItem = {}, UIString const& shortLabel = {});
  // False when no command has the name.
  static bool unregisterCommand(std::string_view name);

  // Empty for an unknown name.
  static std::optional<Cmd::Command> findCommand(std::string_view name);
  // Runs the command; false, with nothing run, for an unknown name.
  static bool callCommand(std::string_view name, Cmd::Context const& context = {});
  // Every registered name, in byte order.
  static std::vector<std::string> commandNames();
};

// Registers a command for as long as it lives: a static one in a source file
// registers when the module loads and unregisters at exit. If the name was
// taken already, the registrar holds nothing and its end removes nothing.
class ZO_API CommandRegistrar {
public:
  CommandRegistrar(char const* name, Cmd::Function const& function, UIString const& label, UIString const& description,
                   eCmdScope scope, MapItem const& mapItem, UIString const& shortLabel = {});
  ~CommandRegistrar();
  CommandRegistrar(CommandRegistrar const&) = delete;
  CommandRegistrar& operator=(CommandRegistrar const&) = delete;

  // Whether this registrar owns its name.
  bool registered() const noexcept { return registered_; }

private:
  std::string name_;
  bool registered_ = false;
};
