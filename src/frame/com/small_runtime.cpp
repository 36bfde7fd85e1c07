// In place of the run-time library's own functions that raise what its containers complain of.
//
// Its own raise classes that carry their text in a string of an older kind, and bring all of that
// string's code: a sixth of the server's size, for errors that are mistakes of this library and
// reach a client as an internal error with their text (run_time_error.h) either way.  Nothing in
// the server may tell them apart by their class: where that is wanted (std::length_error), this
// file stays out.
//
// Once something asks for another function of that family, the linker finds these defined twice;
// then that one belongs here too.
#include <exception>
#include <new>

namespace {

class BrokenRule final : public std::exception {
 public:
  explicit BrokenRule(const char* what) noexcept : what_(what) {}
  const char* what() const noexcept override { return what_; }

 private:
  const char* what_;  // a literal of the run-time library's
};

}  // namespace

// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl58-cpp): the names are the run-time library's.
namespace std {

[[noreturn]] void __throw_bad_alloc() { throw bad_alloc(); }
[[noreturn]] void __throw_bad_array_new_length() { throw bad_array_new_length(); }
[[noreturn]] void __throw_logic_error(const char* what) { throw BrokenRule(what); }
[[noreturn]] void __throw_length_error(const char* what) { throw BrokenRule(what); }
[[noreturn]] void __throw_out_of_range(const char* what) { throw BrokenRule(what); }
[[noreturn]] void __throw_out_of_range_fmt(const char* what, ...) { throw BrokenRule(what); }

}  // namespace std
// NOLINTEND(bugprone-reserved-identifier,cert-dcl58-cpp)
