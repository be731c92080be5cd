# Run by cpack (3.19 and later) before packages are made of what is installed in its temporary folder.

# Packages have manual pages compressed; a plain installation leaves them as they are.
file(GLOB_RECURSE pages "${CPACK_TEMPORARY_DIRECTORY}/*${CPACK_PACKAGING_INSTALL_PREFIX}/share/man/*.[1-9]")
foreach(page ${pages})
    execute_process(COMMAND gzip -9 -n ${page} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
