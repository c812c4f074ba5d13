# ks_test(name SOURCES files... LIBRARIES targets...): one program of GoogleTest cases, which is one test of CTest. It
# links its own main, tests/support/main.cpp, which starts the scene graph and a QApplication.

find_package(GTest REQUIRED)
find_package(Qt5 5.15 REQUIRED COMPONENTS Test)

function(ks_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LIBRARIES")
    add_executable(${name} ${arg_SOURCES})
    ks_compile_qt(${name})
    target_link_libraries(${name} PRIVATE ks-test-support ${arg_LIBRARIES})
    add_test(NAME ${name} COMMAND ${name} --gtest_brief=1)
    set_tests_properties(${name} PROPERTIES TIMEOUT 300)
endfunction()
