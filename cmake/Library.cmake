# What people run detects an overflow of the stack or of a buffer of known size, and has no table of functions that can be
# written to. Compilers and linkers of other systems know fewer of the options.
include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)
set(hardening)
foreach(option -fstack-protector-strong -fstack-clash-protection -fcf-protection)
  string(MAKE_C_IDENTIFIER "HAS${option}" known)
  check_cxx_compiler_flag(${option} ${known})
  if(${known})
    list(APPEND hardening ${option})
  endif()
endforeach()
check_linker_flag(CXX -Wl,-z,relro,-z,now HAS_RELRO)
set(linkHardening $<$<BOOL:${HAS_RELRO}>:-Wl,-z,relro,-z,now>)

# sumlet_options(TARGET): what every target of this project is compiled with.
function(sumlet_options target)
  if(NOT MSVC)
    # No fused multiplication and addition: rounding to ten places needs each step rounded by itself.
    target_compile_options(${target} PRIVATE -ffp-contract=off)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
    if(SUMLET_WARNINGS_AS_ERRORS)
      target_compile_options(${target} PRIVATE -Werror)
    endif()
    if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT SUMLET_SANITIZE)
      target_compile_options(${target} PRIVATE ${hardening})
      target_compile_definitions(${target} PRIVATE _FORTIFY_SOURCE=2)
      target_link_options(${target} PRIVATE ${linkHardening})
    endif()
    if(SUMLET_SANITIZE)
      target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-sanitize-recover=all
                                               -fno-omit-frame-pointer)
      target_link_options(${target} PRIVATE -fsanitize=address,undefined)
    endif()
    if(SUMLET_BUILD_FUZZERS)
      target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
    endif()
  else()
    target_compile_options(${target} PRIVATE /utf-8 /W4 /fp:precise)
  endif()
endfunction()

# sumlet_library(NAME SOURCES... [PUBLIC libs...] [PRIVATE libs...]): one folder of src/. What it may include is
# what it links to: the layers are stated there and nowhere else.
function(sumlet_library target)
  cmake_parse_arguments(ARG "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
  add_library(${target} STATIC ${ARG_SOURCES})
  target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${target} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
  sumlet_options(${target})
endfunction()

# sumlet_test(NAME SOURCES... LIBRARIES...): one GoogleTest binary with an environment of its own, each of its cases a
# CTest test.
function(sumlet_test target)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${target} ${ARG_SOURCES})
  target_link_libraries(${target} PRIVATE ${ARG_LIBRARIES} GTest::gtest fixed_environment)
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  sumlet_options(${target})
  gtest_discover_tests(${target} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
endfunction()
