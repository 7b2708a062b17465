# What every target of the project is compiled with.

option(VORN_BENCH "Build the benchmarks" OFF)
option(VORN_FUZZ "Build the fuzzers (clang only)" OFF)
set(VORN_SANITIZE "" CACHE STRING "Sanitizers for every target, as for -fsanitize=")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Werror)

if(VORN_SANITIZE)
  add_compile_options(-fsanitize=${VORN_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${VORN_SANITIZE})
endif()

# What people run, the plug-in and its laboratory, is optimised a little in every preset: it takes a tenth longer to
# compile and a fraction of the time to run, and one tree serves ./run demo, ./run meet and ./run test alike. For the
# folder that calls it and all below.
macro(vorn_optimise_a_little)
  add_compile_options($<$<CONFIG:Debug>:-O1>)
endmacro()
