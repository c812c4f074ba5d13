# Compiles the library and the bundled scene graph as one file each, as the sanitizers' build does, which is quicker.
function(ks_join)
    foreach(target IN ITEMS ksundo ks-scenegraph)
        if(TARGET ${target})
            set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0)
        endif()
    endforeach()
endfunction()
cmake_language(DEFER CALL ks_join)
