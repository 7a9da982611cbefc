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

# The programs of the documents: the first C++ block of each, and the text block behind it as what it prints.
set(documents README docs/scripting)
foreach(document IN LISTS documents)
    cmake_path(GET document FILENAME name)
    file(READ "${SOURCE_DIR}/${document}.md" text)
    string(REGEX MATCH "```cpp\n([^`]*)```[^`]*(```text\n([^`]*)```)?" block "${text}")
    file(WRITE "${work}/programs/${name}.cpp" "${CMAKE_MATCH_1}")
    set(output_${name} "${CMAKE_MATCH_3}")
endforeach()

run("${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${work}/prefix")
run(${configure} -B "${work}/package" "-DCMAKE_PREFIX_PATH=${work}/prefix" "-DPROGRAMS=${work}/programs")
run("${CMAKE_COMMAND}" --build "${work}/package")
run("${work}/package/consumer")
foreach(document IN LISTS documents)
    cmake_path(GET document FILENAME name)
    execute_process(COMMAND "${work}/package/${name}" OUTPUT_VARIABLE output RESULT_VARIABLE result)
    if(NOT result EQUAL 0 OR (output_${name} AND NOT output STREQUAL output_${name}))
        message(FATAL_ERROR "${document}.md: its program returns ${result} and prints\n${output}")
    endif()
endforeach()

run(${configure} -B "${work}/subdirectory" "-DORVLUMGEOM_SOURCE_DIR=${SOURCE_DIR}")
