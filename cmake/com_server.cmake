# Type libraries and COM servers.
#
# The interface definitions come from the member tables: a program of the build machine writes them,
# the interface compiler turns them into type libraries, and those become resources of the servers.
find_program(TARVO_HOST_CXX NAMES g++ c++ clang++ REQUIRED
  DOC "Compiler for programs that run during the build")
find_path(TARVO_STDOLE_FOLDER stdole2.tlb REQUIRED NO_CMAKE_FIND_ROOT_PATH
  PATHS /usr/lib/x86_64-linux-gnu/wine/x86_64-windows /usr/lib/i386-linux-gnu/wine/i386-windows
  DOC "Folder of the standard automation type library")

set(TARVO_IDL_FOLDER ${PROJECT_BINARY_DIR}/interfaces)
set(TARVO_INTERFACES ${PROJECT_SOURCE_DIR}/tools/interfaces)
set(TARVO_IDL_WRITER ${TARVO_IDL_FOLDER}/tarvo-interfaces)
file(MAKE_DIRECTORY ${TARVO_IDL_FOLDER})

set(_writer_objects)
foreach(_source ${TARVO_INTERFACES}/main.cpp ${TARVO_INTERFACES}/idl.cpp
    ${PROJECT_SOURCE_DIR}/src/frame/class_info.cpp)
  get_filename_component(_name ${_source} NAME_WE)
  set(_object ${TARVO_IDL_FOLDER}/${_name}.o)
  add_custom_command(OUTPUT ${_object}
    COMMAND ${CMAKE_CXX_COMPILER_LAUNCHER} ${TARVO_HOST_CXX} -std=c++20 -O0 -MD -MF ${_object}.d
      -MT ${_object} -I${PROJECT_SOURCE_DIR}/src -I${PROJECT_SOURCE_DIR}/tools
      -I${PROJECT_SOURCE_DIR} -I${PROJECT_BINARY_DIR}/src/generated -c ${_source} -o ${_object}
    DEPENDS ${_source}
    DEPFILE ${_object}.d
    COMMENT "Compiling ${_name} for the build machine" VERBATIM)
  list(APPEND _writer_objects ${_object})
endforeach()
add_custom_command(OUTPUT ${TARVO_IDL_WRITER}
  COMMAND ${TARVO_HOST_CXX} ${_writer_objects} -o ${TARVO_IDL_WRITER}
  DEPENDS ${_writer_objects}
  COMMENT "Linking the interface writer for the build machine" VERBATIM)

set(_written LibTarvoCI_2402_interfaces.idl LibTarvoCI_2402.idl LibTarvoRdpCI_2402.idl
  LibTarvoCI_2402.manifest LibTarvoRdpCI_2402.manifest)
list(TRANSFORM _written PREPEND ${TARVO_IDL_FOLDER}/)
add_custom_command(OUTPUT ${_written}
  COMMAND ${TARVO_IDL_WRITER} ${TARVO_IDL_FOLDER} ${TARVO_BITS}
  DEPENDS ${TARVO_IDL_WRITER} VERBATIM)
add_custom_command(OUTPUT ${TARVO_IDL_FOLDER}/LibTarvoCI_2402_interfaces.h
  COMMAND ${TARVO_WIDL} -I ${TARVO_IDL_FOLDER} -I ${TARVO_INTERFACES}
    -h -o ${TARVO_IDL_FOLDER}/LibTarvoCI_2402_interfaces.h
    ${TARVO_IDL_FOLDER}/LibTarvoCI_2402_interfaces.idl
  DEPENDS ${TARVO_IDL_FOLDER}/LibTarvoCI_2402_interfaces.idl VERBATIM)
add_custom_target(tarvo_interface_files
  DEPENDS ${_written} ${TARVO_IDL_FOLDER}/LibTarvoCI_2402_interfaces.h)

# Adds the rule for NAME.tlb in the products' folder, its manifest beside it, and the header for C++
# clients.
function(tarvo_type_library name)
  add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/${name}.tlb
    COMMAND ${TARVO_WIDL} -L ${TARVO_STDOLE_FOLDER} -L ${PROJECT_BINARY_DIR}
      -I ${TARVO_IDL_FOLDER} -I ${TARVO_INTERFACES}
      -t -o ${PROJECT_BINARY_DIR}/${name}.tlb ${TARVO_IDL_FOLDER}/${name}.idl
    COMMAND ${TARVO_WIDL} -I ${TARVO_IDL_FOLDER} -I ${TARVO_INTERFACES}
      -h -o ${TARVO_IDL_FOLDER}/${name}.h ${TARVO_IDL_FOLDER}/${name}.idl
    COMMAND ${CMAKE_COMMAND} -E copy ${TARVO_IDL_FOLDER}/${name}.manifest ${PROJECT_BINARY_DIR}
    DEPENDS ${TARVO_IDL_FOLDER}/${name}.idl ${TARVO_INTERFACES}/prelude.idl ${ARGN}
      ${TARVO_IDL_FOLDER}/${name}.manifest
    VERBATIM)
endfunction()

# Adds an in-process server: NAME.dll in the products' folder, with its type library inside.
function(tarvo_com_server target name description)
  set(TARVO_SERVER_NAME ${name})
  set(TARVO_SERVER_DESCRIPTION ${description})
  configure_file(${PROJECT_SOURCE_DIR}/cmake/server.rc.in ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc
    @ONLY)
  add_library(${target} MODULE ${ARGN} ${PROJECT_SOURCE_DIR}/src/frame/com/exports.def
    ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc)
  set_target_properties(${target} PROPERTIES PREFIX "" OUTPUT_NAME ${name}
    LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
  target_link_libraries(${target} PRIVATE tarvo_com)
  add_dependencies(${target} tarvo_type_libraries)
  set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/${name}.rc PROPERTIES
    OBJECT_DEPENDS ${PROJECT_BINARY_DIR}/${name}.tlb)
  # The run-time library travels inside: a client's machine need not have it.
  target_link_options(${target} PRIVATE -static -Wl,--enable-stdcall-fixup
    -Wl,--gc-sections $<$<CONFIG:Release>:-s>)
endfunction()
