# Settings shared by every target of the project.
function(veld_target_defaults target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Werror)
  target_compile_definitions(${target} PRIVATE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII)
  set_target_properties(${target} PROPERTIES AUTOMOC ON AUTORCC ON)
endfunction()

# veld_add_test(NAME SOURCES ... LIBS ...): one GoogleTest executable whose
# cases ctest runs, reports and times one by one, headless (offscreen Qt).
include(GoogleTest)
function(veld_add_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  veld_target_defaults(${name})
  target_link_libraries(${name} PRIVATE veldtestsupport ${ARG_LIBS} GTest::gtest)
  gtest_discover_tests(${name}
    DISCOVERY_MODE PRE_TEST
    DISCOVERY_TIMEOUT 60
    PROPERTIES
      ENVIRONMENT "QT_QPA_PLATFORM=offscreen;VELD_SUPPORT_DIR=${CMAKE_SOURCE_DIR}/support"
      TIMEOUT 300)
endfunction()

# veld_model_target(TARGET): TARGET belongs to the model or the line type
# loader, below the dialogs. veld_check_model_targets(), called once every
# target exists, fails the configuration when such a target reaches Qt
# Widgets through its links, and names the chain that does.
function(veld_model_target target)
  set_property(GLOBAL APPEND PROPERTY VELD_MODEL_TARGETS ${target})
endfunction()

function(_veld_widgets_chain target chain result)
  set(found "")
  get_target_property(libs ${target} LINK_LIBRARIES)
  get_target_property(interface ${target} INTERFACE_LINK_LIBRARIES)
  foreach(lib IN LISTS libs interface)
    if(lib MATCHES "^Qt6?::Widgets$")
      set(found "${chain} -> ${lib}")
    elseif(TARGET ${lib})
      _veld_widgets_chain(${lib} "${chain} -> ${lib}" found)
    endif()
    if(found)
      break()
    endif()
  endforeach()
  set(${result} "${found}" PARENT_SCOPE)
endfunction()

function(veld_check_model_targets)
  get_property(targets GLOBAL PROPERTY VELD_MODEL_TARGETS)
  foreach(target IN LISTS targets)
    _veld_widgets_chain(${target} ${target} chain)
    if(chain)
      message(FATAL_ERROR "The model target ${target} links Qt Widgets: ${chain}")
    endif()
  endforeach()
endfunction()
