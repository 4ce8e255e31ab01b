# tidewell_room(NAME LINKS lib ...): one folder of src/ as the static library tidewell_NAME,
# made of every source file in it and in the subfolders that AREAS names.
function(tidewell_room name)
    cmake_parse_arguments(ROOM "" "" "AREAS;LINKS;PRIVATE_LINKS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
    foreach(area ${ROOM_AREAS})
        file(GLOB area_sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${area}/*.cpp)
        list(APPEND sources ${area_sources})
    endforeach()
    string(REPLACE "/" "_" target tidewell_${name})
    add_library(${target} STATIC ${sources})
    target_include_directories(${target} PUBLIC ${CMAKE_SOURCE_DIR}/src)
    target_link_libraries(${target} PUBLIC ${ROOM_LINKS} PRIVATE ${ROOM_PRIVATE_LINKS})
endfunction()

# tidewell_test(NAME LINKS lib ...): the tests of one folder of tests/ as the program test_NAME.
# LABEL is "headless" unless given: needs no display, and is what the sanitizer runs of the CI take.
# ENVIRONMENT is one variable that the tests run with.
function(tidewell_test name)
    cmake_parse_arguments(TEST "" "LABEL;ENVIRONMENT" "LINKS" ${ARGN})
    if(NOT TEST_LABEL)
        set(TEST_LABEL headless)
    endif()
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
    add_executable(test_${name} ${sources})
    target_include_directories(test_${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    target_link_libraries(test_${name} PRIVATE ${TEST_LINKS} tidewell_test_support GTest::gmock)
    gtest_discover_tests(
        test_${name}
        DISCOVERY_MODE PRE_TEST
        TEST_PREFIX "${name}."
        PROPERTIES LABELS ${TEST_LABEL} TIMEOUT 120 ENVIRONMENT "${TEST_ENVIRONMENT}")
endfunction()
