# Protects those who use the library: the installed package serves a project of theirs (found, built, run), and as a
# subdirectory the library brings neither its tests nor its warnings along (configured only).

set(consumer "${CMAKE_CURRENT_LIST_DIR}/consumer")
set(work "${BUILD_DIR}/consumer_test")
file(REMOVE_RECURSE "${work}")

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "failed (${result}): ${ARGN}")
    endif()
endfunction()

set(configure "${CMAKE_COMMAND}" -S "${consumer}" -G "${GENERATOR}"
    "-DCMAKE_CXX_COMPILER=${COMPILER}" "-DCMAKE_CXX_FLAGS=${FLAGS}")

# The program of the README's first page.
file(READ "${SOURCE_DIR}/README.md" readme)
string(REGEX MATCH "```cpp\n([^`]*)```" block "${readme}")
file(WRITE "${work}/readme.cpp" "${CMAKE_MATCH_1}")

run("${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${work}/prefix")
run(${configure} -B "${work}/package" "-DCMAKE_PREFIX_PATH=${work}/prefix" "-DREADME_PROGRAM=${work}/readme.cpp")
run("${CMAKE_COMMAND}" --build "${work}/package")
run("${work}/package/consumer")
run("${work}/package/readme")

run(${configure} -B "${work}/subdirectory" "-DORVLUMGEOM_SOURCE_DIR=${SOURCE_DIR}")
