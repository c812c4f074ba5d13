# Compiles the bundled scene graph as one file, as the sanitizers' build does, which is quicker.
cmake_language(DEFER CALL set_target_properties ks-scenegraph PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0)
