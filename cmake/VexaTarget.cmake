# vexa_configure_target(<target>)
#
# What every target of ours is compiled with: C++17 without extensions, hidden visibility, strict
# warnings, and source paths that begin at the source tree, so that the place of a failed check is the
# same from every build. All of it is private to the target, so that nothing reaches a consumer.

set(VEXA_WARNINGS
    -Wall
    -Wextra
    -Wpedantic
    -Wcast-align
    -Wcast-qual
    -Wconversion
    -Wdouble-promotion
    -Wextra-semi
    -Wformat=2
    -Wimplicit-fallthrough
    -Wmissing-declarations
    -Wnon-virtual-dtor
    -Wold-style-cast
    -Woverloaded-virtual
    -Wshadow
    -Wsign-conversion
    -Wundef
    -Wunused)

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    list(APPEND VEXA_WARNINGS
        -Wduplicated-branches
        -Wduplicated-cond
        -Wlogical-op
)
elseif(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    # The test framework's parametrised suites are macros called without their variadic part.
    list(APPEND VEXA_WARNINGS
        -Wloop-analysis
        -Wunreachable-code
        -Wno-gnu-zero-variadic-macro-arguments)
else()
    set(VEXA_WARNINGS)
endif()

# A compiler cache may turn absolute paths into relative ones.
set(VEXA_SOURCE_PATHS)
if(VEXA_WARNINGS)
    file(RELATIVE_PATH vexa_way_up "${PROJECT_BINARY_DIR}" "${PROJECT_SOURCE_DIR}")
    set(VEXA_SOURCE_PATHS
        "-fmacro-prefix-map=${vexa_way_up}="
        "-fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=")
endif()

function(vexa_configure_target target)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        COMPILE_WARNING_AS_ERROR ${VEXA_WERROR})
    target_compile_features(${target} PRIVATE cxx_std_17)
    target_compile_options(${target} PRIVATE ${VEXA_WARNINGS} ${VEXA_SOURCE_PATHS})
endfunction()
