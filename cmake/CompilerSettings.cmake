# Flags, linker and sanitizers that every target shares.
add_compile_options(
    -Wall -Wextra -Wpedantic -Wconversion -Wold-style-cast -Wcast-qual -Wnon-virtual-dtor
    -Woverloaded-virtual -Werror
    # GCC's full check takes scoped enumerators for shadowing names, Clang's those of another file
    # of the same unity source
    $<$<CXX_COMPILER_ID:GNU>:-Wshadow=local>
    # both take GCC 12's own string and variant code for faulty when it is inlined
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict> $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>
    # a source that a unity source includes is no header
    $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
# "signals" and "slots" stay usable as names
add_compile_definitions(QT_NO_KEYWORDS)
if(CMAKE_BUILD_TYPE STREQUAL "Debug")
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()

if(TIDEWELL_SANITIZERS)
    add_compile_options(
        -fsanitize=${TIDEWELL_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${TIDEWELL_SANITIZERS})
endif()
if(TIDEWELL_FUZZERS)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()
find_program(LLD ld.lld)
if(LLD)
    add_link_options(-fuse-ld=lld)
endif()
# a program pays at start-up only for the libraries that it uses
add_link_options(-Wl,--as-needed)
