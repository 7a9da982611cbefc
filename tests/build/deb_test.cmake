# Protects those who install the Debian packages: unpacked to a folder, both together serve a plain compiler call by
# pkg-config, and each names what it needs.

include("${CMAKE_CURRENT_LIST_DIR}/consumer_common.cmake")
file(REMOVE_RECURSE "${WORK}")

run(cpack -G DEB -B "${WORK}" --config "${BUILD_DIR}/CPackConfig.cmake")
file(GLOB runtime "${WORK}/liborvlumgeom[0-9]*.deb")
file(GLOB development "${WORK}/liborvlumgeom-dev_*.deb")
foreach(package IN ITEMS runtime development)
    run(dpkg-deb -x "${${package}}" "${WORK}/root")
    execute_process(COMMAND dpkg-deb -f "${${package}}" Package Version Depends OUTPUT_VARIABLE ${package}_fields)
endforeach()

string(REGEX REPLACE "^Package: ([^\n]*)\nVersion: ([^\n]*)\n.*" "Depends: \\1 (= \\2)"
    same_version "${runtime_fields}")
string(FIND "${development_fields}" "${same_version}\n" found)
if(found EQUAL -1 OR NOT runtime_fields MATCHES "Depends: [^\n]*libstdc\\+\\+6")
    message(FATAL_ERROR "the packages do not name what they need:\n${runtime_fields}${development_fields}")
endif()

use_by_pkg_config("${WORK}/root")
