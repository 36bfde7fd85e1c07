// A print server that says nothing must not hang a report.
#include "platform/posix/cups_queue.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>
#include <thread>

#include "equipment/temporary_folder.h"

namespace tarvo::test {
namespace {

constexpr std::int32_t kServerAway = 1282;

// The system takes connections for it; it answers the first of them if it is told to, and says
// nothing to any other.
class SilentServer {
 public:
  explicit SilentServer(const std::string& path) : socket_(socket(AF_UNIX, SOCK_STREAM, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) throw std::runtime_error("a long path: " + path);
    std::memcpy(address.sun_path, path.c_str(), path.size());
    const auto* general = reinterpret_cast<const sockaddr*>(&address);
    const bool isListening = bind(socket_, general, sizeof address) == 0 && listen(socket_, 8) == 0;
    if (!isListening) throw std::runtime_error("no server on " + path);
  }
  SilentServer(const SilentServer&) = delete;
  SilentServer& operator=(const SilentServer&) = delete;
  ~SilentServer() { close(socket_); }

  // How many have connected and were not answered; they are gone then.
  int takeConnections() const {
    int count = 0;
    for (int one = accept(0); one >= 0; one = accept(0)) {
      close(one);
      ++count;
    }
    return count;
  }

  // Answers every request on the next connection, until that is closed.
  void answer(const std::string& response) const {
    constexpr int kMilliseconds = 10'000;
    const int connection = accept(kMilliseconds);
    while (readRequest(connection)) {
      send(connection, response.data(), response.size(), MSG_NOSIGNAL);
    }
    close(connection);
  }

 private:
  // Below 0 when nobody comes in that time.
  int accept(int milliseconds) const {
    pollfd waited{socket_, POLLIN, 0};
    return poll(&waited, 1, milliseconds) > 0 ? ::accept(socket_, nullptr, nullptr) : -1;
  }

  static bool readRequest(int connection) {
    constexpr std::string_view kLength = "Content-Length: ";
    std::string request;
    std::size_t whole = std::string::npos;
    char byte = 0;
    while (request.size() < whole && recv(connection, &byte, 1, 0) == 1) {
      request.push_back(byte);
      if (whole == std::string::npos && request.ends_with("\r\n\r\n")) {
        whole = request.size() + std::stoul(request.substr(request.find(kLength) + kLength.size()));
      }
    }
    return request.size() == whole;
  }

  int socket_;
};

// What a server answers to the question for the queue "rawq".
std::string queueAnswer() {
  const auto withLength = [](const std::string& text) {
    return std::string{static_cast<char>(text.size() >> 8), static_cast<char>(text.size())} + text;
  };
  const auto attribute = [&](char kind, const char* name, const char* value) {
    return kind + withLength(name) + withLength(value);
  };
  constexpr char kCharset = 0x47;
  constexpr char kLanguage = 0x48;
  constexpr char kName = 0x42;
  constexpr char kUri = 0x45;
  const std::string body =
      std::string("\2\0\0\0\0\0\0\1\1", 9) + attribute(kCharset, "attributes-charset", "utf-8") +
      attribute(kLanguage, "attributes-natural-language", "en") + "\4" +
      attribute(kName, "printer-name", "rawq") +
      attribute(kUri, "printer-uri-supported", "ipp://localhost/printers/rawq") + "\3";
  return "HTTP/1.1 200 OK\r\nContent-Type: application/ipp\r\nContent-Length: " +
         std::to_string(body.size()) + "\r\n\r\n" + body;
}

class CupsQueueOf : public ::testing::Test {
 protected:
  // libcups asks once in a thread which server there is.
  template <class Action>
  static void onThreadOfItsOwn(Action&& action) {
    std::thread([&action] {
      CupsQueue queue({.connectMilliseconds = 200, .silenceSeconds = 0.2});
      action(queue);
    }).join();
  }

  CupsQueueOf() { setenv("CUPS_SERVER", path().c_str(), 1); }
  ~CupsQueueOf() override { unsetenv("CUPS_SERVER"); }

  std::string path() const { return (folder.path() / "sock").string(); }

  TemporaryFolder folder;
};

// Between the time for which a silent server is waited for and one that nobody would wait.
template <class Action>
void expectWait(Action&& action) {
  using namespace std::chrono_literals;
  const auto start = std::chrono::steady_clock::now();
  action();
  const auto elapsed = std::chrono::steady_clock::now() - start;
  EXPECT_GE(elapsed, 200ms);
  EXPECT_LT(elapsed, 20s);
}

TEST_F(CupsQueueOf, ASilentServerIsGivenUp) {
  const SilentServer server(path());
  CupsOutcome outcome;
  expectWait([&] { onThreadOfItsOwn([&](CupsQueue& queue) { outcome = queue.open(u"rawq"); }); });
  EXPECT_EQ(outcome.code, kServerAway) << outcome.reason;
  EXPECT_GE(server.takeConnections(), 1);
}

TEST_F(CupsQueueOf, AServerThatFallsSilentBeforeTheJobIsGivenUp) {
  const SilentServer server(path());
  std::thread answering([&] { server.answer(queueAnswer()); });
  CupsOutcome opened;
  CupsOutcome submitted;
  bool wasDocumentRead = false;
  onThreadOfItsOwn([&](CupsQueue& queue) {
    opened = queue.open(u"rawq");
    answering.join();
    if (!opened.isDone()) return;
    const auto pieces = [&](std::string_view&) {
      wasDocumentRead = true;
      return 0;
    };
    expectWait([&] { submitted = queue.submit(u"Ventas", CupsFormat::kPdf, pieces); });
  });
  EXPECT_TRUE(opened.isDone()) << opened.code << opened.reason;
  EXPECT_EQ(submitted.code, kServerAway) << submitted.reason;
  EXPECT_FALSE(wasDocumentRead) << "there is no job to send it to";
  EXPECT_GE(server.takeConnections(), 1);
}

TEST_F(CupsQueueOf, NoServerIsAServerAway) {
  CupsOutcome outcome;
  onThreadOfItsOwn([&](CupsQueue& queue) { outcome = queue.open(u"rawq"); });
  EXPECT_EQ(outcome.code, kServerAway);
  EXPECT_EQ(outcome.reason, "The print server does not answer");
}

}  // namespace
}  // namespace tarvo::test
