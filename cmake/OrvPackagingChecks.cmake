# Read by cpack before it makes a package.

# Paths within a package are fixed when the build is configured, those of libraries above all.
if(CPACK_GENERATOR STREQUAL "DEB" AND NOT CPACK_ORVRTF_CONFIGURED_PREFIX STREQUAL "/usr")
    message(FATAL_ERROR "Debian packages are made of a build that is configured with "
        "-DCMAKE_INSTALL_PREFIX=/usr, as scripts/package.sh does.")
endif()
