// Somebody else at the same computer who works at a database.
#pragma once

#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace tarvordp::test {

// Somebody else who has a database open: another process.
class Writer {
 public:
  Writer(const std::string& path, const std::string& sql) {
    int ready[2];
    int end[2];
    if (pipe(ready) != 0 || pipe(end) != 0) std::abort();
    child_ = fork();
    if (child_ == 0) work(path, sql, ready[1], {ready[0], end[1]}, end[0]);
    close(ready[1]);
    close(end[0]);
    end_ = end[1];
    char byte = 0;
    isReady_ = read(ready[0], &byte, 1) == 1;
    close(ready[0]);
  }
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;
  ~Writer() { crash(); }

  bool isReady() const { return isReady_; }

  // Ends without closing the database.
  void crash() {
    if (child_ <= 0) return;
    close(end_);
    waitpid(child_, nullptr, 0);
    child_ = 0;
  }

 private:
  [[noreturn]] static void work(const std::string& path, const std::string& sql, int ready,
                                const std::vector<int>& others, int end) {
    for (const int other : others) close(other);
    sqlite3* database = nullptr;
    sqlite3_open(path.c_str(), &database);
    char byte = 'r';
    const bool isDone =
        sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK &&
        write(ready, &byte, 1) == 1;
    if (isDone) byte = static_cast<char>(read(end, &byte, 1));
    _exit(isDone ? 0 : 1);
  }

  pid_t child_ = 0;
  int end_ = -1;
  bool isReady_ = false;
};

}  // namespace tarvordp::test
