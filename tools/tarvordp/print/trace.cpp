#include "tarvordp/print/trace.h"

#include <cerrno>
#include <system_error>
#include <utility>

#include "tarvordp/mistake.h"

namespace tarvordp {

Trace::Trace(const std::string& path) : path_(path), file_(path, std::ios::binary) {
  if (!file_) {
    throw Mistake(path + ": cannot be written: " + std::generic_category().message(errno));
  }
}

void Trace::write(const Json& event) {
  if (!isOn()) return;
  std::ostream& out = stream_ != nullptr ? *stream_ : file_;
  out << event.dump() << '\n' << std::flush;
  if (!out) isWhole_ = false;
}

void Trace::callback(const char* name, Json answer) {
  if (!isOn()) return;
  write({{"event", "callback"}, {"name", name}, {"answer", std::move(answer)}});
}

}  // namespace tarvordp
