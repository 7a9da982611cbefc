# The library and its modules.
#
#   orv_library()                     declares the shared library; src/CMakeLists.txt calls it once
#   orv_layers(base idb "wip mdl")    takes in the modules bottom-up; those of one string do not know each other
#   orv_module(<name> USES ... PUBLIC_HEADERS ... PRIVATE_HEADERS ... SOURCES ...)
#                                     the table in each src/<name>/CMakeLists.txt, kept by tools/module_table
#
# A module is an object library: it is compiled apart, and all of them are joined into the one shared library.

function(orv_library)
    add_library(OrvLumGeom SHARED)
    add_library(OrvLumGeom::OrvLumGeom ALIAS OrvLumGeom)
    set_target_properties(OrvLumGeom PROPERTIES
        LINKER_LANGUAGE CXX
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")  # a DLL is looked for beside the program
    target_compile_features(OrvLumGeom PUBLIC cxx_std_20)
    target_sources(OrvLumGeom PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}/src")

    # a*b+c must round twice. A contracted form rounds once, so the same inline comparison could tell "inside" in the
    # library and "outside" in its host: whoever compiles our headers compiles them as we do.
    target_compile_options(OrvLumGeom PUBLIC $<$<CXX_COMPILER_ID:GNU,Clang,AppleClang>:-ffp-contract=off>)

    # Nothing is linked but the C++ runtime, and a name that nobody defines is our fault, to be told at this link.
    # (Clang leaves the sanitizers' names
    # to the program, so not in the fuzz build.)
    if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
        target_link_options(OrvLumGeom PRIVATE
            $<$<NOT:$<BOOL:${ORVLUMGEOM_BUILD_FUZZ}>>:LINKER:-z,defs> LINKER:--as-needed)
    endif()
endfunction()

function(orv_layers)
    foreach(layer IN LISTS ARGN)
        separate_arguments(modules UNIX_COMMAND "${layer}")
        foreach(module IN LISTS modules)
            if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${module}/CMakeLists.txt")
                add_subdirectory(${module})
            endif()
        endforeach()
    endforeach()
endfunction()

function(orv_module name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "USES;PUBLIC_HEADERS;PRIVATE_HEADERS;SOURCES")
    if(arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "module ${name}: what is ${arg_UNPARSED_ARGUMENTS}?")
    endif()
    foreach(used IN LISTS arg_USES)
        if(NOT TARGET orv_${used})
            message(FATAL_ERROR "module ${name} uses ${used}, which is not below it")
        endif()
    endforeach()

    list(TRANSFORM arg_PUBLIC_HEADERS PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
    add_library(orv_${name} OBJECT ${arg_SOURCES} ${arg_PUBLIC_HEADERS} ${arg_PRIVATE_HEADERS})
    set_target_properties(orv_${name} PROPERTIES LINKER_LANGUAGE CXX)
    orv_own_code(orv_${name})
    target_compile_definitions(orv_${name} PRIVATE ORVLUMGEOM_BUILDING)
    target_include_directories(orv_${name} PRIVATE "${PROJECT_SOURCE_DIR}/src")
    target_compile_options(orv_${name} PRIVATE
        $<TARGET_PROPERTY:OrvLumGeom,INTERFACE_COMPILE_OPTIONS>
        # Exceptions tell where they were thrown: by names of our sources, not by folders of the machine that built them.
        $<$<CXX_COMPILER_ID:GNU,Clang,AppleClang>:-fmacro-prefix-map=${PROJECT_SOURCE_DIR}/src/=>
        # Nobody reads errno after a root, and setting it keeps roots from being computed side by side. No value changes.
        $<$<CXX_COMPILER_ID:GNU,Clang,AppleClang>:-fno-math-errno>
        # GCC marks static data of inline functions as unique in the process, and the loader never unloads a library
        # that holds such a symbol. Ours must come and go with its host.
        $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>
        # Calls within one source may be inlined although the callee is exported; nobody replaces our functions one by
        # one. Worth a quarter of the time of reading a stream.
        $<$<CXX_COMPILER_ID:GNU>:-fno-semantic-interposition>
        # GCC 12 joins neighbouring statements into vector operations and then takes double to float to double, in
        # vectors, for nothing: the rounding is lost. (out[0] = float(in[0]); out[1] = float(in[1]); shows it.)
        $<$<CXX_COMPILER_ID:GNU>:-fno-tree-slp-vectorize>)

    target_sources(OrvLumGeom
        PRIVATE $<TARGET_OBJECTS:orv_${name}>
        PUBLIC FILE_SET HEADERS FILES ${arg_PUBLIC_HEADERS})
endfunction()
