#include <gmock/gmock.h>
#include <ws2tcpip.h>

#include "devtools/loopback_listener.h"
#include "devtools/protocol_connection.h"
#include "event_log.h"

namespace cefedition {
namespace {

using testing::ElementsAre;

/// A connection whose other end is held by the test.
class ConnectionTest : public testing::Test {
 protected:
  ConnectionTest() {
    WSAStartup(MAKEWORD(2, 2), &winsock_);
    LoopbackListener listener;
    const SOCKET socket = ::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(listener.port());
    EXPECT_EQ(connect(socket, reinterpret_cast<sockaddr*>(&address), sizeof(address)), 0);
    browser_ = ByteStream(socket);
    browser_.Write("hello\nrest");
    std::string line;
    std::optional<ByteStream> ours = listener.Accept(std::chrono::seconds(5), line);
    EXPECT_EQ(line, "hello");
    char rest[4];
    EXPECT_EQ(ours->Read(rest, sizeof(rest)), 4u);
    connection_ = std::make_unique<ProtocolConnection>(
        std::move(*ours), thread_,
        ProtocolConnection::Handlers{[this](const ProtocolEvent& event) {
                                       EXPECT_TRUE(thread_.IsCurrent());
                                       log_.Add("event " + event.session + " " + event.method +
                                                " " + event.params.dump());
                                     },
                                     [this] { log_.Add("closed"); }});
  }
  ~ConnectionTest() override {
    connection_.reset();
    thread_.Stop();
    WSACleanup();
  }

  void Send(const std::string& method) {
    connection_->Send("s", method, {{"a", 1}}, [this, method](const ProtocolReply& reply) {
      log_.Add("reply " + method + " " +
               (reply.ok ? reply.value.dump() : "failed: " + reply.ErrorMessage()));
    });
  }
  /// The next message that reached the browser's end.
  std::string ReadMessage() {
    while (received_.find('\0') == std::string::npos) {
      char buffer[1000];
      const size_t count = browser_.Read(buffer, sizeof(buffer));
      if (count == 0) {
        return "closed";
      }
      received_.append(buffer, count);
    }
    std::string message = received_.substr(0, received_.find('\0'));
    received_.erase(0, message.size() + 1);
    return message;
  }
  void Answer(const std::string& text) { browser_.Write(text + '\0'); }

  WSADATA winsock_;
  EventLog log_;
  TaskThread thread_{TaskThread::Kind::kPlain};
  ByteStream browser_;
  std::string received_;
  std::unique_ptr<ProtocolConnection> connection_;
};

TEST_F(ConnectionTest, RepliesFindTheirCommandsAndEventsKeepTheirPlace) {
  Send("One");
  Send("Two");
  EXPECT_EQ(ReadMessage(), R"({"id":1,"method":"One","params":{"a":1},"sessionId":"s"})");
  EXPECT_EQ(ReadMessage(), R"({"id":2,"method":"Two","params":{"a":1},"sessionId":"s"})");
  Answer(R"({"id":2,"result":{"r":2}})");
  Answer(R"({"method":"E","params":{"p":1},"sessionId":"s"})");
  Answer(R"({"id":1,"error":{"code":-1,"message":"no"}})");
  ASSERT_TRUE(log_.WaitFor("reply One"));
  EXPECT_THAT(log_.All(),
              ElementsAre("reply Two {\"r\":2}", "event s E {\"p\":1}", "reply One failed: no"));
}

TEST_F(ConnectionTest, MessagesMayComeInPiecesAndInBatches) {
  browser_.Write(R"({"method":"Fi)");
  browser_.Write(std::string(R"(rst"})") + '\0' + R"({"method":"Second"})" + '\0' + R"({"met)");
  ASSERT_TRUE(log_.WaitFor("event  Second"));
  browser_.Write(std::string(R"(hod":"Third","params":{"long":")") + std::string(3'000'000, 'x') +
                 "\"}}" + '\0');
  ASSERT_TRUE(log_.WaitFor("event  Third"));
  EXPECT_EQ(log_.All().size(), 3u);
}

TEST_F(ConnectionTest, MalformedAndUnknownMessagesArePassedOver) {
  Answer("not json");
  Answer("[1,2]");
  Answer(R"({"id":99,"result":{}})");
  Answer(R"({"id":"text","method":5})");
  Answer(R"({"method":"Good"})");
  ASSERT_TRUE(log_.WaitFor("event  Good"));
}

TEST_F(ConnectionTest, LostConnectionAnswersEveryCommandThenReportsItsEnd) {
  Send("One");
  Send("Two");
  ReadMessage();
  browser_ = ByteStream();
  ASSERT_TRUE(log_.WaitFor("closed"));
  EXPECT_THAT(log_.All(),
              ElementsAre("reply One failed: The connection to the browser is closed",
                          "reply Two failed: The connection to the browser is closed", "closed"));
  Send("Late");
  EXPECT_TRUE(log_.WaitFor("reply Late failed"));
}

TEST_F(ConnectionTest, BrowserThatReadsNothingHoldsNobodyUp) {
  const std::string much(1'000'000, 'x');
  for (int i = 0; i < 50; ++i) {
    connection_->Send("s", "M", {{"text", much}});
  }
  connection_.reset();
  EXPECT_TRUE(log_.WaitFor("closed"));
}

TEST_F(ConnectionTest, TextThatIsNoUnicodeIsStillSent) {
  connection_->Send("s", "M", {{"text", "\xff"}});
  EXPECT_THAT(ReadMessage(), testing::HasSubstr("\"M\""));
}

TEST(TaskThreadTest, TasksRunInOrderAndDelayedOnesWhenDue) {
  EventLog log;
  TaskThread thread(TaskThread::Kind::kWindows);
  thread.Post([&] {
    thread.PostDelayed([&] { log.Add("late"); }, std::chrono::milliseconds(60));
    thread.PostDelayed([&] { log.Add("soon"); }, std::chrono::milliseconds(5));
    thread.Post([&] { log.Add("third"); });
    log.Add("first");
    // Waiting in a task lets no other task run.
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
    log.Add("second");
  });
  ASSERT_TRUE(log.WaitFor("late"));
  EXPECT_THAT(log.All(), ElementsAre("first", "second", "third", "soon", "late"));
}

TEST(TaskThreadTest, StopRunsWhatIsDueAndDropsTheRest) {
  EventLog log;
  TaskThread thread(TaskThread::Kind::kPlain);
  thread.PostDelayed([&] { log.Add("never"); }, std::chrono::hours(1));
  thread.Post([&] { log.Add("done"); });
  EXPECT_TRUE(thread.Stop());
  EXPECT_FALSE(thread.Post([&] { log.Add("too late"); }));
  EXPECT_THAT(log.All(), ElementsAre("done"));
}

TEST(TaskThreadTest, StuckThreadIsGivenUp) {
  TaskThread thread(TaskThread::Kind::kPlain);
  HANDLE release = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  thread.Post([&] { WaitForSingleObject(release, INFINITE); });
  EXPECT_FALSE(thread.Stop(std::chrono::milliseconds(50)));
  SetEvent(release);
  EXPECT_TRUE(thread.Stop());
  CloseHandle(release);
}

}  // namespace
}  // namespace cefedition
