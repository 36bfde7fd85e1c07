#include "platform/posix/cups_queue.h"

#include <cups/cups.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <utility>

namespace tarvo {
namespace {

struct CloseConnection {
  void operator()(http_t* connection) const noexcept { httpClose(connection); }
};
using Connection = std::unique_ptr<http_t, CloseConnection>;

Connection connect(const CupsPatience& patience) {
  Connection connection(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(),
                                     1, patience.connectMilliseconds, nullptr));
  const auto giveUp = [](http_t*, void*) { return 0; };
  if (connection) httpSetTimeout(connection.get(), patience.silenceSeconds, giveUp, nullptr);
  return connection;
}

CupsOutcome serverIsAway() {
  return {IPP_STATUS_ERROR_SERVICE_UNAVAILABLE, "The print server does not answer"};
}

CupsOutcome queueIsUnknown() { return {IPP_STATUS_ERROR_NOT_FOUND, "There is no such queue"}; }

// What the server answered last, before anything else is asked of it.
CupsOutcome refusal() {
  const ipp_status_t status = cupsLastError();
  if (status < IPP_STATUS_ERROR_BAD_REQUEST) return {IPP_STATUS_ERROR_INTERNAL, {}};
  const char* reason = cupsLastErrorString();
  return {status, reason != nullptr ? reason : ""};
}

// 255 bytes of whole characters, none of them a control.
std::string jobTitle(TextView text) {
  constexpr std::size_t kLongest = 255;
  std::string title = toUtf8(text);
  std::size_t length = std::min(title.size(), kLongest);
  const auto isInsideCharacter = [&title](std::size_t at) {
    return at < title.size() && (static_cast<unsigned char>(title[at]) & 0xC0) == 0x80;
  };
  while (isInsideCharacter(length)) --length;
  title.resize(length);
  for (char& byte : title) {
    if (static_cast<unsigned char>(byte) < ' ' || byte == 0x7F) byte = ' ';
  }
  return title;
}

// Whether the server answers and knows the queue.  libcups looks for an unknown queue in the
// network, and does so when the server is silent too, on a connection without our limits: it is
// asked for nothing before this.
CupsOutcome ask(http_t* connection, const std::string& queue) {
  std::array<char, HTTP_MAX_URI> uri;
  httpAssembleURIf(HTTP_URI_CODING_ALL, uri.data(), static_cast<int>(uri.size()), "ipp", nullptr,
                   "localhost", ippPort(), "/printers/%s", queue.c_str());
  ipp_t* const request = ippNewRequest(IPP_OP_GET_PRINTER_ATTRIBUTES);
  const auto add = [request](ipp_tag_t kind, const char* name, const char* value) {
    ippAddString(request, IPP_TAG_OPERATION, kind, name, nullptr, value);
  };
  add(IPP_TAG_URI, "printer-uri", uri.data());
  add(IPP_TAG_NAME, "requesting-user-name", cupsUser());
  add(IPP_TAG_KEYWORD, "requested-attributes", "printer-uri-supported");
  ipp_t* const response = cupsDoRequest(connection, request, "/");
  const bool isAnswered = response != nullptr;
  ippDelete(response);
  if (!isAnswered && httpError(connection) != 0) return serverIsAway();
  if (cupsLastError() == IPP_STATUS_ERROR_NOT_FOUND) return queueIsUnknown();
  return cupsLastError() <= IPP_STATUS_OK_CONFLICTING ? CupsOutcome() : refusal();
}

const char* mimeType(CupsFormat format) noexcept {
  return format == CupsFormat::kPdf ? CUPS_FORMAT_PDF : CUPS_FORMAT_RAW;
}

// A job on the server, under a connection of its own.  It is cancelled unless it is finished: half
// a job must not wait in the queue.
class Job {
 public:
  Job(const cups_dest_t& destination, TextView title, const CupsPatience& patience)
      : queue_(destination.name),
        titleBytes_(jobTitle(title)),
        title_(titleBytes_.empty() ? nullptr : titleBytes_.c_str()),
        patience_(patience),
        connection_(connect(patience)),
        answer_(connection_ ? ask(connection_.get(), queue_) : serverIsAway()) {
    if (!answer_.isDone()) return;
    number_ = cupsCreateJob(connection_.get(), queue_, title_, destination.num_options,
                            destination.options);
  }
  Job(const Job&) = delete;
  Job& operator=(const Job&) = delete;
  ~Job() {
    if (number_ == 0) return;
    // The old connection may be what failed.  A document whose end was not sent is none.
    connection_ = connect(patience_);
    if (connection_) cupsCancelJob2(connection_.get(), queue_, number_, 0);
  }

  CupsOutcome send(const char* type, const CupsQueue::NextPiece& next) {
    if (!answer_.isDone()) return answer_;
    if (number_ == 0) return refusal();
    if (cupsStartDocument(connection_.get(), queue_, number_, title_, type, 1) !=
        HTTP_STATUS_CONTINUE) {
      return refusal();
    }
    CupsOutcome outcome = sendPieces(next);
    if (!outcome.isDone()) return outcome;
    if (cupsFinishDocument(connection_.get(), queue_) > IPP_STATUS_OK_CONFLICTING) return refusal();
    number_ = 0;
    return {};
  }

 private:
  CupsOutcome sendPieces(const CupsQueue::NextPiece& next) {
    for (;;) {
      std::string_view piece;
      if (const int reason = next(piece); reason != 0) return {reason, {}};
      if (piece.empty()) return {};
      const http_status_t status =
          cupsWriteRequestData(connection_.get(), piece.data(), piece.size());
      if (status != HTTP_STATUS_CONTINUE) return refusal();
    }
  }

  const char* queue_;
  std::string titleBytes_;
  const char* title_;
  CupsPatience patience_;
  Connection connection_;
  CupsOutcome answer_;  // to the first question
  int number_ = 0;      // 0: there is no job, or it is finished
};

}  // namespace

void CupsQueue::FreeDestination::operator()(cups_dest_s* destination) const noexcept {
  cupsFreeDests(1, destination);
}

CupsQueue::CupsQueue(CupsPatience patience) noexcept : patience_(patience) {}
CupsQueue::~CupsQueue() = default;

CupsOutcome CupsQueue::open(TextView name) {
  destination_ = nullptr;
  const std::string bytes = toUtf8(name);
  const std::size_t slash = bytes.find('/');
  const std::string queue = bytes.substr(0, slash);
  const std::string instance = slash == std::string::npos ? "" : bytes.substr(slash + 1);
  const Connection connection = connect(patience_);
  if (!connection) return serverIsAway();
  // No name would be the default printer, and what follows a character 0 would be ignored.
  if (queue.empty() || bytes.find('\0') != std::string::npos) return queueIsUnknown();
  CupsOutcome answer = ask(connection.get(), queue);
  if (!answer.isDone()) return answer;
  destination_.reset(cupsGetNamedDest(connection.get(), queue.c_str(),
                                      instance.empty() ? nullptr : instance.c_str()));
  const bool hasQueue =
      destination_ && cupsGetOption("printer-uri-supported", destination_->num_options,
                                    destination_->options) != nullptr;
  if (hasQueue) return {};
  destination_ = nullptr;
  return queueIsUnknown();
}

CupsOutcome CupsQueue::submit(TextView title, CupsFormat format, const NextPiece& next) const {
  return Job(*destination_, title, patience_).send(mimeType(format), next);
}

}  // namespace tarvo
