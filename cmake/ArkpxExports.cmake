# One list of the exported names makes the linker's input on both platforms.
set(ARKPX_EXPORTS "${PROJECT_SOURCE_DIR}/src/arkpx.exports")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${ARKPX_EXPORTS}")
file(STRINGS "${ARKPX_EXPORTS}" names)

list(JOIN names ";\n    " joined)
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/arkpx.map" CONTENT
"ARKPX_@PROJECT_VERSION_MAJOR@ {
global:
    @joined@;
local:
    *;
};
" @ONLY)

list(JOIN names "\n    " joined)
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/arkpx.def" CONTENT
"LIBRARY arkpx.dll
EXPORTS
    @joined@
" @ONLY)
