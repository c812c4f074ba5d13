# ks_test(name SOURCES files... LIBRARIES targets... [LAUNCHER command...] [APART]): one program of GoogleTest cases, which is
# one test of CTest. It links its own main, tests/support/main.cpp, which starts the scene graph and a QApplication. APART:
# names in the files meet, so that they are always compiled one by one. LAUNCHER: what runs the program.
# ks_compile_test(target): compile settings of test code.

find_package(GTest REQUIRED)
find_package(Qt5 5.15 REQUIRED COMPONENTS Test)

# Optimising is most of the work of compiling tests, and little of it pays: none where the sanitizers look on, unless a test runs
# for as long as one has time.
function(ks_compile_test target)
    ks_compile_qt(${target})
    target_compile_options(
        ${target} PRIVATE $<IF:$<OR:$<CONFIG:Release>,$<BOOL:${KSUNDO_FUZZ}>>,-O1,-O0>
                          # GoogleTest's macros leave arguments out.
                          $<$<CXX_COMPILER_ID:Clang>:-Wno-gnu-zero-variadic-macro-arguments>)
endfunction()

function(ks_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "APART" "" "SOURCES;LIBRARIES;LAUNCHER")
    add_executable(${name} ${arg_SOURCES} $<$<BOOL:${KSUNDO_SANITIZE}>:${PROJECT_SOURCE_DIR}/tests/support/ksKeepLoaded.cpp>)
    ks_compile_test(${name})
    target_link_libraries(${name} PRIVATE ks-test-support ${arg_LIBRARIES})
    target_precompile_headers(${name} REUSE_FROM ks-test-support)
    if(KSUNDO_JOIN_TESTS AND NOT arg_APART)
        set_target_properties(${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0)
        # Fixtures in unnamed namespaces seem to be in a header then.
        target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
    endif()
    add_test(NAME ${name} COMMAND ${arg_LAUNCHER} $<TARGET_FILE:${name}> --gtest_brief=1)
    set_tests_properties(${name} PROPERTIES TIMEOUT 900)
endfunction()
