#include <zowidgets/host/shell/Command.h>

#include <map>
#include <mutex>

namespace {

struct CommandTable {
  std::mutex mutex;
  std::map<std::string, Cmd::Command, std::less<>> commands;
};

// Built on first use, which is before the first registrar finishes its
// constructor, so the table outlives every registrar's destructor at exit.
CommandTable& table() {
  static CommandTable instance;
  return instance;
}

} // namespace

bool CommandMap::registerCommand(std::string_view name, Cmd::Function const& function, UIString const& label,
                                 UIString const& description, eCmdScope scope, MapItem const& mapItem,
                                 UIString const& shortLabel) {
  if (name.empty() || !function)
    return false;
  auto& commands = table();
  std::lock_guard lock(commands.mutex);
  auto [where, added] = commands.commands.try_emplace(std::string(name));
  if (added)
    where->second = Cmd::Command{std::string(name), function, label, description, scope, mapItem, shortLabel};
  return added;
}

bool CommandMap::unregisterCommand(std::string_view name) {
  auto& commands = table();
  std::lock_guard lock(commands.mutex);
  auto found = commands.commands.find(name);
  if (found == commands.commands.end())
    return false;
  commands.commands.erase(found);
  return true;
}

std::optional<Cmd::Command> CommandMap::findCommand(std::string_view name) {
  auto& commands = table();
  std::lock_guard lock(commands.mutex);
  auto found = commands.commands.find(name);
  if (found == commands.commands.end())
    return std::nullopt;
  return found->second;
}

bool CommandMap::callCommand(std::string_view name, Cmd::Context const& context) {
  auto command = findCommand(name);
  if (!command)
    return false;
  command->function(context);
  return true;
}

std::vector<std::string> CommandMap::commandNames() {
  auto& commands = table();
  std::lock_guard lock(commands.mutex);
  std::vector<std::string> names;
  names.reserve(commands.commands.size());
  for (auto const& entry : commands.commands)
    names.push_back(entry.first);
  return names;
}

CommandRegistrar::CommandRegistrar(char const* name, Cmd::Function const& function, UIString const& label,
                                   UIString const& description, eCmdScope scope, MapItem const& mapItem,
                                   UIString const& shortLabel)
    : name_(name ? name : ""),
      registered_(CommandMap::registerCommand(name_, function, label, description, scope, mapItem, shortLabel)) {}

CommandRegistrar::~CommandRegistrar() {
  if (registered_)
    CommandMap::unregisterCommand(name_);
}
