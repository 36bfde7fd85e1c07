find_package(SQLite3 REQUIRED)
find_library(CSV_LIBRARY csv REQUIRED)
target_link_libraries(tarvordp_parts PUBLIC SQLite::SQLite3 ${CSV_LIBRARY})
target_sources(tarvordp_parts PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/amount.cpp
  ${CMAKE_CURRENT_LIST_DIR}/answers.cpp
  ${CMAKE_CURRENT_LIST_DIR}/column.cpp
  ${CMAKE_CURRENT_LIST_DIR}/csv_records.cpp
  ${CMAKE_CURRENT_LIST_DIR}/csv_rows.cpp
  ${CMAKE_CURRENT_LIST_DIR}/database.cpp
  ${CMAKE_CURRENT_LIST_DIR}/database_access.cpp
  ${CMAKE_CURRENT_LIST_DIR}/details.cpp
  ${CMAKE_CURRENT_LIST_DIR}/file_stamp.cpp
  ${CMAKE_CURRENT_LIST_DIR}/inline_records.cpp
  ${CMAKE_CURRENT_LIST_DIR}/job_data.cpp
  ${CMAKE_CURRENT_LIST_DIR}/job_file.cpp
  ${CMAKE_CURRENT_LIST_DIR}/job_value.cpp
  ${CMAKE_CURRENT_LIST_DIR}/query_records.cpp
  ${CMAKE_CURRENT_LIST_DIR}/record.cpp)
