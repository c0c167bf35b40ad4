#include <algorithm>
#include <set>

#include "server/CoreFixture.h"
#include "server/ServerCore.h"

namespace tolva::test {
namespace {

using std::chrono::milliseconds;
using std::chrono::minutes;
using std::chrono::seconds;
using Codes = std::vector<PacketCode>;
using Names = std::vector<std::string>;

class Login : public CoreFixture {};
class LobbyChat : public CoreFixture {};
class Patience : public CoreFixture {};
class Day : public CoreFixture {};

TEST_F(Login, BringsTheWholeLobbyInTheOrderThatTheScreensNeed) {
  const FakeClient& anna = LogIn("Anna");
  EXPECT_EQ(anna.GetCodes(), (Codes{403, 401, 406, 900, 400}));
  EXPECT_EQ(anna.Last<PacketChatUsers>().mUintCount, 1);
  EXPECT_EQ(anna.LastLine().rfind("*** |Welcome to Tolva, Anna!", 0), 0U) << anna.LastLine();
}

TEST_F(Login, DeniedTellsWhyAndMayTryAgain) {
  Restart({.maxUsers = 2});
  LogIn("Anna");
  FakeClient& client = Connect();
  const auto getReason = [&] { return std::string(client.Last<PacketLoginDeny>().mStrReason); };
  for (const std::uint16_t version : {kVersionBugfix - 1, kVersionBugfix + 1}) {
    Request(client, "Bert", version);
    EXPECT_NE(getReason().find("install version 0.6.23"), std::string::npos) << getReason();
  }
  Request(client, "aNNA");
  EXPECT_NE(getReason().find("in use"), std::string::npos) << getReason();
  Request(client, "");
  EXPECT_NE(getReason().find("type a name"), std::string::npos) << getReason();
  LogIn("Cleo");
  Request(client, "Bert");
  EXPECT_NE(getReason().find("full"), std::string::npos) << getReason();

  mCore->Disconnect(1, "test", mNow);
  Request(client, "anna");
  EXPECT_EQ(client.Last<PacketChatUsers>().mUintCount, 2);
  // Return pressed twice: the second request neither denies nor starts the lobby anew.
  client.Forget();
  Request(client, "anna");
  EXPECT_EQ(client.GetCodes(), Codes{});
}

TEST_F(Login, EndlessGuessingEnds) {
  FakeClient& client = Connect();
  for (int i = 0; i < 1000 && !client.IsClosed(); ++i) Request(client, "Server");
  EXPECT_EQ(client.All<PacketLoginDeny>().size(), 20U);
  EXPECT_EQ(mCore->GetClientCount(), 0U);
}

TEST_F(LobbyChat, ReachesAllUnderTheTrueNameWithoutControlCharacters) {
  FakeClient& anna = LogIn("Anna");
  FakeClient& bert = LogIn("Bert");
  Say(anna, "hi \x1B[31m\nyou");
  EXPECT_EQ(anna.LastLine(), "Anna|hi [31myou");
  EXPECT_EQ(bert.LastLine(), "Anna|hi [31myou");
  bert.Forget();
  for (const char* blank : {"", "   ", "\n\t", "\xA0 \xAD"}) Say(anna, blank);
  EXPECT_EQ(bert.GetCodes(), Codes{});
  Deliver(anna, PacketServerInfo());
  EXPECT_EQ(anna.Last<PacketServerInfo>().mUintVersionBugfix, 23);
}

TEST_F(LobbyChat, ListsFollowWhoComesAndGoesWithoutFloodingAnybody) {
  FakeClient& anna = LogIn("Anna");
  FakeClient& bert = LogIn("bert");
  LogIn("Cleo");
  Pass(seconds(1));
  EXPECT_EQ(anna.GetList(), (Names{"Anna", "bert", "Cleo"}));
  mCore->Disconnect(bert.GetId(), "test", mNow);
  Pass(seconds(1));
  EXPECT_EQ(anna.GetList(), (Names{"Anna", "Cleo"}));

  anna.Forget();
  for (int i = 0; i < 500; ++i) mCore->Disconnect(LogIn("Dora").GetId(), "test", mNow);
  Pass(seconds(1));
  EXPECT_LE(anna.GetCodes().size(), 8U);
  EXPECT_EQ(anna.GetList(), (Names{"Anna", "Cleo"}));
}

TEST_F(LobbyChat, OverfullListSaysSoAndStillShowsEveryoneThemselves) {
  for (int i = 10; i < 50; ++i) LogIn(("User" + std::to_string(i)).c_str());
  Pass(seconds(1));
  for (const FakeClient& client : mClients) {
    const Names names = client.GetList();
    ASSERT_EQ(names.size(), 32U);
    EXPECT_EQ(client.Last<PacketChatUsers>().mUintCount, 40);
    EXPECT_EQ(names.back(), "(and 9 more)");
    EXPECT_EQ(std::count(names.begin(), names.end(), "User" + std::to_string(client.GetId() + 9)), 1);
  }
}

TEST_F(LobbyChat, CommandsAnswerTheOneWhoAsked) {
  FakeClient& anna = LogIn("Anna");
  FakeClient& bert = LogIn("Bert");
  const struct {
    const char* line;
    const char* answer;
  } cases[] = {
      {"/help", "*** |/me waves tells all that you wave"},
      {"/WHO ", "*** |2 players are here: Anna, Bert"},
      {"/me", "*** |Type what you do after /me, as in: /me waves"},
      {"/me  ", "*** |Type what you do after /me, as in: /me waves"},
      {"/", "*** |There is no command /. Type /help for those there are."},
      {"/%s x", "*** |There is no command /%s. Type /help for those there are."},
  };
  bert.Forget();
  for (const auto& [line, answer] : cases) {
    Say(anna, line);
    EXPECT_EQ(anna.LastLine(), answer);
  }
  Deliver(anna, PacketEnterGameRequest());
  EXPECT_EQ(anna.LastLine(), "*** |The way into the world is not open yet.");
  EXPECT_EQ(bert.GetCodes(), Codes{});
  Say(anna, "/me  waves");
  EXPECT_EQ(bert.LastLine(), "Anna|* waves");
}

TEST_F(LobbyChat, FloodIsWarnedOnceThenThrownOut) {
  FakeClient& anna = LogIn("Anna");
  FakeClient& bert = LogIn("Bert");
  const auto sayTwenty = [&] {
    for (int i = 0; i < 10; ++i) Say(anna, "x"), Say(anna, "/nonsense");
  };
  sayTwenty();
  bert.Forget();
  Say(anna, "one too many");
  EXPECT_EQ(anna.GetLastText().find("Please write more slowly"), 0U);
  EXPECT_FALSE(anna.IsClosed());
  EXPECT_EQ(bert.GetCodes(), Codes{});

  Pass(seconds(10));
  sayTwenty();
  EXPECT_FALSE(anna.IsClosed());
  Say(anna, "again");
  EXPECT_TRUE(anna.IsClosed());
  EXPECT_EQ(anna.LastLine().find("*** |You were thrown out"), 0U);
  Pass(seconds(1));
  EXPECT_EQ(bert.GetList(), Names{"Bert"});
}

TEST_F(LobbyChat, ManyWhoFloodTogetherDoNotDrownTheOthers) {
  FakeClient& anna = LogIn("Anna");
  for (int i = 0; i < 50; ++i) LogIn(("User" + std::to_string(i)).c_str());
  anna.Forget();
  for (FakeClient& client : mClients)
    for (int i = 0; i < 20; ++i) Say(client, "x");
  EXPECT_LE(anna.All<PacketChatMsg>().size(), 120U);
}

TEST_F(LobbyChat, WhatNoClientSendsEndsOnlyItsSender) {
  FakeClient& anna = LogIn("Anna");
  const std::set<PacketCode> allowed{8, 9, 100, 200, 300, 400, 402, 500, 600, 601, 702, 800, 850};
  for (PacketCode code = 0; code < 1010; ++code) {
    FakeClient& liar = LogIn("Liar");
    Packet falseClaim;
    falseClaim.mEnmCode = code;
    Deliver(liar, falseClaim);
    EXPECT_TRUE(liar.IsClosed()) << "claimed " << code;
    const auto honest = CreatePacket(code);
    if (honest == nullptr) continue;
    FakeClient& client = LogIn("Client");
    Deliver(client, *honest);
    const bool leaves = code == 300 || code == 500;
    EXPECT_EQ(client.IsClosed(), !allowed.contains(code) || leaves) << honest->mEnmCode;
    mCore->Disconnect(client.GetId(), "test", mNow);
  }
  EXPECT_FALSE(anna.IsClosed());
  EXPECT_EQ(mCore->GetClientCount(), 1U);
  const std::string log = mLogText.str();
  EXPECT_LE(std::count(log.begin(), log.end(), '\n'), 500);
}

TEST_F(Patience, EndsWithSilenceAndWithEndlessWaiting) {
  FakeClient& good = LogIn("Good");
  FakeClient& silent = LogIn("Silent");
  FakeClient& stranger = Connect();
  FakeClient& denied = Connect();
  silent.mAlive = false;
  Request(denied, "Server");
  Pass(seconds(29));
  EXPECT_FALSE(silent.IsClosed() || stranger.IsClosed());
  EXPECT_EQ(good.All<PacketInternPing>().size(), 2U);
  Pass(seconds(2));
  EXPECT_TRUE(silent.IsClosed());
  EXPECT_EQ(stranger.GetCodes().back(), PacketLoginDeny::kCode);
  EXPECT_TRUE(stranger.IsClosed());
  EXPECT_FALSE(denied.IsClosed());
  Pass(minutes(5));
  EXPECT_TRUE(denied.IsClosed());
  EXPECT_FALSE(good.IsClosed());
}

TEST_F(Patience, TooManyPacketsOfAnyKindEndIt) {
  FakeClient& busy = Connect();
  for (int i = 0; i < 700; ++i) Deliver(busy, PacketInternPong(1));
  EXPECT_TRUE(busy.IsClosed());
}

TEST_F(Day, PassesThroughEveryLevelInTheLobby) {
  FakeClient& anna = LogIn("Anna");
  Pass(minutes(20));
  std::vector<int> levels;
  for (const auto* packet : anna.All<PacketDarkness>()) levels.push_back(packet->mByDarkness);
  ASSERT_EQ(levels.size(), 401U);
  for (int i = 0; i <= 400; ++i) EXPECT_EQ(levels[i], i <= 200 ? i : 400 - i);
}

TEST_F(Day, IsShownToWhoComesAtNight) {
  Pass(minutes(10));
  EXPECT_EQ(LogIn("Anna").Last<PacketDarkness>().mByDarkness, 200);
}

TEST_F(Login, AllAreToldWhenTheServerCloses) {
  const FakeClient& anna = LogIn("Anna");
  const FakeClient& stranger = Connect();
  mCore->Shutdown(mNow);
  EXPECT_EQ(anna.LastLine(), "*** |The server is closing down. Goodbye!");
  EXPECT_EQ(stranger.GetCodes(), Codes{PacketLoginDeny::kCode});
  EXPECT_TRUE(anna.IsClosed() && stranger.IsClosed());
  EXPECT_EQ(mCore->GetClientCount(), 0U);
}

}  // namespace
}  // namespace tolva::test
