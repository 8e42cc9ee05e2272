#pragma once

#include <cstdio>
#include <string>

#include <sys/wait.h>

// What a shell command writes to its standard output; empty when it could
// not be started or did not exit cleanly with status 0. For tests that ask a
// second process what a program started afresh would see.
inline std::string outputOfCommand(std::string const& command) {
  FILE* pipe = ::popen(command.c_str(), "r");
  if (!pipe)
    return {};
  std::string output;
  char buffer[64];
  while (std::size_t got = std::fread(buffer, 1, sizeof buffer, pipe))
    output.append(buffer, got);
  int const status = ::pclose(pipe);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? output : std::string();
}
