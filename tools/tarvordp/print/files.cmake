target_sources(tarvordp_parts PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/asked_names.cpp
  ${CMAKE_CURRENT_LIST_DIR}/job_client.cpp
  ${CMAKE_CURRENT_LIST_DIR}/job_messages.cpp
  ${CMAKE_CURRENT_LIST_DIR}/job_pages.cpp
  ${CMAKE_CURRENT_LIST_DIR}/job_report.cpp
  ${CMAKE_CURRENT_LIST_DIR}/named_files.cpp
  ${CMAKE_CURRENT_LIST_DIR}/opened_templates.cpp
  ${CMAKE_CURRENT_LIST_DIR}/operator.cpp
  ${CMAKE_CURRENT_LIST_DIR}/output_spooler.cpp
  ${CMAKE_CURRENT_LIST_DIR}/print_command.cpp
  ${CMAKE_CURRENT_LIST_DIR}/print_job.cpp
  ${CMAKE_CURRENT_LIST_DIR}/progress.cpp
  ${CMAKE_CURRENT_LIST_DIR}/trace.cpp
  ${CMAKE_CURRENT_LIST_DIR}/traced_errors.cpp)
