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
    if(ARKPX_SANITIZE)
        set(sanitize -fsanitize=${ARKPX_SANITIZE} -fno-omit-frame-pointer)
        target_compile_options(${target} PRIVATE ${sanitize}
            $<$<BOOL:$<FILTER:${ARKPX_SANITIZE},INCLUDE,undefined>>:-fno-sanitize-recover=undefined>)
        target_link_options(${target} PRIVATE ${sanitize})
    endif()
endfunction()
