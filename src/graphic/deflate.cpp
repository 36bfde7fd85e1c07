#include "graphic/deflate.h"

#include <algorithm>
#include <bit>

namespace tarvo {
namespace {

constexpr std::uint32_t kWindow = 32768;
constexpr std::uint32_t kShortest = 3;
constexpr std::uint32_t kLongest = 258;
constexpr int kHashBits = 13;
constexpr int kMostTries = 24;  // places looked at for one match

constexpr std::uint32_t kEndOfBlock = 256;
constexpr std::uint32_t kFirstLength = 257;
constexpr std::uint32_t kLastLength = 285;

// Bits leave from the lowest up, codes from their highest bit down.
class BitWriter {
 public:
  explicit BitWriter(std::string& bytes) : bytes_(bytes) {}

  // REQUIRES: count <= 16.
  void put(std::uint32_t value, int count) {
    waiting_ |= value << waitingCount_;
    waitingCount_ += count;
    for (; waitingCount_ >= 8; waitingCount_ -= 8, waiting_ >>= 8) putByte(waiting_);
  }

  void putCode(std::uint32_t code, int count) {
    std::uint32_t reversed = 0;
    for (int i = 0; i < count; ++i) reversed |= (code >> i & 1) << (count - 1 - i);
    put(reversed, count);
  }

  void fillLastByte() {
    if (waitingCount_ > 0) put(0, 8 - waitingCount_);
  }

 private:
  void putByte(std::uint32_t bits) { bytes_.push_back(static_cast<char>(bits & 0xFF)); }

  std::string& bytes_;
  std::uint32_t waiting_ = 0;
  int waitingCount_ = 0;
};

// The fixed code of a literal byte, a length or the end of the block.
void putSymbol(BitWriter& bits, std::uint32_t symbol) {
  if (symbol < 144) {
    bits.putCode(0x30 + symbol, 8);
  } else if (symbol < 256) {
    bits.putCode(0x190 + symbol - 144, 9);
  } else if (symbol < 280) {
    bits.putCode(symbol - 256, 7);
  } else {
    bits.putCode(0xC0 + symbol - 280, 8);
  }
}

// Lengths and distances are ranges that double in size every four or two codes; the place within
// the range follows the code.
struct Range {
  std::uint32_t index;
  int extraBits;
};
Range rangeOf(std::uint32_t value, int codesPerDoublingBits) noexcept {
  const int extra = std::max(0, static_cast<int>(std::bit_width(value)) - codesPerDoublingBits - 1);
  const auto doublings = static_cast<std::uint32_t>(extra) << codesPerDoublingBits;
  return {doublings + (value >> extra), extra};
}
std::uint32_t placeIn(Range range, std::uint32_t value) noexcept {
  return value & ((1u << range.extraBits) - 1);
}

void putLength(BitWriter& bits, std::uint32_t length) {
  if (length == kLongest) return putSymbol(bits, kLastLength);
  const Range range = rangeOf(length - kShortest, 2);
  putSymbol(bits, kFirstLength + range.index);
  bits.put(placeIn(range, length - kShortest), range.extraBits);
}

void putDistance(BitWriter& bits, std::uint32_t distance) {
  const Range range = rangeOf(distance - 1, 1);
  bits.putCode(range.index, 5);
  bits.put(placeIn(range, distance - 1), range.extraBits);
}

std::uint32_t adler32(std::string_view data) noexcept {
  constexpr std::uint32_t kModulus = 65521;
  constexpr std::size_t kMostWithoutOverflow = 5552;
  std::uint32_t a = 1;
  std::uint32_t b = 0;
  while (!data.empty()) {
    const std::string_view part = data.substr(0, kMostWithoutOverflow);
    for (const char byte : part) {
      a += static_cast<unsigned char>(byte);
      b += a;
    }
    a %= kModulus;
    b %= kModulus;
    data.remove_prefix(part.size());
  }
  return b << 16 | a;
}

void appendBigEndian(std::uint32_t value, std::string& bytes) {
  for (int shift = 24; shift >= 0; shift -= 8) {
    bytes.push_back(static_cast<char>(value >> shift & 0xFF));
  }
}

}  // namespace

Deflater::Deflater() : latest_(1u << kHashBits), earlier_(kWindow) {}

void Deflater::compress(std::string_view data, std::string& result) {
  data_ = data;
  std::fill(latest_.begin(), latest_.end(), 0);
  result.append("\x78\x01", 2);  // deflated, window of 32 KB, no dictionary
  BitWriter bits(result);
  bits.put(1, 1);  // the last block
  bits.put(1, 2);  // with the fixed codes
  const auto size = static_cast<std::uint32_t>(data.size());
  for (std::uint32_t position = 0; position < size;) {
    const Match match = findMatch(position);
    if (match.length == 0) {
      putSymbol(bits, static_cast<unsigned char>(data[position]));
    } else {
      putLength(bits, match.length);
      putDistance(bits, match.distance);
    }
    const std::uint32_t next = position + std::max(1u, match.length);
    for (; position < next; ++position) remember(position);
  }
  putSymbol(bits, kEndOfBlock);
  bits.fillLastByte();
  appendBigEndian(adler32(data), result);
  data_ = {};
}

// The longest of the nearest places that begin alike; no length when there is none.
Deflater::Match Deflater::findMatch(std::uint32_t position) const noexcept {
  Match best;
  if (data_.size() - position < kShortest) return best;
  std::uint32_t place = latest_[hashAt(position)];
  for (int tries = kMostTries; tries > 0 && place != 0; --tries) {
    const std::uint32_t candidate = place - 1;
    if (position - candidate > kWindow) break;
    const std::uint32_t length = matchLength(candidate, position);
    if (length >= kShortest && length > best.length) best = {length, position - candidate};
    if (best.length == kLongest) break;
    place = earlier_[candidate % kWindow];
  }
  return best;
}

std::uint32_t Deflater::matchLength(std::uint32_t a, std::uint32_t b) const noexcept {
  const auto rest = static_cast<std::uint32_t>(data_.size()) - b;
  const std::uint32_t most = std::min(kLongest, rest);
  std::uint32_t length = 0;
  while (length < most && data_[a + length] == data_[b + length]) ++length;
  return length;
}

// REQUIRES: three bytes from the position on.
std::uint32_t Deflater::hashAt(std::uint32_t position) const noexcept {
  const auto byte = [this, position](std::uint32_t i) -> std::uint32_t {
    return static_cast<unsigned char>(data_[position + i]);
  };
  return ((byte(0) << 16 | byte(1) << 8 | byte(2)) * 0x9E3779B1u) >> (32 - kHashBits);
}

void Deflater::remember(std::uint32_t position) noexcept {
  if (data_.size() - position < kShortest) return;
  std::uint32_t& latest = latest_[hashAt(position)];
  earlier_[position % kWindow] = latest;
  latest = position + 1;
}

}  // namespace tarvo
