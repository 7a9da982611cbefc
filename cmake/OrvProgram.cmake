# The programs around the library. All of them land in bin/ of the build directory and run from there.
#
#   orv_host_code(<target>)              the house's flags for code around the library
#   orv_program(<target> <sources>...)   an executable under these flags that stands on the library
#   orv_test(<folder>)                   one executable of all tests/<folder>/*_test.cpp, label = folder

# The daily build optimises the library as it is shipped, and what stands around it less: that takes most of the time.
function(orv_host_code target)
    orv_own_code(${target})
    target_compile_options(${target} PRIVATE $<$<CONFIG:Dev>:-O1>)
endfunction()

function(orv_program target)
    add_executable(${target} ${ARGN})
    orv_host_code(${target})
    target_link_libraries(${target} PRIVATE OrvLumGeom::OrvLumGeom)
    set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
endfunction()

# A test finds data by ORV_SOURCE_DIR and the example programs by ORV_PROGRAM_DIR.
function(orv_test folder)
    file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*_test.cpp")
    if(NOT sources)
        return()
    endif()
    orv_program(${folder}_tests ${sources})
    target_include_directories(${folder}_tests PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}")
    target_compile_definitions(${folder}_tests PRIVATE
        ORV_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
        ORV_PROGRAM_DIR="${PROJECT_BINARY_DIR}/bin")
    target_link_libraries(${folder}_tests PRIVATE GTest::gmock_main)
    # Asked for its cases when the tests run, so that building never runs anything.
    gtest_discover_tests(${folder}_tests
        DISCOVERY_MODE PRE_TEST
        DISCOVERY_TIMEOUT 300
        TEST_PREFIX "${folder}."
        PROPERTIES LABELS ${folder} TIMEOUT 300)
endfunction()
