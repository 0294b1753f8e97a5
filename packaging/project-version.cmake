# cmake -P packaging/project-version.cmake: prints the version that project()
# in the top CMakeLists.txt gives the game, for scripts that cannot run CMake's
# configure step (scripts/package names the Debian package after it).
get_filename_component(top "${CMAKE_CURRENT_LIST_DIR}/.." ABSOLUTE)
file(READ "${top}/CMakeLists.txt" lists)
if(NOT lists MATCHES "project\\([ \t\r\n]*vorn[ \t\r\n]+VERSION[ \t\r\n]+([0-9]+(\\.[0-9]+)*)[ \t\r\n)]")
  message(FATAL_ERROR "no project(vorn VERSION ...) in ${top}/CMakeLists.txt")
endif()
execute_process(COMMAND "${CMAKE_COMMAND}" -E echo "${CMAKE_MATCH_1}")
