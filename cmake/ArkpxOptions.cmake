if(ARKPX_TOP_LEVEL)
    # A compiler cache, where there is one, makes the next build of the same sources quick.
    find_program(ARKPX_CCACHE ccache)
    mark_as_advanced(ARKPX_CCACHE)
    if(ARKPX_CCACHE AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
        set(CMAKE_C_COMPILER_LAUNCHER "${ARKPX_CCACHE}")
        set(CMAKE_CXX_COMPILER_LAUNCHER "${ARKPX_CCACHE}")
    endif()
    # Windows looks for DLLs beside the program.
    if(WIN32)
        set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
    endif()
endif()

# arkpx_options(TARGET): language level, warnings, arithmetic and sanitizers, for this project's own targets only.
function(arkpx_options target)
    target_compile_features(${target} PRIVATE cxx_std_20 c_std_99)
    set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow
        $<$<COMPILE_LANGUAGE:CXX>:-Wconversion>
        $<$<BOOL:${ARKPX_WERROR}>:-Werror>
        # Every product and sum is rounded on its own, on every processor alike.
        -ffp-contract=off)
    # 32-bit x86: SSE2 arithmetic gives the results of the 64-bit builds; callers may keep a stack aligned to 4 bytes
    # only; MMX registers must never be used for short vectors, since nobody would switch back to x87 afterwards.
    if(CMAKE_SIZEOF_VOID_P EQUAL 4)
        target_compile_options(${target} PRIVATE -msse2 -mfpmath=sse -mstackrealign -mno-mmx)
    endif()
    if(WIN32) # windows.h without the names that get into the way of C++
        target_compile_definitions(${target} PRIVATE WIN32_LEAN_AND_MEAN NOMINMAX)
    endif()
    if(ARKPX_SANITIZE)
        set(sanitize -fsanitize=${ARKPX_SANITIZE} -fno-omit-frame-pointer)
        if(ARKPX_SANITIZE MATCHES "undefined")
            list(APPEND sanitize -fno-sanitize-recover=undefined)
            if(CMAKE_CXX_COMPILER_ID MATCHES "Clang") # a check whose run-time part is not linked into C programs
                list(APPEND sanitize -fno-sanitize=function)
            endif()
        endif()
        target_compile_options(${target} PRIVATE ${sanitize})
        target_link_options(${target} PRIVATE ${sanitize})
    endif()
endfunction()
