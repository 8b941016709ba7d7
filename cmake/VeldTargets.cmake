# Settings shared by every target of the project.
function(veld_target_defaults target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Werror)
  target_compile_definitions(${target} PRIVATE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII)
  set_target_properties(${target} PROPERTIES AUTOMOC ON AUTORCC ON)
endfunction()

# veld_add_test(NAME SOURCES ... LIBS ...): one GoogleTest executable, run by
# ctest headless (offscreen Qt platform).
function(veld_add_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  veld_target_defaults(${name})
  target_link_libraries(${name} PRIVATE veldtestsupport ${ARG_LIBS} GTest::gtest)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;VELD_SUPPORT_DIR=${CMAKE_SOURCE_DIR}/support"
    TIMEOUT 300)
endfunction()
