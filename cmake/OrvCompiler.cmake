# How everything of this project is compiled: `orv_own_code(target)` says it for one target.

if(PROJECT_IS_TOP_LEVEL AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(ORV_CCACHE ccache)
    mark_as_advanced(ORV_CCACHE)
    if(ORV_CCACHE)
        set(CMAKE_CXX_COMPILER_LAUNCHER "${ORV_CCACHE}")
    endif()
endif()

# Standard, visibility and warnings. Warnings are for those who work on this project: whoever takes it in as a
# subdirectory has other compilers and other worries. `cmake --compile-no-warning-as-error` lets them pass at home too.
function(orv_own_code target)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        POSITION_INDEPENDENT_CODE ON)
    # For Windows this would drop the inline functions of exported classes from the DLL, where hosts look for those of
    # explicitly instantiated templates.
    if(NOT WIN32)
        set_target_properties(${target} PROPERTIES VISIBILITY_INLINES_HIDDEN ON)
    endif()
    target_compile_features(${target} PUBLIC cxx_std_20)
    if(PROJECT_IS_TOP_LEVEL)
        set_target_properties(${target} PROPERTIES COMPILE_WARNING_AS_ERROR ON)
        target_compile_options(${target} PRIVATE
            -Wall -Wextra -Wpedantic -Wconversion -Wshadow
            # Clang counts changes of sign among the conversions and GCC does not: ask both the same.
            $<$<CXX_COMPILER_ID:Clang>:-Wno-sign-conversion>
            # GCC 12 guesses these two across inlined code and accuses std::vector and a replaced operator new of what
            # they do not do. The address sanitizer, which sees it happen, is the judge.
            $<$<CXX_COMPILER_ID:GNU>:-Wno-free-nonheap-object;-Wno-mismatched-new-delete>)
    endif()
endfunction()
