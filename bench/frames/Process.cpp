#include "frames/Process.h"

#include <algorithm>
#include <csignal>
#include <stdexcept>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tolva::bench {
namespace {

constexpr int kPatienceMs = 20000;

std::vector<char*> ToPointers(const std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (const std::string& text : texts) pointers.push_back(const_cast<char*>(text.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

// This process's variables with those given in place of their namesakes.
std::vector<std::string> MakeEnvironment(std::vector<std::string> variables) {
  const std::size_t given = variables.size();
  for (char** own = environ; *own != nullptr; ++own) {
    const std::string variable = *own;
    const std::string name = variable.substr(0, variable.find('=') + 1);
    const auto end = variables.begin() + static_cast<std::ptrdiff_t>(given);
    if (std::none_of(variables.begin(), end, [&](const std::string& one) { return one.starts_with(name); })) {
      variables.push_back(variable);
    }
  }
  return variables;
}

}  // namespace

Pipe::Pipe() {
  int ends[2];
  if (::pipe(ends) != 0) throw std::runtime_error("cannot make a pipe");
  mRead = ends[0];
  mWrite = ends[1];
  ::fcntl(mRead, F_SETFD, FD_CLOEXEC);
}

Pipe::~Pipe() {
  ::close(mRead);
  CloseWriteEnd();
}

void Pipe::CloseWriteEnd() {
  if (mWrite >= 0) ::close(mWrite);
  mWrite = -1;
}

void Pipe::Read(void* to, std::size_t count) {
  auto* at = static_cast<char*>(to);
  while (count > 0) {
    pollfd wait{mRead, POLLIN, 0};
    const ssize_t got = ::poll(&wait, 1, kPatienceMs) > 0 ? ::read(mRead, at, count) : 0;
    if (got <= 0) throw std::runtime_error("a program that was started says nothing");
    at += got;
    count -= static_cast<std::size_t>(got);
  }
}

pid_t Start(const std::vector<std::string>& command, const std::vector<std::string>& variables) {
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  for (const int output : {STDOUT_FILENO, STDERR_FILENO}) {
    ::posix_spawn_file_actions_addopen(&actions, output, "/dev/null", O_WRONLY, 0);
  }
  const std::vector<std::string> environment = MakeEnvironment(variables);
  pid_t process = 0;
  const int fault = ::posix_spawnp(&process, command.front().c_str(), &actions, nullptr, ToPointers(command).data(),
                                   ToPointers(environment).data());
  ::posix_spawn_file_actions_destroy(&actions);
  if (fault != 0) throw std::runtime_error("cannot start " + command.front());
  return process;
}

void End(pid_t process, int signal) {
  ::kill(process, signal);
  ::waitpid(process, nullptr, 0);
}

}  // namespace tolva::bench
