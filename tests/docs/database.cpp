#include "database.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <memory>

namespace tarvo::test {

void makeDatabase(const std::string& path, const std::string& statements) {
  sqlite3* opened = nullptr;
  const int result = sqlite3_open(path.c_str(), &opened);
  const std::unique_ptr<sqlite3, int (*)(sqlite3*)> database(opened, sqlite3_close);
  ASSERT_EQ(result, SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(opened, statements.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
      << sqlite3_errmsg(opened);
}

}  // namespace tarvo::test
