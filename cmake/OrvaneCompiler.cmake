# How every target is compiled: C++20, with warnings, and the same bits on every machine (no contraction of a*b+c
# into one rounding, no fast-math).
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

# Most of the program waits for its user, or for the toolkit: optimised for more than this it takes half as long again
# to build, and is no faster (measured by all benchmarks). What computes asks for more by orvane_optimise.
set(CMAKE_CXX_FLAGS_RELEASE -O1)
function(orvane_optimise target)
  target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-O3>)
endfunction()

find_program(ORVANE_CCACHE ccache)
if(ORVANE_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${ORVANE_CCACHE})
endif()

# For those who can mend them. A compiler that is newer than this source may warn of what is right, and that
# must not keep anyone from building it.
option(ORVANE_WARNINGS_AS_ERRORS "Stop at a warning of the compiler" OFF)

add_library(orvane_compiler INTERFACE)
target_compile_features(orvane_compiler INTERFACE cxx_std_20)
target_compile_options(orvane_compiler INTERFACE
  -ffp-contract=off $<$<BOOL:${ORVANE_WARNINGS_AS_ERRORS}>:-Werror> -Wall -Wextra -Wpedantic -Wconversion -Wshadow
  -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wcast-qual -Wunused -Wimplicit-fallthrough
  -Wextra-semi)
# The compiler searches its memory for what can be used again only when it has taken 1 GB: a tenth of the time.
target_compile_options(orvane_compiler INTERFACE $<$<CXX_COMPILER_ID:GNU>:--param=ggc-min-heapsize=1000000>)
# An index outside a table ends the program with a message in every build; what it would do otherwise is anyone's guess.
target_compile_options(orvane_compiler INTERFACE -UNDEBUG)

if(ORVANE_SANITIZE)
  target_compile_options(orvane_compiler INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(orvane_compiler INTERFACE -fsanitize=address,undefined)
  target_compile_definitions(orvane_compiler INTERFACE _GLIBCXX_ASSERTIONS)
endif()

if(ORVANE_THREAD_SANITIZER)
  target_compile_options(orvane_compiler INTERFACE -fsanitize=thread)
  target_link_options(orvane_compiler INTERFACE -fsanitize=thread)
endif()

if(ORVANE_FUZZ)
  # Coverage for the fuzzer in every library; only the targets themselves link its main. Comparisons of numbers are not
  # traced: that took a third of the time, and what strange bytes are compared with are words, which are traced anyway.
  target_compile_options(orvane_compiler INTERFACE -fsanitize=fuzzer-no-link -fno-sanitize-coverage=trace-cmp
    -fsanitize-coverage-ignorelist=${CMAKE_SOURCE_DIR}/fuzz/uncounted.txt)
endif()

# orvane_join_sources(TARGET NUMBER): compiles that many of its files as one. Most of the time that a file takes goes into
# headers and templates which its neighbours use as well, in tests above all. Names in unnamed namespaces must then differ
# from those of neighbours.
function(orvane_join_sources target number)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE ${number})
  # The compiler takes the joined files for headers.
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endfunction()
