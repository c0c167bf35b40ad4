#include <algorithm>

#include "CoreFixture.h"
#include "server/common/ChatText.h"

namespace tolva::test {
namespace {

class ServerCoreTest : public CoreFixture {};

TEST_F(ServerCoreTest, LoginBringsTheLobbyAndTheWelcomeOnce) {
  FakeClient& anna = LogIn("Anna");
  EXPECT_EQ(anna.received.front()->mEnmCode, PacketEnterChatAccept::kCode);
  EXPECT_EQ(anna.GetList(), Names{"Anna"});
  EXPECT_EQ(anna.LastLine(),
            "*** |Welcome to Tolva, Anna! Return sends your line, Escape empties it. /help tells more.");
  anna.received.clear();
  Request(anna, "Anna");
  EXPECT_TRUE(anna.received.empty()) << "a second request, as when Return is pressed twice, changes nothing";
}

TEST_F(ServerCoreTest, DeniedLoginIsToldWhyAndMayTryAgain) {
  for (int i = 1; i <= 60; ++i) LogIn("User" + std::to_string(i));
  FakeClient& client = Connect();
  PacketLoginRequest request("Bert", "", kVersion);
  ++request.mUintVersionBugfix;
  Deliver(client, request);
  EXPECT_NE(client.GetDenial().find("Please install version"), std::string::npos);
  // The advice in the answer, and the names that get it.
  const std::pair<const char*, Names> cases[] = {
      {"is full", {"Anna", "a", "Mad Hatter", "J\xF6rg", "50%", "observer", "-=x=-", "sixteen letters!"}},
      {"in use", {"User1", "uSER60"}},
      {"type a name", {"", "   "}},
      {"at most 16", {"seventeen letters"}},
      {"around the name", {" Anna", "Anna\xA0", "*** "}},
      {"single blanks", {"An  na", "An\xA0na"}},
      {"can be seen", {"An\nna", "Anna\x7F", "An\xADna"}},
      {"brackets and asterisks", {"[Anna]", "x] hi [y", "(and 9 more)", "***", "*** Anna"}},
      {"belongs to the server", {"Server", "sERVER", "-Server-", "S.e.r.v.e.r", "Ser ver"}},
  };
  for (const auto& [advice, names] : cases) {
    for (const std::string& name : names) {
      const std::string denial = LogIn(name).GetDenial();
      EXPECT_NE(denial.find(advice), denial.npos) << Quote(name) << " got: " << denial;
    }
  }
  Leave(mClients.front());
  Request(client, "user1");
  EXPECT_EQ(client.Last<PacketChatUsers>().mUintCount, 60);
}

TEST_F(ServerCoreTest, ChatReachesAllUnderTheTrueNameWithoutControlCharacters) {
  FakeClient& anna = LogIn("Anna");
  const FakeClient& bert = LogIn("Bert");
  Say(anna, "hi \x1B[31m\nyou");
  for (const char* blank : {"", "   ", "\n\t", "\xA0 \xAD"}) Say(anna, blank);
  EXPECT_EQ(anna.LastLine(), "Anna|hi [31myou");
  EXPECT_EQ(bert.LastLine(), "Anna|hi [31myou");
}

TEST_F(ServerCoreTest, ListsFollowLoginsAndLogoutsWithoutFloodingAnybody) {
  FakeClient& anna = LogIn("Anna");
  FakeClient& bert = LogIn("bert");
  LogIn("Cleo");
  Pass(1s);
  EXPECT_EQ(anna.GetList(), (Names{"Anna", "bert", "Cleo"}));
  Leave(bert);
  anna.received.clear();
  for (int i = 0; i < 500; ++i) Leave(LogIn("Dora"));
  Pass(1s);
  EXPECT_LE(anna.received.size(), 8U);
  EXPECT_EQ(anna.GetList(), (Names{"Anna", "Cleo"}));
}

TEST_F(ServerCoreTest, OverfullListSaysSoAndStillShowsEveryoneThemselves) {
  for (int i = 10; i < 50; ++i) LogIn("User" + std::to_string(i));
  Pass(1s);
  for (const FakeClient& client : mClients) {
    const Names names = client.GetList();
    ASSERT_EQ(names.size(), 32U);
    EXPECT_EQ(client.Last<PacketChatUsers>().mUintCount, 40);
    EXPECT_EQ(names.back(), "(and 9 more)");
    EXPECT_EQ(std::count(names.begin(), names.end(), "User" + std::to_string(client.id + 9)), 1);
  }
}

TEST_F(ServerCoreTest, CommandsAnswerTheOneWhoAsked) {
  FakeClient& anna = LogIn("Anna");
  FakeClient& bert = LogIn("Bert");
  bert.received.clear();
  const std::pair<const char*, const char*> cases[] = {
      // What the user types, and the last line of the answer.
      {"/help", "*** |/me waves tells all that you wave"},
      {"/WHO ", "*** |2 players are here: Anna, Bert"},
      {"/me  ", "*** |Type what you do after /me, as in: /me waves"},
      {"/%s x", "*** |There is no command /%s. Type /help for those there are."},
  };
  for (const auto& [line, answer] : cases) {
    Say(anna, line);
    EXPECT_EQ(anna.LastLine(), answer);
  }
  EXPECT_TRUE(bert.received.empty());
  Say(anna, "/me  waves");
  EXPECT_EQ(bert.LastLine(), "Anna|* waves");
}

TEST_F(ServerCoreTest, ChatFloodIsWarnedOnceThenThrownOut) {
  FakeClient& anna = LogIn("Anna");
  const FakeClient& bert = LogIn("Bert");
  for (const char* answer : {"*** |Please write more slowly", "*** |You were thrown out"}) {
    for (int i = 0; i < 10; ++i) {
      Say(anna, "x");
      Say(anna, "/nonsense");
    }
    EXPECT_FALSE(anna.isClosed);
    Say(anna, "one too many");
    EXPECT_EQ(anna.LastLine().find(answer), 0U) << anna.LastLine();
    EXPECT_EQ(bert.LastLine(), "Anna|x");
    Pass(10s);
  }
  EXPECT_TRUE(anna.isClosed);
  EXPECT_EQ(bert.GetList(), Names{"Bert"});
}

TEST_F(ServerCoreTest, ClientThatSendsTooMuchIsClosed) {
  FakeClient& guesser = Connect();
  for (int i = 0; i < 30; ++i) Request(guesser, "Server");
  EXPECT_EQ(guesser.All<PacketLoginDeny>().size(), 20U);
  EXPECT_TRUE(guesser.isClosed);
  FakeClient& busy = Connect();
  for (int i = 0; i < 600; ++i) Deliver(busy, PacketInternPong(1));
  EXPECT_FALSE(busy.isClosed);
  Deliver(busy, PacketInternPong(1));
  EXPECT_TRUE(busy.isClosed);
}

TEST_F(ServerCoreTest, ManyTalkersCannotDrownTheOthers) {
  for (int i = 0; i < 50; ++i) LogIn("User" + std::to_string(i)).received.clear();
  for (FakeClient& client : mClients) {
    for (int i = 0; i < 20; ++i) Say(client, "x");
  }
  EXPECT_LE(mClients.back().received.size(), 120U);
}

TEST_F(ServerCoreTest, SilentAndLateClientsAreClosed) {
  const FakeClient& good = LogIn("Good");
  FakeClient& silent = LogIn("Silent");
  const FakeClient& stranger = Connect();
  FakeClient& denied = Connect();
  silent.isAlive = false;
  Request(denied, "Server");
  Pass(29s);
  EXPECT_FALSE(silent.isClosed);
  EXPECT_FALSE(stranger.isClosed);
  EXPECT_EQ(good.All<PacketInternPing>().size(), 2U);
  Pass(2s);
  EXPECT_TRUE(silent.isClosed);
  EXPECT_TRUE(stranger.isClosed);
  EXPECT_FALSE(denied.isClosed);
  EXPECT_EQ(stranger.All<PacketLoginDeny>().size(), 1U);
  Pass(5min);
  EXPECT_TRUE(denied.isClosed);
  EXPECT_FALSE(good.isClosed);
}

TEST_F(ServerCoreTest, LobbyShowsEveryDarknessOfADay) {
  const FakeClient& anna = LogIn("Anna");
  Pass(10min);
  EXPECT_EQ(LogIn("Bert").Last<PacketDarkness>().mByDarkness, 200);
  Pass(10min);
  const auto levels = anna.All<PacketDarkness>();
  ASSERT_EQ(levels.size(), 401U);
  for (int i = 0; i <= 400; ++i) EXPECT_EQ(levels[i]->mByDarkness, i <= 200 ? i : 400 - i);
}

}  // namespace
}  // namespace tolva::test
