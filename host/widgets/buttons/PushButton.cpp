#include <zowidgets/host/widgets/buttons/PushButton.h>

#include <zowidgets/host/shell/OS.h>

namespace {

template <class Args> Args linkStyle(Args args) {
  args.style = Button::kStyleLink;
  args.autoResize = true;
  return args;
}

template <class Args> Args unlatched(Args args) {
  args.latching = false;
  return args;
}

} // namespace

PushButton::PushButton(InitArgs const& args) : Button(unlatched(args)) {}

LinkButton::LinkButton(InitArgs const& args) : Button(linkStyle(args)), link_(args.link) {}

void LinkButton::performAction() { OS().open(link_); }

CommandButton::CommandButton(InitArgs const& args) : Button(args), command_(args.command) {}

Cmd::Context CommandButton::getContext() {
  Cmd::Context context;
  context.origin = this;
  return context;
}

void CommandButton::performAction() { CommandMap::callCommand(command_, getContext()); }
