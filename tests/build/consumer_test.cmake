# Protects those who use the installed library: moved to another folder it still serves a project of theirs (found,
# built, run) and a plain compiler call by pkg-config; another major version is refused; no installed file names our
# folders.

include("${CMAKE_CURRENT_LIST_DIR}/consumer_common.cmake")
file(REMOVE_RECURSE "${WORK}")

run("${CMAKE_COMMAND}" --install "${BUILD_DIR}" --strip --prefix "${WORK}/prefix")
file(RENAME "${WORK}/prefix" "${WORK}/moved")

file(GLOB_RECURSE installed "${WORK}/moved/*")
foreach(file IN LISTS installed)
    # A sanitizer or counters write the places of the sources into the library.
    if(file MATCHES "\\.so" AND FLAGS MATCHES "-fsanitize|--coverage")
        continue()
    endif()
    foreach(folder IN ITEMS "${SOURCE_DIR}" "${BUILD_DIR}")
        file(STRINGS "${file}" lines REGEX "${folder}")
        if(lines)
            message(FATAL_ERROR "${file} names a folder of this machine: ${lines}")
        endif()
    endforeach()
endforeach()

list(APPEND configure "-DCMAKE_CXX_FLAGS=${FLAGS}" "-DCMAKE_PREFIX_PATH=${WORK}/moved")
run(${configure} -B "${WORK}/package" -DVERSION_WANTED=0.1)
run("${CMAKE_COMMAND}" --build "${WORK}/package")
run("${WORK}/package/consumer")

execute_process(COMMAND ${configure} -B "${WORK}/refused" -DVERSION_WANTED=1.0
    RESULT_VARIABLE result OUTPUT_QUIET ERROR_VARIABLE message)
if(result EQUAL 0 OR NOT message MATCHES "compatible with requested version \"1.0\"")
    message(FATAL_ERROR "version 1.0 was asked for, and the answer is ${result}: ${message}")
endif()

use_by_pkg_config("${WORK}/moved")
