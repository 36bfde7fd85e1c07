// Compression in the form that PDF files know as FlateDecode: a zlib stream (RFC 1950) of deflated
// data (RFC 1951).
//
// Made for pages of text and for little code: what repeats within 32 KB is written once, and the
// codes are the fixed ones.  Pages of columns come out at a fourth to a tenth of their size; data
// in which nothing repeats grow by an eighth at most.  The same data give the same bytes
// everywhere.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

class Deflater {
 public:
  Deflater();

  // Appends the stream of `data` to `result`.  REQUIRES: less than 2 GB.
  void compress(std::string_view data, std::string& result);

 private:
  struct Match {
    std::uint32_t length = 0;
    std::uint32_t distance = 0;
  };

  Match findMatch(std::uint32_t position) const noexcept;
  std::uint32_t matchLength(std::uint32_t a, std::uint32_t b) const noexcept;
  std::uint32_t hashAt(std::uint32_t position) const noexcept;
  void remember(std::uint32_t position) noexcept;

  std::string_view data_;  // of the present call
  // The latest place of each hash, and of each place the one before it with the same hash; 0 for
  // none, else the position and 1.
  std::vector<std::uint32_t> latest_;
  std::vector<std::uint32_t> earlier_;
};

}  // namespace tarvo
