// Template files that exist in a test alone: written as bytes, read as the port says, and changed
// or broken at any moment.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>

#include "equipment/call_log.h"
#include "frame/codepage.h"
#include "frame/services.h"
#include "reports/text_files.h"

namespace tarvo::test {

class MemoryTextFiles final : public TextFiles {
 public:
  // Counts opening, the question for the end, reading and closing.
  Fault fault;

  // Called before every access, with its number from 1.
  std::function<void(int)> beforeAccess;

  void write(const Text& path, std::string bytes) { files_[path] = std::move(bytes); }
  void append(const Text& path, std::string_view bytes) { files_[path] += bytes; }
  void remove(const Text& path) { files_.erase(path); }
  bool exists(TextView path) const { return files_.contains(Text(path)); }

  // Streams that were opened and not closed.
  int openStreams() const { return open_; }
  int opened() const { return opened_; }

  Ref<TextStream> OpenTextFile(TextView path) override {
    access();
    if (!exists(path)) throw RunTimeError(kFileNotFound, path);
    ++open_;
    ++opened_;
    return make<Stream>(*this, Text(path));
  }

 private:
  class Stream final : public TextStream {
   public:
    Stream(MemoryTextFiles& home, Text path) : home_(home), path_(std::move(path)) {}

    bool AtEndOfStream() override {
      home_.access();
      return position_ >= bytes().size();
    }
    void ReadLine(Text& line) override {
      home_.access();
      if (position_ >= bytes().size()) throw RunTimeError(kInputPastEndOfFile);
      const std::size_t end = bytes().find('\n', position_);
      std::string_view found = std::string_view(bytes()).substr(position_, end - position_);
      if (end != std::string::npos && found.ends_with('\r')) found.remove_suffix(1);
      CodePage::ofSystem().decode(found, line);
      position_ = end == std::string::npos ? bytes().size() : end + 1;
    }
    void Close() override {
      --home_.open_;
      home_.access();
    }

   private:
    // What a file holds that was removed while it was read.
    const std::string& bytes() const {
      static const std::string kNothing;
      const auto found = home_.files_.find(path_);
      return found == home_.files_.end() ? kNothing : found->second;
    }

    MemoryTextFiles& home_;
    Text path_;
    std::size_t position_ = 0;
  };

  void access() {
    ++accesses_;
    if (beforeAccess) beforeAccess(accesses_);
    fault.countCall();
  }

  std::map<Text, std::string> files_;
  int open_ = 0;
  int opened_ = 0;
  int accesses_ = 0;
};

// The file service over them.
class MemoryFileService final : public clsUtilFile {
 public:
  explicit MemoryFileService(Ref<MemoryTextFiles> files) : files_(std::move(files)) {}

  Fault fault;

  bool fFileExists(TextView valPath) override {
    fault.countCall();
    return files_->exists(valPath);
  }

 private:
  Ref<MemoryTextFiles> files_;
};

}  // namespace tarvo::test
