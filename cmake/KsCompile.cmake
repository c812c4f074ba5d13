# Compile settings of everything in this repository. ks_compile(target) for C++ code, ks_compile_qt(target) for code that
# uses Qt as well.

set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(KSUNDO_SANITIZE)
    # Accesses by a null pointer, and beyond the end of most objects, AddressSanitizer finds as well; those that are misaligned the
    # processor stands. To look for these as well takes a third of the time that compiling takes.
    add_compile_options(-fsanitize=address,undefined -fno-sanitize=null,object-size,alignment -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(KSUNDO_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

# ks_join(target [FOLDERS name...]): compiles its files as one when KSUNDO_JOIN says so; with folders, those of each as one, and
# the others one by one.
function(ks_join target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "FOLDERS")
    if(NOT KSUNDO_JOIN)
        return()
    endif()
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0)
    if(arg_FOLDERS)
        set_target_properties(${target} PROPERTIES UNITY_BUILD_MODE GROUP)
        get_target_property(files ${target} SOURCES)
        foreach(folder IN LISTS arg_FOLDERS)
            set(members ${files})
            list(FILTER members INCLUDE REGEX "^${folder}/")
            set_source_files_properties(${members} PROPERTIES UNITY_GROUP ${folder})
        endforeach()
    endif()
endfunction()

function(ks_compile target)
    target_compile_features(${target} PUBLIC cxx_std_17)
    set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wnon-virtual-dtor)
    if(KSUNDO_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
endfunction()

# ks_keep_loaded(target): dlclose() leaves the library where it is. Histories, types and ids refer to code of the libraries that
# they come from for the rest of the process.
function(ks_keep_loaded target)
    target_link_options(${target} PRIVATE -Wl,-z,nodelete)
endfunction()

function(ks_compile_qt target)
    ks_compile(${target})
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
    target_compile_definitions(
        ${target}
        PRIVATE QT_NO_KEYWORDS
                QT_NO_FOREACH
                QT_NO_CAST_FROM_ASCII
                QT_NO_CAST_TO_ASCII
                QT_NO_CAST_FROM_BYTEARRAY
                QT_NO_URL_CAST_FROM_STRING
                QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
                QT_STRICT_ITERATORS
                QT_USE_QSTRINGBUILDER
                QT_DEPRECATED_WARNINGS
                QT_DISABLE_DEPRECATED_BEFORE=0x050F00)
endfunction()
