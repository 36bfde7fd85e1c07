// A queue of the print server and the jobs that are put into it: what everything that prints by
// CUPS stands on.
//
// A queue's name is "queue", or "queue/instance" for the options that the user keeps under that
// name (lpoptions(1)); an instance that is not known has the queue's.  The server is the one that
// libcups finds (CUPS_SERVER, client.conf), the user is the one who runs the program.
//
// A connection lives for one question or one job, so no pause of the program finds one open, and a
// server that says nothing is given up: a call ends in an error then, it does not hang.  One that
// falls silent in the middle of a call may cost several such waits, some of them libcups' own (a
// minute).
//
// Threads: one.  Raises: 7 alone (memory), and what a NextPiece throws; every other failure is a
// CupsOutcome.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "frame/text.h"

struct cups_dest_s;  // of libcups

namespace tarvo {

// How a step went.
struct CupsOutcome {
  // 0: it is done; below 1024 the code of a NextPiece; else a status of the print protocol: 1030
  // for an unknown queue, 1282 for a server that is away, or what the server answered.
  std::int32_t code = 0;
  std::string reason;  // in words; may be empty

  bool isDone() const noexcept { return code == 0; }
};

// What a server does with a document: nothing, or what its filters know of the format.
enum class CupsFormat { kRaw, kPdf };

// How long a server is waited for.
struct CupsPatience {
  int connectMilliseconds = 30'000;
  double silenceSeconds = 60;  // while an answer is due; several of them may be in one call
};

class CupsQueue {
 public:
  // Gives the next piece of a document, an empty one at its end; valid until the next call.  An
  // answer other than 0 (errno's codes) gives the document up.
  using NextPiece = std::function<int(std::string_view& piece)>;

  explicit CupsQueue(CupsPatience patience = {}) noexcept;
  ~CupsQueue();

  // Finds the queue of that name; after a failure there is none.  A printer that was only seen in
  // the network is unknown: it has no queue to put jobs in.
  CupsOutcome open(TextView name);

  // Puts a document into the queue as one job.  One that does not get there whole leaves no job.
  //   title  is cut to the 255 bytes that a server takes, with blanks for control characters; an
  //          empty one leaves the title to the server
  // REQUIRES: open() found a queue.
  CupsOutcome submit(TextView title, CupsFormat format, const NextPiece& next) const;

 private:
  struct FreeDestination {
    void operator()(cups_dest_s* destination) const noexcept;
  };

  CupsPatience patience_;
  std::unique_ptr<cups_dest_s, FreeDestination> destination_;
};

}  // namespace tarvo
