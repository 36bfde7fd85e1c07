// Runs a fuzzer's checks without a fuzzer: replay CORPUS COUNT runs every file of the corpus, and
// COUNT inputs that are made up, the same ones every time.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzzing.h"

namespace {

using Input = std::vector<std::uint8_t>;

// A generator of our own, so that the inputs do not depend on the library that is at hand.
class Generator {
 public:
  std::uint32_t next() {
    state_ = state_ * 6364136223846793005u + 1442695040888963407u;
    return static_cast<std::uint32_t>(state_ >> 33);
  }
  std::uint32_t below(std::uint32_t limit) { return next() % limit; }

 private:
  std::uint64_t state_ = 2402;
};

// Some inputs are noise; others use few different bytes, so that sequences have a chance.
Input makeNoise(Generator& generator) {
  const std::uint32_t alphabet = generator.below(2) == 0 ? 256 : 1 + generator.below(8);
  std::vector<std::uint8_t> letters(alphabet);
  for (std::uint8_t& letter : letters) letter = static_cast<std::uint8_t>(generator.below(256));
  Input input(generator.below(600));
  for (std::uint8_t& byte : input) byte = letters[generator.below(alphabet)];
  return input;
}

// Pieces of the corpus one after the other, with some bytes changed.
Input makeFromPieces(Generator& generator, const std::vector<Input>& corpus) {
  constexpr std::uint32_t kLongestPiece = 200;
  Input input;
  for (std::uint32_t pieces = 1 + generator.below(4); pieces > 0; --pieces) {
    const Input& source = corpus[generator.below(static_cast<std::uint32_t>(corpus.size()))];
    if (source.empty()) continue;
    const std::uint32_t from = generator.below(static_cast<std::uint32_t>(source.size()));
    const std::uint32_t most = static_cast<std::uint32_t>(source.size()) - from;
    const std::uint32_t size = 1 + generator.below(std::min(most, kLongestPiece));
    input.insert(input.end(), source.begin() + from, source.begin() + from + size);
  }
  for (std::uint32_t changes = generator.below(4); changes > 0 && !input.empty(); --changes) {
    input[generator.below(static_cast<std::uint32_t>(input.size()))] =
        static_cast<std::uint8_t>(generator.below(256));
  }
  return input;
}

std::vector<Input> readCorpus(const std::string& folder) {
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    paths.push_back(entry.path());
  }
  std::sort(paths.begin(), paths.end());
  std::vector<Input> inputs;
  for (const std::filesystem::path& path : paths) {
    std::ifstream file(path, std::ios::binary);
    inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  return inputs;
}

void run(const Input& input) {
  // An exact copy on the heap, so that a sanitizer sees a read past its end.
  const std::vector<std::uint8_t> copy(input.begin(), input.end());
  LLVMFuzzerTestOneInput(copy.data(), copy.size());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: replay CORPUS COUNT\n");
    return 2;
  }
  const std::vector<Input> corpus = readCorpus(argv[1]);
  if (corpus.empty()) {
    std::fprintf(stderr, "replay: the corpus is empty\n");
    return 1;
  }
  for (const Input& input : corpus) run(input);
  Generator generator;
  const int count = std::atoi(argv[2]);
  for (int i = 0; i < count; ++i) {
    run(i % 2 == 0 ? makeNoise(generator) : makeFromPieces(generator, corpus));
  }
  std::printf("%zu inputs of the corpus and %d made-up ones\n", corpus.size(), count);
  return 0;
}
