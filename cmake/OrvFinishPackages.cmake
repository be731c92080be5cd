# Run by cpack (3.19 and later) when the packages are made.

# cpack gives packages with libraries scripts that run ldconfig. The trigger sees to that, once for all packages that
# are installed together and without a shell.
foreach(package ${CPACK_PACKAGE_FILES})
    if(package MATCHES "/${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME}_[^/]*\\.deb$")
        set(unpacked ${package}.unpacked)
        execute_process(COMMAND dpkg-deb --raw-extract ${package} ${unpacked} COMMAND_ERROR_IS_FATAL ANY)
        file(REMOVE ${unpacked}/DEBIAN/postinst ${unpacked}/DEBIAN/postrm)
        execute_process(COMMAND dpkg-deb --root-owner-group -Zxz --build ${unpacked} ${package}
            OUTPUT_QUIET
            COMMAND_ERROR_IS_FATAL ANY)
        file(REMOVE_RECURSE ${unpacked})
    endif()
endforeach()
