#include "server/ChatCommands.h"

#include <algorithm>

#include "server/Realm.h"
#include "server/Session.h"
#include "server/common/ChatText.h"

namespace tolva {
namespace {

constexpr std::size_t kMaxAnswer = 900;
constexpr std::size_t kMaxEcho = 20;

// In several lines if need be.
void TellNames(Session& session, std::string answer, const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    if (answer.size() > kMaxAnswer) {
      session.Tell(answer);
      answer = "...";
    }
    answer += ' ' + name + (&name == &names.back() ? "" : ",");
  }
  session.Tell(answer);
}

}  // namespace

struct ChatCommands::Command {
  const char* word;
  const char* help;
  void (ChatCommands::*run)(Session&, const std::string&, TimePoint) const;
};

const ChatCommands::Command ChatCommands::kCommands[] = {
    {"/help", "/help lists the commands", &ChatCommands::Help},
    {"/who", "/who names everybody who is here, and who of them is in the world", &ChatCommands::Who},
    {"/me", "/me waves tells all that you wave", &ChatCommands::Me},
};

void ChatCommands::Run(Session& session, const std::string& line, TimePoint now) const {
  const std::string word = line.substr(0, line.find(' '));
  const std::size_t restBegin = line.find_first_not_of(' ', word.size());
  for (const Command& command : kCommands) {
    if (FoldCase(word) != command.word) continue;
    return (this->*command.run)(session, restBegin == line.npos ? "" : line.substr(restBegin), now);
  }
  session.Tell("There is no command " + word.substr(0, kMaxEcho) + ". Type /help for those there are.");
}

void ChatCommands::Help(Session& session, const std::string&, TimePoint) const {
  for (const Command& command : kCommands) session.Tell(command.help);
}

void ChatCommands::Who(Session& session, const std::string&, TimePoint) const {
  const auto names = mReception.GetNames();
  TellNames(session, std::to_string(names.size()) + (names.size() == 1 ? " player is here:" : " players are here:"),
            names);
  auto inWorld = mRealm.GetPlayerNames();
  std::ranges::sort(inWorld, {}, FoldCase);
  if (!inWorld.empty()) TellNames(session, "In the world:", inWorld);
}

void ChatCommands::Me(Session& session, const std::string& rest, TimePoint now) const {
  if (IsAllBlank(rest)) return session.Tell("Type what you do after /me, as in: /me waves");
  // Under the user's name, so that it cannot look like a line from the server.
  session.GetRoom()->Say(session, "* " + rest, now);
}

}  // namespace tolva
