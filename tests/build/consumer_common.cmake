# Shared by the tests that use the library as someone else does; run with `cmake -P` and these definitions:
# BUILD_DIR, SOURCE_DIR, COMPILER, FLAGS, GENERATOR, WORK (a folder of the test's own).

set(consumer "${CMAKE_CURRENT_LIST_DIR}/consumer")
set(configure "${CMAKE_COMMAND}" -S "${consumer}" -G "${GENERATOR}" "-DCMAKE_CXX_COMPILER=${COMPILER}")

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "failed (${result}): ${ARGN}")
    endif()
endfunction()

# Compiles the consumer with nothing but what pkg-config tells of a file below the folder, and runs it.
function(use_by_pkg_config folder)
    file(GLOB_RECURSE file "${folder}/*/OrvLumGeom.pc")
    cmake_path(GET file PARENT_PATH pkgconfig_dir)
    cmake_path(GET pkgconfig_dir PARENT_PATH libdir)
    execute_process(
        COMMAND "${CMAKE_COMMAND}" -E env "PKG_CONFIG_PATH=${pkgconfig_dir}" pkg-config --cflags --libs OrvLumGeom
        OUTPUT_VARIABLE options OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    separate_arguments(options UNIX_COMMAND "${options}")
    separate_arguments(flags UNIX_COMMAND "${FLAGS}")
    run("${COMPILER}" -std=c++20 ${flags} "${consumer}/main.cpp" ${options} -o "${WORK}/by_pkg_config")
    run("${CMAKE_COMMAND}" -E env "LD_LIBRARY_PATH=${libdir}" "${WORK}/by_pkg_config")
endfunction()
