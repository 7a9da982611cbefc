# Protects those who take the sources in as a subdirectory: everything is built and run, with nothing of ours brought
# along: no tests, no examples, no warnings (the consumer looks), nothing to install.

include("${CMAKE_CURRENT_LIST_DIR}/consumer_common.cmake")

# The folder is kept from run to run: only what changed is compiled.
run(${configure} -B "${WORK}/build" "-DORVLUMGEOM_SOURCE_DIR=${SOURCE_DIR}" -DCMAKE_CXX_FLAGS=-O0)
run("${CMAKE_COMMAND}" --build "${WORK}/build" --parallel ${JOBS})
run("${WORK}/build/consumer")
run("${CMAKE_COMMAND}" --install "${WORK}/build" --prefix "${WORK}/prefix")
if(EXISTS "${WORK}/prefix")
    message(FATAL_ERROR "as a subdirectory the library installs itself with its host")
endif()
