# Debian packages of the build, made by the target `package`: libarkpx0, the shared library, and libarkpx-dev, what programs
# are built with. Their names, like everything else, follow from the project's version and from src/arkpx.exports.
if(NOT UNIX OR APPLE)
    return()
endif()
find_program(GZIP gzip)
if(NOT GZIP)
    return()
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_NAME libarkpx)
set(CPACK_PACKAGE_CONTACT "The arkpx maintainers <maintainers@arkpx.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 0arkpx1) # below any of Debian's own
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

set(runtime libarkpx${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${runtime})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "one-dimensional signal processing (shared library)
Functions on arrays of floats, doubles, complex numbers and 16-bit integers:
vector arithmetic, conversion, companding, generators, windows, Fourier and
other transforms, FIR, IIR and LMS filters, convolution. They use the
processor's vector units and need no other library.
.
This package holds the shared library.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libarkpx-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${runtime} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}), libc6-dev")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "one-dimensional signal processing (development files)
Functions on arrays of floats, doubles, complex numbers and 16-bit integers:
vector arithmetic, conversion, companding, generators, windows, Fourier and
other transforms, FIR, IIR and LMS filters, convolution. They use the
processor's vector units and need no other library.
.
This package holds the headers, the static library, the CMake package and the
pkg-config file.")

# What Debian wants of each package: its licence, its changes, and for the library a list of its symbols.
set(folder "${PROJECT_BINARY_DIR}/debian")
file(READ "${PROJECT_SOURCE_DIR}/LICENSE" licence)
string(REGEX REPLACE "^MIT License\n+" "" licence "${licence}")
string(REGEX MATCH "Copyright \\(c\\) ([^\n]*)" unused "${licence}")
set(holder "${CMAKE_MATCH_1}")
string(REGEX REPLACE "^Copyright[^\n]*\n+" "" licence "${licence}")
string(STRIP "${licence}" licence)
string(REPLACE "\n\n" "\n.\n" licence "${licence}")
string(REPLACE "\n" "\n " licence "${licence}")
file(CONFIGURE OUTPUT "${folder}/copyright" @ONLY CONTENT
"Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/
Upstream-Name: arkpx

Files: *
Copyright: @holder@
License: Expat

License: Expat
 @licence@
")
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(CONFIGURE OUTPUT "${folder}/changelog.Debian" @ONLY CONTENT
"libarkpx (@PROJECT_VERSION@-@CPACK_DEBIAN_PACKAGE_RELEASE@) unstable; urgency=medium

  * Packages of release @PROJECT_VERSION@.

 -- @CPACK_PACKAGE_CONTACT@  @date@
")
execute_process(COMMAND "${GZIP}" -9nkf "${folder}/changelog.Debian" COMMAND_ERROR_IS_FATAL ANY)
configure_file("${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${folder}/changelog" COPYONLY)
execute_process(COMMAND "${GZIP}" -9nkf "${folder}/changelog" COMMAND_ERROR_IS_FATAL ANY)

file(STRINGS "${ARKPX_EXPORTS}" names)
set(version "ARKPX_${PROJECT_VERSION_MAJOR}")
list(TRANSFORM names REPLACE "(.+)" " \\1@${version} ${PROJECT_VERSION}")
list(SORT names)
list(JOIN names "\n" names)
file(WRITE "${folder}/symbols"
"libarkpx.so.${PROJECT_VERSION_MAJOR} ${runtime} #MINVER#
 ${version}@${version} ${PROJECT_VERSION}
${names}
")
file(WRITE "${folder}/shlibs" "libarkpx ${PROJECT_VERSION_MAJOR} ${runtime} (>= ${PROJECT_VERSION})\n")
# The trigger is today's way. CPack adds the scripts that were used before it, and cannot be told not to.
file(WRITE "${folder}/triggers" "activate-noawait ldconfig\n")
file(WRITE "${folder}/${runtime}" "${runtime}: maintscript-calls-ldconfig *\n")
install(FILES "${folder}/${runtime}" DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/lintian/overrides" COMPONENT runtime)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${folder}/symbols" "${folder}/shlibs" "${folder}/triggers")

foreach(component runtime development)
    string(TOUPPER ${component} upper)
    install(FILES "${folder}/copyright" "${folder}/changelog.Debian.gz" "${folder}/changelog.gz"
            DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME}"
            COMPONENT ${component})
endforeach()
include(CPack)
