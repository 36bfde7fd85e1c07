// SQLite databases for examples.
#pragma once

#include <string>

namespace tarvo::test {

// Makes the database with statements.  A failure fails the test.
void makeDatabase(const std::string& path, const std::string& statements);

}  // namespace tarvo::test
