# ks_test(name SOURCES files... LIBRARIES targets...): one test program of GoogleTest cases, each registered with CTest.
# It links its own main, tests/support/main.cpp, which starts the scene graph and a QApplication.

find_package(GTest REQUIRED)
find_package(Qt5 5.15 REQUIRED COMPONENTS Test)
include(GoogleTest)

function(ks_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
    add_executable(${name} ${arg_SOURCES})
    ks_compile_qt(${name})
    target_link_libraries(${name} PRIVATE ks-test-support ${arg_LIBRARIES})
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 300)
endfunction()
