#include "shell/single_instance.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <QCoreApplication>
#include <cstring>
#include <future>

#include "shell/start_requests.h"

namespace sumlet {
namespace {

using namespace std::chrono_literals;

constexpr auto patience = 60s;  // never waited for

class SingleInstance : public testing::Test {
 protected:
  // A start in another thread, while this one runs the event loop.
  Start StartAgain(const String& token = {}) {
    auto second = std::async(std::launch::async, [&] { return ClaimInstance(name, token, patience).start; });
    while (second.wait_for(0s) != std::future_status::ready) QCoreApplication::processEvents();
    return second.get();
  }
  // A connection of somebody who then sends `bytes`.
  [[nodiscard]] Descriptor Connect(std::string_view bytes) const {
    Descriptor peer(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const String path = name + "-0";
    std::memcpy(address.sun_path + 1, path.data(), path.size());
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + path.size());
    EXPECT_EQ(connect(peer.Number(), reinterpret_cast<const sockaddr*>(&address), length), 0);
    (void)send(peer.Number(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    return peer;
  }

  const String name = "sumlet-test-" + std::to_string(getpid());
  Claim first = ClaimInstance(name, {}, patience);
  int reopened = 0;
};

TEST_F(SingleInstance, BearsEveryPeerAndAnswersItsOwn) {
  const StartRequests requests(std::move(first.requests), [this] { ++reopened; });
  std::vector<Descriptor> peers;
  for (const String& bytes : {String(), String("\n"), String("started\n"), String("start \n"), String("start a b\n"),
                              String(300, '\0'), "start " + String(257, 'x') + "\n", String(1 << 20, 'x')})
    peers.push_back(Connect(bytes));
  for (int i = 0; i < 40; ++i) peers.push_back(Connect("start"));  // and then nothing more
  // the start counts, though the second token does not
  for (const char* token : {"kwin-17", "two words"}) {
    EXPECT_EQ(StartAgain(token), Start::HandedOver);
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "kwin-17");
  }
  char byte = 0;
  EXPECT_EQ(recv(peers.front().Number(), &byte, 1, MSG_DONTWAIT), 0) << "who says nothing makes room for others";
  for (Descriptor& peer : peers) peer.Close();
  EXPECT_EQ(StartAgain(), Start::HandedOver);
  EXPECT_EQ(reopened, 3);
}

TEST_F(SingleInstance, OneThatDoesNotAnswerKeepsNobodyFromStarting) {
  EXPECT_EQ(ClaimInstance(name, {}, 30ms).start, Start::Alone);
}

}  // namespace
}  // namespace sumlet
